#include "marks/accounts.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <limits>
#include <tuple>

#include "calendar/shift_model.hpp"
#include "marks/records.hpp"
#include "test_support.hpp"

namespace sk::marks {
namespace {

using calendar::day_number;
using calendar::is_working;

const Day kToday = Day::from_date(2024, 11, 31);
const DayNumber kJan1 = day_number(2024, 0, 1);
const PlanContext kPlan{.model = 1};

calendar::ShiftCode code_of(int crew, DayNumber d) {
    return calendar::crew_shifts(kPlan.model, d).code[static_cast<std::size_t>(crew)];
}

// The first day from `from` on that fulfils the condition; the calendar says
// which crew works when. The searches stay before the 2024 block (20 May).
Day find_day(Day from, const std::function<bool(const Day&)>& condition) {
    for (DayNumber d = from.number; d < from.number + 60; ++d)
        if (condition(Day::from_number(d))) return Day::from_number(d);
    ADD_FAILURE() << "no such day";
    return from;
}
// The first Sunday (or weekday) from `from` on that crew 0 works (or has off).
Day crew0_day(bool sunday, bool working, Day from = Day::from_date(2024, 1, 1)) {
    return find_day(from, [=](const Day& d) {
        const calendar::ShiftCode code = code_of(0, d.number);
        return d.is_sunday() == sunday && (working ? is_working(code) : code == calendar::shift::kOff);
    });
}
int working_crew(const Day& day) {
    int crew = 0;
    while (!is_working(code_of(crew, day.number))) ++crew;
    return crew;
}

AccountState for_crew(int crew) { return {{kJan1, 0.0f, 0, crew, false}, {kJan1 - 1, 10}}; }

ShiftMarkings one(const Day& day, int code, int column = 1) {
    return {{{day.number, static_cast<std::int8_t>(column), static_cast<std::int8_t>(code)}}, false};
}

TEST(AccountFiles, LastCompleteRecordWins) {
    const HoursAccount first{100, 1.5f, 0, 1, false};
    const HoursAccount second{200, -2.25f, 1, 2, true};
    const std::string two = serialize_hours_record(first) + serialize_hours_record(second);
    EXPECT_EQ(parse_hours_record(two + "\x01\x02\x03"), second);
    EXPECT_EQ(parse_hours_record(two.substr(0, 21)), first);

    // No file or no complete record: the values in memory stay.
    test::TempDir dir;
    AccountState state{first, {7, 8}};
    EXPECT_EQ(load_accounts(dir.path(), state), state);
    test::write_bytes(dir / "Minusstunden.dat", "1234567");
    test::write_bytes(dir / "Urlaubstage.dat", "");
    EXPECT_EQ(load_accounts(dir.path(), state), state);

    // Of a gigabyte file (sparse, nothing on disk) only the last record is read.
    {
        std::ofstream out(dir / "Minusstunden.dat", std::ios::binary | std::ios::trunc);
        out.seekp(static_cast<std::streamoff>(((1u << 30) / kHoursRecord - 1) * kHoursRecord));
        out << serialize_hours_record(second) << "xyz";
    }
    EXPECT_EQ(load_accounts(dir.path(), state).hours, second);
}

TEST(AccountFiles, ValuesAreBroughtIntoRange) {
    const std::pair<HoursAccount, HoursAccount> cases[] = {  // written, read
        {{9, -599.5f, 1, 4, true}, {9, -599.5f, 1, 4, true}},
        {{9, 700.0f, 0, 0, false}, {9, 600.0f, 0, 0, false}},
        {{9, std::numeric_limits<float>::quiet_NaN(), 0, 0, false}, {9, 0.0f, 0, 0, false}},
        {{9, 1.0f, 2, 5, false}, {9, 1.0f, 0, 0, false}},
    };
    for (const auto& [written, read] : cases)
        EXPECT_EQ(parse_hours_record(serialize_hours_record(written)), read) << written.start_value;
    EXPECT_FALSE(parse_hours_record(std::string(10, '\0') + '\x02')->block_as_minus);  // only 1 is set

    // What the dialogs take: hours entered as 700 are stored as 600.
    test::TempDir dir;
    ASSERT_TRUE(save_hours_file(dir.path(), {1, clamp_hours_value(700), 0, 0, false}));
    EXPECT_EQ(test::read_bytes(dir / "Minusstunden.dat").substr(4, 4), std::string("\0\0\x16\x44", 4));
    EXPECT_EQ(clamp_vacation_days(-1000000000000LL), -60);
}

TEST(PaidHoliday, DatesAndShifts) {
    const std::tuple<int, int, int> cases[] = {  // 2024, month index, day; first paid shift (5: never)
        {0, 1, 1}, {0, 6, 1}, {4, 1, 1}, {7, 15, 1}, {9, 3, 1}, {11, 25, 1}, {11, 26, 1},
        {11, 24, 3}, {11, 31, 3}, {3, 30, 4},
        {2, 29, 1}, {2, 31, 1}, {3, 1, 1}, {4, 9, 1}, {4, 19, 1}, {4, 20, 1}, {4, 30, 1},  // Easter 31 March
        {2, 30, 3}, {4, 18, 4},                                                          // Holy and Whit Saturday
        {10, 1, 5}, {2, 28, 5}, {0, 2, 5},
    };
    for (const auto& [m, d, first_paid_shift] : cases)
        for (int shift = 0; shift <= 4; ++shift)
            EXPECT_EQ(is_paid_holiday(Day::from_date(2024, m, d), shift), shift >= first_paid_shift)
                << "2024-" << m + 1 << "-" << d << " shift " << shift;
}

TEST(HoursAccount, WhatAMarkingCounts) {
    const Day off_sunday = crew0_day(true, false), off_day = crew0_day(false, false);
    const Day work_sunday = crew0_day(true, true), work_day = crew0_day(false, true);
    struct Case {
        const char* what;
        Day day;
        int code;
        double hours;
        DayNumber start = kJan1, reference = kJan1 - 1;
    };
    const Case cases[] = {
        {"X on an off Sunday", off_sunday, kind_a::kWorked, 12},
        {"X on an off weekday", off_day, kind_a::kWorked, 8},
        {"L on an off weekday", off_day, kind_a::kCourse, 8},
        {"X on a working day", work_day, kind_a::kWorked, 0},
        {"F on a working weekday", work_day, kind_a::kFree, -8},
        {"F on a working Sunday", work_sunday, kind_a::kFree, -12},
        {"F on an off day", off_day, kind_a::kFree, 0},
        {"K on an off day", off_day, kind_a::kSick, 0},
        {"X on the start date", off_day, kind_a::kWorked, 8, off_day.number},
        {"X before the start date", off_day, kind_a::kWorked, 0, off_day.number + 1},
        {"F on the vacation reference date", work_day, kind_a::kFree, 0, kJan1, work_day.number},
    };
    for (const Case& c : cases) {
        AccountState state = for_crew(0);
        state.hours.start_date = c.start;
        state.vacation.reference_date = c.reference;
        EXPECT_EQ(hours_change(one(c.day, c.code), state, kPlan, kToday).total(), c.hours) << c.what;
    }
    // F on 24 and 25 December by the crew working then: the 25th is paid for
    // every shift, the 24th only for the night shift (column 3).
    for (const int mday : {24, 25}) {
        const Day d = Day::from_date(2024, 11, mday);
        for (int column = 1; column <= 3; ++column)
            EXPECT_EQ(hours_change(one(d, kind_a::kFree, column), for_crew(working_crew(d)), kPlan, kToday).total(),
                      mday == 25 || column == 3 ? 0 : -8) << mday << " column " << column;
    }
}

TEST(HoursAccount, BalanceTextAndColour) {
    constexpr calendar::Rgb kBlack, kDarkRed{160, 0, 0}, kDarkGreen{0, 160, 0};
    // start, mode, text, colour
    const std::tuple<float, int, const char*, calendar::Rgb> cases[] = {
        {12.5f, 0, "  24,50", kBlack},     {7.30f, 1, "  19:30", kBlack},
        {-19.30f, 1, "  -7:30", kBlack},   {-12.30f, 1, "  -0:30", kBlack},
        {-12.001f, 0, "   0,00", kBlack},  {-52.0f, 0, " -40,00", kBlack},
        {-52.01f, 0, " -40,01", kDarkRed}, {28.01f, 0, "  40,01", kDarkGreen},
        {-600.0f, 1, "-588:00", kDarkRed},
    };
    for (const auto& [start, mode, text, colour] : cases) {  // each with an X on an off Sunday: +12
        AccountState state = for_crew(0);
        state.hours.start_value = start;
        state.hours.mode = mode;
        const HoursBalance balance =
            hours_balance(one(crew0_day(true, false), kind_a::kWorked), state, kPlan, kToday);
        EXPECT_EQ(balance.text, text) << start;
        EXPECT_EQ(balance.colour, colour) << start;
    }
    EXPECT_EQ(format_balance(7.9999, 1), "   8:00");
}

// Every hours text of the program (balance, "Jahresstunden", the plan's
// target hours) rounds the same way: exact binary halves away from zero.
TEST(HoursAccount, HoursTextRoundsHalvesAwayFromZero) {
    const std::tuple<double, int, const char*> cases[] = {
        {1982.76f, 0, "1982,76"}, {2088.125, 0, "2088,13"}, {-2088.125, 0, "-2088,13"},
        {0.005, 0, "0,01"},       {-0.004, 0, "0,00"},      {1e6, 0, "1000000,00"},
        {7.5, 1, "7:30"},         {-0.5 / 60, 1, "-0:01"},  {59.5 / 60, 1, "1:00"},
    };
    for (const auto& [hours, mode, text] : cases)
        EXPECT_EQ(hours_text(hours, mode), text) << hours;
}

TEST(VacationAccount, NewYearResetIsWrittenAtOnce) {
    test::TempDir dir;
    AccountState state = for_crew(0);
    state.vacation = {day_number(2023, 4, 1), 20};
    refresh_accounts(dir.path(), {}, state, kPlan, Day::from_date(2024, 2, 1));
    const VacationAccount reset{kJan1, 0};
    EXPECT_EQ(state.vacation, reset);
    EXPECT_EQ(load_accounts(dir.path()).vacation, reset);

    std::filesystem::remove(dir / "Urlaubstage.dat");
    state.vacation.days = 25;
    EXPECT_EQ(refresh_accounts(dir.path(), {}, state, kPlan, kToday).vacation, " 25");
    // Models 6 and 7 keep no accounts: empty texts, no reset.
    state.vacation = {0, 5};
    const AccountTexts none =
        refresh_accounts(dir.path(), {}, state, PlanContext{.model = 7}, kToday);
    EXPECT_EQ(none.hours + none.vacation, "");
    EXPECT_EQ(state.vacation.reference_date, 0);
    EXPECT_FALSE(std::filesystem::exists(dir / "Urlaubstage.dat"));
}

TEST(VacationAccount, WhichVacationMarkingsCount) {
    const Day work_day = crew0_day(false, true);
    const Day christmas = Day::from_date(2024, 11, 25);
    const std::tuple<const char*, int, Day, DayNumber, const char*> cases[] = {
        // what, crew, day, vacation reference date, remaining days
        {"on the reference date", 0, work_day, work_day.number, "  9"},
        {"before the reference date", 0, work_day, work_day.number + 1, " 10"},
        {"day off", 0, crew0_day(false, false), kJan1, " 10"},
        {"last year", 0, crew0_day(false, true, Day::from_date(2023, 11, 1)), kJan1 - 400, " 10"},
        {"next year", 0, crew0_day(false, true, Day::from_date(2025, 0, 7)), kJan1, " 10"},
        {"paid holiday", working_crew(christmas), christmas, kJan1, " 10"},
    };
    for (const auto& [what, crew, day, reference, remaining] : cases) {
        AccountState state = for_crew(crew);
        state.vacation.reference_date = reference;
        EXPECT_EQ(remaining_vacation_text(one(day, kind_a::kVacation), state, kPlan, kToday), remaining)
            << what;
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

// Model 1, crew 0 in 2024: January has 20 working days, two of them Sundays
// (160 + 8); June, in the block (20 May to 6 October), 15 working days and the
// 7 standby days, three Sundays among them (176 + 12). Model 2, crew 0 in
// January: 21 working days of 8.5 hours.
TEST(YearlyHours, TableValuesAndText) {
    const YearlyHours five = yearly_hours(kPlan, 2024);
    const YearlyHours three = yearly_hours(PlanContext{.model = 2}, 2024);
    EXPECT_EQ(std::tuple(five.crews, five.months[0][0], five.months[5][0], five.target),
              std::tuple(5, 168.0, 188.0, double{1982.76f}));
    EXPECT_EQ(std::tuple(three.crews, three.months[0][0], three.target), std::tuple(3, 178.5, 2088.0));
    for (const YearlyHours* table : {&five, &three})
        for (std::size_t c = 0; c < static_cast<std::size_t>(table->crews); ++c) {
            double sum = 0;
            for (const auto& month : table->months) sum += month[c];
            EXPECT_EQ(table->sums[c], sum);
            EXPECT_NEAR(sum, table->target, table->target * 0.05);
        }
    EXPECT_EQ(yearly_hours(PlanContext{.model = 6}, 2024).crews, 0);

    // Headings and first fields of the five-crew table: the accounts command's test.
    const YearlyHoursText text = yearly_hours_text(five);
    EXPECT_EQ(yearly_hours_text(three).headings.back(), "Gelb");
    ASSERT_EQ(text.rows.size(), 14u);
    EXPECT_EQ(text.rows[0][0] + " " + text.rows[0][1], "Januar 168,00");
    EXPECT_EQ(yearly_hours_text(three).rows[0][1], "178,50");
    EXPECT_EQ(text.rows[13], (std::vector<std::string>{"Soll", "1982,76", "1982,76", "1982,76",
                                                       "1982,76", "1982,76"}));
    for (const auto& row : text.rows) EXPECT_EQ(row.size(), text.headings.size());
    EXPECT_TRUE(yearly_hours_text(yearly_hours(PlanContext{.model = 7}, 2024)).rows.empty());
}

}  // namespace
}  // namespace sk::marks
