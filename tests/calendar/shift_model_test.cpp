#include <gtest/gtest.h>

#include <algorithm>

#include "calendar/shift_model.hpp"
#include "calendar/vacation.hpp"
#include "test_support.hpp"

namespace sk::calendar {
namespace {

using Codes = std::array<ShiftCode, 5>;

std::string codes_text(const CrewShifts& s) {
    std::string t;
    for (int i = 0; i < s.count; ++i) t += std::to_string(s.code[static_cast<std::size_t>(i)]);
    return t;
}

// The codes sorted, only the early, late and night shifts if `working`.
std::string sorted_codes(const CrewShifts& s, bool working = false) {
    std::string t;
    for (int i = 0; i < s.count; ++i) {
        const ShiftCode c = s.code[static_cast<std::size_t>(i)];
        if (!working || is_working(c)) t += static_cast<char>('0' + c);
    }
    std::sort(t.begin(), t.end());
    return t;
}

bool in_transition(int model, DayNumber d) {
    return (model == 0 || model == 3) && d >= kTransitionFirst && d <= kTransitionLast;
}

// Model 0 on 1 January 1970 (rows 10, 17, 24, 31, 3 of column 1) and at the
// start and end of the 2015 changeover; the end and the other models are
// golden outputs of the command line.
TEST(ShiftModel, KnownDaysOfModelZero) {
    struct Case { DayNumber d; const char* codes; bool regular; };
    for (const Case c : {Case{day_number(1970, 0, 1), "14032", true},
                         Case{day_number(2014, 11, 31), "32140", true},
                         Case{day_number(2015, 0, 1), "31432", false},
                         Case{day_number(2015, 1, 28), "12143", false}}) {
        const CrewShifts s = crew_shifts(0, c.d);
        EXPECT_EQ(codes_text(s), c.codes) << ::testing::PrintToString(Day::from_number(c.d));
        EXPECT_EQ(s.regular, c.regular);
    }
}

// Over the whole calendar: every weekday shift is manned exactly once. On
// Sundays row 13 of the pattern (off) leaves the late shift unmanned. Only
// models 0 and 3 change over in 2015. In the five-crew models each crew runs
// a week later what the next crew runs today.
TEST(ShiftModel, EveryDayIsManned) {
    for (int model = 0; model < kModelCount; ++model) {
        for (DayNumber d = kFirstDay; d <= kLastDay; ++d) {
            const CrewShifts s = crew_shifts(model, d);
            const auto day = ::testing::PrintToString(Day::from_number(d));
            ASSERT_EQ(s.regular, !in_transition(model, d)) << model << " " << day;
            if (!s.regular) continue;
            const bool sunday = weekday_sunday0(d) == 0;
            const char* expected = model == 2                  ? "012"
                                   : is_four_crew_model(model) ? (sunday ? "1344" : "1234")
                                                               : (sunday ? "01344" : "01234");
            ASSERT_EQ(sorted_codes(s), expected) << "model " << model << " on " << day;
            if (s.count < 5 || in_transition(model, d + 7)) continue;
            const CrewShifts week_later = crew_shifts(model, d + 7);
            for (std::size_t c = 0; c < 5; ++c)
                ASSERT_EQ(week_later.code[c], s.code[(c + 1) % 5]) << model << " " << day;
        }
    }
}

TEST(VacationBlock, OrderRotation) {
    EXPECT_EQ(rotate_order(kVacationOrder, 5), kVacationOrder);
    EXPECT_EQ(rotate_order(kVacationOrder, -3), kVacationOrder);
    EXPECT_EQ(rotate_order(kVacationOrder, 1)[0], (std::array<int, 5>{1, 2, 3, 4, 0}));
    EXPECT_EQ(rotate_order(kVacationOrder, 2000000001), rotate_order(kVacationOrder, 1));
    // Each row of the order is the one before rotated right by two places.
    for (std::size_t y = 1; y < 5; ++y)
        for (std::size_t i = 0; i < 5; ++i)
            EXPECT_EQ(kVacationOrder[y][i], kVacationOrder[y - 1][(i + 3) % 5]) << y << " " << i;
}

// The block starts on a Monday within five weeks after the earliest start,
// on the day the opening crew reaches row 7 of its cycle.
TEST(VacationBlock, StartOfEveryYear) {
    const VacationStart earliest{4, 25};
    for (int year = 1970; year <= 2037; ++year) {
        const VacationBlock block = vacation_block(year, kVacationOrder, earliest);
        const DayNumber d0 = day_number(year, 3, 25);
        EXPECT_GE(block.start, d0) << year;
        EXPECT_LT(block.start, d0 + 35) << year;
        EXPECT_EQ(weekday_monday0(block.start), 0) << year;
        const int opening = kVacationOrder[static_cast<std::size_t>(year % 5)][0];
        EXPECT_EQ((block.start + kShiftModels[1].offsets[static_cast<std::size_t>(opening)]) % 35, 7);
    }
    // A start that equals the earliest start stays; moving the earliest start
    // one day later pushes the block five weeks on.
    const VacationBlock b = vacation_block(2024, kVacationOrder, earliest);
    const Day s = Day::from_number(b.start);
    const VacationBlock same = vacation_block(2024, kVacationOrder, {s.month_index + 1, s.mday});
    EXPECT_EQ(same.start, b.start);
    const Day next = Day::from_number(b.start + 1);
    EXPECT_EQ(vacation_block(2024, kVacationOrder, {next.month_index + 1, next.mday}).start,
              b.start + 35);
}

// Inside the block the exchange moves shifts between crews but never
// creates or loses an early, late or night shift, and the crew on vacation
// holds 0 (vacation day) or 5 (day off).
TEST(VacationBlock, ExchangeKeepsEveryShiftManned) {
    for (int model : {0, 1, 3, 4, 5}) {
        for (int year = 1970; year <= 2037; ++year) {
            const VacationBlock block = vacation_block(year, kVacationOrder, {4, 25});
            for (DayNumber d = block.start - 2; d < block.start + kBlockDays + 2; ++d) {
                const CrewShifts plain = crew_shifts(model, d);
                const CrewShifts moved = crew_shifts(model, d, &block);
                ASSERT_EQ(sorted_codes(moved, true), sorted_codes(plain, true))
                    << model << " " << d;
                if (!block.contains(d)) {
                    ASSERT_EQ(moved.code, plain.code);
                    continue;
                }
                const auto v = static_cast<std::size_t>(block.crew_on_vacation(d));
                ASSERT_TRUE(moved.code[v] == shift::kStandby || moved.code[v] == shift::kBlockVacation)
                    << model << " " << ::testing::PrintToString(Day::from_number(d));
            }
        }
    }
}

TEST(VacationBlock, ExchangeRules) {
    VacationBlock block{2024, 1000, {0, 1, 2, 3, 4}};
    struct Case { DayNumber d; Codes before; Codes after; };
    const Case cases[] = {
        // crew 0 on vacation works early: the standby crew 2 takes it over
        {1000, {1, 2, 0, 3, 4}, {0, 2, 1, 3, 4}},
        // crew 0 on vacation would be off: standby crew gets 4, crew 0 gets 5
        {1001, {4, 2, 0, 3, 1}, {5, 2, 4, 3, 1}},
        // crew 0 is itself in standby: Tuesday..Friday vacation (0), else off (5);
        // day 1005 is a Monday
        {1005, {0, 1, 2, 3, 4}, {5, 1, 2, 3, 4}},  {1006, {0, 1, 2, 3, 4}, {0, 1, 2, 3, 4}},
        {1009, {0, 1, 2, 3, 4}, {0, 1, 2, 3, 4}},  {1010, {0, 1, 2, 3, 4}, {5, 1, 2, 3, 4}},
        {1011, {0, 1, 2, 3, 4}, {5, 1, 2, 3, 4}},
        // no crew in standby: nothing changes
        {1000, {1, 2, 3, 4, 4}, {1, 2, 3, 4, 4}},
        // last day of the block is sub-block 4: crew 4 goes
        {1139, {0, 1, 2, 3, 4}, {4, 1, 2, 3, 5}},
    };
    for (const Case& c : cases) {
        Codes codes = c.before;
        apply_vacation(codes, c.d, block);
        EXPECT_EQ(codes, c.after) << "day " << c.d;
    }
}

}  // namespace
}  // namespace sk::calendar
