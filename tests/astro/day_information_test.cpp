#include "astro/day_information.hpp"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "astro/rise_set.hpp"
#include "astro_test_helpers.hpp"
#include "test_support.hpp"

namespace sk::astro {
namespace {

using test::date;

// The labels of the parts of the line, what stands before each colon:
// "Dämmerung|Sonne|Mond".
std::string labels_of(const std::string& line) {
    const std::string separator = "\x2C\xC2\xA0";  // "," and U+00A0 in UTF-8
    std::string labels;
    for (std::size_t start = 0;;) {
        const auto at = line.find(separator, start);
        const std::string part = line.substr(start, at - start);
        labels += part.substr(0, part.find(':'));
        if (at == std::string::npos) return labels;
        labels += '|';
        start = at + separator.size();
    }
}

// The fixed order of the parts: twilight, sun, moon, then season, clock
// change, moon phase, eclipse, apogee, perigee, aphelion, perihelion (the
// whole text of ordinary days: the golden days of the command line).
TEST(AstroDayInformation, PartsInTheirOrder) {
    const std::pair<calendar::Day, std::string> cases[] = {
        {date(2024, 3, 20), "Dämmerung|Sonne|Mond|Frühlingsanfang"},
        {date(2024, 10, 27), "Dämmerung|Sonne|Mond|Winterzeit von 3"},
        // The longest total lunar eclipse of the century, with the moon near apogee.
        {date(2018, 7, 27), "Dämmerung|Sonne|Mond|Vollmond|Mondfinsternis total|Mondferne"},
        // A new moon with a solar eclipse and a perigee the same day.
        {date(1971, 2, 25), "Dämmerung|Sonne|Mond|Neumond|Sonnenfinsternis partiell|Mondnähe"},
    };
    for (const auto& [day, labels] : cases) {
        const std::string line = day_information(day, test::kRodenwald);
        EXPECT_EQ(labels_of(line), labels) << ::testing::PrintToString(day) << ": " << line;
    }
}

// The place's twilight decides which depression of the sun is timed: the
// deeper the sun, the earlier the morning ("Dämmerung: 6:58 - ..." and so on).
TEST(AstroDayInformation, TwilightOfThePlace) {
    const calendar::Day day = date(2024, 1, 21);
    std::string later = "Dämmerung: 9";
    for (const auto& [twilight, kind] :
         {std::pair{Twilight::Civil, RiseSetKind::CivilTwilight},
          {Twilight::Nautical, RiseSetKind::NauticalTwilight},
          {Twilight::Astronomical, RiseSetKind::AstronomicalTwilight}}) {
        Place place = test::kRodenwald;
        place.twilight = twilight;
        const std::string line = day_events(day, place).twilight;
        EXPECT_EQ(line, rise_set_line(kind, day, test::kRodenwald));
        EXPECT_LT(line, later);
        later = line;
    }
}

// The page's symbols are the day's events, computed without rise and set
// and with instants shared between days; over two years across 2000 (the
// search changes there) they must agree day by day.
TEST(AstroDayInformation, PageSymbolsMatchTheDays) {
    const Place rodenwald = test::kRodenwald;
    const calendar::DayNumber first = date(1998, 12, 1).number;
    const calendar::DayNumber last = date(2001, 1, 31).number;
    const std::vector<DaySymbols> symbols = page_symbols(first, last, rodenwald);
    ASSERT_EQ(symbols.size(), static_cast<std::size_t>(last - first + 1));
    int eclipses = 0;
    for (calendar::DayNumber d = first; d <= last; ++d) {
        const DayEvents e = day_events(calendar::Day::from_number(d), rodenwald);
        const DaySymbols expected{
            e.phase,           e.solar_eclipse,       e.lunar_eclipse,    !e.perigee.empty(),
            !e.apogee.empty(), !e.perihelion.empty(), !e.aphelion.empty()};
        ASSERT_EQ(symbols[static_cast<std::size_t>(d - first)], expected)
            << ::testing::PrintToString(calendar::Day::from_number(d));
        eclipses += e.solar_eclipse + e.lunar_eclipse;
    }
    EXPECT_GE(eclipses, 6);  // 1999 and 2000 had ten umbral and central ones
    EXPECT_TRUE(page_symbols(last, first, rodenwald).empty());
}

}  // namespace
}  // namespace sk::astro
