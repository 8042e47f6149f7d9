// The windows that offer a choice: "Prog.", "Info" and the calendar
// chooser return what was chosen, by click, by letter or by the keyboard's
// focus, and carry their exact labels and tooltips.
#include <gtest/gtest.h>

#include <set>

#include "app/info_dialog.hpp"
#include "app/model_chooser_dialog.hpp"
#include "app/prog_menu_dialog.hpp"
#include "calendar/shift_model.hpp"
#include "gui_support.hpp"

namespace sk::app {
namespace {

using test::cell;
using test::parent_window;

// Label (as read out), tooltip, and the plain letter that chooses it.
struct Entry {
    const char* name;
    const char* tooltip;
    guint key;
};

void expect_entries(ChoiceDialog& dialog, const std::vector<Entry>& expected) {
    ASSERT_EQ(dialog.get_entry_count(), static_cast<int>(expected.size()));
    for (std::size_t i = 0; i < expected.size(); ++i) {
        Gtk::Button& button = dialog.get_button(static_cast<int>(i));
        EXPECT_EQ(test::accessible_name(button), expected[i].name);
        EXPECT_EQ(button.get_tooltip_text(), expected[i].tooltip) << expected[i].name;
    }
}

const std::vector<Entry> kProgEntries = {
    {"Kalender", "Einen anderen Schichtkalender wählen", GDK_KEY_k},
    {"Schriftart", "Neue Schriftart wählen", GDK_KEY_s},
    {"Hintergrundfarbe", "Hintergrundfarbe zum Ausdrucken einer Bilschirmkopie", GDK_KEY_h},
    {"Stunden", "Eingabe der Minus- bzw. Plusstunden", GDK_KEY_t},
    {"Urlaub", "Eingabe des Resturlaubs", GDK_KEY_u},
    {"Programmverzeichnis", "Ein neues Programmverzeichnis wählen", GDK_KEY_v},
    {"Einstellungen", "Ort, Zeitzone, Anzeigen, Sollstunden und Urlaubsblock einstellen",
     GDK_KEY_e},
    {"Export", "Schichten und Notizen als iCalendar- oder CSV-Datei speichern", GDK_KEY_x},
    {"Info", "Informationstext zur Programmbedienung", GDK_KEY_i},
};
const ProgChoice kProgChoices[] = {
    ProgChoice::Calendar, ProgChoice::Font,     ProgChoice::BackgroundColour,
    ProgChoice::Hours,    ProgChoice::Vacation, ProgChoice::Directory,
    ProgChoice::Settings, ProgChoice::Export,   ProgChoice::Info};

const std::vector<Entry> kInfoEntries = {
    {"Jahresstunden", "Die Minusstunden für das Jahr der Spalte der Cursorposition", GDK_KEY_j},
    {"Schulferien", "Die bayerischen Schulferien ür das in der ersten Spalte angezeigte Jahr",
     GDK_KEY_s},
    {"Feiertage", "Die staatlichen Feiertage für das in der ersten Spalte angezeigte Jahr",
     GDK_KEY_f},
    {"Programm", "Allgemeine Infos zur Programmbedienung", GDK_KEY_p},
    {"Tastaturbelegung", "Infos zur Programmbedienung mit der Tastatur", GDK_KEY_t},
    {"Schichtmarkierung", "Infos zur Eingabe und Verwaltung von Schichtmarkierungen", GDK_KEY_h},
    {"Kalendermarkierung", "Infos zur Eingabe und Verwaltung von Kalendermarkierungen", GDK_KEY_k},
    {"Notizen", "Infos zur Eingabe und Verwaltung von Notizen", GDK_KEY_n},
    {"Prog. Menü", "Infos zu den unter 'Prog.' wählbaren Dingen", GDK_KEY_m},
    {"Name", "Infos zum Anmelden unter einen Benutzernamen", GDK_KEY_a},
    {"Einstellungen", "Infos zu den Programmeinstellungen", GDK_KEY_e},
};
const InfoChoice kInfoChoices[] = {InfoChoice::YearlyHours,
                                   InfoChoice::SchoolHolidays,
                                   InfoChoice::Holidays,
                                   InfoChoice::Program,
                                   InfoChoice::Keys,
                                   InfoChoice::ShiftMarking,
                                   InfoChoice::CalendarMarking,
                                   InfoChoice::Notes,
                                   InfoChoice::ProgMenu,
                                   InfoChoice::Name,
                                   InfoChoice::Settings};

TEST(ProgMenu, EntriesAndTooltips) {
    ProgMenuDialog dialog(parent_window(), cell());
    EXPECT_EQ(dialog.get_title(), "Prog.");
    expect_entries(dialog, kProgEntries);
}

// Each letter, typed with or without Shift, and each click returns its entry.
TEST(ProgMenu, ReturnsTheChosenEntry) {
    for (std::size_t i = 0; i < kProgEntries.size(); ++i) {
        for (const GdkModifierType state : {GdkModifierType(0), GDK_SHIFT_MASK}) {
            ProgMenuDialog dialog(parent_window(), cell());
            const guint key =
                state ? gdk_keyval_to_upper(kProgEntries[i].key) : kProgEntries[i].key;
            EXPECT_EQ(test::run_dialog(dialog, [&] { test::send_key(dialog, key, state); }),
                      Gtk::RESPONSE_OK);
            EXPECT_EQ(dialog.get_choice(), kProgChoices[i]) << kProgEntries[i].name;
        }
        ProgMenuDialog dialog(parent_window(), cell());
        test::run_dialog(dialog, [&] { dialog.get_button(static_cast<int>(i)).clicked(); });
        EXPECT_EQ(dialog.get_choice(), kProgChoices[i]) << kProgEntries[i].name;
    }
}

TEST(InfoWindow, EntriesAndTooltips) {
    InfoDialog dialog(parent_window(), cell());
    EXPECT_EQ(dialog.get_title(), "Info");
    expect_entries(dialog, kInfoEntries);
}

TEST(InfoWindow, ReturnsTheChosenEntry) {
    for (std::size_t i = 0; i < kInfoEntries.size(); ++i) {
        InfoDialog by_key(parent_window(), cell());
        test::run_dialog(by_key, [&] { test::send_key(by_key, kInfoEntries[i].key); });
        EXPECT_EQ(by_key.get_choice(), kInfoChoices[i]) << kInfoEntries[i].name;
        InfoDialog by_click(parent_window(), cell());
        test::run_dialog(by_click, [&] { by_click.get_button(static_cast<int>(i)).clicked(); });
        EXPECT_EQ(by_click.get_choice(), kInfoChoices[i]) << kInfoEntries[i].name;
    }
}

// The eight help buttons open eight different texts; the list buttons none.
TEST(InfoWindow, HelpTopics) {
    std::set<HelpTopic> topics;
    for (const InfoChoice choice : kInfoChoices)
        if (const auto topic = help_topic(choice)) topics.insert(*topic);
    EXPECT_EQ(topics.size(), 8u);
    EXPECT_EQ(help_topic(InfoChoice::ProgMenu), HelpTopic::Program);
    EXPECT_FALSE(help_topic(InfoChoice::Holidays));
}

TEST(ModelChooser, EntriesInChooserOrder) {
    ModelChooserDialog dialog(parent_window(), cell(), 0);
    EXPECT_EQ(dialog.get_title(), "Kalender");
    const char* names[] = {"Rodenwald PM 1",        "Rodenwald Werk",     "Rodenwald Standard",
                           "Rodenwald Zweischicht", "PM 1 mit 2er Block", "Werk mit 2er Block",
                           "Quorvel Veldheim",      "Hallner Karton"};
    const char* third = "Rodenwald Papier Standard Schichtkalender mit fünf Kolumnen";
    ASSERT_EQ(dialog.get_entry_count(), 8);
    for (int i = 0; i < 8; ++i)
        EXPECT_EQ(test::accessible_name(dialog.get_button(i)), names[i]);
    const Glib::RefPtr<Atk::Object> accessible = dialog.get_button(2).get_accessible();
    EXPECT_EQ(accessible->get_description(), third);
    EXPECT_EQ(dialog.get_button(1).get_accessible()->get_description(),
              "Rodenwald Papier Standart Schichtkalender");
}

// A click on the n-th button gives the n-th model of the order 0 1 5 2 3 4 6 7.
TEST(ModelChooser, ClickReturnsTheModel) {
    const int order[] = {0, 1, 5, 2, 3, 4, 6, 7};
    for (int i = 0; i < 8; ++i) {
        ModelChooserDialog dialog(parent_window(), cell(), 0);
        EXPECT_EQ(test::run_dialog(dialog, [&] { dialog.get_button(i).clicked(); }),
                  Gtk::RESPONSE_OK);
        EXPECT_EQ(dialog.get_model(), order[i]) << i;
    }
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
