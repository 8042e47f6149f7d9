#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "calendar/shift_model.hpp"
#include "marks/accounts.hpp"
#include "printers.hpp"
#include "test_support.hpp"

namespace sk::marks {
namespace {

using calendar::day_number;

constexpr int kModel = 1;
const Day kToday = Day::from_date(2024, 11, 31);
const PlanContext kPlan = plan_context(settings::Settings{}, kModel);

calendar::ShiftCode plain_code(int model, int crew, DayNumber d) {
    return calendar::crew_shifts(model, d).code[static_cast<std::size_t>(crew)];
}

// The first day of a range that fulfils the condition; the calendar itself
// says which crew works when.
Day find_day(Day from, Day to, const std::function<bool(const Day&)>& condition) {
    for (DayNumber d = from.number; d <= to.number; ++d)
        if (condition(Day::from_number(d))) return Day::from_number(d);
    ADD_FAILURE() << "no such day";
    return from;
}

// Days of 2024 before the block (which starts on 20 May).
const Day kSpringFrom = Day::from_date(2024, 0, 1);
const Day kSpringTo = Day::from_date(2024, 3, 30);

AccountState state_for_crew(int crew) {
    AccountState state;
    state.hours.start_date = kSpringFrom.number;
    state.hours.home_crew = crew;
    state.vacation = {kSpringFrom.number - 1, 30};
    return state;
}

ShiftMarkings one_marking(const Day& day, int code, int column = 1) {
    return {{{day.number, static_cast<std::int8_t>(column), static_cast<std::int8_t>(code)}}, false};
}

TEST(PaidHoliday, DatesAndShifts) {
    struct Case {
        int y, m, d;  // month index
        int first_paid_shift;  // 4 and above all paid, 5: never
    };
    const Case cases[] = {
        {2024, 0, 1, 1},   {2024, 0, 6, 1},  {2024, 4, 1, 1},   {2024, 7, 15, 1}, {2024, 9, 3, 1},
        {2024, 11, 25, 1}, {2024, 11, 26, 1},
        {2024, 11, 24, 3}, {2024, 11, 31, 3}, {2024, 3, 30, 4},
        {2024, 2, 29, 1},  // Good Friday (Easter 31 March 2024)
        {2024, 2, 31, 1},  {2024, 3, 1, 1},   {2024, 4, 9, 1},  // Ascension
        {2024, 4, 19, 1},  {2024, 4, 20, 1},  {2024, 4, 30, 1},  // Whitsun, Corpus Christi
        {2024, 2, 30, 3},  // Holy Saturday
        {2024, 4, 18, 4},  // Whit Saturday
        {2025, 3, 18, 1},  // Good Friday 2025
        {2024, 10, 1, 5},  {2024, 2, 28, 5},  {2024, 4, 21, 5},  {2024, 0, 2, 5},
    };
    for (const Case& c : cases) {
        const Day day = Day::from_date(c.y, c.m, c.d);
        for (int shift = 0; shift <= 4; ++shift)
            EXPECT_EQ(is_paid_holiday(day, shift), shift >= c.first_paid_shift)
                << calendar::format_iso_date(day) << " shift " << shift;
    }
}

TEST(HoursAccount, WhatAMarkingCounts) {
    const int crew = 0;
    const auto off = [&](const Day& d) { return plain_code(kModel, crew, d.number) == calendar::shift::kOff; };
    const auto works = [&](const Day& d) { return calendar::is_working(plain_code(kModel, crew, d.number)); };
    const Day off_sunday = find_day(kSpringFrom, kSpringTo, [&](const Day& d) { return d.is_sunday() && off(d); });
    const Day off_weekday = find_day(kSpringFrom, kSpringTo, [&](const Day& d) { return !d.is_sunday() && off(d); });
    const Day work_sunday = find_day(kSpringFrom, kSpringTo, [&](const Day& d) { return d.is_sunday() && works(d); });
    const Day work_weekday = find_day(Day::from_date(2024, 1, 1), kSpringTo,
                                      [&](const Day& d) { return !d.is_sunday() && works(d); });
    const Day standby_day = find_day(kSpringFrom, kSpringTo, [&](const Day& d) {
        return plain_code(kModel, crew, d.number) == calendar::shift::kStandby;
    });

    struct Case {
        const char* what;
        Day day;
        int code;
        double plus, free_minus;
    };
    const Case cases[] = {
        {"X on an off Sunday", off_sunday, kind_a::kWorked, 12, 0},
        {"X on an off weekday", off_weekday, kind_a::kWorked, 8, 0},
        {"X in the standby week", standby_day, kind_a::kWorked, 8, 0},
        {"L on an off weekday", off_weekday, kind_a::kCourse, 8, 0},
        {"X on a working day", work_weekday, kind_a::kWorked, 0, 0},
        {"K on an off day", off_weekday, kind_a::kSick, 0, 0},
        {"F on a working weekday", work_weekday, kind_a::kFree, 0, 8},
        {"F on a working Sunday", work_sunday, kind_a::kFree, 0, 12},
        {"F on an off day", off_weekday, kind_a::kFree, 0, 0},
        {"U and A take no hours", work_weekday, kind_a::kVacation, 0, 0},
    };
    const AccountState state = state_for_crew(crew);
    for (const Case& c : cases) {
        const HoursChange change = hours_change(one_marking(c.day, c.code), state, kPlan, kToday);
        EXPECT_EQ(change.plus, c.plus) << c.what << " " << calendar::format_iso_date(c.day);
        EXPECT_EQ(change.free_minus, c.free_minus) << c.what << " " << calendar::format_iso_date(c.day);
        EXPECT_EQ(change.block_minus, 0) << c.what;
    }

    // The start date counts, the day before does not; F also needs a day
    // after the vacation reference date.
    AccountState late = state;
    late.hours.start_date = off_weekday.number;
    EXPECT_EQ(hours_change(one_marking(off_weekday, kind_a::kWorked), late, kPlan, kToday).plus, 8);
    late.hours.start_date = off_weekday.number + 1;
    EXPECT_EQ(hours_change(one_marking(off_weekday, kind_a::kWorked), late, kPlan, kToday).plus, 0);
    late = state;
    late.vacation.reference_date = work_weekday.number;
    EXPECT_EQ(hours_change(one_marking(work_weekday, kind_a::kFree), late, kPlan, kToday).free_minus, 0);
    late.vacation.reference_date = work_weekday.number - 1;
    EXPECT_EQ(hours_change(one_marking(work_weekday, kind_a::kFree), late, kPlan, kToday).free_minus, 8);
}

TEST(HoursAccount, FreeOnAPaidHolidayDependsOnTheMarkingsShift) {
    // The crew that works on 24 and 25 December 2024 takes them off.
    for (const int day : {24, 25}) {
        const Day d = Day::from_date(2024, 11, day);
        int crew = 0;
        while (!calendar::is_working(plain_code(kModel, crew, d.number))) ++crew;
        const AccountState state = state_for_crew(crew);
        for (int column = 1; column <= 3; ++column) {
            const bool paid = day == 25 || column == 3;
            EXPECT_EQ(hours_change(one_marking(d, kind_a::kFree, column), state, kPlan, kToday).free_minus,
                      paid ? 0 : 8)
                << "December " << day << " column " << column;
        }
    }
}

// With "Den Urlaubsblock als Minusstunden berechnen" every day of the
// block on which the home crew is on vacation instead of working takes 8
// hours, 12 on a Sunday, unless it is a paid holiday for the early shift.
// Expected from the plain plan: the crew's own sub-block, its working days
// and the Tuesday to Friday of its own standby week.
TEST(HoursAccount, VacationBlockAsMinusHours) {
    const calendar::VacationBlock block = calendar::vacation_block(2024, kPlan.order, kPlan.earliest);
    for (int crew = 0; crew < 5; ++crew) {
        double expected = 0;
        for (DayNumber d = block.start; d < block.start + 140; ++d) {
            if (block.crew_on_vacation(d) != crew) continue;
            const auto code = plain_code(kModel, crew, d);
            const int weekday = calendar::weekday_monday0(d);
            const bool on_vacation = calendar::is_working(code) ||
                                     (code == calendar::shift::kStandby && weekday >= 1 && weekday <= 4);
            if (on_vacation && !is_paid_holiday(Day::from_number(d), 1))
                expected += calendar::weekday_sunday0(d) == 0 ? 12 : 8;
        }
        AccountState state = state_for_crew(crew);
        EXPECT_EQ(hours_change({}, state, kPlan, kToday).block_minus, 0);
        state.hours.block_as_minus = true;
        const HoursChange change = hours_change({}, state, kPlan, kToday);
        EXPECT_GT(expected, 100);
        EXPECT_EQ(change.block_minus, expected) << "crew " << crew;
        EXPECT_EQ(hours_balance({}, state, kPlan, kToday).hours, -expected);
        // Model 2 has no block.
        EXPECT_EQ(hours_change({}, state, plan_context({}, 2), kToday).block_minus, 0);
    }
}

TEST(HoursAccount, BalanceTextAndColour) {
    struct Case {
        float start;
        int mode;
        double change_hours;  // as X markings on off Sundays, 12 each: 0, 12 or 24
        const char* text;
        std::int32_t colour;
    };
    const Case cases[] = {
        {0.0f, 0, 0, "   0,00", 0},
        {12.5f, 0, 0, "  12,50", 0},
        {7.30f, 1, 12, "  19:30", 0},
        {-7.30f, 1, 0, "  -7:30", 0},
        {-0.30f, 1, 0, "  -0:30", 0},
        {-0.001f, 0, 0, "   0,00", 0},
        {-40.0f, 0, 0, " -40,00", 0},
        {-40.01f, 0, 0, " -40,01", 160},
        {-52.0f, 0, 12, " -40,00", 0},
        {40.01f, 0, 0, "  40,01", 160 * 256},
        {-600.0f, 1, 0, "-600:00", 160},
        {600.0f, 0, 24, " 624,00", 160 * 256},
    };
    const Day off_sunday = find_day(kSpringFrom, kSpringTo, [](const Day& d) {
        return d.is_sunday() && plain_code(kModel, 0, d.number) == calendar::shift::kOff;
    });
    const Day second_off_sunday = find_day(Day::from_number(off_sunday.number + 1), kSpringTo, [](const Day& d) {
        return d.is_sunday() && plain_code(kModel, 0, d.number) == calendar::shift::kOff;
    });
    for (const Case& c : cases) {
        AccountState state = state_for_crew(0);
        state.hours.start_value = c.start;
        state.hours.mode = c.mode;
        ShiftMarkings markings;
        if (c.change_hours >= 12) apply_marking(markings, off_sunday.number, 1, kind_a::kWorked, kModel);
        if (c.change_hours >= 24) apply_marking(markings, second_off_sunday.number, 1, kind_a::kWorked, kModel);
        const HoursBalance balance = hours_balance(markings, state, kPlan, kToday);
        EXPECT_EQ(balance.text, c.text) << c.start;
        EXPECT_EQ(balance.colour, c.colour) << c.start;
    }
    // Rounding never gives 60 minutes.
    EXPECT_EQ(format_balance(7.9999, 1), "   8:00");
    EXPECT_EQ(format_balance(-7.5, 0), "  -7,50");
}

TEST(VacationAccount, NewYearResetIsWrittenAtOnce) {
    test::TempDir dir;
    AccountState state = state_for_crew(0);
    state.vacation = {day_number(2023, 4, 1), 20};
    const Day new_year = Day::from_date(2024, 0, 1);
    refresh_accounts(dir.path(), {}, state, kPlan, Day::from_date(2024, 2, 1));
    EXPECT_EQ(state.vacation, (VacationAccount{new_year.number, 0}));
    VacationAccount on_disk;
    ASSERT_TRUE(load_vacation_file(dir.path(), on_disk));
    EXPECT_EQ(on_disk, state.vacation);

    // Within the year nothing is written.
    std::filesystem::remove(dir / "Urlaubstage.dat");
    state.vacation = {new_year.number, 25};
    const AccountTexts texts = refresh_accounts(dir.path(), {}, state, kPlan, Day::from_date(2024, 11, 31));
    EXPECT_EQ(texts.vacation, " 25");
    EXPECT_EQ(state.vacation.days, 25);
    EXPECT_FALSE(std::filesystem::exists(dir / "Urlaubstage.dat"));

    // Models 6 and 7 keep no accounts: empty texts, no reset.
    state.vacation = {0, 5};
    const AccountTexts none = refresh_accounts(dir.path(), {}, state, plan_context({}, 6), kToday);
    EXPECT_EQ(none.hours, "");
    EXPECT_EQ(none.vacation, "");
    EXPECT_EQ(state.vacation, (VacationAccount{0, 5}));
    EXPECT_FALSE(std::filesystem::exists(dir / "Urlaubstage.dat"));
}

TEST(VacationAccount, WhichVacationMarkingsCount) {
    const int crew = 2;
    const auto works = [&](const Day& d) { return calendar::is_working(plain_code(kModel, crew, d.number)); };
    const Day work_day = find_day(Day::from_date(2024, 1, 1), kSpringTo, works);
    const Day off_day = find_day(kSpringFrom, kSpringTo, [&](const Day& d) { return !works(d); });
    const Day last_year = find_day(Day::from_date(2023, 10, 1), Day::from_date(2023, 11, 31), works);
    const Day next_year = find_day(Day::from_date(2025, 0, 1), Day::from_date(2025, 1, 28), works);
    Day christmas = Day::from_date(2024, 11, 25);
    int christmas_crew = 0;
    while (!calendar::is_working(plain_code(kModel, christmas_crew, christmas.number))) ++christmas_crew;

    struct Case {
        const char* what;
        int crew;
        Day day;
        int column;
        DayNumber reference;
        int taken;
    };
    const DayNumber jan1 = day_number(2024, 0, 1);
    const Case cases[] = {
        {"working day", crew, work_day, 1, jan1, 1},
        {"on the reference date", crew, work_day, 1, work_day.number, 1},
        {"before the reference date", crew, work_day, 1, work_day.number + 1, 0},
        {"day off", crew, off_day, 1, jan1, 0},
        {"last year", crew, last_year, 1, jan1 - 400, 0},
        {"next year", crew, next_year, 1, jan1, 0},
        {"paid holiday", christmas_crew, christmas, 1, jan1, 0},
    };
    for (const Case& c : cases) {
        AccountState state = state_for_crew(c.crew);
        state.vacation = {c.reference, 10};
        const ShiftMarkings m = one_marking(c.day, kind_a::kVacation, c.column);
        EXPECT_EQ(vacation_days_taken(m, state, kPlan, kToday), c.taken) << c.what;
        EXPECT_EQ(remaining_vacation_text(m, state, kPlan, kToday), c.taken ? "  9" : " 10") << c.what;
    }
    AccountState state = state_for_crew(crew);
    state.vacation = {jan1, -60};
    EXPECT_EQ(remaining_vacation_text(one_marking(work_day, kind_a::kVacation), state, kPlan, kToday), "-61");
}

// During its own sub-block of the vacation block the crew is on vacation:
// a U marking there takes no day, while the standby crew covering for it
// works and is charged.
TEST(VacationAccount, BlockVacationIsNotCharged) {
    const calendar::VacationBlock block = calendar::vacation_block(2024, kPlan.order, kPlan.earliest);
    const int crew = block.order_row[1];
    const Day own = find_day(Day::from_number(block.start + 28), Day::from_number(block.start + 55),
                             [&](const Day& d) { return calendar::is_working(plain_code(kModel, crew, d.number)); });
    AccountState state = state_for_crew(crew);
    EXPECT_EQ(vacation_days_taken(one_marking(own, kind_a::kVacation), state, kPlan, kToday), 0);
    int standby = 0;
    while (plain_code(kModel, standby, own.number) != calendar::shift::kStandby) ++standby;
    state.hours.home_crew = standby;
    EXPECT_EQ(vacation_days_taken(one_marking(own, kind_a::kVacation), state, kPlan, kToday), 1);
}

TEST(YearlyHours, TableValues) {
    // January 2024, crew 0 of model 1 starts at row 28 of the 35-day
    // pattern: 20 working days (160 hours), two of them Sundays (+8).
    // June 2024 lies in the block (20 May to 6 October): 15 working days and
    // the 7 standby days, three Sundays among them: 176 + 12.
    const YearlyHours five = yearly_hours(kPlan, 2024);
    EXPECT_EQ(five.crews, 5);
    EXPECT_EQ(five.months[0][0], 168);
    EXPECT_EQ(five.months[5][0], 188);
    EXPECT_FLOAT_EQ(static_cast<float>(five.target), 1982.76f);
    // Model 2, crew 0 in January 2024: 21 working days of 8.5 hours.
    const YearlyHours three = yearly_hours(plan_context({}, 2), 2024);
    EXPECT_EQ(three.crews, 3);
    EXPECT_EQ(three.months[0][0], 178.5);
    EXPECT_EQ(three.target, 2088.0);

    for (const YearlyHours* table : {&five, &three}) {
        for (int c = 0; c < table->crews; ++c) {
            double sum = 0;
            for (const auto& month : table->months) sum += month[static_cast<std::size_t>(c)];
            EXPECT_EQ(table->sums[static_cast<std::size_t>(c)], sum);
            // Within 5 % of the year's target hours.
            EXPECT_NEAR(sum, table->target, table->target * 0.05) << "crew " << c;
        }
        for (int c = table->crews; c < 5; ++c) EXPECT_EQ(table->sums[static_cast<std::size_t>(c)], 0);
    }
    EXPECT_EQ(yearly_hours(plan_context({}, 6), 2024).crews, 0);
    EXPECT_EQ(yearly_hours(plan_context({}, 7), 2024).crews, 0);
}

}  // namespace
}  // namespace sk::marks
