// The window "Export" and the writing of "Prog." - "Export": the first
// choices for a page, the keyboard, what CSV switches off, and a file byte
// for byte the command's text. The file chooser and the CSV table are
// driven in the window tests.
#include "app/export_dialog.hpp"

#include <gtest/gtest.h>

#include <filesystem>

#include "app/export_actions.hpp"
#include "export/csv_export.hpp"
#include "gui_support.hpp"
#include "settings/settings_file.hpp"
#include "test_support.hpp"

namespace sk::app {
namespace {

using calendar::Day;
using exporting::ExportFormat;
using exporting::ExportRequest;
using test::cell;
using test::DialogAnswerer;
using test::parent_window;
using test::send_key;

Day date(int y, int m, int d) {
    return Day::from_date(y, m - 1, d);
}

calendar::PageState page_of(int model, int year, int month, int columns = 6) {
    calendar::PageState page;
    page.model = model;
    page.year = year;
    page.month_index = month - 1;
    page.columns = columns;
    page.cursor = date(year, month, 1);
    return page;
}

ExportRequest first_choices(int model) {
    return exporting::default_export_request(page_of(model, 2026, 3), 0);
}

// The crews as the page heads them; the fields show the page's months.
TEST(ExportDialog, CrewsAndDatesOfThePage) {
    struct Case {
        calendar::PageState page;
        int home_crew;
        std::vector<std::string> crews;
    };
    const Case cases[] = {
        {page_of(1, 2026, 3), 4, {"1", "2", "3", "4", "5"}},
        {page_of(7, 2037, 4), 0, {"A", "B", "C", "D"}},
    };
    for (const Case& c : cases) {
        const ExportRequest initial = exporting::default_export_request(c.page, c.home_crew);
        ExportDialog dialog(parent_window(), cell(), c.page.model, initial);
        std::vector<std::string> crews;
        for (int i = 0; dialog.get_crew_choice().set_active(i),
                 dialog.get_crew_choice().get_active_row_number() == i;
             ++i)
            crews.push_back(dialog.get_crew_choice().get_active_text());
        EXPECT_EQ(crews, c.crews);
        dialog.get_crew_choice().set_active(initial.crew);
        // get_request reads the fields' texts.
        EXPECT_EQ(dialog.get_request(), initial);
    }
}

// Alt+C and Alt+I switch the format; a CSV table holds every crew and no
// times or notes, so those are insensitive meanwhile. Alt+E saves.
TEST(ExportDialog, CsvSwitchesCrewTimesAndNotesOff) {
    ExportDialog dialog(parent_window(), cell(), 1, first_choices(1));
    auto ics_only = [&](bool sensitive) {
        for (Gtk::Widget* w : std::initializer_list<Gtk::Widget*>{
                 &dialog.get_crew_choice(), &dialog.get_times_box(), &dialog.get_notes_box()})
            EXPECT_EQ(w->get_sensitive(), sensitive) << test::accessible_name(*w);
        EXPECT_TRUE(dialog.get_last_field().get_sensitive());
    };
    const int response = test::run_dialog(dialog, [&] {
        ics_only(true);
        send_key(dialog, GDK_KEY_c, GDK_MOD1_MASK);
        ics_only(false);
        send_key(dialog, GDK_KEY_i, GDK_MOD1_MASK);
        ics_only(true);
        send_key(dialog, GDK_KEY_u, GDK_MOD1_MASK);  // times on, kept for iCalendar
        send_key(dialog, GDK_KEY_c, GDK_MOD1_MASK);
        send_key(dialog, GDK_KEY_e, GDK_MOD1_MASK);
    });
    EXPECT_EQ(response, Gtk::RESPONSE_OK);
    EXPECT_EQ(dialog.get_request().format, ExportFormat::Csv);
    EXPECT_TRUE(dialog.get_request().times);
}

// A last day before the first turns its field red with the core's hint, and
// nothing can be saved until it is corrected.
TEST(ExportDialog, LastDayNotBeforeTheFirst) {
    ExportDialog dialog(parent_window(), cell(), 1, first_choices(1));
    const int response = test::run_dialog(dialog, [&] {
        dialog.get_first_field().set_text("15.09.2026");
        EXPECT_FALSE(dialog.get_save_button().get_sensitive());
        EXPECT_EQ(dialog.get_hint(), "Das Datum darf nicht vor dem 15.09.2026 liegen.");
        send_key(dialog.get_last_field(), GDK_KEY_Return);  // no default while invalid
        dialog.get_last_field().set_text("15.9.2026");
        dialog.get_last_field().grab_focus();
        send_key(dialog.get_last_field(), GDK_KEY_Return);
    });
    EXPECT_EQ(response, Gtk::RESPONSE_OK);
    EXPECT_EQ(dialog.get_request().first, date(2026, 9, 15));
    EXPECT_EQ(dialog.get_request().last, date(2026, 9, 15));
}

class PlanExportTest : public ::testing::Test {
  protected:
    void SetUp() override {
        session.settings = settings::default_settings(dir.path().string());
        session::rotate_vacation_order(session);  // key Y: this run's order only
        session.notes = notes::NoteStore(dir.path(), "");
        ASSERT_FALSE(session.notes.write_daily(notes::date_key(date(2026, 3, 20)),
                                               "Betriebsversammlung\r\nHalle 3, Grüße"));
        session.notes.scan_all();
        session.shift_markings.items = {{date(2026, 3, 10).number, 1, 6}};
    }

