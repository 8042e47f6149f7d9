// Deleting notes and markings up to a day: each box deletes its kind and
// nothing else, the dated kinds up to and including the day, and both
// markings files on disk say the same as the lists in memory.
#include "session/deletion.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

#include "marks/calendar_markings.hpp"
#include "marks/shift_markings.hpp"
#include "notes/note_keys.hpp"
#include "test_support.hpp"

namespace sk::session {
namespace {

using calendar::Day;
using calendar::DayNumber;

std::set<std::string> files_in(const std::filesystem::path& dir) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(dir))
        names.insert(entry.path().filename());
    return names;
}

// Sunday 10 March 2024 is the day chosen in the dialog.
const Day kDay = Day::from_date(2024, 2, 10);

class DeletionTest : public ::testing::Test {
  protected:
    void SetUp() override {
        s = Session{};
        s.user_dir = dir.path();
        s.notes = notes::NoteStore(dir.path(), "");
        for (const DayNumber d : {kDay.number - 400, kDay.number, kDay.number + 1})
            ASSERT_FALSE(s.notes.write_daily(notes::date_key(Day::from_number(d)), "Tag"));
        ASSERT_FALSE(s.notes.write_periodic({kDay.number + 30, 7}, "später"));
        ASSERT_FALSE(s.notes.write_yearly(1124, "Heiligabend"));
        ASSERT_FALSE(s.notes.write_weekday(11254, "letzter Freitag"));
        // One bar across the day (it starts before it), one after it.
        s.calendar_markings.items = {
            {kDay.number - 5, kDay.number + 5, marks::kDefaultMarkingColour},
            {kDay.number + 1, kDay.number + 3, marks::kDefaultMarkingColour}};
        s.shift_markings.items = {
            {kDay.number - 1, 1, 2}, {kDay.number, 2, 2}, {kDay.number + 1, 1, 3}};
        ASSERT_TRUE(marks::save_calendar_markings(s.user_dir, s.calendar_markings));
        ASSERT_TRUE(marks::save_shift_markings(s.user_dir, s.shift_markings));
        s.notes.scan_all();
    }

    std::set<DayNumber> shift_days_on_disk() const {
        std::set<DayNumber> days;
        for (const auto& m : marks::load_shift_markings(s.user_dir).items)
            days.insert(m.day);
        return days;
    }
    std::set<DayNumber> bar_starts_on_disk() const {
        std::set<DayNumber> starts;
        for (const auto& m : marks::load_calendar_markings(s.user_dir).items)
            starts.insert(m.start);
        return starts;
    }

    static std::string daily_name(DayNumber d) {
        return notes::daily_file_name(notes::date_key(Day::from_number(d)));
    }

    test::TempDir dir;
    Session s;
};

TEST_F(DeletionTest, EachBoxDeletesItsKind) {
    const std::string later_daily = daily_name(kDay.number + 1);
    struct Case {
        const char* name;
        bool DeletionChoice::*box;
        std::set<std::string> gone;
    };
    const Case cases[] = {
        {"Tagesnotizen",
         &DeletionChoice::daily_notes,
         {daily_name(kDay.number - 400), daily_name(kDay.number)}},
        {"Periodische Notizen",
         &DeletionChoice::periodic_notes,
         {std::to_string(kDay.number + 30) + ".7.tnt"}},
        {"Jährliche Notizen", &DeletionChoice::yearly_notes, {"1124.jnt"}},
        {"Wochentag im Monat", &DeletionChoice::weekday_notes, {"11254.wmt"}},
        {"Schichtmarkierungen", &DeletionChoice::shift_markings, {}},
        {"Kalendermarkierungen", &DeletionChoice::calendar_markings, {}},
    };
    for (const Case& c : cases) {
        SetUp();
        const std::set<std::string> before = files_in(dir.path());
        DeletionChoice choice;
        choice.up_to = kDay.number;
        choice.*c.box = true;
        EXPECT_TRUE(delete_up_to(s, choice).empty()) << c.name;
        std::set<std::string> expected = before;
        for (const std::string& name : c.gone) {
            EXPECT_EQ(expected.erase(name), 1u) << c.name << ": " << name;
        }
        EXPECT_EQ(files_in(dir.path()), expected) << c.name;
        EXPECT_TRUE(before.count(later_daily)) << c.name;

        // Markings on or before the day went, in memory and on disk.
        using Days = std::set<DayNumber>;
        const bool shifts = c.box == &DeletionChoice::shift_markings;
        const Days all_shifts{kDay.number - 1, kDay.number, kDay.number + 1};
        EXPECT_EQ(shift_days_on_disk(), shifts ? Days{kDay.number + 1} : all_shifts) << c.name;
        EXPECT_EQ(s.shift_markings.items.size(), shifts ? 1u : 3u) << c.name;
        const bool bars = c.box == &DeletionChoice::calendar_markings;
        const Days all_bars{kDay.number - 5, kDay.number + 1};
        EXPECT_EQ(bar_starts_on_disk(), bars ? Days{kDay.number + 1} : all_bars) << c.name;
        EXPECT_FALSE(s.calendar_markings.changed) << c.name;
        // The index follows the directory.
        EXPECT_EQ(s.notes.index().daily.size(), c.box == &DeletionChoice::daily_notes ? 1u : 3u)
            << c.name;
    }
}

// The undated kinds go whole even when the day lies before all of them.
TEST_F(DeletionTest, UndatedKindsGoWhateverTheDay) {
    DeletionChoice all{0, true, true, true, true, true, true};
    EXPECT_TRUE(delete_up_to(s, all).empty());
    EXPECT_EQ(files_in(dir.path()),
              (std::set<std::string>{daily_name(kDay.number - 400), "20240210.txt", "20240211.txt",
                                     std::string(marks::kShiftMarkingsFile),
                                     std::string(marks::kCalendarMarkingsFile)}));
    EXPECT_TRUE(s.notes.index().periodic.empty());
    EXPECT_TRUE(s.notes.index().yearly.empty());
    EXPECT_TRUE(s.notes.index().weekday.empty());
}

}  // namespace
}  // namespace sk::session
