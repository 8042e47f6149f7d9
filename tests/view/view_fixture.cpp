#include "view_fixture.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <memory>

#include "test_support.hpp"

// Under LeakSanitizer: fontconfig keeps what it allocates while it builds
// its cache for the life of the process, on purpose.
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig.so\n"; }

namespace sk::view::test {

namespace {

// Makes the test fontconfig current before the first test creates a font map.
class FontEnvironment : public ::testing::Environment {
public:
    void SetUp() override {
        const std::string config = sk::test::source_path("view/fonts.conf").string();
        setenv("FONTCONFIG_FILE", config.c_str(), 1);
    }
};
[[maybe_unused]] const auto* const kFontEnvironment =
    ::testing::AddGlobalTestEnvironment(new FontEnvironment);

}  // namespace

FontSpec test_font() { return {"DejaVu Sans", 8, 0}; }

calendar::Day date(int year, int month, int mday) {
    return calendar::Day::from_date(year, month - 1, mday);
}

PageRequest request(int year, int month, int columns, int model) {
    PageRequest r;
    r.first_year = year;
    r.first_month_index = month - 1;
    r.columns = columns;
    r.model = model;
    r.today = date(2000, 1, 1);
    r.options = {};
    return r;
}

PageExtras sample_extras() {
    PageExtras e;
    e.has_notes = [](const calendar::Day& d) { return d.number % 9 == 0; };
    e.marking_colour = [](calendar::DayNumber d) -> std::uint32_t {
        if (d >= date(2024, 3, 4).number && d <= date(2024, 3, 10).number) return 0xA1C2EF;
        if (d >= date(2024, 4, 22).number && d <= date(2024, 5, 3).number) return 0x60A060;
        return 0;
    };
    auto marks = std::make_shared<std::map<calendar::DayNumber, ShiftMark>>(
        std::map<calendar::DayNumber, ShiftMark>{{date(2024, 3, 5).number, {1, 0}},
                                                 {date(2024, 3, 6).number, {2, 2}},
                                                 {date(2024, 3, 12).number, {3, 4}},
                                                 {date(2024, 4, 3).number, {4, 3}},
                                                 {date(2024, 4, 16).number, {1, 1}},
                                                 {date(2024, 5, 21).number, {2, 5}}});
    e.shift_marking = [marks](calendar::DayNumber d) -> std::optional<ShiftMark> {
        const auto it = marks->find(d);
        if (it == marks->end()) return std::nullopt;
        return it->second;
    };
    e.sky = [](calendar::DayNumber first, calendar::DayNumber last) {
        std::vector<DaySky> sky(static_cast<std::size_t>(std::max(0, last - first + 1)));
        const auto set = [&](const calendar::Day& d, auto change) {
            if (d.number >= first && d.number <= last) change(sky[static_cast<std::size_t>(d.number - first)]);
        };
        // Spring 2024; the full moon of 25 March carries a lunar eclipse here.
        set(date(2024, 3, 3), [](DaySky& s) { s.phase = MoonPhase::LastQuarter; });
        set(date(2024, 3, 10), [](DaySky& s) { s.phase = MoonPhase::NewMoon; s.perigee = true; });
        set(date(2024, 3, 17), [](DaySky& s) { s.phase = MoonPhase::FirstQuarter; });
        set(date(2024, 3, 23), [](DaySky& s) { s.apogee = true; });
        set(date(2024, 3, 25), [](DaySky& s) { s.phase = MoonPhase::FullMoon; s.lunar_eclipse = true; });
        set(date(2024, 4, 2), [](DaySky& s) { s.phase = MoonPhase::LastQuarter; });
        set(date(2024, 4, 7), [](DaySky& s) { s.perigee = true; });
        set(date(2024, 4, 8), [](DaySky& s) { s.phase = MoonPhase::NewMoon; s.solar_eclipse = true; });
        set(date(2024, 4, 15), [](DaySky& s) { s.phase = MoonPhase::FirstQuarter; });
        set(date(2024, 4, 20), [](DaySky& s) { s.apogee = true; });
        set(date(2024, 4, 23), [](DaySky& s) { s.phase = MoonPhase::FullMoon; });
        set(date(2024, 5, 1), [](DaySky& s) { s.phase = MoonPhase::LastQuarter; });
        set(date(2024, 5, 5), [](DaySky& s) { s.perigee = true; });
        set(date(2024, 5, 8), [](DaySky& s) { s.phase = MoonPhase::NewMoon; });
        set(date(2024, 5, 15), [](DaySky& s) { s.phase = MoonPhase::FirstQuarter; });
        set(date(2024, 5, 17), [](DaySky& s) { s.apogee = true; });
        set(date(2024, 5, 23), [](DaySky& s) { s.phase = MoonPhase::FullMoon; });
        set(date(2024, 5, 30), [](DaySky& s) { s.phase = MoonPhase::LastQuarter; s.aphelion = true; });
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
    const unsigned char* a = cairo_image_surface_get_data(actual);
    const unsigned char* e = cairo_image_surface_get_data(expected);
    const int sa = cairo_image_surface_get_stride(actual);
    const int se = cairo_image_surface_get_stride(expected);
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w; ++x) {
            const unsigned char* pa = a + y * sa + x * 4;
            const unsigned char* pe = e + y * se + x * 4;
            for (int c = 0; c < 3; ++c) {  // B, G, R; alpha is ignored
                if (std::abs(pa[c] - pe[c]) > tolerance) {
                    ++result.differing;
                    break;
                }
            }
        }
    }
    return result;
}

