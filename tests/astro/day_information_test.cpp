#include "astro/day_information.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "astro_test_helpers.hpp"
#include "test_support.hpp"

namespace sk::astro {
namespace {

using test::date;

std::vector<std::string> parts_of(const std::string& line) {
    std::vector<std::string> parts;
    const std::string separator = "\x2C\xC2\xA0";  // "," and U+00A0 in UTF-8
    std::size_t start = 0;
    for (;;) {
        const auto at = line.find(separator, start);
        parts.push_back(line.substr(start, at - start));
        if (at == std::string::npos) return parts;
        start = at + separator.size();
    }
}

std::vector<std::string> labels_of(const std::string& line) {
    std::vector<std::string> labels;
    for (const std::string& part : parts_of(line))
        labels.push_back(part.substr(0, part.find(':')));
    return labels;
}

using Labels = std::vector<std::string>;

// The fixed order of the parts: twilight, sun, moon, then season, clock
// change, moon phase, eclipse, apogee, perigee, aphelion, perihelion.
TEST(AstroDayInformation, PartsInTheirOrder) {
    struct Case {
        calendar::Day day;
        Labels labels;
    };
    const Case cases[] = {
        {date(2024, 1, 2), {"Dämmerung", "Sonne", "Mond"}},
        {date(2024, 3, 20), {"Dämmerung", "Sonne", "Mond", "Frühlingsanfang"}},
        {date(2024, 10, 27), {"Dämmerung", "Sonne", "Mond", "Winterzeit von 3"}},
        // The longest total lunar eclipse of the century, with the moon near apogee.
        {date(2018, 7, 27),
         {"Dämmerung", "Sonne", "Mond", "Vollmond", "Mondfinsternis total", "Mondferne"}},
        // A new moon with a solar eclipse and a perigee the same day.
        {date(1971, 2, 25),
         {"Dämmerung", "Sonne", "Mond", "Neumond", "Sonnenfinsternis partiell", "Mondnähe"}},
        {date(2024, 1, 1), {"Dämmerung", "Sonne", "Mond", "Mondferne"}},
        {date(2024, 1, 3), {"Dämmerung", "Sonne", "Mond", "Sonnennähe"}},
        {date(2024, 7, 5), {"Dämmerung", "Sonne", "Mond", "Sonnenferne"}},
    };
    const settings::Settings rodenwald;
    for (const auto& c : cases) {
        EXPECT_EQ(labels_of(day_information(c.day, rodenwald)), c.labels)
            << ::testing::PrintToString(c.day) << ": " << day_information(c.day, rodenwald);
    }
}

TEST(AstroDayInformation, OrdinaryDayText) {
    EXPECT_EQ(day_information(date(2024, 1, 2), settings::Settings{}),
              "Dämmerung: 7:29 - 17:03,\u00A0Sonne: 8:06 - 16:25,\u00A0Mond: 23:13 - 11:26");
}

// The greatest eclipse is minutes away from the full moon of the same night.
TEST(AstroDayInformation, EclipseFollowsItsMoonPhase) {
    const DayEvents e = day_events(date(2018, 7, 27), settings::Settings{});
    EXPECT_EQ(e.marker, 2);
    EXPECT_EQ(e.phase, DayEvents::Phase::FullMoon);
    EXPECT_TRUE(e.lunar_eclipse);
    EXPECT_FALSE(e.solar_eclipse);
    EXPECT_EQ(e.moon_phase, "Vollmond: 22:21");
    EXPECT_EQ(e.eclipse, "Mondfinsternis total: 22:23");
}

TEST(AstroDayInformation, TwilightKindOutOfRangeIsCivilAndReset) {
    settings::Settings civil, seven, nautical;
    seven.twilight = 7;
    nautical.twilight = 1;
    const calendar::Day day = date(2024, 6, 21);
    const DayEvents reset = day_events(day, seven);
    EXPECT_TRUE(reset.twilight_reset);
    EXPECT_EQ(reset.twilight, day_events(day, civil).twilight);
    EXPECT_FALSE(day_events(day, nautical).twilight_reset);
    EXPECT_NE(day_events(day, nautical).twilight, reset.twilight);
}

// The page's symbols are the day's events, computed without rise and set
// and with instants shared between days; over two years across 2000 (the
// search changes there) they must agree day by day.
TEST(AstroDayInformation, PageSymbolsMatchTheDays) {
    const settings::Settings rodenwald;
    const calendar::DayNumber first = date(1998, 12, 1).number;
    const calendar::DayNumber last = date(2001, 1, 31).number;
    const std::vector<DaySymbols> symbols = page_symbols(first, last, rodenwald);
    ASSERT_EQ(symbols.size(), static_cast<std::size_t>(last - first + 1));
    int eclipses = 0;
    for (calendar::DayNumber d = first; d <= last; ++d) {
        const calendar::Day day = calendar::Day::from_number(d);
        const DayEvents e = day_events(day, rodenwald);
        DaySymbols expected;
        expected.phase = e.phase;
        expected.solar_eclipse = e.solar_eclipse;
        expected.lunar_eclipse = e.lunar_eclipse;
        expected.perigee = !e.perigee.empty();
        expected.apogee = !e.apogee.empty();
        expected.perihelion = !e.perihelion.empty();
        expected.aphelion = !e.aphelion.empty();
        ASSERT_EQ(symbols[static_cast<std::size_t>(d - first)], expected)
            << ::testing::PrintToString(day);
        eclipses += e.solar_eclipse + e.lunar_eclipse;
    }
    EXPECT_GE(eclipses, 6);  // 1999 and 2000 had ten umbral and central ones
    EXPECT_TRUE(page_symbols(last, first, rodenwald).empty());
}

}  // namespace
}  // namespace sk::astro
