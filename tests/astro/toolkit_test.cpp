#include "astro/toolkit.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "astro/coordinate_entry.hpp"
#include "astro_test_helpers.hpp"
#include "test_support.hpp"

namespace sk::astro {
namespace {

using test::date;

// Julian Date of a UT clock time on a day.
double jd_at(const calendar::Day& day, int hours, int minutes, int seconds) {
    return jd_of_day(day.number) + (hours * 3600 + minutes * 60 + seconds) / 86400.0;
}

TEST(AstroToolkit, TimeScalesAndFractionalPart) {
    EXPECT_EQ(mjd_of_day(date(2000, 1, 1).number), 51544);  // J2000.0 is MJD 51544.5
    EXPECT_EQ(mjd_of_day(date(1858, 11, 17).number), 0);
    EXPECT_DOUBLE_EQ(jd_of_day(date(2000, 1, 1).number) + 0.5, kJdJ2000);
    struct Case {
        double x, fraction;
    };
    for (const auto c : {Case{1.25, 0.25}, Case{-1.25, 0.75}, Case{-2.0, 0.0}, Case{0.0, 0.0}}) {
        EXPECT_DOUBLE_EQ(frac(c.x), c.fraction) << c.x;
    }
}

// Whole days: from the last Sunday of March to the Saturday before the last
// Sunday of October. In 2024 the 31st of March is itself that Sunday, in
// 2027 the 31st of October.
TEST(AstroToolkit, SummerTimeOnWholeDays) {
    struct Case {
        calendar::Day day;
        bool summer;
    };
    for (const auto c : {Case{date(2023, 3, 25), false}, Case{date(2023, 3, 26), true},
                         Case{date(2023, 10, 28), true}, Case{date(2023, 10, 29), false},
                         Case{date(2024, 3, 30), false}, Case{date(2024, 3, 31), true},
                         Case{date(2024, 10, 26), true}, Case{date(2024, 10, 27), false},
                         Case{date(2027, 3, 27), false}, Case{date(2027, 3, 28), true},
                         Case{date(2027, 10, 30), true}, Case{date(2027, 10, 31), false},
                         Case{date(1985, 7, 1), true}, Case{date(1985, 1, 15), false}}) {
        EXPECT_EQ(summer_time_on_day(mjd_of_day(c.day.number), c.day.year), c.summer)
            << ::testing::PrintToString(c.day);
    }
}

TEST(AstroToolkit, EventTimeText) {
    settings::Settings automatic;  // Zeitzone 1, automatic summer time
    settings::Settings standard = automatic;
    standard.auto_summer_time = 0;
    struct Case {
        double jd;
        calendar::Day described;
        const settings::Settings* settings;
        std::string text;
    };
    const Case cases[] = {
        {jd_at(date(2024, 1, 10), 6, 5, 30), date(2024, 1, 10), &automatic, "Ereignis: 7:05"},
        {jd_at(date(2024, 6, 20), 20, 51, 3), date(2024, 6, 20), &automatic, "Ereignis: 22:51"},
        {jd_at(date(2024, 6, 20), 20, 51, 3), date(2024, 6, 20), &standard, "Ereignis: 21:51"},
        // 23:30 UT on the last day of a month is 0:30 of the first of the next.
        {jd_at(date(2024, 1, 31), 23, 30, 20), date(2024, 2, 1), &automatic, "Ereignis: 0:30"},
        {jd_at(date(2024, 1, 31), 23, 30, 20), date(2024, 1, 31), &automatic, ""},
        {jd_at(date(2024, 1, 31), 22, 59, 0), date(2024, 2, 1), &automatic, ""},
        // The 31st of March 2024 is a Sunday: summer time for events begins a week early.
        {jd_at(date(2024, 3, 25), 7, 0, 16), date(2024, 3, 25), &automatic, "Ereignis: 9:00"},
        {jd_at(date(2024, 3, 25), 7, 0, 16), date(2024, 3, 25), &standard, "Ereignis: 8:00"},
        {jd_at(date(2023, 3, 25), 7, 0, 30), date(2023, 3, 25), &automatic, "Ereignis: 8:00"},
        // The switch compares a half-day-shifted time with 2:00 UT of the
        // Sunday, so it takes effect on Saturday afternoon.
        {jd_at(date(2023, 3, 25), 14, 0, 30), date(2023, 3, 25), &automatic, "Ereignis: 16:00"},
        {jd_at(date(2023, 3, 25), 11, 0, 30), date(2023, 3, 25), &automatic, "Ereignis: 12:00"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(event_time_text(c.jd, "Ereignis: ", c.described, *c.settings), c.text)
            << ::testing::PrintToString(c.described) << " JD " << c.jd;
    }
}

TEST(AstroCoordinateEntry, LatitudeAndLongitude) {
    struct Case {
        const char* text;
        std::optional<double> latitude, longitude;
    };
    const Case cases[] = {
        {"48.30", 48.3, 48.3},
        {"48 30", 48.3, 48.3},
        {"48'30", 48.3, 48.3},
        {"12,7", 12.42, 12.42},
        {"-12.7", -12.42, -12.42},
        {"12.60", 12.36, 12.36},
        {"120", 30.0, 120.0},
        {"-95.3", -5.3, -95.3},
        {"210", 30.0, 30.0},
        {"-190.3", -10.3, -10.3},
        {"90", 90.0, 90.0},
        {"90.5", 0.5, 90.5},
        {"12.0699", 12.06, 12.06},
        {" 49.01 ", 49.01, 49.01},
        {"+7", 7.0, 7.0},
        {"", std::nullopt, std::nullopt},
        {"Nord", std::nullopt, std::nullopt},
        {"48 30 10", std::nullopt, std::nullopt},
        {"48°30", std::nullopt, std::nullopt},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(parse_latitude(c.text), c.latitude) << '"' << c.text << '"';
        EXPECT_EQ(parse_longitude(c.text), c.longitude) << '"' << c.text << '"';
    }
}

TEST(AstroCoordinateEntry, TimeZone) {
    struct Case {
        const char* text;
        std::optional<double> hours;
    };
    for (const auto c : {Case{"1", 1.0}, Case{"1,5", 1.5}, Case{"5 30", 5.3}, Case{"15", 14.0},
                         Case{"-13", -12.0}, Case{"-3.5", -3.5}, Case{"eins", std::nullopt}}) {
        EXPECT_EQ(parse_time_zone(c.text), c.hours) << c.text;
    }
}

}  // namespace
}  // namespace sk::astro
