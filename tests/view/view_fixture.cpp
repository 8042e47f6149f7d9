#include "view_fixture.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <tuple>

#include "test_support.hpp"

// Under LeakSanitizer: fontconfig keeps what it allocates while it builds
// its cache for the life of the process, on purpose.
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig.so\n"; }

namespace sk::view::test {

// Makes the test fontconfig current before main(), so before any test
// creates a font map.
[[maybe_unused]] const int kFontConfig =
    setenv("FONTCONFIG_FILE", sk::test::source_path("view/fonts.conf").c_str(), 1);

FontSpec test_font() { return {"DejaVu Sans", 8, 0}; }

PageRequest request(int year, int month, int columns, int model) {
    PageRequest r;
    r.first_year = year;
    r.first_month_index = month - 1;
    r.columns = columns;
    r.model = model;
    r.today = date(2000, 1, 1);
    return r;
}

PageExtras sample_extras() {
    PageExtras e;
    e.has_notes = [](const calendar::Day& d) { return d.number % 9 == 0; };
    e.marking_colour = [](calendar::DayNumber d) -> std::optional<Rgb> {
        if (d >= date(2024, 3, 4).number && d <= date(2024, 3, 10).number)
            return Rgb{239, 194, 161};
        if (d >= date(2024, 4, 22).number && d <= date(2024, 5, 3).number) return Rgb{96, 160, 96};
        return std::nullopt;
    };
    e.shift_marking = [](calendar::DayNumber d) -> std::optional<ShiftMark> {
        static const std::map<calendar::DayNumber, ShiftMark> marks{
            {date(2024, 3, 5).number, {1, 0}},  {date(2024, 3, 6).number, {2, 2}},
            {date(2024, 3, 12).number, {3, 4}}, {date(2024, 4, 3).number, {4, 3}},
            {date(2024, 4, 16).number, {1, 1}}, {date(2024, 5, 21).number, {2, 5}}};
        const auto it = marks.find(d);
        return it == marks.end() ? std::nullopt : std::optional(it->second);
    };
    e.sky = [](calendar::DayNumber first, calendar::DayNumber last) {
        // Spring 2024; the full moon of 25 March carries a lunar eclipse here.
        using M = MoonPhase;
        const std::tuple<int, int, DaySymbols> spring[] = {  // month, day, sky
            {3, 3, {.phase = M::LastQuarter}},  {3, 10, {.phase = M::NewMoon, .perigee = true}},
            {3, 17, {.phase = M::FirstQuarter}}, {3, 23, {.apogee = true}},
            {3, 25, {.phase = M::FullMoon, .lunar_eclipse = true}},
            {4, 2, {.phase = M::LastQuarter}},  {4, 7, {.perigee = true}},
            {4, 8, {.phase = M::NewMoon, .solar_eclipse = true}},
            {4, 15, {.phase = M::FirstQuarter}}, {4, 20, {.apogee = true}},
            {4, 23, {.phase = M::FullMoon}},    {5, 1, {.phase = M::LastQuarter}},
            {5, 5, {.perigee = true}},          {5, 8, {.phase = M::NewMoon}},
            {5, 15, {.phase = M::FirstQuarter}}, {5, 17, {.apogee = true}},
            {5, 23, {.phase = M::FullMoon}},
            {5, 30, {.phase = M::LastQuarter, .aphelion = true}},
        };
        std::vector<DaySymbols> sky(static_cast<std::size_t>(std::max(0, last - first + 1)));
        for (const auto& [month, mday, s] : spring) {
            const calendar::DayNumber d = date(2024, month, mday).number;
            if (d >= first && d <= last) sky[static_cast<std::size_t>(d - first)] = s;
        }
        return sky;
    };
    return e;
}

ImageDifference compare_images(cairo_surface_t* actual, cairo_surface_t* expected, int tolerance) {
    ImageDifference result;
    const int w = cairo_image_surface_get_width(actual);
    const int h = cairo_image_surface_get_height(actual);
    if (w != cairo_image_surface_get_width(expected) || h != cairo_image_surface_get_height(expected))
        return result;
    result.same_size = true;
    cairo_surface_flush(actual);
    cairo_surface_flush(expected);
    const auto pixel = [](cairo_surface_t* s, int x, int y) {
        return cairo_image_surface_get_data(s) + y * cairo_image_surface_get_stride(s) + x * 4;
    };
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w; ++x) {
            const unsigned char* a = pixel(actual, x, y);
            const unsigned char* e = pixel(expected, x, y);
            bool differs = false;
            for (int c = 0; c < 3; ++c) differs = differs || std::abs(a[c] - e[c]) > tolerance;
            result.differing += differs;
        }
    }
    return result;
}

std::string check_golden(const std::string& name, const PageLayout& layout) {
    constexpr int kTolerance = 24;      // per channel, 0..255
    constexpr long kAllowedPixels = 8;  // antialiasing noise
    const SurfacePtr actual = render_image(layout);
    const std::filesystem::path golden = sk::test::source_path("view/golden/" + name + ".png");
    if (const char* update = std::getenv("SK_UPDATE_GOLDEN"); update && std::string(update) == "1") {
        cairo_surface_write_to_png(actual.get(), golden.c_str());
        return {};
    }
    const SurfacePtr expected(cairo_image_surface_create_from_png(golden.c_str()));
    if (cairo_surface_status(expected.get()) != CAIRO_STATUS_SUCCESS)
        return "golden image " + golden.string() + " cannot be read";
    const ImageDifference diff = compare_images(actual.get(), expected.get(), kTolerance);
    if (diff.same_size && diff.differing <= kAllowedPixels) return {};
    const std::filesystem::path dir = std::filesystem::current_path() / "golden-output";
    std::filesystem::create_directories(dir);
    const auto actual_path = dir / (name + ".actual.png");
    cairo_surface_write_to_png(actual.get(), actual_path.c_str());
    return (diff.same_size ? std::to_string(diff.differing) + " pixels differ from "
                           : std::string("size differs from ")) +
           golden.string() + "; actual page: " + actual_path.string();
}

}  // namespace sk::view::test
