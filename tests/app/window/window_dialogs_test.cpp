// The program's windows as the main window opens them: which key or button
// opens which window, and what the window's answer does to the page.
#include "app/choice_dialog.hpp"
#include "app/date_entry_dialog.hpp"
#include "app/export_dialog.hpp"
#include "app/model_chooser_dialog.hpp"
#include "export/csv_export.hpp"
#include "window_fixture.hpp"

namespace sk::app::test {
namespace {

struct OpenCase {
    const char* keys;
    const char* title;
    const char* text;  // of a message box
};

// Each window cancelled (message boxes: "OK"); nothing changes.
TEST_F(WindowTest, KeysOpenTheirWindows) {
    g_object_set(gtk_settings_get_default(), "gtk-print-backends", "file", nullptr);
    const OpenCase cases[] = {
        {"F10", "Prog.", ""},
        {"F12", "Info", ""},
        {"F8", "Datum", ""},
        {"d", "Datum", ""},
        {"Shift+D", "Datum", ""},
        {"f", "Blockurlaub", ""},
        {"i", "Programminfo", ""},
        {"a", "Anmelden", ""},
        {"F11", "Anmelden", ""},
        {"e", "Einstellungen", ""},
        {"s", "Schriftart", ""},
        {"h", "Hintergrundfarbe", ""},
        {"Control+p", "Print", ""},  // GTK's own; German in the program itself
        {"u", "Information", "Im angezeigten Zeitraum sind keine Notizen vorhanden!"},
        {"4", "Information",
         "Die Verfügung kann nicht markiert werden, nur die Früh-, Spät- und Nachtschicht "
         "(Tasten 1, 2 und 3)."},
        {"z", "Information", "Die Kalender wurde in die Zwischenablage kopiert."},
    };
    start(date(2026, 11, 23));
    for (const OpenCase& c : cases) {
        SCOPED_TRACE(c.keys);
        m_messages.clear();
        key(c.keys);
        ASSERT_EQ(m_messages.size(), 1u);
        EXPECT_EQ(m_messages[0].title, c.title);
        EXPECT_EQ(m_messages[0].text, c.text);
    }
    EXPECT_EQ(state().page.cursor, date(2026, 11, 23));
    EXPECT_EQ(state().page.columns, 6);
    EXPECT_EQ(state().session.user, "Programm");
    EXPECT_FALSE(std::filesystem::exists(user_dir() / "Schichtmarkierung.dat"));
}

TEST_F(WindowTest, TodaysNotesOpenAtTheStartAndTheOverviewOnU) {
    write_daily(date(2026, 11, 23), "Zahnarzt 8 Uhr");
    start(date(2026, 11, 23));
    ASSERT_EQ(m_messages.size(), 1u);
    EXPECT_EQ(m_messages[0].title, "Notizen für den 23.11.2026");
    key("u");
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
    key("d");
    EXPECT_EQ(state().page.cursor, date(2030, 12, 24));
    EXPECT_EQ(state().page.year, 2030);
    EXPECT_EQ(state().page.month_index, 11);

    typed = "01.05.2030";
    key("f");
    EXPECT_EQ(state().session.vacation_start.month, 5);
    EXPECT_EQ(state().session.vacation_start.day, 1);
    EXPECT_EQ(state().session.settings.vacation_start_month, 4);  // not saved

    const calendar::VacationOrder before = state().session.vacation_order;
    key("Shift+Y");
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
    key("F10");
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
    key("F10");
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
    key("h");
    EXPECT_EQ(window().page_view().page()->background, (calendar::Rgb{236, 233, 216}));
    key("F3");  // kept on the next page, and never in the settings
    EXPECT_EQ(window().page_view().page()->background, (calendar::Rgb{236, 233, 216}));
    m_answer = nullptr;
    key("h");  // cancelled: stays
    EXPECT_EQ(state().background, (calendar::Rgb{236, 233, 216}));
}

}  // namespace
}  // namespace sk::app::test