    sk::test::TempDir dir;
    session::Session session;
};

// The iCalendar file of crew C (a CSV table is written in the window tests).
TEST_F(PlanExportTest, WrittenFileIsTheCommandsText) {
    DialogAnswerer information("Information", Gtk::RESPONSE_OK);
    const ExportRequest r{ExportFormat::ICalendar, 2,    date(2025, 10, 1),
                          date(2026, 3, 31),       true, true};
    const std::int64_t stamp = 1767225600;  // 2026-01-01 00:00 UTC
    const std::filesystem::path file = dir / "Export";
    EXPECT_TRUE(
        PlanExport(parent_window(), cell(), session, page_of(6, 2026, 3)).write(r, file, stamp));
    ASSERT_EQ(information.count(), 1);
    EXPECT_EQ(information.texts()[0],
              "Die Schichten der Schicht C vom 01.10.2025 bis zum 31.03.2026 wurden in die Datei "
              "\"" +
                  file.string() + "\" gespeichert.");
    const exporting::ExportSource source{{6, true, session.vacation_order, session.vacation_start},
                                         &session.shift_markings,
                                         &session.notes};
    EXPECT_EQ(sk::test::read_bytes(file),
              exporting::ics_text(source, {r.crew, r.first, r.last, r.times, r.notes, stamp}).text);
}

TEST_F(PlanExportTest, AFileThatCannotBeWrittenIsAnError) {
    DialogAnswerer error("Fehler", Gtk::RESPONSE_OK);
    const std::filesystem::path file = dir / "fehlt" / "a.ics";
    EXPECT_FALSE(PlanExport(parent_window(), cell(), session, page_of(1, 2026, 3))
                     .write(first_choices(1), file, 0));
    ASSERT_EQ(error.count(), 1);
    EXPECT_NE(error.texts()[0].find(file.string()), std::string::npos) << error.texts()[0];
}

// Escape in the window "Export" ends the export: no file chooser, no box.
TEST_F(PlanExportTest, EscapeWritesNothing) {
    DialogAnswerer boxes("Information", Gtk::RESPONSE_OK);
    bool written = true;
    test::play({test::press("Export", GDK_KEY_Escape)}, [&] {
        written = export_plan(parent_window(), cell(), session, page_of(1, 2026, 3));
    });
    EXPECT_FALSE(written);
    EXPECT_EQ(boxes.count(), 0);
}

}  // namespace
}  // namespace sk::app
