// The program's windows as the main window opens them: which key opens
// which window, and what the window's answer does to the page.
#include <sstream>

#include "app/choice_dialog.hpp"
#include "app/date_entry_dialog.hpp"
#include "app/export_dialog.hpp"
#include "app/model_chooser_dialog.hpp"
#include "export/csv_export.hpp"
#include "window_fixture.hpp"

namespace sk::app::test {
namespace {

struct OpenCase {
    const char* keys;  // alternatives separated by commas
    const char* title;
    const char* text;  // of a message box
};

// Each window cancelled (message boxes: "OK"); nothing changes. The keys
// act while a status field has the focus; F10 is no GTK menu-bar key.
TEST_F(WindowTest, KeysOpenTheirWindowsWhateverHasTheFocus) {
    const OpenCase cases[] = {
        {"F10", "Prog.", ""},
        {"F12", "Info", ""},
        {"F8,d,Shift+D", "Datum", ""},
        {"f", "Blockurlaub", ""},
        {"i", "Programminfo", ""},
        {"a,F11", "Anmelden", ""},
        {"e", "Einstellungen", ""},
        {"s", "Schriftart", ""},
        {"h", "Hintergrundfarbe", ""},
        {"u", "Information", "Im angezeigten Zeitraum sind keine Notizen vorhanden!"},
        {"4", "Information",
         "Die Verfügung kann nicht markiert werden, nur die Früh-, Spät- und Nachtschicht "
         "(Tasten 1, 2 und 3)."},
        {"z", "Information", "Die Kalender wurde in die Zwischenablage kopiert."},
    };
    start(date(2026, 11, 23));
    Gtk::Entry& notes = window().status_lines().field(StatusField::Notes);
    window().present();
    notes.grab_focus();
    ASSERT_TRUE(wait_until([&] { return notes.has_focus(); }, 2) || notes.is_focus());
    for (const OpenCase& c : cases) {
        std::istringstream alternatives(c.keys);
        for (std::string keys; std::getline(alternatives, keys, ',');) {
            SCOPED_TRACE(keys);
            m_messages.clear();
            key(keys);
            ASSERT_EQ(m_messages.size(), 1u);
            EXPECT_EQ(m_messages[0].title, c.title);
            EXPECT_EQ(m_messages[0].text, c.text);
        }
    }
    EXPECT_EQ(page(), "2026-11 2026-11-23 6 0");
    EXPECT_TRUE(notes.is_focus());
    key("n Right");
    EXPECT_EQ(page(), "2026-11 2026-12-23 6 3");
    EXPECT_EQ(notes.get_text(), "");
    EXPECT_EQ(Gtk::Settings::get_default()->property_gtk_menu_bar_accel().get_value(), "");
    EXPECT_EQ(state().session.user, "Programm");
    EXPECT_FALSE(std::filesystem::exists(user_dir() / "Schichtmarkierung.dat"));
}

// D and F (date entries), Y, H (background colour) and "Prog." - "Kalender"
// change the page; F, Y and H for this run only, never in the settings.
TEST_F(WindowTest, AnswersChangeThePage) {
    start(date(2026, 11, 23));
    std::string typed = "24.12.2030";
    answer<DateEntryDialog>([&](auto& d) {
        d.get_field().set_text(typed);
        d.response(Gtk::RESPONSE_OK);
    });
    answer<Gtk::ColorChooserDialog>([](auto& d) {
        d.set_rgba(Gdk::RGBA("rgb(236,233,216)"));
        d.response(Gtk::RESPONSE_OK);
    });
    answer<ChoiceDialog>([](auto& d) { d.choose(0); });  // "Prog." - "Kalender"
    answer<ModelChooserDialog>([](auto& d) { d.choose(ModelChooserDialog::position_of(7)); });
    key("d");
    EXPECT_EQ(page(), "2030-12 2030-12-24 6 0");

    typed = "01.05.2030";
    key("f");
    EXPECT_EQ(state().session.vacation_start.month, 5);
    EXPECT_EQ(state().session.vacation_start.day, 1);
    EXPECT_EQ(state().session.settings.vacation_start_month, 4);

    const calendar::VacationOrder before = state().session.vacation_order;
    key("Shift+Y");
    EXPECT_NE(state().session.vacation_order, before);
    EXPECT_EQ(state().session.settings.vacation_cycle, 0);

    key("h F3");  // kept on the next page
    EXPECT_EQ(window().page_view().page()->background, (calendar::Rgb{236, 233, 216}));

    key("F10");
    EXPECT_EQ(state().page.model, 7);
}

// "Prog." - "Export": the window offers the shown months, the file chooser
// suggests a name and asks before replacing a file, Return takes the name
// in the folder chosen, and the file is what the command "csv" writes for
// the page.
TEST_F(WindowTest, ProgWindowExportsTheShownMonths) {
    start(date(2026, 11, 23));
    const std::filesystem::path folder = m_dir.path() / "Ablage";
    std::filesystem::create_directory(folder);
    answer<ChoiceDialog>([](auto& d) { d.choose(7); });  // "Export"
    answer<ExportDialog>([](auto& d) {
        EXPECT_EQ(d.get_first_field().get_text(), "01.11.2026");
        EXPECT_EQ(d.get_last_field().get_text(), "30.04.2027");
        d.get_csv_button().set_active(true);
        d.response(Gtk::RESPONSE_OK);
    });
    answer<Gtk::FileChooserDialog>([&](auto& d) {
        EXPECT_EQ(d.get_current_name(), "Schichtplan-2026-2027.csv");
        EXPECT_TRUE(d.get_do_overwrite_confirmation());
        d.set_current_folder(folder.string());
        EXPECT_TRUE(wait_until([&] { return d.get_current_folder() == folder.string(); }));
        send_key(d, "Return");
    });
    key("F10");
    const exporting::ExportSource source =
        exporting::export_source(state().session, state().page.model, false);
    EXPECT_EQ(sk::test::read_bytes(folder / "Schichtplan-2026-2027.csv"),
              exporting::csv_text(source, {date(2026, 11, 1), date(2027, 4, 30)}).text);
    EXPECT_EQ(m_messages.back().text,
              "Der Schichtplan vom 01.11.2026 bis zum 30.04.2027 wurde in "
              "die Datei \"" +
                  (folder / "Schichtplan-2026-2027.csv").string() + "\" gespeichert.");
}

}  // namespace
}  // namespace sk::app::test
