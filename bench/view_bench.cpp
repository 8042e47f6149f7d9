// Speed of the calendar page: a full redraw (layout with the sky of the
// astronomy library, and painting into an image surface) of the largest
// page, 23 month columns with every display option on, 1,000 notes and 500
// markings of each kind; the layout alone, the sky alone and the painting
// alone.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <vector>

#include "sample_user_data.hpp"
#include "view/page_output.hpp"
#include "view/page_painter.hpp"
#include "view/page_sources.hpp"

namespace {

using namespace sk;
using calendar::DayNumber;

// The sample notes in a note directory of their own and the sample
// markings, spread over the page and the months around it.
struct UserData {
    std::filesystem::path directory;
    notes::NoteStore notes;
    bench::SampleMarkings marks;

    UserData(DayNumber first, DayNumber last)
        : directory(std::filesystem::temp_directory_path() /
                    ("sk-view-bench-" + std::to_string(::getpid()))),
          notes((std::filesystem::create_directories(directory), directory), ""),
          marks(bench::write_sample_notes(notes, first - 300, last + 300)) {}
    ~UserData() {
        std::error_code ec;
        std::filesystem::remove_all(directory, ec);
    }
    UserData(const UserData&) = delete;
    UserData& operator=(const UserData&) = delete;
};

view::PageRequest full_request() {
    view::PageRequest r;
    r.first_year = 2024;
    r.first_month_index = 0;
    r.columns = 23;
    r.model = 1;
    r.today = calendar::Day::from_date(2024, 5, 12);
    r.cursor = calendar::Day::from_date(2025, 2, 3);
    r.options = {true, true, true, true, true};
    return r;
}

struct Page {
    view::PageRequest request = full_request();
    UserData data{view::page_days(request).first, view::page_days(request).last};
    view::PageExtras extra =
        view::page_extras(settings::Settings{}, {data.notes, data.marks.bars, data.marks.shifts});
    view::PageRenderer renderer{view::FontSpec{"DejaVu Sans", 10, 0}};
};

// The page as after moving the cursor: the sky of the months is known.
void BM_FullRedraw23Columns(benchmark::State& state) {
    Page page;
    view::PageLayout layout =
        page.renderer.layout(page.request, page.extra);  // shapes the texts once
    const view::SurfacePtr surface(cairo_image_surface_create(
        CAIRO_FORMAT_RGB24, static_cast<int>(layout.width), static_cast<int>(layout.height)));
    for (auto _ : state) {
        layout = page.renderer.layout(page.request, page.extra);
        const view::CairoPtr cr(cairo_create(surface.get()));
        view::paint_page(cr.get(), layout);
        cairo_surface_flush(surface.get());
    }
    state.counters["texts"] = static_cast<double>(layout.texts.size());
}
BENCHMARK(BM_FullRedraw23Columns)->Unit(benchmark::kMillisecond);

// The page as after turning to other months: the sky is computed anew.
void BM_FullRedrawNewMonths23Columns(benchmark::State& state) {
    Page page;
    view::PageLayout layout = page.renderer.layout(page.request, page.extra);
    const view::SurfacePtr surface(cairo_image_surface_create(
        CAIRO_FORMAT_RGB24, static_cast<int>(layout.width), static_cast<int>(layout.height)));
    view::PageRequest other = page.request;
    other.first_month_index = 1;
    bool flip = false;
    for (auto _ : state) {
        layout = page.renderer.layout(flip ? other : page.request, page.extra);
        flip = !flip;
        const view::CairoPtr cr(cairo_create(surface.get()));
        view::paint_page(cr.get(), layout);
        cairo_surface_flush(surface.get());
    }
}
BENCHMARK(BM_FullRedrawNewMonths23Columns)->Unit(benchmark::kMillisecond);

void BM_Layout23Columns(benchmark::State& state) {
    Page page;
    benchmark::DoNotOptimize(page.renderer.layout(page.request, page.extra));
    for (auto _ : state) {
        view::PageLayout layout = page.renderer.layout(page.request, page.extra);
        benchmark::DoNotOptimize(layout);
    }
}
BENCHMARK(BM_Layout23Columns)->Unit(benchmark::kMicrosecond);

void BM_Paint23Columns(benchmark::State& state) {
    Page page;
    const view::PageLayout layout = page.renderer.layout(page.request, page.extra);
    const view::SurfacePtr surface(cairo_image_surface_create(
        CAIRO_FORMAT_RGB24, static_cast<int>(layout.width), static_cast<int>(layout.height)));
    for (auto _ : state) {
        const view::CairoPtr cr(cairo_create(surface.get()));
        view::paint_page(cr.get(), layout);
        cairo_surface_flush(surface.get());
    }
}
BENCHMARK(BM_Paint23Columns)->Unit(benchmark::kMillisecond);

// The sky of a page's range when the months change (the source keeps only
// the last range, so alternating pages always compute).
void BM_SkyOf23Months(benchmark::State& state) {
    Page page;
    const view::DayRange range = view::page_days(page.request);
    int shift = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(page.extra.sky(range.first + shift, range.last + shift));
        shift = 1 - shift;
    }
}
BENCHMARK(BM_SkyOf23Months)->Unit(benchmark::kMicrosecond);

// The first page after a font change: every text is shaped anew.
void BM_FirstPageWithNewFont(benchmark::State& state) {
    Page page;
    for (auto _ : state) {
        view::PageRenderer renderer(view::FontSpec{"DejaVu Sans", 10, 0});
        view::PageLayout layout = renderer.layout(page.request, page.extra);
        benchmark::DoNotOptimize(layout);
    }
}
BENCHMARK(BM_FirstPageWithNewFont)->Unit(benchmark::kMillisecond);

}  // namespace
