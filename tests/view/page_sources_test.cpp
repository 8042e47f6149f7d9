// The page's extras from the program's stores: the real sky of the
// astronomy library and the user's marking lists.
#include <gtest/gtest.h>

#include <algorithm>

#include "notes/note_keys.hpp"
#include "test_support.hpp"
#include "view/page_sources.hpp"
#include "view_fixture.hpp"

namespace sk::view {
namespace {

using test::date;

TEST(PageSources, SkySymbolsKeepTheirMeaning) {
    struct Case { astro::MoonPhase from; MoonPhase to; };
    for (const Case c : {Case{astro::MoonPhase::None, MoonPhase::None},
                         Case{astro::MoonPhase::NewMoon, MoonPhase::NewMoon},
                         Case{astro::MoonPhase::FirstQuarter, MoonPhase::FirstQuarter},
                         Case{astro::MoonPhase::FullMoon, MoonPhase::FullMoon},
                         Case{astro::MoonPhase::LastQuarter, MoonPhase::LastQuarter}}) {
        astro::DaySymbols s;
        s.phase = c.from;
        EXPECT_EQ(day_sky(s).phase, c.to);
    }
    astro::DaySymbols flags;
    flags.solar_eclipse = flags.perigee = flags.aphelion = true;
    const DaySky sky = day_sky(flags);
    EXPECT_TRUE(sky.solar_eclipse && sky.perigee && sky.aphelion);
    EXPECT_FALSE(sky.lunar_eclipse || sky.apogee || sky.perihelion);
}

// Known events: the total solar eclipse of 8 April 2024 at new moon, the
// total lunar eclipse of 14 March 2025 at full moon, the earth's
// perihelion on 3 January 2024 and aphelion on 5 July 2024.
TEST(PageSources, SkyOfTheAstronomyLibrary) {
    const auto sky = sky_source(settings::Settings{});
    struct Case { calendar::Day day; MoonPhase phase; bool solar, lunar, perihelion, aphelion; };
    const Case cases[] = {
        {date(2024, 4, 8), MoonPhase::NewMoon, true, false, false, false},
        {date(2025, 3, 14), MoonPhase::FullMoon, false, true, false, false},
        {date(2024, 1, 3), MoonPhase::None, false, false, true, false},
        {date(2024, 7, 5), MoonPhase::None, false, false, false, true},
        {date(2024, 4, 24), MoonPhase::FullMoon, false, false, false, false},  // 1:49 summer time
    };
    for (const Case& c : cases) {
        const std::vector<DaySky> days = sky(c.day.number - 3, c.day.number + 3);
        ASSERT_EQ(days.size(), 7u);
        const DaySky& s = days[3];
        SCOPED_TRACE(calendar::format_iso_date(c.day));
        if (c.phase != MoonPhase::None) { EXPECT_EQ(s.phase, c.phase); }
        EXPECT_EQ(s.solar_eclipse, c.solar);
        EXPECT_EQ(s.lunar_eclipse, c.lunar);
        EXPECT_EQ(s.perihelion, c.perihelion);
        EXPECT_EQ(s.aphelion, c.aphelion);
    }
}

// The source keeps the last range; another range must not get its sky.
TEST(PageSources, SkyOfAnotherRangeIsComputedAnew) {
    const auto sky = sky_source(settings::Settings{});
    const calendar::DayNumber eclipse = date(2024, 4, 8).number;
    const std::vector<DaySky> first = sky(eclipse - 10, eclipse + 10);
    EXPECT_EQ(sky(eclipse - 10, eclipse + 10), first);
    const std::vector<DaySky> shifted = sky(eclipse - 9, eclipse + 10);
    ASSERT_EQ(shifted.size(), 20u);
    EXPECT_TRUE(shifted[9].solar_eclipse);
    EXPECT_EQ(sky(eclipse - 10, eclipse + 10), first);
    EXPECT_TRUE(first[10].solar_eclipse);
}

// The note highlight follows the notes of all four kinds on disk.
TEST(PageSources, NotesOfTheUsersDirectory) {
    sk::test::TempDir dir;
    notes::NoteStore store(dir.path(), "geheim");
    ASSERT_FALSE(store.write_daily(notes::date_key(date(2024, 3, 5)), "Zahnarzt"));
    ASSERT_FALSE(store.write_periodic({date(2024, 3, 10).number, 14}, "Müll"));
    ASSERT_FALSE(store.write_yearly(notes::day_key(date(1990, 3, 21)), "<1980>. Geburtstag"));
    // Every month, the last Friday.
    ASSERT_FALSE(store.write_weekday(notes::weekday_key(notes::kEveryMonth, 5, notes::kLastOrdinal), "Zahltag"));

    PageExtras extras;
    extras.has_notes = notes_source(store);
    PageRenderer renderer(test::test_font());
    const PageLayout l = renderer.layout(test::request(2024, 3, 1, 0), extras);
    std::vector<int> noted;
    for (const DayCell& d : l.days)
        if (d.has_notes) noted.push_back(d.day.mday);
    // 5th daily; 10th and 24th periodic; 21st yearly; 29th the last Friday.
    EXPECT_EQ(noted, (std::vector<int>{5, 10, 21, 24, 29}));
    EXPECT_EQ(l.layer(Layer::Note).size(), 5u + 1u);  // and the legend's sample
}

TEST(PageSources, MarkingsOfTheUsersLists) {
    marks::CalendarMarkings bars;
    bars.items = {{date(2024, 3, 1).number, date(2024, 3, 10).number, marks::rgb(239, 194, 161)},
                  {date(2024, 3, 5).number, date(2024, 3, 20).number, marks::rgb(0, 0, 255)}};
    const auto colour = marking_source(bars);
    EXPECT_EQ(colour(date(2024, 2, 29).number), 0u);
    EXPECT_EQ(Rgb::from_value(colour(date(2024, 3, 7).number)), (Rgb{239, 194, 161}));  // first bar wins
    EXPECT_EQ(Rgb::from_value(colour(date(2024, 3, 15).number)), (Rgb{0, 0, 255}));

    marks::ShiftMarkings shifts;
    shifts.items = {{date(2024, 3, 5).number, 2, marks::kind_a::kSick},
                    {date(2024, 3, 9).number, 4, marks::kind_a::kVacation}};
    const auto mark = shift_marking_source(shifts);
    ASSERT_TRUE(mark(date(2024, 3, 5).number));
    EXPECT_EQ(mark(date(2024, 3, 5).number)->column, 2);
    EXPECT_EQ(mark(date(2024, 3, 5).number)->code, marks::kind_a::kSick);
    EXPECT_FALSE(mark(date(2024, 3, 6).number));

    // On the page: the bars behind the days, the markings in the crews'
    // cells with the list's letters.
    PageExtras extras;
    extras.marking_colour = colour;
    extras.shift_marking = mark;
    PageRenderer renderer(test::test_font());
    const PageLayout l = renderer.layout(test::request(2024, 3, 1, 1), extras);
    int marked = 0;
    for (const DayCell& d : l.days) {
        EXPECT_EQ(d.marking_colour != 0, d.day.mday <= 20) << d.day.mday;
        for (const ShiftCell& s : d.shifts) marked += s.marked;
    }
    EXPECT_EQ(marked, 2);
    const auto has = [&](std::string_view text) {
        return std::any_of(l.texts.begin(), l.texts.end(), [&](const TextItem& t) { return t.text == text; });
    };
    EXPECT_TRUE(has("K"));
    EXPECT_TRUE(has("Krank"));  // in the legend
}

}  // namespace
}  // namespace sk::view
