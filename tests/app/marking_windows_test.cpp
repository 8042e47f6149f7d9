// The marking and account dialogs themselves: their exact texts and
// tooltips, a name for every control a screen reader reaches, sizes that
// follow the page font, and the focus order. (Escape: marking_dialogs_test.)
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>

#include "app/calendar_marking_dialog.hpp"
#include "app/hours_dialog.hpp"
#include "app/shift_column_dialog.hpp"
#include "app/shift_marking_dialog.hpp"
#include "app/ui_support.hpp"
#include "app/vacation_dialog.hpp"
#include "gui_support.hpp"
#include "marks/shift_markings.hpp"

namespace sk::app {
namespace {

using calendar::Day;
using test::cell;
using test::parent_window;

const Day kDay = Day::from_date(2024, 2, 5);

struct Case {
    const char* title;
    std::function<std::unique_ptr<Gtk::Dialog>(view::CellSize)> open;
    std::vector<std::string> texts;               // labels shown, among others
    std::map<std::string, std::string> tooltips;  // button label -> tooltip
};

const std::map<std::string, std::string> kCancel = {
    {"Abbruch", "Verlässt das Eingabefenster ohne Änderungen"}};

std::vector<Case> cases() {
    return {
        {"Schichtmarkierung eingeben",
         [](view::CellSize c) {
             return std::make_unique<ShiftMarkingDialog>(parent_window(), c, 1, 3, kDay, 2);
         },
         {" Nachtschicht am 05.03.2024", "Arbeitseinsatz (X)", "Freizeit", "Urlaub", "Lehrgang",
          "Krank", "Ausfallbezahlung, kurzer Wechsel", "Schichtmarkierung löschen (Entf)"},
         {{"Übernehmen", "Speichert die Stunden"},
          *kCancel.begin(),
          {"Urlaub", "Taste U"},
          {"Schichtmarkierung löschen (Entf)", "Taste Entf"}}},
        {"Schichtmarkierung eingeben",
         [](view::CellSize c) {
             return std::make_unique<ShiftMarkingDialog>(parent_window(), c, 7, 4, kDay,
                                                         std::nullopt);
         },
         {" Schicht D am 05.03.2024", "Früh", "Spät", "Nacht", "Freizeit", "Urlaub", "Lehrgang",
          "Krank", "Ausfallbezahlung, kurzer Wechsel", "Schichtmarkierung löschen (Entf)"},
         {{"Spät", "Taste F"}, {"Krank", "Taste Entf"}}},
        {"Schichtspalte eingeben",
         [](view::CellSize c) {
             return std::make_unique<ShiftColumnDialog>(parent_window(), c, 0);
         },
         {"Frühschicht", "Spätschicht", "Nachtschicht", "Verfügung"},
         {{"Verfügung", "[4] Schichtmarkierung: Verfügung"}}},
        {"Eingabe einer Kalendermarkierung",
         [](view::CellSize c) {
             return std::make_unique<CalendarMarkingDialog>(
                 parent_window(), c, marks::propose_marking({}, kDay.number));
         },
         {"Eingabe des Startdatums:", "Eingabe des Enddatums:",
          "Wahl einer neuen\nMarkierungsfarbe"},
         {{"Speichern", "Speichert die Kalendermarkierung"},
          {"Löschen", "Löscht die Markierung in dessen Bereich sich das Startdatum befindet"},
          {"Wahl einer neuen\nMarkierungsfarbe",
           "Eine neue Farbe für die Kalendermarkierung wählen"},
          *kCancel.begin()}},
        {"Stunden eingeben",
         [](view::CellSize c) {
             return std::make_unique<HoursDialog>(parent_window(), c, marks::HoursAccount{}, true);
         },
         {"Stunden am:", "Std:Min", "Std,dez", "Stammschicht:", "rot", "blau", "gelb", "grün",
          "braun", "Den Urlaubsblock als Minusstunden berechnen"},
         {{"Speichern", "Speichert die Stunden"}, *kCancel.begin()}},
        {"Urlaub eingeben",
         [](view::CellSize c) {
             return std::make_unique<VacationDialog>(parent_window(), c, marks::VacationAccount{},
                                                     4, 0, true);
         },
         {"Resturlaub am:", "Tage", "Stammschicht:", "rot", "braun"},
         {{"Speichern", "Speichert die Urlaubstage"}, *kCancel.begin()}},
    };
}

// Every widget below `widget`, depth first.
void walk(Gtk::Widget& widget, const std::function<void(Gtk::Widget&)>& visit) {
    visit(widget);
    if (auto* container = dynamic_cast<Gtk::Container*>(&widget))
        for (Gtk::Widget* child : container->get_children())
            walk(*child, visit);
}

std::string label_of(Gtk::Widget& widget) {
    std::string text;
    walk(widget, [&](Gtk::Widget& w) {
        if (auto* label = dynamic_cast<Gtk::Label*>(&w); label && text.empty())
            text = label->get_text().raw();
    });
    return text;
}

TEST(MarkingWindows, TextsTooltipsAndNames) {
    for (const Case& c : cases()) {
        const std::unique_ptr<Gtk::Dialog> dialog = c.open(cell());
        EXPECT_EQ(dialog->get_title(), c.title);
        EXPECT_TRUE(dialog->get_modal()) << c.title;
        EXPECT_EQ(dialog->get_transient_for(), &parent_window()) << c.title;
        std::vector<std::string> texts;
        std::map<std::string, std::string> tooltips;
        walk(*dialog, [&](Gtk::Widget& w) {
            if (auto* label = dynamic_cast<Gtk::Label*>(&w))
                texts.push_back(label->get_text().raw());
            if (!w.get_can_focus() || !w.get_visible()) return;
            // Every control a screen reader reaches has a name.
            EXPECT_FALSE(test::accessible_name(w).empty())
                << c.title << ": " << G_OBJECT_TYPE_NAME(w.gobj());
            if (dynamic_cast<Gtk::Button*>(&w)) tooltips[label_of(w)] = w.get_tooltip_text().raw();
        });
        for (const std::string& text : c.texts)
            EXPECT_NE(std::find(texts.begin(), texts.end(), text), texts.end())
                << c.title << ": " << text;
        for (const auto& [label, tooltip] : c.tooltips)
            EXPECT_EQ(tooltips[label], tooltip) << label;
    }
}

TEST(MarkingWindows, BlockHintAndNotCountedNote) {
    for (const bool counted : {true, false}) {
        HoursDialog dialog(parent_window(), cell(), {}, counted);
        bool hint = false, note = false;
        walk(dialog, [&](Gtk::Widget& w) {
            auto* label = dynamic_cast<Gtk::Label*>(&w);
            if (!label || !label->get_parent()) return;
            hint |= label->get_text().find(
                        "Wenn im Urlaubsblock gearbeitet wird, z. B. bei Schichttausch") == 0;
            note |= label->get_text().find("keine Konten") != Glib::ustring::npos;
        });
        EXPECT_TRUE(hint);
        EXPECT_EQ(note, !counted);
    }
}

// A font twice as large makes every dialog larger: nothing is sized in
// fixed pixels.
TEST(MarkingWindows, SizeFollowsThePageFont) {
    ControlFont font;
    const view::FontSpec small_font{"DejaVu Sans", 10, 0}, large_font{"DejaVu Sans", 20, 0};
    for (const Case& c : cases()) {
        int width[2] = {}, height[2] = {};
        for (int i = 0; i < 2; ++i) {
            const view::FontSpec& chosen = i == 0 ? small_font : large_font;
            font.apply(chosen);
            const std::unique_ptr<Gtk::Dialog> dialog = c.open(view::TextShaper(chosen).cell());
            dialog->show();
            ASSERT_TRUE(test::wait_until([&] { return dialog->get_mapped(); })) << c.title;
            width[i] = dialog->get_allocated_width();
            height[i] = dialog->get_allocated_height();
        }
        EXPECT_GT(width[1], width[0] * 1.5) << c.title;
        EXPECT_GT(height[1], height[0] * 1.3) << c.title;
    }
}

// The first field a user types into has the focus; Tab walks on to the
// next field in reading order.
TEST(MarkingWindows, FocusOrder) {
    HoursDialog hours(parent_window(), cell(), {}, true);
    test::run_dialog(hours, [&] {
        EXPECT_TRUE(hours.get_value_field().has_focus());
        test::send_key(hours, GDK_KEY_Tab);
        EXPECT_TRUE(hours.get_mode_button(marks::hours_mode::kDecimal).has_focus());
        test::send_key(hours, GDK_KEY_Escape);
    });
    CalendarMarkingDialog bar(parent_window(), cell(), marks::propose_marking({}, kDay.number));
    test::run_dialog(bar, [&] {
        EXPECT_TRUE(bar.get_start_field().has_focus());
        test::send_key(bar, GDK_KEY_Tab);
        EXPECT_TRUE(bar.get_end_field().has_focus());
        test::send_key(bar, GDK_KEY_Tab);
        EXPECT_TRUE(bar.get_colour_button().has_focus());
        test::send_key(bar, GDK_KEY_Escape);
    });
}

}  // namespace
}  // namespace sk::app
