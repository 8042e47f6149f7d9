#include <gtest/gtest.h>

#include <filesystem>

#include "marks/calendar_markings.hpp"
#include "printers.hpp"
#include "test_support.hpp"

namespace sk::marks {
namespace {

// The bars of tests/marks/golden/Kalendermarkierung.dat (Python's
// struct.pack("<iii")); the last one is reversed and black-on-nothing, as
// only a foreign file could hold it, and must survive unchanged.
const std::vector<CalendarMarking> kGolden = {
    {19723, 19730, 10601199}, {19725, 19800, 0}, {24000, 23990, -1}};

CalendarMarkings list_of(std::vector<CalendarMarking> items) { return {std::move(items), false}; }

TEST(CalendarMarkingsFile, GoldenBytesWrittenAndReadBack) {
    const std::string golden =
        test::read_bytes(test::source_path("marks/golden/Kalendermarkierung.dat"));
    ASSERT_EQ(golden.size(), 36u);
    CalendarMarkings markings = list_of(kGolden);
    markings.changed = true;
    EXPECT_EQ(serialize_calendar_markings(markings), golden);

    test::TempDir dir;
    ASSERT_TRUE(save_calendar_markings(dir.path(), markings));
    EXPECT_FALSE(markings.changed);
    EXPECT_EQ(test::read_bytes(dir / "Kalendermarkierung.dat"), golden);
    EXPECT_EQ(load_calendar_markings(dir.path()).items, kGolden);
    for (const std::size_t extra : {1u, 11u}) {
        test::write_bytes(dir / "Kalendermarkierung.dat", golden + std::string(extra, '\x7f'));
        EXPECT_EQ(load_calendar_markings(dir.path()).items, kGolden) << extra;
    }
    EXPECT_TRUE(load_calendar_markings(dir / "missing").items.empty());
}

TEST(CalendarMarkingsFile, DeletingTheLastBarLeavesNoFile) {
    test::TempDir dir;
    CalendarMarkings markings;
    save_marking(markings, 100, 110, 255);
    ASSERT_TRUE(save_calendar_markings(dir.path(), markings));
    ASSERT_EQ(std::filesystem::file_size(dir / "Kalendermarkierung.dat"), 12u);
    EXPECT_TRUE(delete_marking_at(markings, 105));
    EXPECT_TRUE(markings.changed);
    ASSERT_TRUE(save_calendar_markings(dir.path(), markings));
    EXPECT_FALSE(std::filesystem::exists(dir / "Kalendermarkierung.dat"));
}

TEST(CalendarMarkingRules, ProposalForADay) {
    const CalendarMarkings m = list_of({{100, 110, 255}});
    const CalendarMarking fresh = propose_marking(m, 200);
    EXPECT_EQ(fresh.start, 200);
    EXPECT_EQ(fresh.end, 207);  // eight days
    EXPECT_EQ(fresh.colour & 0xFF, 239);
    EXPECT_EQ((fresh.colour >> 8) & 0xFF, 194);
    EXPECT_EQ(fresh.colour >> 16, 161);
    EXPECT_EQ(propose_marking(m, 110), (CalendarMarking{100, 110, 255}));
}

TEST(CalendarMarkingRules, ColourOfADay) {
    const CalendarMarkings m = list_of({{100, 120, 1}, {110, 130, 2}, {140, 140, 0}});
    const std::pair<DayNumber, std::int32_t> cases[] = {
        {99, 0}, {100, 1}, {115, 1},  // overlap: the bar with the lower start
        {121, 2}, {130, 2}, {131, 0},
        {140, 0},  // a black bar reads like no bar
    };
    for (const auto& [day, colour] : cases) EXPECT_EQ(marking_colour_of_day(m, day), colour) << day;
}

TEST(CalendarMarkingRules, SaveOverwritesTheBarAtAnEnd) {
    const std::vector<CalendarMarking> before = {{100, 120, 1}, {200, 220, 2}};
    struct Case {
        const char* what;
        DayNumber start, end;
        std::vector<CalendarMarking> after;
    };
    const Case cases[] = {
        {"outside both: added", 130, 140, {{100, 120, 1}, {130, 140, 9}, {200, 220, 2}}},
        {"start inside: that bar", 110, 150, {{110, 150, 9}, {200, 220, 2}}},
        {"only end inside: that bar", 90, 100, {{90, 100, 9}, {200, 220, 2}}},
        {"ends in different bars: the start's, after the swap", 210, 115, {{115, 210, 9}, {200, 220, 2}}},
        {"ends in different bars: the start's", 115, 210, {{115, 210, 9}, {200, 220, 2}}},
        {"reversed dates are swapped", 150, 130, {{100, 120, 1}, {130, 150, 9}, {200, 220, 2}}},
        {"enclosing without an end inside: added beside", 90, 230,
         {{90, 230, 9}, {100, 120, 1}, {200, 220, 2}}},
        {"moved behind the other: list sorted again", 120, 300, {{120, 300, 9}, {200, 220, 2}}},
    };
    for (const Case& c : cases) {
        CalendarMarkings m = list_of(before);
        save_marking(m, c.start, c.end, 9);
        EXPECT_EQ(m.items, c.after) << c.what;
        EXPECT_TRUE(m.changed) << c.what;
    }
    EXPECT_EQ(ordered(5, 3, 7), (CalendarMarking{3, 5, 7}));
    EXPECT_EQ(bar_overwritten_by(list_of(before), 90, 95), std::nullopt);
    EXPECT_EQ(bar_overwritten_by(list_of(before), 90, 205), 1u);
}

TEST(CalendarMarkingRules, Deleting) {
    CalendarMarkings m = list_of({{100, 300, 1}, {150, 160, 2}, {200, 210, 3}, {400, 410, 4}});
    EXPECT_FALSE(delete_marking_at(m, 350));
    EXPECT_FALSE(m.changed);
    EXPECT_TRUE(delete_marking_at(m, 155));  // the first covering bar goes
    EXPECT_EQ(m.items, (std::vector<CalendarMarking>{{150, 160, 2}, {200, 210, 3}, {400, 410, 4}}));

    m.changed = false;
    EXPECT_EQ(delete_markings_up_to(m, 149), 0u);
    EXPECT_FALSE(m.changed);
    // Up to a day: by start only, so a bar reaching beyond the day goes too.
    EXPECT_EQ(delete_markings_up_to(m, 200), 2u);
    EXPECT_TRUE(m.changed);
    EXPECT_EQ(m.items, (std::vector<CalendarMarking>{{400, 410, 4}}));
}

}  // namespace
}  // namespace sk::marks
