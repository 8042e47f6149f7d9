#include <gtest/gtest.h>

#include <filesystem>

#include "marks/calendar_markings.hpp"
#include "printers.hpp"
#include "test_support.hpp"

namespace sk::marks {
namespace {

// The bars of tests/marks/golden/Kalendermarkierung.dat (Python's
// struct.pack("<iii")); the last one, reversed, only a foreign file holds.
const std::vector<CalendarMarking> kGolden = {
    {19723, 19730, 10601199}, {19725, 19800, 0}, {24000, 23990, -1}};

CalendarMarkings list_of(std::vector<CalendarMarking> items) { return {std::move(items), false}; }

TEST(CalendarMarkingsFile, GoldenBytesWrittenAndReadBack) {
    const std::string golden = test::read_bytes(test::source_path("marks/golden/Kalendermarkierung.dat"));
    ASSERT_EQ(golden.size(), 36u);
    test::TempDir dir;
    CalendarMarkings markings = list_of(kGolden);
    ASSERT_TRUE(save_calendar_markings(dir.path(), markings));
    EXPECT_EQ(test::read_bytes(dir / "Kalendermarkierung.dat"), golden);
    test::write_bytes(dir / "Kalendermarkierung.dat", golden + std::string(11, '\x7f'));
    EXPECT_EQ(load_calendar_markings(dir.path()).items, kGolden);

    // Deleting the last bar and saving leaves no file.
    markings = list_of({{100, 110, 255}});
    EXPECT_TRUE(delete_marking_at(markings, 105));
    EXPECT_TRUE(markings.changed);
    ASSERT_TRUE(save_calendar_markings(dir.path(), markings));
    EXPECT_FALSE(std::filesystem::exists(dir / "Kalendermarkierung.dat"));
}

TEST(CalendarMarkingRules, ProposalAndColourOfADay) {
    const CalendarMarking fresh = propose_marking(list_of({{100, 110, 255}}), 200);
    EXPECT_EQ(fresh.start, 200);
    EXPECT_EQ(fresh.end, 207);  // eight days
    EXPECT_EQ(fresh.colour, 239 + 194 * 256 + 161 * 65536);
    EXPECT_EQ(propose_marking(list_of({{100, 110, 255}}), 110), (CalendarMarking{100, 110, 255}));

    const CalendarMarkings m = list_of({{100, 120, 1}, {110, 130, 2}, {140, 140, 0}});
    const std::pair<DayNumber, std::int32_t> cases[] = {
        {99, 0}, {100, 1}, {115, 1},  // overlap: the bar with the lower start
        {121, 2}, {131, 0}, {140, 0},  // a black bar reads like no bar
    };
    for (const auto& [day, colour] : cases) EXPECT_EQ(marking_colour_of_day(m, day), colour) << day;
}

TEST(CalendarMarkingRules, SaveOverwritesTheBarAtAnEnd) {
    struct Case {
        const char* what;
        DayNumber start, end;
        std::vector<CalendarMarking> after;
    };
    const Case cases[] = {
        {"outside both: added", 130, 140, {{100, 120, 1}, {130, 140, 9}, {200, 220, 2}}},
        {"start inside: that bar", 110, 150, {{110, 150, 9}, {200, 220, 2}}},
        {"only the end inside: that bar", 90, 100, {{90, 100, 9}, {200, 220, 2}}},
        {"reversed: swapped before the test", 210, 115, {{115, 210, 9}, {200, 220, 2}}},
        {"enclosing: added beside", 90, 230, {{90, 230, 9}, {100, 120, 1}, {200, 220, 2}}},
        {"moved: sorted again", 120, 300, {{120, 300, 9}, {200, 220, 2}}},
    };
    for (const Case& c : cases) {
        CalendarMarkings m = list_of({{100, 120, 1}, {200, 220, 2}});
        save_marking(m, c.start, c.end, 9);
        EXPECT_EQ(m.items, c.after) << c.what;
        EXPECT_TRUE(m.changed) << c.what;
    }
}

TEST(CalendarMarkingRules, Deleting) {
    CalendarMarkings m = list_of({{100, 300, 1}, {150, 160, 2}, {200, 210, 3}, {400, 410, 4}});
    EXPECT_FALSE(delete_marking_at(m, 350));
    EXPECT_FALSE(m.changed);
    EXPECT_TRUE(delete_marking_at(m, 155));  // the first covering bar
    EXPECT_EQ(m.items.front(), (CalendarMarking{150, 160, 2}));
    // Up to a day goes by the start: a bar reaching beyond the day goes too.
    EXPECT_EQ(delete_markings_up_to(m, 200), 2u);
    EXPECT_EQ(m.items, (std::vector<CalendarMarking>{{400, 410, 4}}));
}

}  // namespace
}  // namespace sk::marks
