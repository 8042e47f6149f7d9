// Moon phases, apsides, seasons and the earth's passages against the real
// sky, and their regularity over every day of the calendar.
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "astro/day_information.hpp"
#include "astro/earth_orbit.hpp"
#include "astro/seasons.hpp"
#include "astro_test_helpers.hpp"
#include "test_support.hpp"

namespace sk::astro {
namespace {

using test::date;

// An instant in UT, the label of its line and the minutes allowed.
struct Published {
    const char* label;
    int year, month, mday, hour, minute;
    int tolerance;
};

// Sources: the new and full moons, seasons, perihelia and aphelia of
// 2019-2025 as the almanacs publish them (UT, to the minute); the seasons of
// 1975 and 2036 and the apsides of the moon from an independent ephemeris
// (PyEphem 4.1.4), the apsides as the extremes of its lunar distance. The
// calendar takes dynamical time for UT, which makes it about a minute late:
// the new moon of 9 February 2024 at 22:59 UT thus passes local midnight.
// Chapter 50 times a perigee to half an hour at worst, and the radius vector
// is so flat at the passages that the abridged series misses by up to two hours.
constexpr Published kPublished[] = {
    {"Neumond: ", 2024, 1, 11, 11, 57, 2},       {"Neumond: ", 2024, 2, 9, 22, 59, 2},
    {"Neumond: ", 2024, 3, 10, 9, 0, 2},         {"Neumond: ", 2024, 4, 8, 18, 21, 2},
    {"Neumond: ", 2024, 5, 8, 3, 22, 2},         {"Neumond: ", 2024, 6, 6, 12, 38, 2},
    {"Neumond: ", 2024, 7, 5, 22, 57, 2},        {"Neumond: ", 2024, 8, 4, 11, 13, 2},
    {"Neumond: ", 2024, 9, 3, 1, 55, 2},         {"Neumond: ", 2024, 10, 2, 18, 49, 2},
    {"Neumond: ", 2024, 11, 1, 12, 47, 2},       {"Neumond: ", 2024, 12, 1, 6, 21, 2},
    {"Neumond: ", 2024, 12, 30, 22, 27, 2},      {"Vollmond: ", 2024, 1, 25, 17, 54, 2},
    {"Vollmond: ", 2024, 2, 24, 12, 30, 2},      {"Vollmond: ", 2024, 3, 25, 7, 0, 2},
    {"Vollmond: ", 2024, 4, 23, 23, 49, 2},      {"Vollmond: ", 2024, 5, 23, 13, 53, 2},
    {"Vollmond: ", 2024, 6, 22, 1, 8, 2},        {"Vollmond: ", 2024, 7, 21, 10, 17, 2},
    {"Vollmond: ", 2024, 8, 19, 18, 26, 2},      {"Vollmond: ", 2024, 9, 18, 2, 34, 2},
    {"Vollmond: ", 2024, 10, 17, 11, 26, 2},     {"Vollmond: ", 2024, 11, 15, 21, 28, 2},
    {"Vollmond: ", 2024, 12, 15, 9, 2, 2},       {"Frühlingsanfang: ", 2024, 3, 20, 3, 6, 2},
    {"Sommeranfang: ", 2024, 6, 20, 20, 51, 2},  {"Herbstanfang: ", 2024, 9, 22, 12, 44, 2},
    {"Winteranfang: ", 2024, 12, 21, 9, 21, 2},  {"Frühlingsanfang: ", 2000, 3, 20, 7, 35, 2},
    {"Sommeranfang: ", 2000, 6, 21, 1, 48, 2},   {"Herbstanfang: ", 2000, 9, 22, 17, 28, 2},
    {"Winteranfang: ", 2000, 12, 21, 13, 37, 2}, {"Frühlingsanfang: ", 1975, 3, 21, 5, 57, 2},
    {"Sommeranfang: ", 1975, 6, 22, 0, 27, 2},   {"Herbstanfang: ", 1975, 9, 23, 15, 55, 2},
    {"Winteranfang: ", 1975, 12, 22, 11, 45, 2}, {"Frühlingsanfang: ", 2036, 3, 20, 1, 3, 2},
    {"Winteranfang: ", 2036, 12, 21, 7, 12, 2},  {"Mondnähe: ", 2024, 1, 13, 10, 45, 30},
    {"Mondnähe: ", 2024, 12, 12, 13, 30, 30},    {"Mondferne: ", 2024, 1, 29, 8, 7, 20},
    {"Mondferne: ", 2024, 12, 24, 7, 21, 20},    {"Sonnennähe: ", 2019, 1, 3, 5, 20, 120},
    {"Sonnennähe: ", 2020, 1, 5, 7, 48, 120},    {"Sonnennähe: ", 2024, 1, 3, 0, 39, 120},
    {"Sonnenferne: ", 2019, 7, 4, 22, 11, 120},  {"Sonnenferne: ", 2023, 7, 6, 20, 7, 120},
    {"Sonnenferne: ", 2024, 7, 5, 5, 6, 120},
};

// With automatic summer time off the calendar keeps UT + 1 h all year. The
// event must be reported within the tolerance of the published instant, so
// on the right local day unless it lies that close to midnight.
TEST(AstroRealSky, PublishedEvents) {
    settings::Settings standard_time;
    standard_time.auto_summer_time = 0;
    for (const Published& p : kPublished) {
        const long expected =
            date(p.year, p.month, p.mday).number * 1440L + p.hour * 60 + p.minute + 60;
        const auto local_day = static_cast<calendar::DayNumber>(expected / 1440);
        std::optional<long> reported;
        for (calendar::DayNumber d = local_day - 1; d <= local_day + 1 && !reported; ++d) {
            const auto minutes = test::minutes_after(
                day_information(calendar::Day::from_number(d), standard_time), p.label);
            if (minutes) reported = d * 1440L + *minutes;
        }
        ASSERT_TRUE(reported) << p.label << p.year << '-' << p.month << '-' << p.mday;
        EXPECT_LE(std::labs(*reported - expected), p.tolerance)
            << p.label << p.year << '-' << p.month << '-' << p.mday << " reported "
            << *reported - expected << " minutes off";
    }
}

// Every day of the calendar: each principal phase and each apsis recurs at
// its period, before 2000 as after it, with the gaps the method leaves: no
// apogee before 2000 (its k lands a month late there), and five last
// quarters missed where the lunation estimate runs a lunation ahead.
TEST(AstroRegularity, PhasesAndApsidesOverTheWholeCalendar) {
    const std::vector<DaySymbols> symbols =
        page_symbols(calendar::kFirstDay, calendar::kLastDay, settings::Settings{});
    ASSERT_EQ(symbols.size(), static_cast<std::size_t>(calendar::kLastDay + 1));
    std::map<std::string, std::vector<calendar::DayNumber>> days;
    const char* phase_names[] = {"", "new moon", "first quarter", "full moon", "last quarter"};
    for (calendar::DayNumber d = 0; d <= calendar::kLastDay; ++d) {
        const DaySymbols& s = symbols[static_cast<std::size_t>(d)];
        if (s.phase != MoonPhase::None) days[phase_names[static_cast<int>(s.phase)]].push_back(d);
        if (s.perigee) days["perigee"].push_back(d);
        if (s.apogee) days["apogee"].push_back(d);
    }
    struct Expectation {
        const char* event;
        std::size_t count;
        int shortest, longest;
    };
    for (const auto e :
         {Expectation{"new moon", 836, 29, 30}, Expectation{"first quarter", 836, 29, 30},
          Expectation{"full moon", 836, 29, 30}, Expectation{"last quarter", 830, 29, 59},
          Expectation{"perigee", 896, 24, 29}, Expectation{"apogee", 499, 27, 28}}) {
        const auto& found = days[e.event];
        EXPECT_EQ(found.size(), e.count) << e.event;
        for (std::size_t i = 1; i < found.size(); ++i) {
            const int gap = found[i] - found[i - 1];
            EXPECT_TRUE(gap >= e.shortest && gap <= e.longest && (gap <= 30 || gap == 59))
                << e.event << " " << gap << " days after "
                << ::testing::PrintToString(calendar::Day::from_number(found[i - 1]));
            if (gap == 59) days["before a missed quarter"].push_back(found[i - 1]);
        }
    }
    EXPECT_EQ(days["apogee"].front(), date(2000, 1, 4).number);
    EXPECT_EQ(days["before a missed quarter"],
              (std::vector<calendar::DayNumber>{date(2007, 2, 10).number, date(2007, 4, 10).number,
                                                date(2023, 2, 13).number, date(2033, 2, 22).number,
                                                date(2035, 4, 30).number}));
}

// One perihelion early in January and one aphelion early in July each year,
// four season starts each in its own month, never anywhere else.
TEST(AstroRegularity, YearlyEvents) {
    const settings::Settings s;
    for (int year = 1970; year <= 2036; ++year) {
        std::string found;
        for (calendar::DayNumber d = date(year, 1, 1).number; d < date(year + 1, 1, 1).number;
             ++d) {
            const calendar::Day day = calendar::Day::from_number(d);
            InstantMemo memo;
            const std::string events =
                perihelion_line(day, s, memo) + aphelion_line(day, s, memo) + season_line(day, s);
            if (events.empty()) continue;
            found += std::to_string(day.month_index + 1) + events.substr(0, 6) + ' ';
            EXPECT_LE(day.mday, day.month_index % 6 == 0 ? 7 : 23) << events;
        }
        EXPECT_EQ(found, "1Sonnen 3Frühl 6Sommer 7Sonnen 9Herbst 12Winter ") << year;
    }
}

}  // namespace
}  // namespace sk::astro
