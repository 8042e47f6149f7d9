// The markings and accounts as the main window opens them: keys 1 to 4, a
// double click into a crew's cell, K, a click on the hours field and the
// "Prog." entries; the page and the account fields follow at once, and the
// files are on disk before the program ends.
#include <gdk/gdkkeysyms.h>

#include "app/calendar_marking_dialog.hpp"
#include "app/choice_dialog.hpp"
#include "app/hours_dialog.hpp"
#include "app/note_menu_dialog.hpp"
#include "app/shift_column_dialog.hpp"
#include "app/shift_marking_dialog.hpp"
#include "app/vacation_dialog.hpp"
#include "marks/accounts.hpp"
#include "marks/calendar_markings.hpp"
#include "marks/shift_markings.hpp"
#include "window_fixture.hpp"

namespace sk::app::test {
namespace {

using calendar::Day;

Day date(int y, int m, int d) {
    return Day::from_date(y, m - 1, d);
}

// A day of November 2026 on which an X marking adds hours to crew 0 ("rot",
// the default home crew) in model 0: the core tells which.
Day day_off_of_crew_0() {
    for (Day d = date(2026, 11, 2); d.number < date(2026, 11, 30).number;
         d = Day::from_number(d.number + 1)) {
        const marks::ShiftMarkings x{{{d.number, 1, marks::kind_a::kWorked}}, false};
        if (marks::hours_change(x, {}, marks::PlanContext{}, d).plus > 0 && !d.is_sunday())
            return d;
    }
    ADD_FAILURE() << "no day off of crew 0";
    return date(2026, 11, 23);
}

const view::DayCell* day_cell(const view::PageLayout& page, const Day& day) {
    for (const view::DayCell& cell : page.days)
        if (cell.day == day) return &cell;
    return nullptr;
}

// Key 1, then X: the day is marked on disk at once, drawn on the page, and
// counted in the hours field.
TEST_F(WindowTest, Key1ThenXMarksTheDayAndCountsIt) {
    const Day day = day_off_of_crew_0();
    start(day);
    ASSERT_EQ(field_text(StatusField::Hours), "   0,00");
    m_answer = [](Gtk::Dialog& dialog) {
        if (!dynamic_cast<ShiftMarkingDialog*>(&dialog)) return false;
        EXPECT_EQ(dialog.get_title(), "Schichtmarkierung eingeben");
        send_key(dialog, GDK_KEY_x);
        return true;
    };
    key(GDK_KEY_1);
    EXPECT_EQ(marks::load_shift_markings(user_dir()).items,
              (std::vector<marks::ShiftMarking>{{day.number, 1, marks::kind_a::kWorked}}));
    EXPECT_EQ(field_text(StatusField::Hours), "   8,00");
    const view::DayCell* cell = day_cell(*window().page_view().page(), day);
    ASSERT_TRUE(cell);
    bool marked = false;
    for (const view::ShiftCell& shift : cell->shifts)
        marked |= shift.marked;
    EXPECT_TRUE(marked);
}

// Key 4 in a model of five crews: the standby week cannot be marked; a
// message says why and no marking window opens.
TEST_F(WindowTest, Key4SaysWhyTheStandbyWeekCannotBeMarked) {
    start(date(2026, 11, 23));
    key(GDK_KEY_4);
    ASSERT_EQ(m_messages.size(), 1u);
    EXPECT_EQ(m_messages[0].title, "Information");
    EXPECT_EQ(m_messages[0].text,
              "Die Verfügung kann nicht markiert werden, nur die Früh-, Spät- und Nachtschicht "
              "(Tasten 1, 2 und 3).");
    EXPECT_FALSE(std::filesystem::exists(user_dir() / "Schichtmarkierung.dat"));
}

// A double click into a working crew's cell of another day marks that day
// in the column of the crew's shift, and the cursor goes there.
TEST_F(WindowTest, DoubleClickOnAShiftCellOpensItsMarking) {
    start(date(2026, 11, 23));
    const Day day = date(2026, 11, 26);
    const view::DayCell* cell = day_cell(*window().page_view().page(), day);
    ASSERT_TRUE(cell);
    const view::ShiftCell* night = nullptr;
    for (int crew = 0; crew < cell->crews; ++crew)
        if (cell->shifts[crew].code == calendar::shift::kNight) night = &cell->shifts[crew];
    ASSERT_TRUE(night);
    std::string heading;
    m_answer = [&](Gtk::Dialog& dialog) {
        auto* marking = dynamic_cast<ShiftMarkingDialog*>(&dialog);
        if (!marking) return false;
        heading = marking->get_heading();
        send_key(dialog, GDK_KEY_u);
        return true;
    };
    click(window().page_view(), night->rect.x + night->rect.w / 2,
          night->rect.y + night->rect.h / 2, true);
    EXPECT_EQ(heading, " Nachtschicht am 26.11.2026");
    EXPECT_EQ(state().page.cursor, day);
    EXPECT_EQ(marks::load_shift_markings(user_dir()).items,
              (std::vector<marks::ShiftMarking>{{day.number, 3, marks::kind_a::kVacation}}));
}

// K: the proposal of eight days, saved with Return, on disk and on the page.
TEST_F(WindowTest, KeyKSavesACalendarMarking) {
    start(date(2026, 11, 23));
    m_answer = [](Gtk::Dialog& dialog) {
        if (!dynamic_cast<CalendarMarkingDialog*>(&dialog)) return false;
        send_key(dialog, GDK_KEY_Return);
        return true;
    };
    key(GDK_KEY_k);
    const std::vector<marks::CalendarMarking> expected = {
        {date(2026, 11, 23).number, date(2026, 11, 30).number, marks::kDefaultMarkingColour}};
    EXPECT_EQ(marks::load_calendar_markings(user_dir()).items, expected);
    const view::DayCell* cell = day_cell(*window().page_view().page(), date(2026, 11, 30));
    ASSERT_TRUE(cell);
    EXPECT_EQ(cell->marking_colour, marks::kDefaultMarkingColour);
}

// The primary button pressed on the hours field (the entry's own text
// window, where a real click lands).
void click_field(Gtk::Entry& field) {
    GdkWindow* target = nullptr;
    for (GList* at = gdk_window_peek_children(field.get_window()->gobj()); at; at = at->next) {
        gpointer owner = nullptr;
        gdk_window_get_user_data(GDK_WINDOW(at->data), &owner);
        if (owner == field.gobj() && gdk_window_is_visible(GDK_WINDOW(at->data)))
            target = GDK_WINDOW(at->data);
    }
    ASSERT_TRUE(target);
    for (GdkEventType type : {GDK_BUTTON_PRESS, GDK_BUTTON_RELEASE}) {
        GdkEvent* event = gdk_event_new(type);
        event->button.window = GDK_WINDOW(g_object_ref(target));
        event->button.send_event = TRUE;
        event->button.time = GDK_CURRENT_TIME;
        event->button.x = 2;
        event->button.y = 2;
        event->button.button = GDK_BUTTON_PRIMARY;
        gdk_event_set_device(
            event, gdk_seat_get_pointer(gdk_display_get_default_seat(gdk_display_get_default())));
        gtk_main_do_event(event);
        gdk_event_free(event);
    }
}

// A click on the hours field and "Prog." - "Urlaub": the values are written
// at once and the two fields show them.
TEST_F(WindowTest, AccountDialogsFromTheHoursFieldAndTheProgWindow) {
    start(date(2026, 11, 23));
    m_answer = [](Gtk::Dialog& dialog) {
        if (auto* hours = dynamic_cast<HoursDialog*>(&dialog)) {
            hours->get_value_field().set_text("-12,5");
            send_key(dialog, GDK_KEY_Return);
            return true;
        }
        if (auto* vacation = dynamic_cast<VacationDialog*>(&dialog)) {
            vacation->get_days_field().set_text("25");
            send_key(dialog, GDK_KEY_Return);
            return true;
        }
        if (auto* prog = dynamic_cast<ChoiceDialog*>(&dialog);
            prog && dialog.get_title() == "Prog.") {
            send_key(dialog, GDK_KEY_u);
            return true;
        }
        return false;
    };
    click_field(window().status_lines().field(StatusField::Hours));
    EXPECT_EQ(field_text(StatusField::Hours), " -12,50");
    marks::HoursAccount hours;
    ASSERT_TRUE(marks::load_hours_file(user_dir(), hours));
    EXPECT_FLOAT_EQ(hours.start_value, -12.5f);

    key(GDK_KEY_F10);
    EXPECT_EQ(field_text(StatusField::Vacation), " 25");
    marks::VacationAccount vacation;
    ASSERT_TRUE(marks::load_vacation_file(user_dir(), vacation));
    EXPECT_EQ(vacation.days, 25);
}

// The note menu's "Schichtmarkierung" asks for the column first (here "2",
// the late shift); its "Kalendermarkierung" opens the bar's window.
TEST_F(WindowTest, NoteMenuReachesBothMarkings) {
    start(date(2026, 11, 23));
    guint menu_key = GDK_KEY_s;
    m_answer = [&](Gtk::Dialog& dialog) {
        if (dynamic_cast<NoteMenuDialog*>(&dialog)) {
            send_key(dialog, menu_key);
            return true;
        }
        if (dynamic_cast<ShiftColumnDialog*>(&dialog)) {
            send_key(dialog, GDK_KEY_2);
            return true;
        }
        if (dynamic_cast<ShiftMarkingDialog*>(&dialog)) {
            EXPECT_EQ(dynamic_cast<ShiftMarkingDialog&>(dialog).get_heading(),
                      " Spätschicht am 23.11.2026");
            send_key(dialog, GDK_KEY_f);
            return true;
        }
        if (dynamic_cast<CalendarMarkingDialog*>(&dialog)) {
            send_key(dialog, GDK_KEY_Return);
            return true;
        }
        return false;
    };
    key(GDK_KEY_F9);
    EXPECT_EQ(
        marks::load_shift_markings(user_dir()).items,
        (std::vector<marks::ShiftMarking>{{date(2026, 11, 23).number, 2, marks::kind_a::kFree}}));
    menu_key = GDK_KEY_k;
    key(GDK_KEY_F9);
    EXPECT_EQ(marks::load_calendar_markings(user_dir()).items.size(), 1u);
}

}  // namespace
}  // namespace sk::app::test
