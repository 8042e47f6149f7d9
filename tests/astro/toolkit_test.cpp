// The times of a day and the rules behind their texts: the fractional part,
// summer time by whole days and for event times, clock times, the twilight
// kind, typed coordinates and time zones; rise and set against the real sky.
#include "astro/toolkit.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <tuple>
#include <utility>

#include "astro/coordinate_entry.hpp"
#include "astro/rise_set.hpp"
#include "astro_test_helpers.hpp"
#include "test_support.hpp"

namespace sk::astro {
namespace {

using test::date;

// Whole days: from the last Sunday of March to the Saturday before the last
// Sunday of October, the change line on those Sundays only. In 2024 the 31st
// of March is itself that Sunday, in 2027 the 31st of October, in 2018 the
// 31st of March a Saturday; the Sundays a week earlier are where the rule
// for events would put them.
TEST(AstroToolkit, SummerTimeOnWholeDays) {
    const std::string on = "Sommerzeit von 2:00 Uhr auf 3:00 Uhr";
    const std::string off = "Winterzeit von 3:00 Uhr auf 2:00b Uhr";
    const std::tuple<calendar::Day, bool, std::string> cases[] = {
        {date(2023, 3, 25), false, ""},   {date(2023, 3, 26), true, on},
        {date(2024, 3, 24), false, ""},   {date(2024, 3, 30), false, ""},
        {date(2024, 3, 31), true, on},    {date(2024, 4, 28), true, ""},
        {date(2024, 10, 26), true, ""},   {date(2024, 10, 27), false, off},
        {date(2027, 10, 24), true, ""},   {date(2027, 10, 30), true, ""},
        {date(2027, 10, 31), false, off}, {date(2018, 3, 25), true, on},
    };
    for (const auto& [day, summer, line] : cases) {
        EXPECT_EQ(summer_time_on_day(mjd_of_day(day.number), day.year), summer)
            << ::testing::PrintToString(day);
        EXPECT_EQ(summer_time_change_line(day), line) << ::testing::PrintToString(day);
    }
}

// An event at a UT instant, described on a day, with automatic summer time
// or without.
TEST(AstroToolkit, EventTimeText) {
    const auto ut = [](const calendar::Day& day, int hours, int minutes, int seconds) {
        return jd_of_day(day.number) + (hours * 3600 + minutes * 60 + seconds) / 86400.0;
    };
    const std::tuple<double, calendar::Day, bool, std::string> cases[] = {
        {ut(date(2024, 1, 10), 6, 5, 40), date(2024, 1, 10), true, "Ereignis: 7:05"},
        {ut(date(2024, 6, 20), 20, 51, 3), date(2024, 6, 20), true, "Ereignis: 22:51"},
        {ut(date(2024, 6, 20), 20, 51, 3), date(2024, 6, 20), false, "Ereignis: 21:51"},
        // 23:30 UT on the last day of a month is 0:30 of the first of the next.
        {ut(date(2024, 1, 31), 23, 30, 20), date(2024, 2, 1), true, "Ereignis: 0:30"},
        {ut(date(2024, 1, 31), 23, 30, 20), date(2024, 1, 31), true, ""},
        {ut(date(2024, 1, 31), 22, 59, 0), date(2024, 2, 1), true, ""},
        // The 31st of March 2024 is a Sunday: summer time for events begins a
        // week early; it ends on the last Sunday of October.
        {ut(date(2024, 3, 25), 7, 0, 16), date(2024, 3, 25), true, "Ereignis: 9:00"},
        {ut(date(2024, 3, 25), 7, 0, 16), date(2024, 3, 25), false, "Ereignis: 8:00"},
        {ut(date(2024, 10, 27), 12, 0, 30), date(2024, 10, 27), true, "Ereignis: 13:00"},
        // The switch compares a half-day-shifted time with 2:00 UT of the
        // Sunday, so it takes effect on Saturday afternoon.
        {ut(date(2023, 3, 25), 14, 0, 30), date(2023, 3, 25), true, "Ereignis: 16:00"},
        {ut(date(2023, 3, 25), 11, 0, 30), date(2023, 3, 25), true, "Ereignis: 12:00"},
    };
    for (const auto& [jd, described, automatic, text] : cases) {
        Place s = test::kRodenwald;  // Zeitzone 1
        s.auto_summer_time = automatic;
        EXPECT_EQ(event_time_text(jd, "Ereignis: ", described, s), text)
            << ::testing::PrintToString(described) << " JD " << jd;
    }
}

// Hours and minutes, 59.5 minutes and more rounding up; no time at all. The
// fractional part of a negative number counts up from the integer below.
TEST(AstroRiseSet, ClockTimeTextAndFractionalPart) {
    EXPECT_EQ(std::tuple(frac(1.25), frac(-1.25), frac(-2.0)), std::tuple(0.25, 0.75, 0.0));
    const std::tuple<int, double, const char*> cases[] = {
        {6, 5.0, "6:05"},  {5, 59.7, "6:00"}, {7, 42.4, "7:42"},
        {0, 30.0, "0:30"}, {0, 0.0, "--:--"},
    };
    for (const auto& [hours, minutes, text] : cases)
        EXPECT_EQ(clock_time_text(hours + minutes / 60), text) << hours << ':' << minutes;
}

// Rodenwald (49°01' N, 12°06' E, the default place). Reference times from an
// independent ephemeris (PyEphem 4.1.4, libastro) for the same place, the
// sun's centre at 50' and 6° below the horizon, the moon's upper limb at 34'
// below it; local time CET/CEST. The low-precision series and the two-hour
// parabolas stay within a minute of it all year; two minutes are allowed.
TEST(AstroRiseSet, RealSkyRodenwald) {
    // Rise and set in minutes after local midnight.
    const std::tuple<calendar::Day, RiseSetKind, int, int> cases[] = {
        {date(1985, 2, 14), RiseSetKind::Sun, 7 * 60 + 22, 17 * 60 + 30},
        {date(2000, 1, 1), RiseSetKind::Sun, 8 * 60 + 6, 16 * 60 + 24},
        {date(2024, 3, 20), RiseSetKind::Sun, 6 * 60 + 14, 18 * 60 + 25},
        {date(2024, 6, 21), RiseSetKind::Sun, 5 * 60 + 7, 21 * 60 + 20},
        {date(2024, 12, 21), RiseSetKind::Sun, 8 * 60 + 3, 16 * 60 + 17},
        {date(2024, 6, 21), RiseSetKind::CivilTwilight, 4 * 60 + 24, 22 * 60 + 3},
        {date(2024, 12, 21), RiseSetKind::CivilTwilight, 7 * 60 + 26, 16 * 60 + 54},
        {date(2024, 3, 20), RiseSetKind::Moon, 13 * 60 + 11, 4 * 60 + 53},
        {date(1985, 2, 14), RiseSetKind::Moon, 3 * 60 + 53, 11 * 60 + 45},
    };
    for (const auto& [day, kind, rise, set] : cases) {
        const Crossings found = find_crossings(kind, day, test::kRodenwald);
        EXPECT_NEAR(found.rise * 60.0, rise, 2.0) << ::testing::PrintToString(day);
        EXPECT_NEAR(found.set * 60.0, set, 2.0) << ::testing::PrintToString(day);
    }
}

TEST(AstroRiseSet, LinesWithoutACrossing) {
    const std::tuple<calendar::Day, double, RiseSetKind, const char*> cases[] = {
        {date(2024, 6, 21), 65.0, RiseSetKind::CivilTwilight, "Dämmerung: immer hell"},
        {date(2024, 12, 21), 80.0, RiseSetKind::CivilTwilight, "Dämmerung: immer dunkel"},
        {date(2024, 6, 21), 70.0, RiseSetKind::Sun, "Sonne: immer sichtbar"},
        {date(2024, 12, 21), 70.0, RiseSetKind::Sun, "Sonne: nicht sichtbar"},
        {date(2024, 6, 21), -70.0, RiseSetKind::Sun, "Sonne: nicht sichtbar"},
    };
    for (const auto& [day, latitude, kind, line] : cases) {
        Place far_north = test::kRodenwald;
        far_north.latitude = latitude;
        EXPECT_EQ(rise_set_line(kind, day, far_north), line) << latitude;
    }
    // The moon rises on 17 January 2024 and sets only after midnight; on 3
    // January it sets but rose the evening before.
    const Place rodenwald = test::kRodenwald;
    EXPECT_EQ(rise_set_line(RiseSetKind::Moon, date(2024, 1, 17), rodenwald),
              "Mond: 11:01 - --:--");
    EXPECT_EQ(rise_set_line(RiseSetKind::Moon, date(2024, 1, 3), rodenwald), "Mond: --:-- - 11:38");
}

// On the last Sunday of March the whole day is already summer time, on the
// last Sunday of October already winter time: sunrise jumps by an hour from
// the Saturday, less the few minutes the sun moves in a day.
TEST(AstroRiseSet, WholeDaySummerTimeOnTheChangeSundays) {
    const std::pair<calendar::Day, int> cases[] = {{date(2024, 3, 30), 60},
                                                   {date(2027, 10, 30), -60}};
    for (const auto& [saturday, jump] : cases) {
        Place s = test::kRodenwald;
        const calendar::Day sunday = calendar::Day::from_number(saturday.number + 1);
        const double after = find_crossings(RiseSetKind::Sun, sunday, s).rise;
        EXPECT_NEAR((after - find_crossings(RiseSetKind::Sun, saturday, s).rise) * 60.0, jump, 3.0)
            << ::testing::PrintToString(sunday);
        s.auto_summer_time = false;
        const double off = find_crossings(RiseSetKind::Sun, sunday, s).rise;
        EXPECT_NEAR((after - off) * 60.0, jump > 0 ? 60.0 : 0.0, 0.5);
    }
}

TEST(AstroCoordinateEntry, LatitudeAndLongitude) {
    const std::optional<double> none;
    const std::tuple<const char*, std::optional<double>, std::optional<double>> cases[] = {
        {"48.30", 48.3, 48.3},     {"48 30", 48.3, 48.3},     {"48'30", 48.3, 48.3},
        {"12,7", 12.42, 12.42},    {"-12.7", -12.42, -12.42}, {"12.60", 12.36, 12.36},
        {"120", 30.0, 120.0},      {"-95.3", -5.3, -95.3},    {"210", 30.0, 30.0},
        {"-190.3", -10.3, -10.3},  {"90", 90.0, 90.0},        {"90.5", 0.5, 90.5},
        {"12.0699", 12.06, 12.06}, {" 49.01 ", 49.01, 49.01}, {"+7", 7.0, 7.0},
        {"", none, none},          {"Nord", none, none},      {"48 30 10", none, none},
        {"48°30", none, none},
    };
    for (const auto& [text, latitude, longitude] : cases) {
        EXPECT_EQ(parse_latitude(text), latitude) << '"' << text << '"';
        EXPECT_EQ(parse_longitude(text), longitude) << '"' << text << '"';
    }
}

TEST(AstroCoordinateEntry, TimeZone) {
    const std::pair<const char*, std::optional<double>> cases[] = {
        {"1", 1.0},     {"1,5", 1.5},   {"5 30", 5.3},          {"15", 14.0},
        {"-13", -12.0}, {"-3.5", -3.5}, {"eins", std::nullopt},
    };
    for (const auto& [text, hours] : cases)
        EXPECT_EQ(parse_time_zone(text), hours) << text;
}

}  // namespace
}  // namespace sk::astro
