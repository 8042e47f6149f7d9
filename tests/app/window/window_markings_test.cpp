// The markings and accounts as the main window opens them: keys 1 to 4, a
// double click into a crew's cell, K, a click on the hours field and the
// "Prog." entries; the page and the account fields follow at once, and the
// files are on disk before the program ends.
#include "app/calendar_marking_dialog.hpp"
#include "app/choice_dialog.hpp"
#include "app/hours_dialog.hpp"
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

// Key 1, then X: the day is marked on disk at once, drawn on the page, and
// counted in the hours field. A double click into a working crew's cell of
// another day marks that day in the column of the crew's shift, and the
// cursor goes there.
TEST_F(WindowTest, Key1AndADoubleClickOpenTheShiftMarking) {
    const Day day = day_off_of_crew_0();
    const Day other = date(2026, 11, 26);
    ASSERT_NE(day, other);
    start(day);
    ASSERT_EQ(field_text(StatusField::Hours), "   0,00");
    std::string heading;
    std::string code = "x";
    answer<ShiftMarkingDialog>([&](auto& d) {
        heading = d.get_heading();
        send_key(d, code);
    });
    key("1");
    EXPECT_EQ(marks::load_shift_markings(user_dir()).items,
              (std::vector<marks::ShiftMarking>{{day.number, 1, marks::kind_a::kWorked}}));
    EXPECT_EQ(field_text(StatusField::Hours), "   8,00");
    const view::DayCell* cell = day_cell(*window().page_view().page(), day);
    ASSERT_TRUE(cell);
    EXPECT_TRUE(std::ranges::any_of(cell->shifts, [](auto& shift) { return shift.marked; }));

    cell = day_cell(*window().page_view().page(), other);
    ASSERT_TRUE(cell);
    const auto crews = std::span(cell->shifts).first(cell->crews);
    const auto night = std::ranges::find(crews, calendar::shift::kNight, &view::ShiftCell::code);
    ASSERT_NE(night, crews.end());
    code = "u";
    click(window().page_view(), night->rect.x + night->rect.w / 2,
          night->rect.y + night->rect.h / 2, true);
    EXPECT_EQ(heading, " Nachtschicht am 26.11.2026");
    EXPECT_EQ(state().page.cursor, other);
    EXPECT_EQ(marks::load_shift_markings(user_dir()).items,
              (std::vector<marks::ShiftMarking>{{day.number, 1, marks::kind_a::kWorked},
                                                {other.number, 3, marks::kind_a::kVacation}}));
}

// A click on the hours field and "Prog." - "Urlaub": the values are written
// at once and the two fields show them.
TEST_F(WindowTest, AccountDialogsFromTheHoursFieldAndTheProgWindow) {
    start(date(2026, 11, 23));
    answer<ChoiceDialog>([](auto& d) { send_key(d, "u"); });  // "Urlaub"
    answer<HoursDialog>([](auto& d) {
        d.get_value_field().set_text("-12,5");
        send_key(d, "Return");
    });
    answer<VacationDialog>([](auto& d) {
        d.get_days_field().set_text("25");
        send_key(d, "Return");
    });
    click(window().status_lines().field(StatusField::Hours), 2, 2);
    EXPECT_EQ(field_text(StatusField::Hours), " -12,50");
    marks::HoursAccount hours;
    ASSERT_TRUE(marks::load_hours_file(user_dir(), hours));
    EXPECT_FLOAT_EQ(hours.start_value, -12.5f);

    key("F10");
    EXPECT_EQ(field_text(StatusField::Vacation), " 25");
    marks::VacationAccount vacation;
    ASSERT_TRUE(marks::load_vacation_file(user_dir(), vacation));
    EXPECT_EQ(vacation.days, 25);
}

// K and the note menu's "Kalendermarkierung" open the bar's window (saved
// with Return, on disk and on the page: the proposal of eight days); the
// note menu's "Schichtmarkierung" asks for the column first (here "2", the
// late shift).
TEST_F(WindowTest, KAndTheNoteMenuReachTheMarkings) {
    start(date(2026, 11, 23));
    std::string menu_key = "s";
    answer<ChoiceDialog>([&](auto& d) { send_key(d, menu_key); });  // the note menu
    answer<ShiftColumnDialog>([](auto& d) { send_key(d, "2"); });
    answer<ShiftMarkingDialog>([](auto& d) {
        EXPECT_EQ(d.get_heading(), " Spätschicht am 23.11.2026");
        send_key(d, "f");
    });
    answer<CalendarMarkingDialog>([](auto& d) { send_key(d, "Return"); });
    key("k");
    std::vector<marks::CalendarMarking> bars = {
        {date(2026, 11, 23).number, date(2026, 11, 30).number, marks::kDefaultMarkingColour}};
    EXPECT_EQ(marks::load_calendar_markings(user_dir()).items, bars);
    const view::DayCell* cell = day_cell(*window().page_view().page(), date(2026, 11, 30));
    ASSERT_TRUE(cell);
    EXPECT_EQ(cell->marking_colour, marks::kDefaultMarkingColour);

    key("F9");
    EXPECT_EQ(
        marks::load_shift_markings(user_dir()).items,
        (std::vector<marks::ShiftMarking>{{date(2026, 11, 23).number, 2, marks::kind_a::kFree}}));
    menu_key = "k";
    key("Right F9");
    bars.push_back(
        {date(2026, 12, 23).number, date(2026, 12, 30).number, marks::kDefaultMarkingColour});
    EXPECT_EQ(marks::load_calendar_markings(user_dir()).items, bars);
}

}  // namespace
}  // namespace sk::app::test
