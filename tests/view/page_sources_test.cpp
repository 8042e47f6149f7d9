// The page's extras from the program's stores: the sky of the astronomy
// library and the user's marking lists (the notes reach the page in the
// render command's tests).
#include "view/page_sources.hpp"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "settings/astro_place.hpp"
#include "view_fixture.hpp"

namespace sk::view {
namespace {

using test::date;

// The source keeps the last range; another range must not get its sky.
TEST(PageSources, SkyOfAnotherRangeIsComputedAnew) {
    const auto sky = sky_source(settings::astro_place(settings::Settings{}));
    const calendar::DayNumber eclipse = date(2024, 4, 8).number;
    const std::vector<DaySymbols> first = sky(eclipse - 10, eclipse + 10);
    EXPECT_EQ(sky(eclipse - 10, eclipse + 10), first);
    const std::vector<DaySymbols> shifted = sky(eclipse - 9, eclipse + 10);
    ASSERT_EQ(shifted.size(), 20u);
    EXPECT_TRUE(shifted[9].solar_eclipse);
    EXPECT_EQ(sky(eclipse - 10, eclipse + 10), first);
    EXPECT_TRUE(first[10].solar_eclipse);
}

TEST(PageSources, MarkingsOfTheUsersLists) {
    marks::CalendarMarkings bars;
    bars.items = {{date(2024, 3, 1).number, date(2024, 3, 10).number, Rgb{239, 194, 161}}};
    const auto colour = marking_source(bars);
    EXPECT_EQ(colour(date(2024, 2, 29).number), std::nullopt);
    EXPECT_EQ(colour(date(2024, 3, 7).number), (Rgb{239, 194, 161}));

    marks::ShiftMarkings shifts;
    shifts.items = {{date(2024, 3, 5).number, 2, marks::kind_a::kSick}};
    const auto mark = shift_marking_source(shifts);
    ASSERT_TRUE(mark(date(2024, 3, 5).number));
    EXPECT_EQ(mark(date(2024, 3, 5).number)->column, 2);
    EXPECT_EQ(mark(date(2024, 3, 5).number)->code, marks::kind_a::kSick);
    EXPECT_FALSE(mark(date(2024, 3, 6).number));
}

}  // namespace
}  // namespace sk::view
