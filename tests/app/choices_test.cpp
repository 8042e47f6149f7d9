// The windows that offer a choice: "Prog.", "Info", the note menu "Notiz"
// and the calendar chooser return what was chosen, by click, by letter or
// by the keyboard's focus, and carry their exact labels and tooltips.
#include <gtest/gtest.h>

#include <set>

#include "app/info_dialog.hpp"
#include "app/model_chooser_dialog.hpp"
#include "app/note_actions.hpp"
#include "app/prog_menu_dialog.hpp"
#include "gui_support.hpp"

namespace sk::app {
namespace {

using test::cell;
using test::parent_window;

// Label (as read out), tooltip, the plain letter that chooses it, the choice.
template <class Choice>
struct Entry {
    const char* name;
    const char* tooltip;
    guint key;
    Choice choice;
};

// Each entry's texts; its letter, typed with or without Shift, and a click
// on its button return it.
template <class Dialog, class Choice>
void expect_entries(const std::vector<Entry<Choice>>& entries) {
    Dialog shown(parent_window(), cell());
    ASSERT_EQ(shown.get_entry_count(), static_cast<int>(entries.size()));
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const Entry<Choice>& e = entries[i];
        Gtk::Button& button = shown.get_button(static_cast<int>(i));
        EXPECT_EQ(test::accessible_name(button), e.name);
        EXPECT_EQ(button.get_tooltip_text(), e.tooltip) << e.name;
        for (const GdkModifierType state : {GdkModifierType(0), GDK_SHIFT_MASK}) {
            Dialog dialog(parent_window(), cell());
            const guint key = state ? gdk_keyval_to_upper(e.key) : e.key;
            EXPECT_EQ(test::run_dialog(dialog, [&] { test::send_key(dialog, key, state); }),
                      Gtk::RESPONSE_OK);
            EXPECT_EQ(dialog.get_choice(), e.choice) << e.name;
        }
        Dialog dialog(parent_window(), cell());
        test::run_dialog(dialog, [&] { dialog.get_button(static_cast<int>(i)).clicked(); });
        EXPECT_EQ(dialog.get_choice(), e.choice) << e.name;
    }
}

TEST(ProgMenu, EntriesReturnTheirChoice) {
    expect_entries<ProgMenuDialog, ProgChoice>({
        {"Kalender", "Einen anderen Schichtkalender wählen", GDK_KEY_k, ProgChoice::Calendar},
        {"Schriftart", "Neue Schriftart wählen", GDK_KEY_s, ProgChoice::Font},
        {"Hintergrundfarbe", "Hintergrundfarbe zum Ausdrucken einer Bilschirmkopie", GDK_KEY_h,
         ProgChoice::BackgroundColour},
        {"Stunden", "Eingabe der Minus- bzw. Plusstunden", GDK_KEY_t, ProgChoice::Hours},
        {"Urlaub", "Eingabe des Resturlaubs", GDK_KEY_u, ProgChoice::Vacation},
        {"Programmverzeichnis", "Ein neues Programmverzeichnis wählen", GDK_KEY_v,
         ProgChoice::Directory},
        {"Einstellungen", "Ort, Zeitzone, Anzeigen, Sollstunden und Urlaubsblock einstellen",
         GDK_KEY_e, ProgChoice::Settings},
        {"Export", "Schichten und Notizen als iCalendar- oder CSV-Datei speichern", GDK_KEY_x,
         ProgChoice::Export},
        {"Info", "Informationstext zur Programmbedienung", GDK_KEY_i, ProgChoice::Info},
    });
}

TEST(InfoWindow, EntriesReturnTheirChoice) {
    expect_entries<InfoDialog, InfoChoice>({
        {"Jahresstunden", "Die Minusstunden für das Jahr der Spalte der Cursorposition", GDK_KEY_j,
         InfoChoice::YearlyHours},
        {"Schulferien", "Die bayerischen Schulferien ür das in der ersten Spalte angezeigte Jahr",
         GDK_KEY_s, InfoChoice::SchoolHolidays},
        {"Feiertage", "Die staatlichen Feiertage für das in der ersten Spalte angezeigte Jahr",
         GDK_KEY_f, InfoChoice::Holidays},
        {"Programm", "Allgemeine Infos zur Programmbedienung", GDK_KEY_p, InfoChoice::Program},
        {"Tastaturbelegung", "Infos zur Programmbedienung mit der Tastatur", GDK_KEY_t,
         InfoChoice::Keys},
        {"Schichtmarkierung", "Infos zur Eingabe und Verwaltung von Schichtmarkierungen", GDK_KEY_h,
         InfoChoice::ShiftMarking},
        {"Kalendermarkierung", "Infos zur Eingabe und Verwaltung von Kalendermarkierungen",
         GDK_KEY_k, InfoChoice::CalendarMarking},
        {"Notizen", "Infos zur Eingabe und Verwaltung von Notizen", GDK_KEY_n, InfoChoice::Notes},
        {"Prog. Menü", "Infos zu den unter 'Prog.' wählbaren Dingen", GDK_KEY_m,
         InfoChoice::ProgMenu},
        {"Name", "Infos zum Anmelden unter einen Benutzernamen", GDK_KEY_a, InfoChoice::Name},
        {"Einstellungen", "Infos zu den Programmeinstellungen", GDK_KEY_e, InfoChoice::Settings},
    });
    // The eight help entries open eight different texts; the list entries none.
    std::set<HelpTopic> topics;
    for (int i = 0; i <= static_cast<int>(InfoChoice::Settings); ++i)
        if (const auto topic = help_topic(static_cast<InfoChoice>(i))) topics.insert(*topic);
    EXPECT_EQ(topics.size(), 8u);
    EXPECT_EQ(help_topic(InfoChoice::ProgMenu), HelpTopic::Program);
    EXPECT_FALSE(help_topic(InfoChoice::Holidays));
}

TEST(NoteMenu, EntriesReturnTheirChoice) {
    expect_entries<NoteMenuDialog, NoteMenuChoice>({
        {"Tagesnotiz", "Eingabe einer Notiz für einen Tag", GDK_KEY_t, NoteMenuChoice::DailyNote},
        {"Periodische Notiz", "Eingabe einer sich in Tagesabständen wiederholenden Notiz",
         GDK_KEY_p, NoteMenuChoice::PeriodicNote},
        {"Jährliche Notiz", "Eingabe einer sich in jährlich wiederholenden Notiz", GDK_KEY_j,
         NoteMenuChoice::YearlyNote},
        {"Wochentag im Monat",
         "Eingabe sich an einen bestimmten Wochentag im Monat wiederholenden Notiz", GDK_KEY_w,
         NoteMenuChoice::WeekdayNote},
        {"Kalendermarkierung", "Eingabe einer Markierung zwischen zwei Tagen in wählbarer Farbe",
         GDK_KEY_k, NoteMenuChoice::CalendarMarking},
        {"Schichtmarkierung", "Eingabe eines abweichenden Arbeitseinsatzes", GDK_KEY_s,
         NoteMenuChoice::ShiftMarking},
        {"Löschen", "Löscht die ausgewählten eingaben bis zum gewählten Datum", GDK_KEY_l,
         NoteMenuChoice::Delete},
        {"Übersicht", "Übersicht der Notizen für die angezeigten Monate", GDK_KEY_u,
         NoteMenuChoice::Overview},
        {"Info", "Informationen zu den Notizeingaben", GDK_KEY_i, NoteMenuChoice::Info},
    });
    EXPECT_EQ(note_kind_of(NoteMenuChoice::WeekdayNote), notes::NoteKind::Weekday);
    EXPECT_EQ(note_kind_of(NoteMenuChoice::DailyNote), notes::NoteKind::Daily);
    EXPECT_FALSE(note_kind_of(NoteMenuChoice::ShiftMarking));
}

// The n-th button is named for the n-th model of the order 0 1 5 2 3 4 6 7
// and a click on it gives that model.
TEST(ModelChooser, EntriesInChooserOrder) {
    const std::pair<const char*, int> entries[] = {
        {"Rodenwald PM 1", 0},        {"Rodenwald Werk", 1},     {"Rodenwald Standard", 5},
        {"Rodenwald Zweischicht", 2}, {"PM 1 mit 2er Block", 3}, {"Werk mit 2er Block", 4},
        {"Quorvel Veldheim", 6},      {"Hallner Karton", 7}};
    for (int i = 0; i < 8; ++i) {
        ModelChooserDialog dialog(parent_window(), cell(), 0);
        ASSERT_EQ(dialog.get_entry_count(), 8);
        EXPECT_EQ(test::accessible_name(dialog.get_button(i)), entries[i].first);
        EXPECT_EQ(test::run_dialog(dialog, [&] { dialog.get_button(i).clicked(); }),
                  Gtk::RESPONSE_OK);
        EXPECT_EQ(dialog.get_model(), entries[i].second) << i;
    }
    ModelChooserDialog dialog(parent_window(), cell(), 0);
    EXPECT_EQ(dialog.get_button(2).get_accessible()->get_description(),
              "Rodenwald Papier Standard Schichtkalender mit fünf Kolumnen");
    EXPECT_EQ(dialog.get_button(1).get_accessible()->get_description(),
              "Rodenwald Papier Standart Schichtkalender");
}

// The current model has the focus; the cursor keys move it, Return chooses.
TEST(ModelChooser, KeyboardChoice) {
    struct Case {
        int current;
        int downs;
        int expected;
    };
    for (const auto& c :
         {Case{0, 0, 0}, Case{0, 2, 5}, Case{5, 1, 2}, Case{7, 0, 7}, Case{3, 2, 6}}) {
        ModelChooserDialog dialog(parent_window(), cell(), c.current);
        test::run_dialog(dialog, [&] {
            for (int i = 0; i < c.downs; ++i)
                test::send_key(dialog, GDK_KEY_Down);
            test::send_key(dialog, GDK_KEY_Return);
        });
        EXPECT_EQ(dialog.get_model(), c.expected) << "from " << c.current << ", " << c.downs;
    }
}

}  // namespace
}  // namespace sk::app
