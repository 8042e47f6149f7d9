// The date field and the date entry window, driven by typed keys.
#include <gtest/gtest.h>

#include "app/date_entry_dialog.hpp"
#include "gui_support.hpp"

namespace sk::app {
namespace {

using calendar::Day;
using test::cell;
using test::parent_window;

const Day kStart = Day::from_date(2024, 2, 15);

// Typing replaces the selected text; the OK button follows the field.
TEST(DateEntry, TypedDates) {
    struct Case {
        const char* typed;
        bool accepted;
        const char* hint;
    };
    for (const auto& c :
         {Case{"29.02.2024", true, ""}, Case{"30.02.2024", false, "Diesen Tag gibt es nicht."},
          Case{"01.08.2037", false, "Das Datum darf nicht nach dem 31.07.2037 liegen."},
          Case{"31.07.2037", true, ""}, Case{"1.3.2030", true, ""},
          Case{"1.3.30", false, "Das Datum bitte als TT.MM.JJJJ eingeben."}}) {
        DateEntryDialog dialog(parent_window(), cell(), DateEntryDialog::Purpose::GoTo, kStart, 0,
                               calendar::kLastDay);
        DateField& field = dialog.get_field();
        const int response = test::run_dialog(dialog, [&] {
            field.select_region(0, -1);
            test::type_text(field, c.typed);
            EXPECT_EQ(field.get_text(), c.typed);
            EXPECT_EQ(field.get_hint(), c.hint) << c.typed;
            EXPECT_EQ(field.is_valid(), c.accepted) << c.typed;
            EXPECT_EQ(dialog.get_widget_for_response(Gtk::RESPONSE_OK)->get_sensitive(), c.accepted)
                << c.typed;
            test::send_key(field, GDK_KEY_Return);
            if (!c.accepted) test::send_key(field, GDK_KEY_Escape);
        });
        EXPECT_EQ(response, c.accepted ? Gtk::RESPONSE_OK : Gtk::RESPONSE_CANCEL) << c.typed;
        if (c.accepted) {
            EXPECT_EQ(calendar::format_german_date(dialog.get_date()),
                      calendar::format_german_date(*calendar::parse_german_date(c.typed)));
        }
    }
}

// Up and Down step a day, Page Up and Page Down a month, never past the
// ends of the range (here 30.01.2024 to 31.07.2037). A text that is no date
// steps from the last valid one.
TEST(DateEntry, KeysStepWithinTheRange) {
    const calendar::DayNumber min = calendar::day_number(2024, 0, 30);
    struct Case {
        const char* start;
        guint key;
        int presses;
        const char* result;
    };
    for (const auto& c : {Case{"15.03.2024", GDK_KEY_Up, 17, "01.04.2024"},
                          Case{"15.03.2024", GDK_KEY_Down, 15, "29.02.2024"},
                          Case{"31.03.2024", GDK_KEY_Page_Down, 1, "29.02.2024"},
                          Case{"31.01.2025", GDK_KEY_Page_Up, 2, "31.03.2025"},
                          Case{"15.07.2037", GDK_KEY_Page_Up, 1, "31.07.2037"},
                          Case{"30.07.2037", GDK_KEY_Up, 5, "31.07.2037"},
                          Case{"15.03.2024", GDK_KEY_Page_Down, 3, "30.01.2024"},
                          Case{"01.02.2024", GDK_KEY_Down, 9, "30.01.2024"},
                          Case{"30.02.2024", GDK_KEY_Up, 1, "11.05.2024"}}) {
        DateField field(calendar::Day::from_date(2024, 4, 10), min, calendar::kLastDay, "Datum");
        Gtk::Window window;
        window.add(field);
        window.show_all();
        ASSERT_TRUE(test::wait_until([&] { return window.get_mapped(); }));
        field.grab_focus();
        field.set_text(c.start);
        for (int i = 0; i < c.presses; ++i)
            test::send_key(field, c.key);
        EXPECT_EQ(field.get_text(), c.result) << c.start << " " << gdk_keyval_name(c.key);
        EXPECT_TRUE(field.is_valid());
    }
}

TEST(DateEntry, StartOutsideTheRangeIsClamped) {
    DateEntryDialog dialog(parent_window(), cell(), DateEntryDialog::Purpose::VacationStart,
                           Day::from_date(2040, 0, 1), 0, calendar::kLastDay);
    EXPECT_EQ(dialog.get_field().get_text(), "31.07.2037");
    EXPECT_EQ(dialog.get_date().number, calendar::kLastDay);
    EXPECT_EQ(test::accessible_name(dialog.get_field()),
              "Frühest möglicher Beginn des Blockurlaubes");
}

}  // namespace
}  // namespace sk::app
