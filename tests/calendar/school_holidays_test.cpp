#include "calendar/school_holidays.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "calendar/dates.hpp"
#include "calendar/holidays.hpp"
#include "test_support.hpp"

namespace sk::calendar {
namespace {

using test::date;

// A table entry year × 10000 + month × 100 + day as a Day.
Day entry_day(std::int32_t entry) {
    return date(entry / 10000, entry / 100 % 100, entry % 100);
}

constexpr int kFirstYear = 2011;
constexpr int kLastYear = 2030;

// The ends of the ranges the table's history singles out.
TEST(SchoolHolidays, RangeEnds) {
    const std::pair<Day, bool> cases[] = {
        {date(2011, 3, 6), false},   {date(2011, 3, 7), true},     // first day of the table
        {date(2012, 1, 5), true},    {date(2012, 1, 6), false},    // Christmas 2011 ends
        {date(2021, 6, 21), true},   {date(2021, 6, 22), false},   // the long Whitsun 2021
        {date(2024, 10, 27), false}, {date(2024, 10, 28), true},   // added 2024 autumn
        {date(2025, 1, 3), true},    {date(2025, 1, 4), false},    // added Christmas 2024
        {date(2030, 9, 9), true},    {date(2030, 9, 10), false},   // last day of the table
        {date(2030, 11, 4), false},  {date(2030, 12, 27), false},  // not published: none
    };
    for (const auto& [day, school] : cases) {
        EXPECT_EQ(is_school_holiday(day), school) << ::testing::PrintToString(day);
    }
    // Years outside the table have no list.
    for (const int year : {1970, 2010, 2031, 2037}) {
        EXPECT_TRUE(school_holiday_list(year).empty()) << year;
    }
}

// Every listed year has its six ranges in order, each within its own year
// (Christmas running from December into January), ascending and without
// overlaps; only autumn and Christmas 2030 are empty. So no day outside
// 2011..2030 is a school holiday.
TEST(SchoolHolidays, TableIsWellFormed) {
    const auto table = school_holiday_table();
    ASSERT_EQ(table.size(), 12u * (kLastYear - kFirstYear + 1));
    EXPECT_TRUE(std::all_of(table.end() - 4, table.end(), [](std::int32_t e) { return e == 0; }));
    std::int32_t previous_end = 0;
    for (std::size_t i = 0; i + 4 < table.size(); i += 2) {
        const int year = kFirstYear + static_cast<int>(i / 12);
        const std::int32_t start = table[i], end = table[i + 1];
        for (const std::int32_t entry : {start, end})
            EXPECT_TRUE(is_valid_date(entry / 10000, entry / 100 % 100 - 1, entry % 100)) << entry;
        EXPECT_EQ(start / 10000, year) << start;
        EXPECT_TRUE(previous_end < start && start <= end) << start;
        previous_end = end;
        const bool christmas = i % 12 == 10;
        EXPECT_EQ(end / 10000, christmas ? year + 1 : year) << end;
        EXPECT_TRUE(!christmas || (start / 100 % 100 == 12 && end / 100 % 100 == 1)) << start;
    }
}

// The Bavarian ranges keep to the church year: the winter break starts on
// Rosenmontag, Easter Sunday lies in the Easter break, and the Whitsun break
// starts the day after Whit Monday. A check of the data against our Easter.
TEST(SchoolHolidays, RangesFollowEaster) {
    const auto table = school_holiday_table();
    for (std::size_t i = 0; i < table.size(); i += 12) {
        const Day winter = entry_day(table[i]);
        const int year = winter.year;
        EXPECT_EQ(named_easter_day(winter), "Rosenmontag") << year;
        const DayNumber easter = day_number(year, 0, 1) + easter_day_of_year(year);
        EXPECT_LE(entry_day(table[i + 2]).number, easter) << year;
        EXPECT_GE(entry_day(table[i + 3]).number, easter) << year;
        EXPECT_EQ(entry_day(table[i + 4]).number, easter + 51) << year;
    }
}

}  // namespace
}  // namespace sk::calendar
