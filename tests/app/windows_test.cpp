// Every window of the program opens modal over its parent, closes on Escape
// without a result, and grows with the character cell.
#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "app/date_entry_dialog.hpp"
#include "app/holiday_list_window.hpp"
#include "app/info_dialog.hpp"
#include "app/message_box.hpp"
#include "app/model_chooser_dialog.hpp"
#include "app/prog_menu_dialog.hpp"
#include "app/school_holiday_window.hpp"
#include "app/text_window.hpp"
#include "app/ui_support.hpp"
#include "app/yearly_hours_window.hpp"
#include "gui_support.hpp"

namespace sk::app {
namespace {

using calendar::Day;
using test::cell;
using test::parent_window;

struct Opened {
    std::unique_ptr<Gtk::Dialog> dialog;
    // True when the dialog holds no result after being closed.
    std::function<bool()> no_result;
};

struct Case {
    const char* title;
    std::function<Opened(view::CellSize)> open;
};

const Day kStart = Day::from_date(2024, 2, 15);

std::vector<Case> cases() {
    auto plain = [](auto* d) {
        return Opened{std::unique_ptr<Gtk::Dialog>(d), [] { return true; }};
    };
    return {
        {"Datum",
         [](view::CellSize c) {
             auto* d = new DateEntryDialog(parent_window(), c, DateEntryDialog::Purpose::GoTo,
                                           kStart, 0, calendar::kLastDay);
             return Opened{std::unique_ptr<Gtk::Dialog>(d), [] { return true; }};
         }},
        {"Blockurlaub",
         [plain](view::CellSize c) {
             return plain(new DateEntryDialog(parent_window(), c,
                                              DateEntryDialog::Purpose::VacationStart, kStart, 0,
                                              calendar::kLastDay));
         }},
        {"Kalender",
         [](view::CellSize c) {
             auto* d = new ModelChooserDialog(parent_window(), c, 3);
             return Opened{std::unique_ptr<Gtk::Dialog>(d), [d] { return !d->get_model(); }};
         }},
        {"Prog.",
         [](view::CellSize c) {
             auto* d = new ProgMenuDialog(parent_window(), c);
             return Opened{std::unique_ptr<Gtk::Dialog>(d), [d] { return !d->get_choice(); }};
         }},
        {"Info",
         [](view::CellSize c) {
             auto* d = new InfoDialog(parent_window(), c);
             return Opened{std::unique_ptr<Gtk::Dialog>(d), [d] { return !d->get_choice(); }};
         }},
        {"Notizen für den 15.03.2024",
         [plain](view::CellSize c) {
             return plain(new TextWindow(parent_window(), c, notes_title(kStart),
                                         "Zahnarzt\r\n\r\nGeburtstag", TextWindow::kNotesSize));
         }},
        {"Tastaturbelegung",
         [plain](view::CellSize c) {
             return plain(new HelpWindow(parent_window(), c, HelpTopic::Keys));
         }},
        {"Feiertage",
         [plain](view::CellSize c) {
             return plain(new HolidayListWindow(parent_window(), c, 2024));
         }},
        {"Ferientermine",
         [plain](view::CellSize c) {
             return plain(new SchoolHolidayWindow(parent_window(), c, 2024));
         }},
        {"Jahresstunden",
         [plain](view::CellSize c) {
             return plain(new YearlyHoursWindow(parent_window(), c,
                                                marks::yearly_hours(marks::PlanContext{}, 2024)));
         }},
    };
}

TEST(Windows, EscapeClosesWithoutResult) {
    for (const Case& c : cases()) {
        Opened opened = c.open(cell());
        Gtk::Dialog& dialog = *opened.dialog;
        EXPECT_EQ(dialog.get_title(), c.title);
        EXPECT_TRUE(dialog.get_modal()) << c.title;
        EXPECT_EQ(dialog.get_transient_for(), &parent_window()) << c.title;
        const int response =
            test::run_dialog(dialog, [&] { test::send_key(dialog, GDK_KEY_Escape); });
        EXPECT_EQ(response, Gtk::RESPONSE_CANCEL) << c.title;
        EXPECT_TRUE(opened.no_result()) << c.title;
        EXPECT_FALSE(dialog.get_visible()) << c.title;
    }
}

// A font twice as large, a cell twice as large and the window grows with
// them: nothing is sized in fixed pixels.
TEST(Windows, SizeFollowsThePageFont) {
    ControlFont font;
    const view::FontSpec small_font{"DejaVu Sans", 10, 0}, large_font{"DejaVu Sans", 20, 0};
    for (const Case& c : cases()) {
        int width[2] = {}, height[2] = {};
        for (int i = 0; i < 2; ++i) {
            const view::FontSpec& chosen = i == 0 ? small_font : large_font;
            font.apply(chosen);
            Opened opened = c.open(view::TextShaper(chosen).cell());
            Gtk::Dialog& d = *opened.dialog;
            d.show();
            ASSERT_TRUE(test::wait_until([&] { return d.get_mapped(); })) << c.title;
            width[i] = d.get_allocated_width();
            height[i] = d.get_allocated_height();
        }
        // The theme's paddings stay as they are, all else doubles.
        EXPECT_GT(width[1], width[0] * 1.5) << c.title;
        EXPECT_GT(height[1], height[0] * 1.3) << c.title;
    }
}

// The list windows have the sizes the calendar gives them, in cells.
TEST(Windows, ListWindowSizesInCells) {
    struct Size {
        const char* title;
        double width, height;
    };
    for (const auto& [title, width, height] :
         {Size{"Feiertage", 50, 33}, Size{"Ferientermine", 54, 12}}) {
        for (const Case& c : cases()) {
            if (std::string(c.title) != title) continue;
            Opened opened = c.open(cell());
            Gtk::Dialog& d = *opened.dialog;
            d.show();
            ASSERT_TRUE(test::wait_until([&] { return d.get_mapped(); }));
            EXPECT_NEAR(d.get_allocated_width(), width * cell().width, cell().width) << title;
            EXPECT_NEAR(d.get_allocated_height(), height * cell().height, cell().height) << title;
            d.hide();
        }
    }
}

TEST(MessageBoxes, TitlesAndEscape) {
    struct Kind {
        MessageKind kind;
        const char* title;
    };
    for (const auto& [kind, title] :
         {Kind{MessageKind::Error, "Fehler"}, Kind{MessageKind::Information, "Information"},
          Kind{MessageKind::Info, "Info"}}) {
        MessageBox box(&parent_window(), kind, "Die Kalender wurde in die Zwischenablage kopiert.");
        EXPECT_EQ(box.get_title(), title);
        EXPECT_TRUE(box.get_modal());
        EXPECT_EQ(test::run_dialog(box, [&] { test::send_key(box, GDK_KEY_Escape); }),
                  Gtk::RESPONSE_CANCEL)
            << title;
    }
}

// Escape on a question is "Nein"; Return takes the button that has the
// focus, which the caller chooses; "J" and "N" with Alt pick by mnemonic.
TEST(MessageBoxes, QuestionAnswers) {
    struct Answer {
        QuestionBox::Default focus;
        guint key;
        GdkModifierType state;
        bool yes;
    };
    for (const auto& a :
         {Answer{QuestionBox::Default::Yes, GDK_KEY_Escape, GdkModifierType(0), false},
          Answer{QuestionBox::Default::Yes, GDK_KEY_Return, GdkModifierType(0), true},
          Answer{QuestionBox::Default::No, GDK_KEY_Return, GdkModifierType(0), false},
          Answer{QuestionBox::Default::No, GDK_KEY_j, GDK_MOD1_MASK, true},
          Answer{QuestionBox::Default::Yes, GDK_KEY_n, GDK_MOD1_MASK, false}}) {
        QuestionBox box(&parent_window(), "Sollen die Änderungen gespeichert werden?", a.focus);
        EXPECT_EQ(box.get_title(), "Frage");
        test::run_dialog(box, [&] { test::send_key(box, a.key, a.state); });
        EXPECT_EQ(box.answered_yes(), a.yes) << gdk_keyval_name(a.key);
    }
}

}  // namespace
}  // namespace sk::app
