#include <gtest/gtest.h>

#include <ctime>

#include "calendar/dates.hpp"
#include "test_support.hpp"

namespace sk::calendar {
namespace {

TEST(Dates, LeapYears) {
    struct Case { int year; bool leap; };
    for (const auto c : {Case{1900, false}, Case{2000, true}, Case{2024, true}, Case{2023, false},
                         Case{2100, false}, Case{1972, true}}) {
        EXPECT_EQ(is_leap_year(c.year), c.leap) << c.year;
    }
}

TEST(Dates, KnownDayNumbers) {
    struct Case { int year, month_index, mday; DayNumber number; };
    for (const auto c : {Case{1970, 0, 1, 0}, Case{1970, 0, 5, 4}, Case{2015, 0, 1, 16436},
                         Case{2015, 1, 28, 16494}, Case{2037, 6, 1, kLastMonthStart},
                         Case{2037, 6, 31, kLastDay}, Case{1969, 11, 31, -1}}) {
        EXPECT_EQ(day_number(c.year, c.month_index, c.mday), c.number);
        const Day back = Day::from_number(c.number);
        EXPECT_EQ(back.year, c.year);
        EXPECT_EQ(back.month_index, c.month_index);
        EXPECT_EQ(back.mday, c.mday);
    }
}

// Every day of the calendar against the C library's own calendar, and each
// day one after its predecessor.
TEST(Dates, EveryDayAgreesWithTimegm) {
    Day previous = Day::from_number(-1);
    for (DayNumber d = 0; d <= kLastDay; ++d) {
        const Day day = Day::from_number(d);
        std::tm tm{};
        tm.tm_year = day.year - 1900;
        tm.tm_mon = day.month_index;
        tm.tm_mday = day.mday;
        ASSERT_EQ(timegm(&tm) / 86400, d);
        ASSERT_EQ(tm.tm_wday, day.weekday()) << ::testing::PrintToString(day);
        if (day.mday == 1) {
            ASSERT_EQ(previous.mday, previous.month_length());
        } else {
            ASSERT_EQ(previous.mday + 1, day.mday);
        }
        previous = day;
    }
}

TEST(Dates, DayPastMonthEndRunsOn) {
    EXPECT_EQ(day_number(2024, 3, 31), day_number(2024, 4, 1));
    EXPECT_EQ(day_number(2023, 1, 29), day_number(2023, 2, 1));
}

TEST(Dates, TruncatingRemainder) {
    struct Case { int a, b, r; };
    for (const auto c : {Case{-11, 35, -11}, Case{-35, 35, 0}, Case{-36, 35, -1}, Case{36, 35, 1},
                         Case{-1, 7, -1}}) {
        EXPECT_EQ(rem(c.a, c.b), c.r) << c.a << " rem " << c.b;
    }
    EXPECT_EQ(weekday_sunday0(-1), 3);  // 31 December 1969 was a Wednesday
}

TEST(Dates, ParseIsoDate) {
    EXPECT_EQ(parse_iso_date("2024-02-29"), Day::from_date(2024, 1, 29));
    for (const char* bad : {"2024-02-30", "2023-02-29", "2024-13-01", "2024-00-10", "2024-1-01",
                            "24-01-01", "2024-01-01x", "", "abcd-ef-gh", "2024-04-31"}) {
        EXPECT_FALSE(parse_iso_date(bad).has_value()) << bad;
    }
}

TEST(Dates, Texts) {
    const Day day = Day::from_date(2024, 0, 6);
    EXPECT_EQ(format_iso_date(day), "2024-01-06");
    EXPECT_EQ(format_german_date(day), "06.01.2024");
    EXPECT_EQ(format_day_and_month(day), "6. Januar");
    EXPECT_EQ(format_day_and_month(Day::from_date(2024, 2, 7)), "7. März");
}

}  // namespace
}  // namespace sk::calendar
