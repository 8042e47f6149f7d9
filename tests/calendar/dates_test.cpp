#include <gtest/gtest.h>

#include <ctime>
#include <string>

#include "calendar/dates.hpp"
#include "calendar/holidays.hpp"
#include "test_support.hpp"

namespace sk::calendar {
namespace {

// Every day of the calendar both ways against the C library's calendar
// (which would move a day past the month's end on), its ISO week against
// strftime's, and the month lengths.
TEST(Dates, EveryDayAgreesWithTheCLibrary) {
    for (DayNumber d = 0; d <= kLastDay; ++d) {
        const Day day = Day::from_number(d);
        std::tm tm{};
        tm.tm_year = day.year - 1900;
        tm.tm_mon = day.month_index;
        tm.tm_mday = day.mday;
        ASSERT_EQ(timegm(&tm) / 86400, d);
        ASSERT_EQ(tm.tm_mday, day.mday) << ::testing::PrintToString(day);
        ASSERT_EQ(day_number(day.year, day.month_index, day.mday), d);
        ASSERT_EQ(tm.tm_wday, day.weekday()) << ::testing::PrintToString(day);
        ASSERT_EQ(day.mday == day.month_length(), Day::from_number(d + 1).mday == 1);
        char week[8];
        ASSERT_GT(std::strftime(week, sizeof week, "%V", &tm), 0u);
        ASSERT_EQ(week_number(day), std::stoi(week)) << ::testing::PrintToString(day);
    }
}

TEST(Dates, EndsOfTheCalendarAndDaysOutsideIt) {
    EXPECT_EQ(format_iso_date(Day::from_number(kLastMonthStart)), "2037-07-01");
    EXPECT_EQ(format_iso_date(Day::from_number(kLastDay)), "2037-07-31");
    EXPECT_EQ(format_iso_date(Day::from_number(-1)), "1969-12-31");
    EXPECT_EQ(day_number(1969, 11, 31), -1);
    EXPECT_EQ(weekday_sunday0(-1), 3);  // a Wednesday
    // A day past the month's end runs on into the next month.
    EXPECT_EQ(day_number(2024, 3, 31), day_number(2024, 4, 1));
    EXPECT_EQ(day_number(2023, 1, 29), day_number(2023, 2, 1));
}

TEST(Dates, TruncatingRemainder) {
    struct Case { int a, b, r; };
    for (const auto c :
         {Case{-11, 35, -11}, Case{-35, 35, 0}, Case{-36, 35, -1}, Case{36, 35, 1}}) {
        EXPECT_EQ(rem(c.a, c.b), c.r) << c.a << " rem " << c.b;
    }
}

TEST(Dates, ParseIsoDate) {
    EXPECT_EQ(parse_iso_date("2024-02-29"), Day::from_date(2024, 1, 29));
    for (const char* bad : {"2024-02-30", "2023-02-29", "2024-13-01", "2024-00-10", "2024-1-01",
                            "24-01-01", "2024-01-01x", "", "abcd-ef-gh", "2024-04-31"}) {
        EXPECT_FALSE(parse_iso_date(bad).has_value()) << bad;
    }
}

// The ISO date and "7. März" are golden outputs of the command line.
TEST(Dates, GermanDate) {
    EXPECT_EQ(format_german_date(Day::from_date(2024, 0, 6)), "06.01.2024");
}

}  // namespace
}  // namespace sk::calendar
