// Deleting notes and markings up to a day: each box deletes its kind and
// nothing else, the dated kinds up to and including the day, and both
// markings files on disk say the same as the lists in memory.
#include "session/deletion.hpp"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <tuple>

#include "marks/calendar_markings.hpp"
#include "marks/shift_markings.hpp"
#include "notes/note_keys.hpp"
#include "test_support.hpp"

namespace sk::session {
namespace {

using calendar::Day;
using calendar::DayNumber;
using Days = std::set<DayNumber>;
using test::files_in;

const Day kDay = Day::from_date(2024, 2, 10);  // the day chosen in the dialog
const DayNumber kD = kDay.number;

std::string daily_name(DayNumber d) {
    return notes::daily_file_name(notes::date_key(Day::from_number(d)));
}

class DeletionTest : public ::testing::Test {
protected:
    void SetUp() override {
        s = Session{};
        s.user_dir = dir.path();
        s.notes = notes::NoteStore(dir.path(), "");
        for (const DayNumber d : {kD - 400, kD, kD + 1})
            ASSERT_FALSE(s.notes.write_daily(notes::date_key(Day::from_number(d)), "Tag"));
        ASSERT_FALSE(s.notes.write_periodic({kD + 30, 7}, "später"));
        ASSERT_FALSE(s.notes.write_yearly(1124, "Heiligabend"));
        ASSERT_FALSE(s.notes.write_weekday(11254, "letzter Freitag"));
        // One bar across the day (it starts before it), one after it.
        const auto colour = marks::kDefaultMarkingColour;
        s.calendar_markings.items = {{kD - 5, kD + 5, colour}, {kD + 1, kD + 3, colour}};
        s.shift_markings.items = {{kD - 1, 1, 2}, {kD, 2, 2}, {kD + 1, 1, 3}};
        ASSERT_TRUE(marks::save_calendar_markings(s.user_dir, s.calendar_markings));
        ASSERT_TRUE(marks::save_shift_markings(s.user_dir, s.shift_markings));
        s.notes.scan_all();
    }
    // The days of the shift markings and the first days of the bars on disk.
    Days on_disk(bool bars) const {
        Days days;
        if (bars)
            for (const auto& m : marks::load_calendar_markings(s.user_dir).items)
                days.insert(m.start);
        else
            for (const auto& m : marks::load_shift_markings(s.user_dir).items) days.insert(m.day);
        return days;
    }
    test::TempDir dir;
    Session s;
};

TEST_F(DeletionTest, EachBoxDeletesItsKind) {
    using C = DeletionChoice;
    const std::tuple<const char*, bool C::*, std::set<std::string>> cases[] = {
        {"Tagesnotizen", &C::daily_notes, {daily_name(kD - 400), daily_name(kD)}},
        {"Periodische Notizen", &C::periodic_notes, {std::to_string(kD + 30) + ".7.tnt"}},
        {"Jährliche Notizen", &C::yearly_notes, {"1124.jnt"}},
        {"Wochentag im Monat", &C::weekday_notes, {"11254.wmt"}},
        {"Schichtmarkierungen", &C::shift_markings, {}},
        {"Kalendermarkierungen", &C::calendar_markings, {}},
    };
    for (const auto& [what, box, gone] : cases) {
        SetUp();
        SCOPED_TRACE(what);
        std::set<std::string> expected = files_in(dir.path());
        DeletionChoice choice;
        choice.up_to = kD;
        choice.*box = true;
        EXPECT_TRUE(delete_up_to(s, choice).empty());
        for (const std::string& file : gone) EXPECT_EQ(expected.erase(file), 1u) << file;
        EXPECT_EQ(files_in(dir.path()), expected);
        // Markings on or before the day went, in memory and on disk.
        const bool shifts = box == &C::shift_markings, bars = box == &C::calendar_markings;
        EXPECT_EQ(on_disk(false), shifts ? Days{kD + 1} : (Days{kD - 1, kD, kD + 1}));
        EXPECT_EQ(s.shift_markings.items.size(), shifts ? 1u : 3u);
        EXPECT_EQ(on_disk(true), bars ? Days{kD + 1} : (Days{kD - 5, kD + 1}));
        EXPECT_FALSE(s.calendar_markings.changed);
        // The index follows the directory.
        EXPECT_EQ(s.notes.index().daily.size(), box == &C::daily_notes ? 1u : 3u);
    }
}

// The undated kinds go whole even when the day lies before all of them.
TEST_F(DeletionTest, UndatedKindsGoWhateverTheDay) {
    EXPECT_TRUE(delete_up_to(s, {0, true, true, true, true, true, true}).empty());
    EXPECT_EQ(files_in(dir.path()),
              (std::set<std::string>{daily_name(kD - 400), "20240210.txt", "20240211.txt",
                                     std::string(marks::kShiftMarkingsFile),
                                     std::string(marks::kCalendarMarkingsFile)}));
    const notes::NoteIndex& index = s.notes.index();
    EXPECT_TRUE(index.periodic.empty() && index.yearly.empty() && index.weekday.empty());
}

}  // namespace
}  // namespace sk::session
