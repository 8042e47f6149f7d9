#include "astro/rise_set.hpp"

#include <gtest/gtest.h>

#include <string>

#include "astro_test_helpers.hpp"
#include "test_support.hpp"

namespace sk::astro {
namespace {

using test::date;

TEST(AstroRiseSet, ClockTimeText) {
    struct Case {
        double hours;
        const char* text;
    };
    for (const auto c : {Case{6.0 + 5.0 / 60, "6:05"}, Case{17.0 + 40.0 / 60, "17:40"},
                         Case{5.0 + 59.7 / 60, "6:00"},  // 59.5 minutes and more round up
                         Case{7.0 + 42.4 / 60, "7:42"}, Case{0.5, "0:30"}, Case{0.0, "--:--"}}) {
        EXPECT_EQ(clock_time_text(c.hours), c.text) << c.hours;
    }
}

TEST(AstroRiseSet, TwilightKindFromSettings) {
    struct Case {
        int stored;
        RiseSetKind kind;
        bool reset;
    };
    for (const auto c :
         {Case{0, RiseSetKind::CivilTwilight, false}, Case{1, RiseSetKind::NauticalTwilight, false},
          Case{2, RiseSetKind::AstronomicalTwilight, false},
          Case{7, RiseSetKind::CivilTwilight, true}, Case{-1, RiseSetKind::CivilTwilight, true}}) {
        const TwilightChoice choice = twilight_choice(c.stored);
        EXPECT_EQ(choice.kind, c.kind) << c.stored;
        EXPECT_EQ(choice.reset, c.reset) << c.stored;
    }
}

// Rodenwald (49°01' N, 12°06' E, the default place). Reference times from an
// independent ephemeris (PyEphem 4.1.4, libastro) for the same place, the
// sun's centre at 50' and 6° below the horizon, the moon's upper limb at 34'
// below it; local time CET/CEST. The low-precision series and the two-hour
// parabolas stay within a minute of it all year; two minutes are allowed.
TEST(AstroRiseSet, RealSkyRodenwald) {
    struct Case {
        calendar::Day day;
        RiseSetKind kind;
        int rise, set;  // minutes after local midnight
    };
    const Case cases[] = {
        {date(1985, 2, 14), RiseSetKind::Sun, 7 * 60 + 22, 17 * 60 + 30},
        {date(2000, 1, 1), RiseSetKind::Sun, 8 * 60 + 6, 16 * 60 + 24},
        {date(2024, 3, 20), RiseSetKind::Sun, 6 * 60 + 14, 18 * 60 + 25},
        {date(2024, 6, 21), RiseSetKind::Sun, 5 * 60 + 7, 21 * 60 + 20},
        {date(2024, 9, 22), RiseSetKind::Sun, 6 * 60 + 59, 19 * 60 + 9},
        {date(2024, 12, 21), RiseSetKind::Sun, 8 * 60 + 3, 16 * 60 + 17},
        {date(2024, 6, 21), RiseSetKind::CivilTwilight, 4 * 60 + 24, 22 * 60 + 3},
        {date(2024, 12, 21), RiseSetKind::CivilTwilight, 7 * 60 + 26, 16 * 60 + 54},
        {date(2024, 3, 20), RiseSetKind::Moon, 13 * 60 + 11, 4 * 60 + 53},
        {date(1985, 2, 14), RiseSetKind::Moon, 3 * 60 + 53, 11 * 60 + 45},
    };
    for (const auto& c : cases) {
        const Crossings found = find_crossings(c.kind, c.day, settings::Settings{});
        EXPECT_NEAR(found.rise * 60.0, c.rise, 2.0) << ::testing::PrintToString(c.day);
        EXPECT_NEAR(found.set * 60.0, c.set, 2.0) << ::testing::PrintToString(c.day);
    }
}

TEST(AstroRiseSet, LinesWithoutACrossing) {
    struct Case {
        calendar::Day day;
        double latitude;
        RiseSetKind kind;
        const char* line;
    };
    const Case cases[] = {
        {date(2024, 6, 21), 65.0, RiseSetKind::CivilTwilight, "Dämmerung: immer hell"},
        {date(2024, 12, 21), 80.0, RiseSetKind::CivilTwilight, "Dämmerung: immer dunkel"},
        {date(2024, 6, 21), 70.0, RiseSetKind::Sun, "Sonne: immer sichtbar"},
        {date(2024, 12, 21), 70.0, RiseSetKind::Sun, "Sonne: nicht sichtbar"},
        {date(2024, 6, 21), -70.0, RiseSetKind::Sun, "Sonne: nicht sichtbar"},
    };
    for (const auto& c : cases) {
        settings::Settings far_north;
        far_north.latitude = c.latitude;
        EXPECT_EQ(rise_set_line(c.kind, c.day, far_north), c.line) << c.latitude;
    }
    // The moon rises on 17 January 2024 and sets only after midnight; on 3
    // January it sets but rose the evening before.
    const settings::Settings rodenwald;
    EXPECT_EQ(rise_set_line(RiseSetKind::Moon, date(2024, 1, 17), rodenwald),
              "Mond: 11:01 - --:--");
    EXPECT_EQ(rise_set_line(RiseSetKind::Moon, date(2024, 1, 3), rodenwald), "Mond: --:-- - 11:38");
}

// On the last Sunday of March the whole day is already summer time, on the
// last Sunday of October already winter time: the times jump by an hour
// from the Saturday, less the few minutes the sun moves in a day.
TEST(AstroRiseSet, WholeDaySummerTimeOnTheChangeSundays) {
    struct Case {
        calendar::Day saturday;
        int jump;
    };
    for (const auto c : {Case{date(2023, 3, 25), 60}, Case{date(2024, 3, 30), 60},
                         Case{date(2024, 10, 26), -60}, Case{date(2027, 10, 30), -60}}) {
        settings::Settings s;
        const calendar::Day sunday = calendar::Day::from_number(c.saturday.number + 1);
        const Crossings before = find_crossings(RiseSetKind::Sun, c.saturday, s);
        const Crossings after = find_crossings(RiseSetKind::Sun, sunday, s);
        EXPECT_NEAR((after.rise - before.rise) * 60.0, c.jump, 3.0)
            << ::testing::PrintToString(sunday);
        s.auto_summer_time = 0;
        const Crossings off = find_crossings(RiseSetKind::Sun, sunday, s);
        EXPECT_NEAR((after.rise - off.rise) * 60.0, c.jump > 0 ? 60.0 : 0.0, 0.5);
    }
}

TEST(AstroRiseSet, SummerTimeChangeLine) {
    struct Case {
        calendar::Day day;
        const char* line;
    };
    for (const auto c : {Case{date(2024, 3, 31), "Sommerzeit von 2:00 Uhr auf 3:00 Uhr"},
                         Case{date(2024, 3, 30), ""}, Case{date(2024, 3, 24), ""},
                         Case{date(2024, 10, 27), "Winterzeit von 3:00 Uhr auf 2:00b Uhr"},
                         Case{date(2027, 10, 31), "Winterzeit von 3:00 Uhr auf 2:00b Uhr"},
                         Case{date(2027, 10, 24), ""}, Case{date(2024, 4, 28), ""}}) {
        EXPECT_EQ(summer_time_change_line(c.day), c.line) << ::testing::PrintToString(c.day);
    }
}

}  // namespace
}  // namespace sk::astro
