#include "calendar/school_holidays.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "calendar/dates.hpp"
#include "calendar/holidays.hpp"
#include "test_support.hpp"

namespace sk::calendar {
namespace {

Day date(int year, int month, int mday) {
    return Day::from_date(year, month - 1, mday);
}

// A table entry year × 10000 + month × 100 + day as a Day.
Day entry_day(std::int32_t entry) {
    return date(entry / 10000, entry / 100 % 100, entry % 100);
}

constexpr int kFirstYear = 2011;
constexpr int kLastYear = 2030;

TEST(SchoolHolidays, RangeEnds) {
    struct Case {
        Day day;
        bool school;
    };
    const Case cases[] = {
        {date(2011, 3, 6), false},   {date(2011, 3, 7), true},    // first day of the table
        {date(2012, 1, 5), true},    {date(2012, 1, 6), false},   // Christmas 2011 ends
        {date(2021, 6, 21), true},   {date(2021, 6, 22), false},  // the long Whitsun 2021
        {date(2024, 9, 9), true},    {date(2024, 9, 10), false},
        {date(2024, 10, 27), false}, {date(2024, 10, 28), true},  // added 2024 autumn
        {date(2025, 1, 3), true},    {date(2025, 1, 4), false},   // added Christmas 2024
        {date(2025, 7, 31), false},  {date(2025, 8, 1), true},
        {date(2025, 9, 15), true},   {date(2025, 9, 16), false},
        {date(2028, 2, 29), true},   {date(2028, 3, 4), false},  // leap day in Frühjahr 2028
        {date(2030, 1, 4), true},    {date(2030, 1, 5), false},
        {date(2030, 9, 9), true},    {date(2030, 9, 10), false},   // last day of the table
        {date(2030, 11, 4), false},  {date(2030, 12, 27), false},  // not published: none
    };
    for (const auto& c : cases) {
        EXPECT_EQ(is_school_holiday(c.day), c.school) << ::testing::PrintToString(c.day);
    }
}

TEST(SchoolHolidays, YearsOutsideTheTableHaveNone) {
    for (DayNumber d = kFirstDay; d <= kLastDay; ++d) {
        const Day day = Day::from_number(d);
        if (day.year >= kFirstYear && day.year <= kLastYear) continue;
        ASSERT_FALSE(is_school_holiday(day)) << format_iso_date(day);
    }
    for (const int year : {1970, 2010, 2031, 2037}) {
        EXPECT_TRUE(school_holiday_list(year).empty()) << year;
    }
}

TEST(SchoolHolidays, ListRows) {
    const std::vector<ListRow> expected_2011 = {
        {"Frühjahr", "7. März - 11. März"},
        {"Ostern", "18. April - 30. April"},
        {"Pfingsten", "14. Juni - 25. Juni"},
        {"Sommer", "30. Juli - 12. September"},
        {"Allerheiligen", "31. Oktober - 5. November"},
        {"Weihnachten", "27. Dezember - 5. Januar"},
    };
    EXPECT_EQ(school_holiday_list(2011), expected_2011);
    EXPECT_EQ(school_holiday_list(2020)[5], (ListRow{"Weihnachten", "23. Dezember - 9. Januar"}));
    const auto rows_2024 = school_holiday_list(2024);
    ASSERT_EQ(rows_2024.size(), 6u);
    EXPECT_EQ(rows_2024[4], (ListRow{"Allerheiligen", "28. Oktober - 31. Oktober"}));
    EXPECT_EQ(rows_2024[5], (ListRow{"Weihnachten", "23. Dezember - 3. Januar"}));
    const auto rows_2030 = school_holiday_list(2030);
    ASSERT_EQ(rows_2030.size(), 6u);
    EXPECT_EQ(rows_2030[3], (ListRow{"Sommer", "29. Juli - 9. September"}));
    EXPECT_EQ(rows_2030[4], (ListRow{"Allerheiligen", " - "}));
    EXPECT_EQ(rows_2030[5], (ListRow{"Weihnachten", " - "}));
}

// Every listed year has its six ranges in order, each within its own year
// (Christmas running into January), ascending and without overlaps; only
// autumn and Christmas 2030 are empty.
TEST(SchoolHolidays, TableIsWellFormed) {
    const auto table = school_holiday_table();
    ASSERT_EQ(table.size(), 12u * (kLastYear - kFirstYear + 1));
    std::int32_t previous_end = 0;
    for (std::size_t i = 0; i < table.size(); i += 2) {
        const int year = kFirstYear + static_cast<int>(i / 12);
        const std::int32_t start = table[i], end = table[i + 1];
        if (i >= table.size() - 4) {
            EXPECT_EQ(start, 0);
            EXPECT_EQ(end, 0);
            continue;
        }
        EXPECT_TRUE(is_valid_date(start / 10000, start / 100 % 100 - 1, start % 100)) << start;
        EXPECT_TRUE(is_valid_date(end / 10000, end / 100 % 100 - 1, end % 100)) << end;
        EXPECT_EQ(start / 10000, year) << start;
        EXPECT_LE(start, end);
        EXPECT_GT(start, previous_end);
        previous_end = end;
        if (i % 12 == 10) {  // Christmas
            EXPECT_EQ(start / 100 % 100, 12) << start;
            EXPECT_EQ(end / 100, (year + 1) * 100 + 1) << end;
        } else {
            EXPECT_EQ(end / 10000, year) << end;
        }
    }
    for (int year = kFirstYear; year <= kLastYear; ++year) {
        const auto rows = school_holiday_list(year);
        ASSERT_EQ(rows.size(), 6u) << year;
        const char* labels[] = {"Frühjahr", "Ostern",        "Pfingsten",
                                "Sommer",   "Allerheiligen", "Weihnachten"};
        for (std::size_t r = 0; r < 6; ++r)
            EXPECT_EQ(rows[r].first, labels[r]) << year;
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