namespace {

// The actual page in grey with the differing pixels in red.
SurfacePtr difference_image(cairo_surface_t* actual, cairo_surface_t* expected, int tolerance) {
    const int w = cairo_image_surface_get_width(actual);
    const int h = cairo_image_surface_get_height(actual);
    SurfacePtr out(cairo_image_surface_create(CAIRO_FORMAT_RGB24, w, h));
    unsigned char* o = cairo_image_surface_get_data(out.get());
    const int so = cairo_image_surface_get_stride(out.get());
    const unsigned char* a = cairo_image_surface_get_data(actual);
    const unsigned char* e = cairo_image_surface_get_data(expected);
    const int sa = cairo_image_surface_get_stride(actual);
    const int se = cairo_image_surface_get_stride(expected);
    const int eh = cairo_image_surface_get_height(expected);
    const int ew = cairo_image_surface_get_width(expected);
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w; ++x) {
            const unsigned char* pa = a + y * sa + x * 4;
            unsigned char* po = o + y * so + x * 4;
            bool differs = y >= eh || x >= ew;
            if (!differs) {
                const unsigned char* pe = e + y * se + x * 4;
                for (int c = 0; c < 3; ++c) differs = differs || std::abs(pa[c] - pe[c]) > tolerance;
            }
            const auto grey = static_cast<unsigned char>(180 + (pa[0] + pa[1] + pa[2]) / 3 * 75 / 255);
            po[0] = differs ? 0 : grey;
            po[1] = differs ? 0 : grey;
            po[2] = differs ? 255 : grey;
            po[3] = 255;
        }
    }
    cairo_surface_mark_dirty(out.get());
    return out;
}

}  // namespace

std::string check_golden(const std::string& name, const PageLayout& layout) {
    constexpr int kTolerance = 24;     // per channel, 0..255
    constexpr long kAllowedPixels = 8; // antialiasing noise
    const SurfacePtr actual = render_image(layout);
    const std::filesystem::path golden = sk::test::source_path("view/golden/" + name + ".png");
    const char* update = std::getenv("SK_UPDATE_GOLDEN");
    if (update && std::string(update) == "1") {
        cairo_surface_write_to_png(actual.get(), golden.c_str());
        return {};
    }
    const SurfacePtr expected(cairo_image_surface_create_from_png(golden.c_str()));
    std::string problem;
    ImageDifference diff;
    if (cairo_surface_status(expected.get()) != CAIRO_STATUS_SUCCESS) {
        problem = "golden image " + golden.string() + " cannot be read";
    } else {
        diff = compare_images(actual.get(), expected.get(), kTolerance);
        if (!diff.same_size)
            problem = "size differs from " + golden.string();
        else if (diff.differing > kAllowedPixels)
            problem = std::to_string(diff.differing) + " pixels differ from " + golden.string();
    }
    if (problem.empty()) return {};
    const std::filesystem::path dir = std::filesystem::current_path() / "golden-output";
    std::filesystem::create_directories(dir);
    const auto actual_path = dir / (name + ".actual.png");
    cairo_surface_write_to_png(actual.get(), actual_path.c_str());
    problem += "; actual page: " + actual_path.string();
    if (diff.same_size) {
        const auto diff_path = dir / (name + ".diff.png");
        cairo_surface_write_to_png(difference_image(actual.get(), expected.get(), kTolerance).get(),
                                   diff_path.c_str());
        problem += ", differences in red: " + diff_path.string();
    }
    return problem;
}

}  // namespace sk::view::test
