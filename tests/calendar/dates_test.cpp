#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <string>
#include <tuple>

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
    // The remainder truncates, as C's % does.
    EXPECT_EQ(std::tuple(rem(-11, 35), rem(-35, 35), rem(-36, 35), rem(36, 35)),
              std::tuple(-11, 0, -1, 1));
    EXPECT_EQ(parse_iso_date("2024-02-29"), Day::from_date(2024, 1, 29));
    for (const char* bad : {"2024-02-30", "2023-02-29", "2024-13-01", "2024-00-10", "2024-1-01",
                            "24-01-01", "2024-01-01x", "", "abcd-ef-gh", "2024-04-31"}) {
        EXPECT_FALSE(parse_iso_date(bad).has_value()) << bad;
    }
}

// Every day of the calendar reads back from its German text, also typed
// without leading zeros.
TEST(Dates, GermanDateReadsBackEveryDay) {
    for (DayNumber d = kFirstDay; d <= kLastDay; ++d) {
        const Day day = Day::from_number(d);
        ASSERT_EQ(parse_german_date(format_german_date(day)), day);
        const std::string short_form = std::to_string(day.mday) + "." +
                                       std::to_string(day.month_index + 1) + "." +
                                       std::to_string(day.year);
        ASSERT_EQ(parse_german_date(short_form), day) << short_form;
    }
}

TEST(Dates, DateEntryStates) {
    const DayNumber min = day_number(2024, 0, 1), max = kLastDay;
    struct Case {
        const char* text;
        DateEntry state;
    };
    for (const auto& c :
         {Case{" 29.02.2024 ", DateEntry::Valid}, Case{"31.07.2037", DateEntry::Valid},
          Case{"01.08.2037", DateEntry::TooLate}, Case{"31.12.2023", DateEntry::TooEarly},
          Case{"30.02.2024", DateEntry::NoSuchDay}, Case{"29.02.2023", DateEntry::NoSuchDay},
          Case{"00.01.2024", DateEntry::NoSuchDay}, Case{"01.13.2024", DateEntry::NoSuchDay},
          Case{"", DateEntry::Malformed}, Case{"1.1.24", DateEntry::Malformed},
          Case{"01.01.20245", DateEntry::Malformed}, Case{"001.01.2024", DateEntry::Malformed},
          Case{"01-01-2024", DateEntry::Malformed}, Case{"1..2024", DateEntry::Malformed},
          Case{"a1.01.2024", DateEntry::Malformed}, Case{"01.01.2024.", DateEntry::Malformed},
          Case{"+1.01.2024", DateEntry::Malformed}}) {
        EXPECT_EQ(check_date_entry(c.text, min, max), c.state) << '"' << c.text << '"';
        EXPECT_EQ(parse_german_date(c.text).has_value(),
                  c.state != DateEntry::Malformed && c.state != DateEntry::NoSuchDay)
            << c.text;
    }
    EXPECT_EQ(date_entry_hint(DateEntry::Valid, min, max), "");
    EXPECT_EQ(date_entry_hint(DateEntry::TooLate, min, max),
              "Das Datum darf nicht nach dem 31.07.2037 liegen.");
    EXPECT_EQ(date_entry_hint(DateEntry::TooEarly, min, max),
              "Das Datum darf nicht vor dem 01.01.2024 liegen.");
}

// A month on keeps the day where the month has it and takes the month's last
// day otherwise; checked against the month lengths over forty years.
TEST(Dates, AddMonths) {
    for (DayNumber d = day_number(2000, 0, 1); d < day_number(2040, 0, 1); ++d) {
        const Day day = Day::from_number(d);
        for (int months : {1, -1, 13, -25}) {
            const Day moved = add_months(day, months);
            ASSERT_EQ((moved.year - day.year) * 12 + moved.month_index - day.month_index, months);
            ASSERT_EQ(moved.mday, std::min(day.mday, moved.month_length()))
                << ::testing::PrintToString(day) << " + " << months;
        }
    }
}

}  // namespace
}  // namespace sk::calendar
