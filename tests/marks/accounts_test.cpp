#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "calendar/shift_model.hpp"
#include "marks/accounts.hpp"
#include "test_support.hpp"

namespace sk::marks {
namespace {

using calendar::day_number;
using calendar::is_working;

constexpr int kModel = 1;
const Day kToday = Day::from_date(2024, 11, 31);
const PlanContext kPlan = plan_context(settings::Settings{}, kModel);

calendar::ShiftCode code_of(int crew, DayNumber d, int model = kModel) {
    return calendar::crew_shifts(model, d).code[static_cast<std::size_t>(crew)];
}

// The first day from `from` on that fulfils the condition; the calendar says
// which crew works when. The searches stay before the 2024 block (20 May).
Day find_day(Day from, const std::function<bool(const Day&)>& condition) {
    for (DayNumber d = from.number; d < from.number + 60; ++d)
        if (condition(Day::from_number(d))) return Day::from_number(d);
    ADD_FAILURE() << "no such day";
    return from;
}
int working_crew(const Day& day) {
    int crew = 0;
    while (!is_working(code_of(crew, day.number))) ++crew;
    return crew;
}

AccountState for_crew(int crew) {
    AccountState state;
    state.hours = {day_number(2024, 0, 1), 0.0f, 0, crew, false};
    state.vacation = {day_number(2024, 0, 1) - 1, 10};
    return state;
}

ShiftMarkings one(const Day& day, int code, int column = 1) {
    return {{{day.number, static_cast<std::int8_t>(column), static_cast<std::int8_t>(code)}}, false};
}

TEST(PaidHoliday, DatesAndShifts) {
    struct Case {
        int m, d;              // 2024, month index
        int first_paid_shift;  // 5: never
    };
    const Case cases[] = {
        {0, 1, 1}, {0, 6, 1}, {4, 1, 1}, {7, 15, 1}, {9, 3, 1}, {11, 25, 1}, {11, 26, 1},
        {11, 24, 3}, {11, 31, 3}, {3, 30, 4},
        {2, 29, 1}, {2, 31, 1}, {3, 1, 1}, {4, 9, 1}, {4, 19, 1}, {4, 20, 1}, {4, 30, 1},  // Easter 31 March
        {2, 30, 3}, {4, 18, 4},                                                          // Holy and Whit Saturday
        {10, 1, 5}, {2, 28, 5}, {0, 2, 5},
    };
    for (const Case& c : cases)
        for (int shift = 0; shift <= 4; ++shift)
            EXPECT_EQ(is_paid_holiday(Day::from_date(2024, c.m, c.d), shift), shift >= c.first_paid_shift)
                << "2024-" << c.m + 1 << "-" << c.d << " shift " << shift;
}

TEST(HoursAccount, WhatAMarkingCounts) {
    const Day from = Day::from_date(2024, 1, 1);
    const auto off = [](const Day& d) { return code_of(0, d.number) == calendar::shift::kOff; };
    const auto works = [](const Day& d) { return is_working(code_of(0, d.number)); };
    const Day off_sunday = find_day(from, [&](const Day& d) { return d.is_sunday() && off(d); });
    const Day off_weekday = find_day(from, [&](const Day& d) { return !d.is_sunday() && off(d); });
    const Day work_sunday = find_day(from, [&](const Day& d) { return d.is_sunday() && works(d); });
    const Day work_weekday = find_day(from, [&](const Day& d) { return !d.is_sunday() && works(d); });
    const Day standby = find_day(from, [](const Day& d) { return code_of(0, d.number) == 0; });
    struct Case {
        const char* what;
        Day day;
        int code;
        double plus, minus;
    };
    const Case cases[] = {
        {"X on an off Sunday", off_sunday, kind_a::kWorked, 12, 0},
        {"X on an off weekday", off_weekday, kind_a::kWorked, 8, 0},
        {"X in the standby week", standby, kind_a::kWorked, 8, 0},
        {"L on an off weekday", off_weekday, kind_a::kCourse, 8, 0},
        {"X on a working day", work_weekday, kind_a::kWorked, 0, 0},
        {"F on a working weekday", work_weekday, kind_a::kFree, 0, 8},
        {"F on a working Sunday", work_sunday, kind_a::kFree, 0, 12},
        {"F on an off day", off_weekday, kind_a::kFree, 0, 0},
        {"K on an off day", off_weekday, kind_a::kSick, 0, 0},
    };
    for (const Case& c : cases) {
        const HoursChange change = hours_change(one(c.day, c.code), for_crew(0), kPlan, kToday);
        EXPECT_EQ(change.plus, c.plus) << c.what;
        EXPECT_EQ(change.free_minus, c.minus) << c.what;
    }
    // The start date counts, the day before not; F needs a day after the
    // vacation reference date too.
    AccountState s = for_crew(0);
    s.hours.start_date = off_weekday.number + 1;
    EXPECT_EQ(hours_change(one(off_weekday, kind_a::kWorked), s, kPlan, kToday).plus, 0);
    s.hours.start_date = off_weekday.number;
    EXPECT_EQ(hours_change(one(off_weekday, kind_a::kWorked), s, kPlan, kToday).plus, 8);
    s = for_crew(0);
    s.vacation.reference_date = work_weekday.number;
    EXPECT_EQ(hours_change(one(work_weekday, kind_a::kFree), s, kPlan, kToday).free_minus, 0);
    s.vacation.reference_date = work_weekday.number - 1;
    EXPECT_EQ(hours_change(one(work_weekday, kind_a::kFree), s, kPlan, kToday).free_minus, 8);

    // F on 24 and 25 December by the crew working then: the 25th is paid for
    // every shift, the 24th only for the night shift (column 3).
    for (const int mday : {24, 25}) {
        const Day d = Day::from_date(2024, 11, mday);
        for (int column = 1; column <= 3; ++column)
            EXPECT_EQ(hours_change(one(d, kind_a::kFree, column), for_crew(working_crew(d)), kPlan, kToday)
                          .free_minus,
                      mday == 25 || column == 3 ? 0 : 8)
                << mday << " column " << column;
    }
}

// With the block as minus hours, every day of the block on which the home
// crew is on vacation instead of working takes 8 hours, 12 on a Sunday,
// unless paid for the early shift. From the plain plan: the crew's own
// sub-block, its working days and the Tuesday to Friday of its standby week.
TEST(HoursAccount, VacationBlockAsMinusHours) {
    const calendar::VacationBlock block = calendar::vacation_block(2024, kPlan.order, kPlan.earliest);
    for (int crew = 0; crew < 5; ++crew) {
        double expected = 0;
        for (DayNumber d = block.start; d < block.start + 140; ++d) {
            const int weekday = calendar::weekday_monday0(d);
            const bool away = is_working(code_of(crew, d)) || (code_of(crew, d) == 0 && weekday >= 1 && weekday <= 4);
            if (block.crew_on_vacation(d) == crew && away && !is_paid_holiday(Day::from_number(d), 1))
                expected += weekday == 6 ? 12 : 8;
        }
        AccountState state = for_crew(crew);
        state.hours.block_as_minus = true;
        EXPECT_GT(expected, 100);
        EXPECT_EQ(hours_balance({}, state, kPlan, kToday).hours, -expected) << "crew " << crew;
        EXPECT_EQ(hours_change({}, state, plan_context({}, 2), kToday).block_minus, 0);
    }
}

TEST(HoursAccount, BalanceTextAndColour) {
    struct Case {
        float start;
        int mode;
        const char* text;
        std::int32_t colour;
    };
    const Case cases[] = {
        {12.5f, 0, "  24,50", 0},        {7.30f, 1, "  19:30", 0},      {-19.30f, 1, "  -7:30", 0},
        {-12.30f, 1, "  -0:30", 0},      {-12.001f, 0, "   0,00", 0},   {-52.0f, 0, " -40,00", 0},
        {-52.01f, 0, " -40,01", 160},    {28.01f, 0, "  40,01", 160 * 256},
        {-600.0f, 1, "-588:00", 160},
    };
    const Day off_sunday = find_day(Day::from_date(2024, 1, 1), [](const Day& d) {
        return d.is_sunday() && code_of(0, d.number) == calendar::shift::kOff;
    });
    for (const Case& c : cases) {  // each with an X on an off Sunday: +12
        AccountState state = for_crew(0);
        state.hours.start_value = c.start;
        state.hours.mode = c.mode;
        const HoursBalance balance = hours_balance(one(off_sunday, kind_a::kWorked), state, kPlan, kToday);
        EXPECT_EQ(balance.text, c.text) << c.start;
        EXPECT_EQ(balance.colour, c.colour) << c.start;
    }
    EXPECT_EQ(format_balance(7.9999, 1), "   8:00");
}

TEST(VacationAccount, NewYearResetIsWrittenAtOnce) {
    test::TempDir dir;
    AccountState state = for_crew(0);
    state.vacation = {day_number(2023, 4, 1), 20};
    refresh_accounts(dir.path(), {}, state, kPlan, Day::from_date(2024, 2, 1));
    const VacationAccount reset{day_number(2024, 0, 1), 0};
    EXPECT_EQ(state.vacation, reset);
    EXPECT_EQ(load_accounts(dir.path()).vacation, reset);

    std::filesystem::remove(dir / "Urlaubstage.dat");
    state.vacation.days = 25;
    EXPECT_EQ(refresh_accounts(dir.path(), {}, state, kPlan, kToday).vacation, " 25");
    // Models 6 and 7 keep no accounts: empty texts, no reset.
    state.vacation = {0, 5};
    const AccountTexts none = refresh_accounts(dir.path(), {}, state, plan_context({}, 7), kToday);
    EXPECT_EQ(none.hours + none.vacation, "");
    EXPECT_EQ(state.vacation.reference_date, 0);
    EXPECT_FALSE(std::filesystem::exists(dir / "Urlaubstage.dat"));
}

TEST(VacationAccount, WhichVacationMarkingsCount) {
    const auto works = [](const Day& d) { return is_working(code_of(2, d.number)); };
    const Day work_day = find_day(Day::from_date(2024, 1, 1), works);
    const Day christmas = Day::from_date(2024, 11, 25);
    struct Case {
        const char* what;
        int crew;
        Day day;
        DayNumber reference;
        const char* remaining;
    };
    const DayNumber jan1 = day_number(2024, 0, 1);
    const Case cases[] = {
        {"working day", 2, work_day, jan1, "  9"},
        {"on the reference date", 2, work_day, work_day.number, "  9"},
        {"before the reference date", 2, work_day, work_day.number + 1, " 10"},
        {"day off", 2, find_day(Day::from_date(2024, 1, 1), std::not_fn(works)), jan1, " 10"},
        {"last year", 2, find_day(Day::from_date(2023, 11, 1), works), jan1 - 400, " 10"},
        {"next year", 2, find_day(Day::from_date(2025, 0, 1), works), jan1, " 10"},
        {"paid holiday", working_crew(christmas), christmas, jan1, " 10"},
    };
    for (const Case& c : cases) {
        AccountState state = for_crew(c.crew);
        state.vacation.reference_date = c.reference;
        EXPECT_EQ(remaining_vacation_text(one(c.day, kind_a::kVacation), state, kPlan, kToday), c.remaining)
            << c.what;
    }

    // In its own sub-block of the vacation block the crew is on vacation
    // already; the standby crew covering for it works and is charged.
    const calendar::VacationBlock block = calendar::vacation_block(2024, kPlan.order, kPlan.earliest);
    const int crew = block.order_row[1];
    const Day own = find_day(Day::from_number(block.start + 28),
                             [&](const Day& d) { return is_working(code_of(crew, d.number)); });
    int standby = 0;
    while (code_of(standby, own.number) != calendar::shift::kStandby) ++standby;
    EXPECT_EQ(vacation_days_taken(one(own, kind_a::kVacation), for_crew(crew), kPlan, kToday), 0);
    EXPECT_EQ(vacation_days_taken(one(own, kind_a::kVacation), for_crew(standby), kPlan, kToday), 1);
}

TEST(YearlyHours, TableValues) {
    // January 2024, crew 0 of model 1 starts at row 28 of the 35-day
    // pattern: 20 working days, two of them Sundays: 160 + 8. June lies in
    // the block (20 May to 6 October): 15 working days and the 7 standby
    // days, three Sundays among them: 176 + 12.
    const YearlyHours five = yearly_hours(kPlan, 2024);
    EXPECT_EQ(five.crews, 5);
    EXPECT_EQ(five.months[0][0], 168);
    EXPECT_EQ(five.months[5][0], 188);
    EXPECT_EQ(five.target, 1982.76f);
    // Model 2, crew 0 in January 2024: 21 working days of 8.5 hours.
    const YearlyHours three = yearly_hours(plan_context({}, 2), 2024);
    EXPECT_EQ(three.crews, 3);
    EXPECT_EQ(three.months[0][0], 178.5);
    EXPECT_EQ(three.target, 2088.0);
    for (const YearlyHours* table : {&five, &three})
        for (std::size_t c = 0; c < 5; ++c) {
            double sum = 0;
            for (const auto& month : table->months) sum += month[c];
            EXPECT_EQ(table->sums[c], sum);
            if (c < static_cast<std::size_t>(table->crews)) {
                EXPECT_NEAR(sum, table->target, table->target * 0.05);
            }
        }
    EXPECT_EQ(yearly_hours(plan_context({}, 6), 2024).crews, 0);
}

}  // namespace
}  // namespace sk::marks
