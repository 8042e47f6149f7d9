// "schichtkalender render" as a user calls it: PNG and PDF files of the
// user's page (the bad options are in cli_test.cpp).
#include <cairo.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "marks/calendar_markings.hpp"
#include "marks/shift_markings.hpp"
#include "notes/note_keys.hpp"
#include "notes/note_store.hpp"
#include "test_support.hpp"

namespace sk::cli {
namespace {

test::CommandResult render(const std::string& arguments) {
    return test::run_command("FONTCONFIG_FILE='" + test::source_path("view/fonts.conf").string() +
                             "' '" + test::program() + "' render " + arguments);
}

std::pair<int, int> png_size(const std::filesystem::path& png) {
    cairo_surface_t* image = cairo_image_surface_create_from_png(png.c_str());
    EXPECT_EQ(cairo_surface_status(image), CAIRO_STATUS_SUCCESS);
    const std::pair size{cairo_image_surface_get_width(image),
                         cairo_image_surface_get_height(image)};
    cairo_surface_destroy(image);
    return size;
}

// Cells of 8 x 16 pixels for DejaVu Sans 10, 7 x 15 for FreeSans 10 (the
// plan of model 5) and 7 x 13 for FreeSans 9 from the user's settings (8
// columns, model 2, in ISO-8859-15).
TEST(RenderCommand, WritesAPngSizedByTheOptionsOrTheUsersSettings) {
    test::TempDir dir;
    std::filesystem::create_directories(dir / "Otto");
    test::write_bytes(dir / "Otto" / "Einstellungen.dat",
                      "[Programmeinstellungen]\nFontname = FreeSans\nFontgr\xf6\xdf" "e = 9\n"
                      "Schichtspalten = 8\nSchichtart = 2\n");
    const auto png = dir / "seite.png";
    const struct { std::string options; int width, height; } cases[] = {
        {"--month 2024-05 --font 'DejaVu Sans 10' --columns 23", 8 * 432, 16 * 40},
        {"--model 5 --columns 6 --font 'DejaVu Sans 10'", 7 * 126, 15 * 40},
        {"--data-dir '" + dir.path().string() + "' --user Otto", 7 * 162, 13 * 40},
    };
    for (const auto& c : cases) {
        const auto result = render("--out '" + png.string() + "' " + c.options);
        ASSERT_EQ(result.status, 0) << result.err;
        EXPECT_EQ(png_size(png), std::pair(c.width, c.height)) << c.options;
    }
}

TEST(RenderCommand, WritesALandscapePdfPage) {
    test::TempDir dir;
    const auto pdf = dir / "seite.PDF";
    struct Case { const char* paper; const char* media_box; };
    for (const Case c : {Case{"", "/MediaBox [ 0 0 841.889764 595.275591 ]"},
                         Case{"--paper A3", "/MediaBox [ 0 0 1190.551181 841.889764 ]"},
                         Case{"--paper a4", "/MediaBox [ 0 0 841.889764 595.275591 ]"}}) {
        const auto result = render("--out '" + pdf.string() +
                                   "' --month 2024-01 --model 7 --columns 12 " + c.paper);
        ASSERT_EQ(result.status, 0) << result.err;
        const std::string bytes = test::read_bytes(pdf);
        EXPECT_EQ(bytes.rfind("%PDF-", 0), 0u);
        EXPECT_NE(bytes.find(c.media_box), std::string::npos) << c.paper;
        EXPECT_NE(bytes.find("/Count 1"), std::string::npos);  // one page
    }
}

TEST(RenderCommand, UnwritableFileFailsWithStatusOne) {
    test::TempDir dir;
    for (const char* name : {"fehlt/seite.png", "fehlt/seite.pdf"}) {
        const auto result = render("--out '" + (dir / name).string() + "'");
        EXPECT_EQ(result.status, 1) << name;
        EXPECT_NE(result.err.find("kann nicht geschrieben werden"), std::string::npos) << result.err;
    }
}

// The user's data reach the page: a bar, a shift marking and a note each
// change it.
TEST(RenderCommand, DrawsTheUsersMarkingsAndNotes) {
    test::TempDir dir;
    const auto user = dir / "Programm";
    std::filesystem::create_directories(user);
    const auto page = [&] {
        const auto png = dir / "seite.png";
        const auto result = render("--out '" + png.string() + "' --month 2024-03 --data-dir '" +
                                   dir.path().string() + "'");
        EXPECT_EQ(result.status, 0) << result.err;
        return test::read_bytes(png);
    };
    const std::string plain = page();
    marks::CalendarMarkings bars;
    bars.items = {{calendar::day_number(2024, 2, 4), calendar::day_number(2024, 2, 8),
                   marks::Rgb{0, 160, 0}}};
    ASSERT_TRUE(marks::save_calendar_markings(user, bars));
    const std::string with_bar = page();
    marks::ShiftMarkings shifts;
    shifts.items = {{calendar::day_number(2024, 2, 12), 1, marks::kind_a::kSick}};
    ASSERT_TRUE(marks::save_shift_markings(user, shifts));
    const std::string with_both = page();
    notes::NoteStore store(user, "");
    ASSERT_FALSE(store.write_daily(notes::date_key(calendar::Day::from_date(2024, 2, 20)), "Notiz"));
    EXPECT_NE(plain, with_bar);
    EXPECT_NE(with_bar, with_both);
    EXPECT_NE(with_both, page());
}

}  // namespace
}  // namespace sk::cli
