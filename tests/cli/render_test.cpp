// "schichtkalender render" as a user calls it: PNG and PDF files, and the
// German messages with exit status 2 for bad options.
#include <cairo.h>
#include <gtest/gtest.h>

#include <string>

#include "marks/calendar_markings.hpp"
#include "marks/shift_markings.hpp"
#include "notes/note_keys.hpp"
#include "notes/note_store.hpp"
#include "test_support.hpp"

namespace sk::cli {
namespace {

std::string render(const std::string& arguments) {
    return "FONTCONFIG_FILE='" + sk::test::source_path("view/fonts.conf").string() + "' '" +
           sk::test::program() + "' render " + arguments;
}

TEST(RenderCommand, WritesAPngOfThePageSize) {
    sk::test::TempDir dir;
    const auto png = dir / "seite.png";
    struct Case { const char* options; int width_cells; };
    // DejaVu Sans 10: cells of 8 x 16 pixels; FreeSans 10 for the plan: 7 x 15.
    for (const Case c : {Case{"--columns 6", 126}, Case{"--columns 23", 432}, Case{"--columns 1", 36}}) {
        const auto result = sk::test::run_command(
            render("--out '" + png.string() + "' --month 2024-05 --font 'DejaVu Sans 10' " + c.options));
        ASSERT_EQ(result.status, 0) << result.err;
        cairo_surface_t* image = cairo_image_surface_create_from_png(png.c_str());
        ASSERT_EQ(cairo_surface_status(image), CAIRO_STATUS_SUCCESS);
        EXPECT_EQ(cairo_image_surface_get_width(image), 8 * c.width_cells) << c.options;
        EXPECT_EQ(cairo_image_surface_get_height(image), 16 * 40) << c.options;
        cairo_surface_destroy(image);
    }
    const auto plan = sk::test::run_command(
        render("--out '" + png.string() + "' --model 5 --columns 6 --font 'DejaVu Sans 10'"));
    ASSERT_EQ(plan.status, 0) << plan.err;
    cairo_surface_t* image = cairo_image_surface_create_from_png(png.c_str());
    EXPECT_EQ(cairo_image_surface_get_width(image), 7 * 126);
    EXPECT_EQ(cairo_image_surface_get_height(image), 15 * 40);
    cairo_surface_destroy(image);
}

TEST(RenderCommand, WritesALandscapePdfPage) {
    sk::test::TempDir dir;
    struct Case { const char* paper; const char* media_box; };
    for (const Case c : {Case{"", "/MediaBox [ 0 0 841.889764 595.275591 ]"},
                         Case{"--paper A3", "/MediaBox [ 0 0 1190.551181 841.889764 ]"},
                         Case{"--paper a4", "/MediaBox [ 0 0 841.889764 595.275591 ]"}}) {
        const auto pdf = dir / "seite.PDF";
        const auto result = sk::test::run_command(
            render("--out '" + pdf.string() + "' --month 2024-01 --model 7 --columns 12 " + c.paper));
        ASSERT_EQ(result.status, 0) << result.err;
        const std::string bytes = sk::test::read_bytes(pdf);
        EXPECT_EQ(bytes.rfind("%PDF-", 0), 0u);
        EXPECT_NE(bytes.find(c.media_box), std::string::npos) << c.paper;
        EXPECT_NE(bytes.find("/Count 1"), std::string::npos);  // one page
    }
}

TEST(RenderCommand, BadOptionsEndWithAGermanMessage) {
    sk::test::TempDir dir;
    const std::string out = "--out '" + (dir / "x.png").string() + "' ";
    struct Case { std::string arguments; const char* message; };
    const Case cases[] = {
        {"", "die Ausgabedatei fehlt"},
        {"--out seite.jpg", "muss auf .png oder .pdf enden"},
        {out + "--month 2024-13", "kein gültiger Monat für --month"},
        {out + "--month 1969-12", "kein gültiger Monat für --month"},
        {out + "--month 2037-08", "kein gültiger Monat für --month"},
        {out + "--month 2024-5", "kein gültiger Monat für --month"},
        {out + "--columns 0", "kein gültiger Wert für --columns"},
        {out + "--columns 24", "kein gültiger Wert für --columns"},
        {out + "--model 8", "kein gültiger Wert für --model"},
        {out + "--font DejaVu", "keine gültige Schrift für --font"},
        {out + "--font 'DejaVu Sans 200'", "keine gültige Schrift für --font"},
        {out + "--paper A3", "--paper gilt nur für PDF-Dateien"},
        {"--out x.pdf --paper A5", "kein gültiges Papierformat"},
        {out + "--month 2024-05 --columns 2 --cursor 2024-07-01", "liegt nicht auf der Seite"},
        {out + "--cursor 2024-02-30", "kein gültiges Datum für --cursor"},
        {out + "--farbe rot", "unbekannte Option --farbe"},
        {out + "extra", "unerwartetes Argument \"extra\""},
    };
    for (const Case& c : cases) {
        const auto result = sk::test::run_command(render(c.arguments));
        EXPECT_EQ(result.status, 2) << c.arguments;
        EXPECT_NE(result.err.find(c.message), std::string::npos) << c.arguments << "\n" << result.err;
        EXPECT_EQ(result.err.rfind("schichtkalender render: ", 0), 0u) << result.err;
    }
    EXPECT_FALSE(std::filesystem::exists(dir / "x.png"));
}

TEST(RenderCommand, UnwritableFileFailsWithStatusOne) {
    sk::test::TempDir dir;
    for (const char* name : {"fehlt/seite.png", "fehlt/seite.pdf"}) {
        const auto result = sk::test::run_command(render("--out '" + (dir / name).string() + "'"));
        EXPECT_EQ(result.status, 1) << name;
        EXPECT_NE(result.err.find("kann nicht geschrieben werden"), std::string::npos) << result.err;
    }
}

TEST(RenderCommand, ReadsTheUsersSettings) {
    sk::test::TempDir dir;
    std::filesystem::create_directories(dir / "Otto");
    // Settings file in ISO-8859-15: 8 columns, FreeSans 9, model 2.
    sk::test::write_bytes(dir / "Otto" / "Einstellungen.dat",
                          "[Programmeinstellungen]\nFontname = FreeSans\nFontgr\xf6\xdf" "e = 9\n"
                          "Schichtspalten = 8\nSchichtart = 2\n");
    const auto png = dir / "seite.png";
    const auto result = sk::test::run_command(render("--out '" + png.string() + "' --data-dir '" +
                                                     dir.path().string() + "' --user Otto"));
    ASSERT_EQ(result.status, 0) << result.err;
    cairo_surface_t* image = cairo_image_surface_create_from_png(png.c_str());
    // FreeSans 9: cells of 7 x 13 pixels.
    EXPECT_EQ(cairo_image_surface_get_width(image), 7 * 162);
    EXPECT_EQ(cairo_image_surface_get_height(image), 13 * 40);
    cairo_surface_destroy(image);
}

// The user's data reach the page: a bar, a shift marking and a note each
// change it.
TEST(RenderCommand, DrawsTheUsersMarkingsAndNotes) {
    sk::test::TempDir dir;
    std::filesystem::create_directories(dir / "Programm");
    const auto render_png = [&](const std::string& name) {
        const auto png = dir / name;
        const auto result = sk::test::run_command(render("--out '" + png.string() + "' --month 2024-03 --data-dir '" +
                                                         dir.path().string() + "'"));
        EXPECT_EQ(result.status, 0) << result.err;
        return sk::test::read_bytes(png);
    };
    const std::string plain = render_png("ohne.png");
    marks::CalendarMarkings bars;
    bars.items = {{calendar::day_number(2024, 2, 4), calendar::day_number(2024, 2, 8), marks::rgb(0, 160, 0)}};
    sk::test::write_bytes(dir / "Programm" / marks::kCalendarMarkingsFile, marks::serialize_calendar_markings(bars));
    const std::string with_bar = render_png("balken.png");
    marks::ShiftMarkings shifts;
    shifts.items = {{calendar::day_number(2024, 2, 12), 1, marks::kind_a::kSick}};
    sk::test::write_bytes(dir / "Programm" / marks::kShiftMarkingsFile, marks::serialize_shift_markings(shifts));
    const std::string with_both = render_png("beide.png");
    notes::NoteStore store(dir / "Programm", "");
    ASSERT_FALSE(store.write_daily(notes::date_key(calendar::Day::from_date(2024, 2, 20)), "Notiz"));
    const std::string with_note = render_png("notiz.png");
    EXPECT_NE(plain, with_bar);
    EXPECT_NE(with_bar, with_both);
    EXPECT_NE(with_both, with_note);
}

}  // namespace
}  // namespace sk::cli
