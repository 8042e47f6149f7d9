#include "calendar/holidays.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <utility>

#include "calendar/dates.hpp"
#include "test_support.hpp"

namespace sk::calendar {
namespace {

using test::date;

// The "anonymous Gregorian algorithm" (Meeus), independent of Gauss's rule;
// returns month and day.
std::pair<int, int> meeus_easter(int y) {
    const int a = y % 19, b = y / 100, c = y % 100, d = b / 4, e = b % 4;
    const int f = (b + 8) / 25, g = (b - f + 1) / 3;
    const int h = (19 * a + b - d - g + 15) % 30;
    const int i = c / 4, k = c % 4;
    const int l = (32 + 2 * e + 2 * i - h - k) % 7;
    const int m = (a + 11 * h + 22 * l) / 451;
    const int n = h + l - 7 * m + 114;
    return {n / 31, n % 31 + 1};
}

TEST(Holidays, EasterAgreesWithMeeusFor1583To4099) {
    for (int year = 1583; year <= 4099; ++year) {
        const auto [month, mday] = meeus_easter(year);
        const Day easter = Day::from_number(day_number(year, 0, 1) + easter_day_of_year(year));
        ASSERT_EQ(easter, date(year, month, mday)) << year;
        ASSERT_TRUE(easter.is_sunday()) << year;
    }
}

// Statutory and other names of a day, fixed-date and Easter names joined by "/".
TEST(Holidays, NamesOfADay) {
    const auto joined = [](std::string_view fixed, std::string_view easter) {
        return std::string(fixed) + (fixed.empty() || easter.empty() ? "" : "/") +
               std::string(easter);
    };
    const struct { Day day; std::string_view statutory, named; } cases[] = {
        {date(2024, 11, 1), "Allerheiligen", ""}, {date(2024, 11, 2), "", "Allerseelen"},
        {date(2024, 3, 29), "Karfreitag", ""},    {date(2024, 3, 30), "", "Karsamstag"},
        {date(2024, 2, 29), "", ""},
        {date(2008, 5, 1), "Maifeiertag/Christi Himmelfahrt", ""},  // Easter on 23 March
    };
    for (const auto& c : cases) {
        const auto day = ::testing::PrintToString(c.day);
        EXPECT_EQ(joined(statutory_fixed_holiday(c.day), statutory_easter_holiday(c.day)),
                  c.statutory)
            << day;
        EXPECT_EQ(joined(named_fixed_day(c.day), named_easter_day(c.day)), c.named) << day;
        EXPECT_EQ(is_public_holiday(c.day), !c.statutory.empty()) << day;
    }
}

// The First Sunday of Advent is the Sunday from 27 November to 3 December;
// the other names lie whole weeks before or after it, Buß- und Bettag on the
// Wednesday before the Sunday before it.
TEST(Holidays, AdventDaysOfEveryYear) {
    const std::map<int, std::string_view> from_advent = {
        {-14, "Volkstrauertag"}, {-11, "Buß- und Bettag"}, {-7, "Christkönigsfest"},
        {0, "1. Advent"},        {7, "2. Advent"},         {14, "3. Advent"},
        {21, "4. Advent"}};
    for (int year = 1970; year <= 2037; ++year) {
        DayNumber advent = day_number(year, 10, 27);
        while (weekday_sunday0(advent) != 0) ++advent;
        for (DayNumber d = day_number(year, 0, 1); d < day_number(year + 1, 0, 1); ++d) {
            const auto name = from_advent.find(d - advent);
            ASSERT_EQ(advent_day(Day::from_number(d)),
                      name == from_advent.end() ? "" : name->second)
                << format_iso_date(Day::from_number(d));
        }
    }
    // Buß- und Bettag as the school calendars list it for 2025..2030.
    for (const auto& [year, mday] :
         {std::pair{2025, 19}, {2026, 18}, {2027, 17}, {2028, 22}, {2029, 21}, {2030, 20}}) {
        EXPECT_EQ(advent_day(date(year, 11, mday)), "Buß- und Bettag") << year;
    }
}

// Every day of the calendar is free from the lowest level its names call for:
// 1 for New Year, 1 May, Christmas, Easter and Whitsun Sunday and Monday; 2
// also for Christmas Eve, New Year's Eve and Holy Saturday; 3 also for
// 30 April and Whit Saturday; any other day never.
TEST(Holidays, FreeDayLevelsOverTheWholeCalendar) {
    const std::map<std::string_view, int> free_from = {
        {"Neujahr", 1},        {"Maifeiertag", 1}, {"Weihnachten", 1},    {"Märtyrer Stephanus", 1},
        {"Ostersonntag", 1},   {"Ostermontag", 1}, {"Pfingstsonntag", 1}, {"Pfingstmontag", 1},
        {"Heiliger Abend", 2}, {"Silvester", 2},   {"Karsamstag", 2},     {"Walpurgisnacht", 3},
        {"Pfingstabend", 3}};
    for (DayNumber d = kFirstDay; d <= kLastDay; ++d) {
        const Day day = Day::from_number(d);
        int lowest = 4;
        for (const auto name : {statutory_fixed_holiday(day), named_fixed_day(day),
                                statutory_easter_holiday(day), named_easter_day(day)}) {
            if (const auto f = free_from.find(name); f != free_from.end())
                lowest = std::min(lowest, f->second);
        }
        for (int level = 0; level <= 3; ++level) {
            ASSERT_EQ(is_free_day(day, level), level >= lowest)
                << format_iso_date(day) << " level " << level;
        }
    }
}

// The table is laid out for a leap year: only 29 February is "Schalttag".
// The texts of other days are golden outputs of the command line.
TEST(Holidays, NameDays) {
    for (DayNumber d = kFirstDay; d <= kLastDay; ++d) {
        const Day day = Day::from_number(d);
        const bool leap_day = day.month_index == 1 && day.mday == 29;
        ASSERT_EQ(name_days(day) == "Schalttag, Hilarius", leap_day) << format_iso_date(day);
    }
}

}  // namespace
}  // namespace sk::calendar
