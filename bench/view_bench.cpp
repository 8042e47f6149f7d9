// Speed of the calendar page: a full redraw (layout and painting into an
// image surface) of the largest page, 23 month columns with every display
// option on, 1,000 notes and 500 markings of each kind; and the layout and
// the painting alone.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>
#include <random>
#include <vector>

#include "view/page_output.hpp"
#include "view/page_painter.hpp"

namespace {

using namespace sk;
using calendar::DayNumber;

struct Bar {
    DayNumber start, end;
    std::uint32_t colour;
};

struct UserData {
    std::vector<DayNumber> notes;  // sorted
    std::vector<Bar> bars;         // sorted by start, searched like the marking list
    std::vector<std::pair<DayNumber, view::ShiftMark>> marks;  // sorted by day
};

std::shared_ptr<UserData> user_data(DayNumber first, DayNumber last) {
    auto data = std::make_shared<UserData>();
    std::mt19937 random(7);
    std::uniform_int_distribution<DayNumber> day(first - 300, last + 300);
    for (int i = 0; i < 1000; ++i) data->notes.push_back(day(random));
    for (int i = 0; i < 500; ++i) {
        const DayNumber start = day(random);
        data->bars.push_back({start, start + static_cast<DayNumber>(random() % 10), 0xA1C2EF});
        data->marks.push_back({day(random), {static_cast<int>(random() % 4) + 1, static_cast<int>(random() % 6)}});
    }
    std::sort(data->notes.begin(), data->notes.end());
    std::sort(data->bars.begin(), data->bars.end(), [](const Bar& a, const Bar& b) { return a.start < b.start; });
    std::sort(data->marks.begin(), data->marks.end(),
              [](const auto& a, const auto& b) { return a.first < b.first; });
    return data;
}

view::PageExtras extras(const std::shared_ptr<UserData>& data) {
    view::PageExtras e;
    e.has_notes = [data](const calendar::Day& d) {
        return std::binary_search(data->notes.begin(), data->notes.end(), d.number);
    };
    e.marking_colour = [data](DayNumber d) -> std::uint32_t {
        for (const Bar& b : data->bars)
            if (b.start <= d && d <= b.end) return b.colour;
        return 0;
    };
    e.shift_marking = [data](DayNumber d) -> std::optional<view::ShiftMark> {
        const auto it = std::lower_bound(data->marks.begin(), data->marks.end(), d,
                                         [](const auto& m, DayNumber x) { return m.first < x; });
        if (it == data->marks.end() || it->first != d) return std::nullopt;
        return it->second;
    };
    e.sky = [](DayNumber first, DayNumber last) {
        std::vector<view::DaySky> sky(static_cast<std::size_t>(last - first + 1));
        for (DayNumber d = first; d <= last; ++d) {
            view::DaySky& s = sky[static_cast<std::size_t>(d - first)];
            const int age = d % 30;  // a stand-in lunation
            if (age % 7 == 0 && age < 28) s.phase = static_cast<view::MoonPhase>(1 + age / 7);
            s.perigee = d % 27 == 3;
            s.apogee = d % 27 == 17;
        }
        return sky;
    };
    return e;
}

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
    std::shared_ptr<UserData> data;
    view::PageExtras extra;
    view::PageRenderer renderer{view::FontSpec{"DejaVu Sans", 10, 0}};
    Page() {
        const view::DayRange range = view::page_days(request);
        data = user_data(range.first, range.last);
        extra = extras(data);
    }
};

void BM_FullRedraw23Columns(benchmark::State& state) {
    Page page;
    view::PageLayout layout = page.renderer.layout(page.request, page.extra);  // shapes the texts once
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
