// The program's windows as the main window opens them: which key or button
// opens which window, and what the window's answer does to the page.
#include <gdk/gdkkeysyms.h>

#include "app/choice_dialog.hpp"
#include "app/date_entry_dialog.hpp"
#include "app/export_dialog.hpp"
#include "app/model_chooser_dialog.hpp"
#include "export/csv_export.hpp"
#include "notes/note_keys.hpp"
#include "notes/note_store.hpp"
#include "window_fixture.hpp"

namespace sk::app::test {
namespace {

using calendar::Day;

Day date(int y, int m, int d) {
    return Day::from_date(y, m - 1, d);
}

struct OpenCase {
    guint key;
    const char* title;
};

TEST_F(WindowTest, KeysOpenTheirWindows) {
    start(date(2026, 11, 23));
    const OpenCase cases[] = {
        {GDK_KEY_F10, "Prog."},     {GDK_KEY_F12, "Info"},      {GDK_KEY_F8, "Datum"},
        {GDK_KEY_d, "Datum"},       {GDK_KEY_f, "Blockurlaub"}, {GDK_KEY_i, "Programminfo"},
        {GDK_KEY_a, "Anmelden"},    {GDK_KEY_F11, "Anmelden"},  {GDK_KEY_e, "Einstellungen"},
        {GDK_KEY_u, "Information"},  // no notes on the page
    };
    for (const OpenCase& c : cases) {
        m_messages.clear();
        key(c.key);
        ASSERT_EQ(m_messages.size(), 1u) << gdk_keyval_name(c.key);
        EXPECT_EQ(m_messages[0].title, c.title) << gdk_keyval_name(c.key);
    }
    EXPECT_EQ(m_messages[0].text, "Im angezeigten Zeitraum sind keine Notizen vorhanden!");
    m_messages.clear();
    window().button(Command::ProgMenu).clicked();
    ASSERT_EQ(m_messages.size(), 1u);
    EXPECT_EQ(m_messages[0].title, "Prog.");
    // Cancelled windows change nothing.
    EXPECT_EQ(state().page.cursor, date(2026, 11, 23));
}

// Ctrl+P opens the print dialog; cancelled, nothing changes.
TEST_F(WindowTest, CtrlPOpensThePrintDialog) {
    g_object_set(gtk_settings_get_default(), "gtk-print-backends", "file", nullptr);
    start(date(2026, 11, 23));
    m_messages.clear();
    key(GDK_KEY_p, GDK_CONTROL_MASK);
    EXPECT_EQ(m_messages.size(), 1u);
    EXPECT_EQ(state().page.cursor, date(2026, 11, 23));
}

TEST_F(WindowTest, TodaysNotesOpenAtTheStartAndTheOverviewOnU) {
    {
        notes::NoteStore store((std::filesystem::create_directories(user_dir()), user_dir()), "");
        store.write_daily(notes::date_key(date(2026, 11, 23)), "Zahnarzt 8 Uhr");
    }
    start(date(2026, 11, 23));
    ASSERT_EQ(m_messages.size(), 1u);
    EXPECT_EQ(m_messages[0].title, "Notizen für den 23.11.2026");
    key(GDK_KEY_u);
    ASSERT_EQ(m_messages.size(), 2u);
    EXPECT_EQ(m_messages[1].title, "Übersicht der Notizen");
}

TEST_F(WindowTest, DateEntriesMoveThePageOrTheVacationBlockForTheRun) {
    start(date(2026, 11, 23));
    std::string typed;
    m_answer = [&](Gtk::Dialog& dialog) {
        auto* entry = dynamic_cast<DateEntryDialog*>(&dialog);
        if (!entry) return false;
        entry->get_field().set_text(typed);
        dialog.response(Gtk::RESPONSE_OK);
        return true;
    };
    typed = "24.12.2030";
    key(GDK_KEY_d);
    EXPECT_EQ(state().page.cursor, date(2030, 12, 24));
    EXPECT_EQ(state().page.year, 2030);
    EXPECT_EQ(state().page.month_index, 11);

    typed = "01.05.2030";
    key(GDK_KEY_f);
    EXPECT_EQ(state().session.vacation_start.month, 5);
    EXPECT_EQ(state().session.vacation_start.day, 1);
    EXPECT_EQ(state().session.settings.vacation_start_month, 4);  // not saved

    const calendar::VacationOrder before = state().session.vacation_order;
    key(GDK_KEY_Y, GDK_SHIFT_MASK);
    EXPECT_NE(state().session.vacation_order, before);
    EXPECT_EQ(state().session.settings.vacation_cycle, 0);  // not saved
}

TEST_F(WindowTest, ProgWindowReachesTheCalendarChooser) {
    start(date(2026, 11, 23));
    m_answer = [&](Gtk::Dialog& dialog) {
        if (auto* chooser = dynamic_cast<ModelChooserDialog*>(&dialog)) {
            chooser->choose(ModelChooserDialog::position_of(7));
            return true;
        }
        if (auto* choice = dynamic_cast<ChoiceDialog*>(&dialog);
            choice && dialog.get_title() == "Prog.") {
            choice->choose(0);  // "Kalender"
            return true;
        }
        return false;
    };
    key(GDK_KEY_F10);
    EXPECT_EQ(state().page.model, 7);
    EXPECT_FALSE(window().button(Command::BlockToggle).get_visible());
}

// "Prog." - "Export": the window offers the shown months, the file chooser
// suggests a name and asks before replacing a file, Return takes the name
// in the folder chosen, and the file is what the command "csv" writes for
// the page.
TEST_F(WindowTest, ProgWindowExportsTheShownMonths) {
    start(date(2026, 11, 23));
    const std::filesystem::path folder = m_dir.path() / "Ablage";
    std::filesystem::create_directory(folder);
    bool chosen = false;
    m_answer = [&](Gtk::Dialog& dialog) {
        if (auto* choice = dynamic_cast<ChoiceDialog*>(&dialog);
            choice && dialog.get_title() == "Prog.") {
            choice->choose(7);  // "Export"
            return true;
        }
        if (auto* options = dynamic_cast<ExportDialog*>(&dialog)) {
            EXPECT_EQ(options->get_first_field().get_text(), "01.11.2026");
            EXPECT_EQ(options->get_last_field().get_text(), "30.04.2027");
            options->get_csv_button().set_active(true);
            dialog.response(Gtk::RESPONSE_OK);
            return true;
        }
        if (auto* chooser = dynamic_cast<Gtk::FileChooserDialog*>(&dialog)) {
            if (chosen) return true;  // still checking the name
            chosen = true;
            EXPECT_EQ(chooser->get_current_name(), "Schichtplan-2026-2027.csv");
            EXPECT_TRUE(chooser->get_do_overwrite_confirmation());
            chooser->set_current_folder(folder.string());
            EXPECT_TRUE(
                wait_until([&] { return chooser->get_current_folder() == folder.string(); }));
            send_key(*chooser, GDK_KEY_Return);
            return true;
        }
        return false;
    };
    key(GDK_KEY_F10);
    const std::filesystem::path file = folder / "Schichtplan-2026-2027.csv";
    ASSERT_TRUE(std::filesystem::exists(file));
    const exporting::ExportSource source =
        exporting::export_source(state().session, state().page.model, false);
    EXPECT_EQ(sk::test::read_bytes(file),
              exporting::csv_text(source, {date(2026, 11, 1), date(2027, 4, 30)}).text);
    ASSERT_FALSE(m_messages.empty());
    EXPECT_EQ(m_messages.back().title, "Information");
    EXPECT_EQ(m_messages.back().text,
              "Der Schichtplan vom 01.11.2026 bis zum 30.04.2027 wurde in "
              "die Datei \"" +
                  file.string() + "\" gespeichert.");
}

TEST_F(WindowTest, BackgroundColourIsThePagesForTheRun) {
    start(date(2026, 11, 23));
    m_answer = [](Gtk::Dialog& dialog) {
        auto* chooser = dynamic_cast<Gtk::ColorChooserDialog*>(&dialog);
        if (!chooser) return false;
        Gdk::RGBA colour;
        colour.set_rgba_u(236 * 257, 233 * 257, 216 * 257);
        chooser->set_rgba(colour);
        dialog.response(Gtk::RESPONSE_OK);
        return true;
    };
    key(GDK_KEY_h);
    EXPECT_EQ(window().page_view().page()->background, (calendar::Rgb{236, 233, 216}));
    key(GDK_KEY_F3);  // kept on the next page, and never in the settings
    EXPECT_EQ(window().page_view().page()->background, (calendar::Rgb{236, 233, 216}));
    m_answer = nullptr;
    key(GDK_KEY_h);  // cancelled: stays
    EXPECT_EQ(state().background, (calendar::Rgb{236, 233, 216}));
}

}  // namespace
}  // namespace sk::app::test
