#include "calendar/holidays.hpp"

#include <gtest/gtest.h>

#include <array>
#include <ctime>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "calendar/dates.hpp"
#include "test_support.hpp"

namespace sk::calendar {
namespace {

// Calendar month 1..12, as dates are written.
Day date(int year, int month, int mday) {
    return Day::from_date(year, month - 1, mday);
}

Day easter_sunday(int year) {
    return Day::from_number(day_number(year, 0, 1) + easter_day_of_year(year));
}

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

TEST(Holidays, EasterKnownDates) {
    struct Case {
        int year, month, mday;
    };
    for (const auto c :
         {Case{2024, 3, 31}, Case{2025, 4, 20}, Case{2019, 4, 21}, Case{2038, 4, 25},
          Case{2285, 3, 22}, Case{2008, 3, 23}, Case{1970, 3, 29}, Case{2000, 4, 23}}) {
        EXPECT_EQ(easter_sunday(c.year), date(c.year, c.month, c.mday)) << c.year;
    }
    EXPECT_EQ(easter_day_of_year(2024), 90);
}

TEST(Holidays, EasterAgreesWithMeeusFor1583To4099) {
    for (int year = 1583; year <= 4099; ++year) {
        const auto [month, mday] = meeus_easter(year);
        const Day easter = easter_sunday(year);
        ASSERT_EQ(easter, date(year, month, mday)) << year;
        ASSERT_TRUE(easter.is_sunday()) << year;
    }
}

// The names a day gets from one pair of tables (statutory, named).
struct NamesCase {
    Day day;
    std::string_view statutory, named;
};

TEST(Holidays, FixedDates) {
    const NamesCase cases[] = {
        {date(2024, 1, 1), "Neujahr", ""},          {date(2023, 1, 6), "Erscheinung des Herrn", ""},
        {date(2024, 2, 2), "", "Lichtmeß"},         {date(2024, 2, 29), "", ""},
        {date(2024, 11, 1), "Allerheiligen", ""},   {date(2024, 11, 2), "", "Allerseelen"},
        {date(2024, 12, 24), "", "Heiliger Abend"}, {date(2024, 12, 26), "Märtyrer Stephanus", ""},
        {date(2023, 12, 31), "", "Silvester"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(statutory_fixed_holiday(c.day), c.statutory) << ::testing::PrintToString(c.day);
        EXPECT_EQ(named_fixed_day(c.day), c.named) << ::testing::PrintToString(c.day);
        EXPECT_EQ(is_public_holiday(c.day), !c.statutory.empty());
    }
}

// Leap year 2024 (Easter 31 March) and common year 2025 (Easter 20 April).
TEST(Holidays, EasterDates) {
    const NamesCase cases[] = {
        {date(2024, 2, 12), "", "Rosenmontag"},
        {date(2024, 3, 29), "Karfreitag", ""},
        {date(2024, 3, 30), "", "Karsamstag"},
        {date(2024, 3, 31), "Ostersonntag", ""},
        {date(2024, 5, 30), "Fronleichnam", ""},
        {date(2024, 6, 7), "", "Heiligstes Herz Jesu"},
        {date(2025, 3, 3), "", "Rosenmontag"},
        {date(2025, 4, 21), "Ostermontag", ""},
        {date(2025, 5, 29), "Christi Himmelfahrt", ""},
        {date(2025, 6, 15), "", "Dreifaltigkeitssonntag"},
        {date(2025, 3, 31), "", ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(statutory_easter_holiday(c.day), c.statutory) << ::testing::PrintToString(c.day);
        EXPECT_EQ(named_easter_day(c.day), c.named) << ::testing::PrintToString(c.day);
        EXPECT_EQ(is_public_holiday(c.day), !c.statutory.empty());
    }
    // Easter 2008 fell on 23 March, so Ascension was 1 May: both names stand.
    EXPECT_EQ(statutory_fixed_holiday(date(2008, 5, 1)), "Maifeiertag");
    EXPECT_EQ(statutory_easter_holiday(date(2008, 5, 1)), "Christi Himmelfahrt");
}

TEST(Holidays, AdventDates) {
    const std::pair<Day, std::string_view> cases[] = {
        {date(2024, 11, 17), "Volkstrauertag"},   {date(2024, 11, 20), "Buß- und Bettag"},
        {date(2024, 11, 24), "Christkönigsfest"}, {date(2024, 12, 1), "1. Advent"},
        {date(2024, 12, 22), "4. Advent"},        {date(2023, 12, 3), "1. Advent"},
        {date(2022, 11, 27), "1. Advent"},        {date(2024, 12, 2), ""},
    };
    for (const auto& [day, name] : cases) {
        EXPECT_EQ(advent_day(day), name) << ::testing::PrintToString(day);
    }
    // Buß- und Bettag as the school calendars list it for 2025..2030.
    for (const auto& [year, mday] :
         {std::pair{2025, 19}, {2026, 18}, {2027, 17}, {2028, 22}, {2029, 21}, {2030, 20}}) {
        EXPECT_EQ(advent_day(date(year, 11, mday)), "Buß- und Bettag") << year;
    }
}

// Every movable name occurs once a year on its weekday; the First Sunday of
// Advent is the Sunday from 27 November to 3 December.
TEST(Holidays, MovableDaysOverTheWholeCalendar) {
    const std::map<std::string_view, int> weekdays = {
        {"Rosenmontag", 1},         {"Karfreitag", 5},    {"Ostersonntag", 0},
        {"Christi Himmelfahrt", 4}, {"Pfingstmontag", 1}, {"Fronleichnam", 4},
        {"Buß- und Bettag", 3},     {"1. Advent", 0},     {"4. Advent", 0}};
    std::map<std::pair<int, std::string_view>, int> seen;
    for (DayNumber d = kFirstDay; d <= kLastDay; ++d) {
        const Day day = Day::from_number(d);
        for (const auto name :
             {statutory_easter_holiday(day), named_easter_day(day), advent_day(day)}) {
            if (name.empty()) continue;
            ++seen[{day.year, name}];
            if (const auto w = weekdays.find(name); w != weekdays.end()) {
                ASSERT_EQ(day.weekday(), w->second) << name << " " << format_iso_date(day);
            }
            if (name == "1. Advent") {
                ASSERT_TRUE((day.month_index == 10 && day.mday >= 27) ||
                            (day.month_index == 11 && day.mday <= 3))
                    << format_iso_date(day);
            }
        }
    }
    for (const auto& [key, count] : seen)
        EXPECT_EQ(count, 1) << key.first << " " << key.second;
    // 7 + 10 Easter names a year from 1970 to 2037, 7 Advent names to 2036.
    EXPECT_EQ(seen.size(), 68u * 17 + 67u * 7);
}

TEST(Holidays, FreeDayLevels) {
    constexpr int kNever = 4;
    const std::pair<Day, int> cases[] = {
        // the day and the lowest level that frees it
        {date(2024, 1, 1), 1},       {date(2024, 12, 26), 1},     {date(2024, 4, 1), 1},
        {date(2024, 5, 20), 1},      {date(2024, 12, 24), 2},     {date(2023, 12, 31), 2},
        {date(2024, 3, 30), 2},      {date(2024, 4, 30), 3},      {date(2024, 5, 18), 3},
        {date(2024, 3, 29), kNever}, {date(2024, 1, 6), kNever},  {date(2024, 5, 9), kNever},
        {date(2024, 5, 30), kNever}, {date(2024, 8, 15), kNever}, {date(2024, 10, 3), kNever},
        {date(2024, 11, 1), kNever},
    };
    for (const auto& [day, free_from] : cases) {
        for (int level = 0; level <= 3; ++level) {
            EXPECT_EQ(is_free_day(day, level), level >= free_from)
                << ::testing::PrintToString(day) << " level " << level;
        }
    }
}

// Level 0 frees nothing, a higher level frees a superset, and a full year
// has 8, 11 and 13 free days at levels 1, 2 and 3.
TEST(Holidays, FreeDaysOverTheWholeCalendar) {
    std::map<int, std::array<int, 4>> per_year;
    for (DayNumber d = kFirstDay; d <= kLastDay; ++d) {
        const Day day = Day::from_number(d);
        bool lower = false;
        for (int level = 0; level <= 3; ++level) {
            const bool free = is_free_day(day, level);
            ASSERT_TRUE(!lower || free) << format_iso_date(day) << " level " << level;
            per_year[day.year][static_cast<std::size_t>(level)] += free;
            lower = free;
        }
    }
    for (int year = 1970; year <= 2036; ++year) {
        EXPECT_EQ(per_year[year], (std::array<int, 4>{0, 8, 11, 13})) << year;
    }
}

TEST(Holidays, WeekNumberYearEnds) {
    EXPECT_EQ(week_number(date(2021, 1, 1)), 53);   // a Friday: last week of 2020
    EXPECT_EQ(week_number(date(2024, 12, 31)), 1);  // a Tuesday: first week of 2025
    EXPECT_EQ(week_number(date(2020, 12, 31)), 53);
}

TEST(Holidays, WeekNumberAgreesWithStrftime) {
    for (DayNumber d = kFirstDay; d <= kLastDay; ++d) {
        const Day day = Day::from_number(d);
        std::tm tm{};
        tm.tm_year = day.year - 1900;
        tm.tm_mon = day.month_index;
        tm.tm_mday = day.mday;
        timegm(&tm);  // fills in tm_wday and tm_yday
        char text[8];
        ASSERT_GT(std::strftime(text, sizeof text, "%V", &tm), 0u);
        ASSERT_EQ(week_number(day), std::stoi(text)) << format_iso_date(day);
    }
}

TEST(Holidays, NameDays) {
    const std::pair<Day, std::string_view> cases[] = {
        {date(2024, 1, 1), "Hochfest Mariens, Beschneidung des Herrn, Manuela, Wilhelm"},
        {date(2023, 2, 28), "Romanustag, Silvana"},
        {date(2024, 2, 28), "Romanustag, Silvana"},
        {date(2024, 2, 29), "Schalttag, Hilarius"},
        {date(2024, 3, 1), "Albin, David, Oswald, Roger, Rüdiger"},
        {date(2023, 3, 1), "Albin, David, Oswald, Roger, Rüdiger"},
        {date(2100, 3, 1), "Albin, David, Oswald, Roger, Rüdiger"},
        {date(2023, 12, 29), "Thomas Becket, David, Jessica, Tamara, Thomas"},
        {date(2024, 12, 31), "Silvester I., Mela, Melanie"},
    };
    for (const auto& [day, text] : cases) {
        EXPECT_EQ(name_days(day), text) << ::testing::PrintToString(day);
    }
    for (DayNumber d = kFirstDay; d <= kLastDay; ++d) {
        const Day day = Day::from_number(d);
        const bool leap_day = day.month_index == 1 && day.mday == 29;
        ASSERT_EQ(name_days(day) == "Schalttag, Hilarius", leap_day) << format_iso_date(day);
    }
}

TEST(Holidays, HolidayList2024) {
    const std::vector<ListRow> expected = {
        {"1. Januar", "Neujahr"},
        {"6. Januar", "Erscheinung des Herrn"},
        {"1. Mai", "Maifeiertag"},
        {"15. August", "Mariä Himmelfahrt"},
        {"3. Oktober", "Tag der Deutschen Einheit"},
        {"1. November", "Allerheiligen"},
        {"25. Dezember", "Weihnachten"},
        {"26. Dezember", "Märtyrer Stephanus"},
        {"", ""},
        {"12. Februar", "Rosenmontag"},
        {"13. Februar", "Faschingsdienstag"},
        {"14. Februar", "Aschermittwoch"},
        {"24. März", "Palmsonntag"},
        {"28. März", "Gründonnerstag"},
        {"30. März", "Karsamstag"},
        {"7. April", "Weißer Sonntag"},
        {"18. Mai", "Pfingstabend"},
        {"26. Mai", "Dreifaltigkeitssonntag"},
        {"7. Juni", "Heiligstes Herz Jesu"},
        {"", ""},
        {"29. März", "Karfreitag"},
        {"31. März", "Ostersonntag"},
        {"1. April", "Ostermontag"},
        {"9. Mai", "Christi Himmelfahrt"},
        {"19. Mai", "Pfingstsonntag"},
        {"20. Mai", "Pfingstmontag"},
        {"30. Mai", "Fronleichnam"},
    };
    const auto rows = holiday_list(2024);
    ASSERT_EQ(rows.size(), expected.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i].first, expected[i].first) << "row " << i;
        EXPECT_EQ(rows[i].second, expected[i].second) << "row " << i;
    }
}

// The list's Easter dates follow the common year's February.
TEST(Holidays, HolidayListCommonYear) {
    const auto rows = holiday_list(2025);
    ASSERT_EQ(rows.size(), 27u);
    EXPECT_EQ(rows[9], (ListRow{"3. März", "Rosenmontag"}));
    EXPECT_EQ(rows[21], (ListRow{"20. April", "Ostersonntag"}));
    EXPECT_EQ(rows[26], (ListRow{"19. Juni", "Fronleichnam"}));
}

}  // namespace
}  // namespace sk::calendar
