#include <gtest/gtest.h>

#include <filesystem>
#include <ostream>
#include <tuple>

#include "calendar/shift_model.hpp"
#include "marks/account_files.hpp"
#include "marks/calendar_markings.hpp"
#include "marks/shift_markings.hpp"
#include "test_support.hpp"

namespace sk::marks {

// Readable failure output for the marking records.
void PrintTo(const ShiftMarking& m, std::ostream* os) {
    *os << "{day " << m.day << " column " << int(m.column) << " code " << int(m.code) << '}';
}
void PrintTo(const CalendarMarking& m, std::ostream* os) {
    *os << "{days " << m.start << ".." << m.end << " colour " << m.colour.value() << " top "
        << int(m.colour_top_byte) << '}';
}

namespace {

ShiftMarkings list_of(std::vector<ShiftMarking> items) { return {std::move(items), false}; }
CalendarMarkings bars_of(std::vector<CalendarMarking> items) { return {std::move(items), false}; }

// The records of tests/marks/golden/*.dat, made with Python's struct.pack("<ibb"),
// ("<iii"), ("<ifbbb") and ("<ii"). The last shift marking's column and code and
// the last, reversed bar only a foreign file holds.
const std::vector<ShiftMarking> kShifts = {{19723, 1, 0}, {19754, 2, 1}, {20089, 4, 3}, {24683, -3, 127}};
const std::vector<CalendarMarking> kBars = {
    {19723, 19730, {239, 194, 161}}, {19725, 19800, {}}, {24000, 23990, {255, 255, 255}, 0xFF}};
const AccountState kAccounts = {{19723, -7.30f, hours_mode::kHoursMinutes, 4, true}, {19723, -12}};

TEST(MarkingAndAccountFiles, GoldenBytesWrittenAndReadBack) {
    test::TempDir dir;
    ShiftMarkings shifts{kShifts, true};
    CalendarMarkings bars{kBars, true};
    ASSERT_TRUE(save_shift_markings(dir.path(), shifts));
    ASSERT_TRUE(save_calendar_markings(dir.path(), bars));
    ASSERT_TRUE(save_hours_file(dir.path(), kAccounts.hours));
    ASSERT_TRUE(save_vacation_file(dir.path(), kAccounts.vacation));
    EXPECT_FALSE(shifts.changed || bars.changed);
    for (const std::string name :
         {"Schichtmarkierung.dat", "Kalendermarkierung.dat", "Minusstunden.dat", "Urlaubstage.dat"}) {
        const std::string golden = test::read_bytes(test::source_path("marks/golden/" + name));
        EXPECT_EQ(test::read_bytes(dir / name), golden) << name;
        // A truncated last record is not half-read.
        test::write_bytes(dir / name, golden + "\x01\x02\x03\x04\x05");
    }
    EXPECT_EQ(load_shift_markings(dir.path()).items, kShifts);
    EXPECT_EQ(load_calendar_markings(dir.path()).items, kBars);
    EXPECT_EQ(load_accounts(dir.path()), kAccounts);
}

TEST(ShiftMarkingsFile, SaveRules) {
    const std::tuple<const char*, std::vector<ShiftMarking>, std::vector<ShiftMarking>> cases[] = {
        {"day 0 is never written", {{0, 1, 2}, {5, 1, 2}}, {{5, 1, 2}}},
        {"first of a run of equal days", {{5, 1, 0}, {5, 2, 1}, {6, 1, 4}}, {{5, 1, 0}, {6, 1, 4}}},
        {"negative days stay", {{-3, 1, 1}, {0, 1, 1}, {7, 1, 1}}, {{-3, 1, 1}, {7, 1, 1}}},
    };
    for (const auto& [what, list, written] : cases)
        EXPECT_EQ(parse_shift_markings(serialize_shift_markings(list_of(list))).items, written) << what;

    // The last marking removed: no file is left.
    test::TempDir dir;
    ShiftMarkings markings;
    apply_marking(markings, 19723, 1, kind_a::kFree, 0);
    ASSERT_TRUE(save_shift_markings(dir.path(), markings));
    EXPECT_EQ(std::filesystem::file_size(dir / "Schichtmarkierung.dat"), 6u);
    apply_marking(markings, 19723, 1, kind_a::kRemove, 0);
    ASSERT_TRUE(save_shift_markings(dir.path(), markings));
    EXPECT_FALSE(std::filesystem::exists(dir / "Schichtmarkierung.dat"));
}

TEST(ShiftMarkingsFile, ForeignFilesAreSortedAndCapped) {
    // Written unsorted, as only a foreign file is; the first of a day counts.
    const ShiftMarkings m =
        parse_shift_markings(serialize_shift_markings(list_of({{30, 1, 1}, {10, 1, 2}, {30, 2, 3}})));
    EXPECT_EQ(m.items, (std::vector<ShiftMarking>{{10, 1, 2}, {30, 1, 1}, {30, 2, 3}}));
    EXPECT_EQ(shift_marking_of_day(m, 30), &m.items[1]);
    for (const DayNumber absent : {5, 20, 31}) EXPECT_EQ(shift_marking_of_day(m, absent), nullptr);

    ShiftMarkings many;
    for (DayNumber d = 1; d <= static_cast<DayNumber>(kMaxShiftMarkings) + 1; ++d)
        many.items.push_back({d, 1, 0});
    EXPECT_EQ(parse_shift_markings(serialize_shift_markings(many)).items.size(), kMaxShiftMarkings);
}

TEST(CalendarMarkingRules, ProposalAndColourOfADay) {
    EXPECT_EQ(propose_marking(bars_of({{100, 110, {255}}}), 200),
              (CalendarMarking{200, 207, {239, 194, 161}}));
    EXPECT_EQ(propose_marking(bars_of({{100, 110, {255}}}), 110),
              (CalendarMarking{100, 110, {255}}));

    const CalendarMarkings m = bars_of({{100, 120, {1}}, {110, 130, {2}}, {140, 140, {0}}});
    const std::pair<DayNumber, std::optional<Rgb>> cases[] = {
        {99, std::nullopt},  {100, Rgb{1}},
        {115, Rgb{1}},  // overlap: the lower start wins
        {121, Rgb{2}},       {131, std::nullopt},
        {140, std::nullopt},  // a black bar reads like no bar
    };
    for (const auto& [day, colour] : cases) EXPECT_EQ(marking_colour_of_day(m, day), colour) << day;
}

TEST(CalendarMarkingRules, SaveOverwritesTheBarAtAnEnd) {
    const std::tuple<const char*, DayNumber, DayNumber, std::vector<CalendarMarking>> cases[] = {
        {"outside both: added", 130, 140, {{100, 120, {1}}, {130, 140, {9}}, {200, 220, {2}}}},
        {"start inside: that bar", 110, 150, {{110, 150, {9}}, {200, 220, {2}}}},
        {"only the end inside: that bar", 90, 100, {{90, 100, {9}}, {200, 220, {2}}}},
        {"reversed: swapped before the test", 210, 115, {{115, 210, {9}}, {200, 220, {2}}}},
        {"enclosing: added beside", 90, 230, {{90, 230, {9}}, {100, 120, {1}}, {200, 220, {2}}}},
    };
    for (const auto& [what, start, end, after] : cases) {
        CalendarMarkings m = bars_of({{100, 120, {1}}, {200, 220, {2}}});
        save_marking(m, start, end, Rgb{9});
        EXPECT_EQ(m.items, after) << what;
        EXPECT_TRUE(m.changed) << what;
    }
}

TEST(CalendarMarkingRules, Deleting) {
    CalendarMarkings m =
        bars_of({{100, 300, {1}}, {150, 160, {2}}, {200, 210, {3}}, {400, 410, {4}}});
    EXPECT_FALSE(delete_marking_at(m, 350));
    EXPECT_FALSE(m.changed);
    EXPECT_TRUE(delete_marking_at(m, 155));  // the first covering bar
    EXPECT_EQ(m.items.front(), (CalendarMarking{150, 160, {2}}));
    EXPECT_TRUE(m.changed);
    // Up to a day goes by the start: a bar reaching beyond the day goes too,
    // and the deletion must reach the file on exit.
    m.changed = false;
    EXPECT_EQ(delete_markings_up_to(m, 200), 2u);
    EXPECT_TRUE(m.changed);
    EXPECT_EQ(m.items, (std::vector<CalendarMarking>{{400, 410, {4}}}));
}

TEST(ShiftMarkingRules, DialogKeysPickCodesByPosition) {
    const std::u32string keys = U"XFULKA\x7Fu";
    const int codes[] = {0, 1, 2, 3, 4, 5, 6, 2};
    for (std::size_t i = 0; i < keys.size(); ++i) EXPECT_EQ(dialog_key_code(keys[i]), codes[i]);
    for (const char32_t key : {U'Q', U'1', U'Ü'}) EXPECT_FALSE(dialog_key_code(key));
    // Under model 7 U stores "Nacht" and Delete "Krank".
    ShiftMarkings m;
    apply_marking(m, 20000, 2, *dialog_key_code(U'U'), 7);
    apply_marking(m, 20001, 2, *dialog_key_code(kDeleteKey), 7);
    EXPECT_EQ(code_labels(MarkingKind::B)[static_cast<std::size_t>(m.items[0].code)], "Nacht");
    EXPECT_EQ(code_labels(MarkingKind::B)[static_cast<std::size_t>(m.items[1].code)], "Krank");
    EXPECT_EQ(dialog_heading(1, 4, Day::from_date(2024, 11, 24)), " Verfügung am 24.12.2024");
    EXPECT_EQ(dialog_heading(6, 1, Day::from_date(2024, 0, 2)), " Schicht A am 02.01.2024");
}

// Every refusal says why, and only where the rule refuses: the night shift
// only on Sundays; in the four-crew models, whose 28-day cycle never reaches
// the standby week of the pattern table, every day (as the help text says).
TEST(ShiftMarkingRules, RefusalsSayWhy) {
    const Day sunday = Day::from_date(2024, 5, 16);
    const Day monday = Day::from_date(2024, 5, 17);
    const Day after = Day::from_number(calendar::kLastDay + 1);
    using R = MarkRefusal;
    const std::tuple<int, Day, int, MarkRefusal, const char*> cases[] = {
        {0, monday, 1, R::None, ""},
        {0, sunday, 2, R::None, ""},
        {0, after, 1, R::OutsideCalendar,
         "Der 01.08.2037 liegt außerhalb des Kalenders (01.01.1970 bis 31.07.2037) und kann nicht "
         "markiert werden."},
        {0, Day::from_number(-1), 1, R::OutsideCalendar, "Der 31.12.1969"},
        {0, monday, 5, R::NoSuchColumn,
         "Die Schichtspalte 5 gibt es nicht; markiert werden die Spalten 1 bis 4."},
        {0, monday, 0, R::NoSuchColumn, "Die Schichtspalte 0"},
        {6, monday, 5, R::NoSuchColumn, ""},
        {1, monday, 4, R::Standby,
         "Die Verfügung kann nicht markiert werden, nur die Früh-, Spät- und Nachtschicht (Tasten "
         "1, 2 und 3)."},
        {2, monday, 4, R::Standby, "Die Verfügung"},
        {5, sunday, 3, R::SundayNight,
         "Der 16.06.2024 ist ein Sonntag: an einem Sonntag kann die Nachtschicht nicht markiert "
         "werden."},
        {2, sunday, 3, R::None, ""},
        {6, sunday, 3, R::None, ""},
    };
    for (const auto& [model, day, column, refusal, message] : cases) {
        EXPECT_EQ(mark_refusal(model, day, column), refusal) << model << " " << column;
        EXPECT_EQ(may_mark_day(model, day, column), refusal == R::None) << model << " " << column;
        const std::string text = refusal_message(refusal, model, day, column);
        EXPECT_NE(text.find(message), std::string::npos) << text;
        EXPECT_EQ(text.empty(), refusal == R::None) << text;
    }
    // A standby week of a four-crew column (only a changed pattern could give one).
    EXPECT_EQ(refusal_message(R::Standby, 7, monday, 2),
              "Schicht B hat am 17.06.2024 Verfügungswoche und kann an diesem Tag nicht markiert "
              "werden.");

    for (DayNumber d = calendar::kFirstDay; d <= calendar::kLastDay; ++d) {
        const Day day = Day::from_number(d);
        for (int column = 1; column <= 4; ++column) {
            const bool sunday_night = mark_refusal(1, day, column) == R::SundayNight;
            ASSERT_EQ(sunday_night, day.is_sunday() && column == 3) << d;
            ASSERT_EQ(mark_refusal(6, day, column), R::None) << d;
            ASSERT_EQ(mark_refusal(7, day, column), R::None) << d;
        }
    }
}

TEST(ShiftMarkingRules, ColumnChooserAndPreselection) {
    EXPECT_EQ(
        std::vector<std::string_view>(column_labels(MarkingKind::A).begin(),
                                      column_labels(MarkingKind::A).end()),
        (std::vector<std::string_view>{"Frühschicht", "Spätschicht", "Nachtschicht", "Verfügung"}));
    EXPECT_EQ(column_labels(MarkingKind::B)[3], "Schicht D");
    // The chooser's column 4 is the key 4's: the standby week in the headings too.
    EXPECT_EQ(heading_label(0, 4).substr(1), column_labels(MarkingKind::A)[3]);
    EXPECT_EQ(heading_label(6, 2).substr(1), column_labels(MarkingKind::B)[1]);

    const std::optional<int> none;  // an unmarked day; a foreign file's codes
    const std::tuple<MarkingKind, std::optional<int>, std::optional<int>> cases[] = {
        {MarkingKind::A, none, none}, {MarkingKind::A, 0, 0}, {MarkingKind::A, 5, 5},
        {MarkingKind::A, 6, none},    {MarkingKind::A, -1, none}, {MarkingKind::B, 7, 7},
        {MarkingKind::B, 8, none}};
    for (const auto& [kind, code, preselected] : cases) {
        const ShiftMarking marking{100, 1, static_cast<std::int8_t>(code.value_or(0))};
        EXPECT_EQ(preselected_code(kind, code ? &marking : nullptr), preselected)
            << code.value_or(-9);
    }
}

TEST(ShiftMarkingRules, ApplyAndDelete) {
    const std::tuple<const char*, DayNumber, int, int, int, bool, std::vector<ShiftMarking>> steps[] = {
        {"remove on an unmarked day", 50, 1, kind_a::kRemove, 0, false, {}},
        {"add", 50, 1, kind_a::kFree, 0, true, {{50, 1, 1}}},
        {"add before", 40, 2, kind_a::kSick, 0, true, {{40, 2, 4}, {50, 1, 1}}},
        {"same again", 40, 2, kind_a::kSick, 0, false, {{40, 2, 4}, {50, 1, 1}}},
        {"overwrite code and column", 50, 2, kind_a::kVacation, 0, true, {{40, 2, 4}, {50, 2, 2}}},
        {"kind B: 6 is Krank", 40, 1, kind_b::kSick, 6, true, {{40, 1, 6}, {50, 2, 2}}},
        {"kind B removal", 40, 1, kind_b::kRemove, 7, true, {{50, 2, 2}}},
    };
    ShiftMarkings m;
    for (const auto& [what, day, column, code, model, changes, after] : steps) {
        m.changed = false;
        EXPECT_EQ(apply_marking(m, day, column, code, model), changes) << what;
        EXPECT_EQ(m.changed, changes) << what;
        EXPECT_EQ(m.items, after) << what;
    }

    // Deleting up to a day includes that day and saves at once.
    test::TempDir dir;
    m = {{{10, 1, 0}, {20, 1, 1}, {30, 1, 2}}, false};
    ASSERT_TRUE(delete_shift_markings_up_to(dir.path(), m, 20));
    EXPECT_EQ(load_shift_markings(dir.path()).items, (std::vector<ShiftMarking>{{30, 1, 2}}));
}

}  // namespace
}  // namespace sk::marks
