#include <gtest/gtest.h>

#include <filesystem>

#include "calendar/shift_model.hpp"
#include "marks/shift_markings.hpp"
#include "printers.hpp"
#include "test_support.hpp"

namespace sk::marks {
namespace {

// The list of tests/marks/golden/Schichtmarkierung.dat (Python's
// struct.pack("<ibb")); the last column and code are values no dialog makes.
const std::vector<ShiftMarking> kGolden = {
    {19723, 1, 0}, {19754, 2, 1}, {20089, 4, 3}, {24683, -3, 127}};

ShiftMarkings list_of(std::vector<ShiftMarking> items) { return {std::move(items), false}; }

TEST(ShiftMarkingsFile, GoldenBytesWrittenAndReadBack) {
    const std::string golden = test::read_bytes(test::source_path("marks/golden/Schichtmarkierung.dat"));
    ASSERT_EQ(golden.size(), 24u);
    test::TempDir dir;
    ShiftMarkings markings = list_of(kGolden);
    markings.changed = true;
    ASSERT_TRUE(save_shift_markings(dir.path(), markings));
    EXPECT_FALSE(markings.changed);
    EXPECT_EQ(test::read_bytes(dir / "Schichtmarkierung.dat"), golden);
    // A truncated last record is not half-read.
    test::write_bytes(dir / "Schichtmarkierung.dat", golden + "\x01\x02\x03\x04\x05");
    EXPECT_EQ(load_shift_markings(dir.path()).items, kGolden);
}

TEST(ShiftMarkingsFile, SaveRules) {
    struct Case {
        const char* what;
        std::vector<ShiftMarking> list, written;
    };
    const Case cases[] = {
        {"day 0 is never written", {{0, 1, 2}, {5, 1, 2}}, {{5, 1, 2}}},
        {"first of a run of equal days", {{5, 1, 0}, {5, 2, 1}, {6, 1, 4}}, {{5, 1, 0}, {6, 1, 4}}},
        {"negative days stay", {{-3, 1, 1}, {0, 1, 1}, {7, 1, 1}}, {{-3, 1, 1}, {7, 1, 1}}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(parse_shift_markings(serialize_shift_markings(list_of(c.list))).items, c.written) << c.what;

    // Nothing to write, or the last marking removed: no file is left.
    test::TempDir dir;
    const auto file = dir / "Schichtmarkierung.dat";
    ShiftMarkings day_zero = list_of({{0, 1, 1}});
    test::write_bytes(file, "old");
    ASSERT_TRUE(save_shift_markings(dir.path(), day_zero));
    EXPECT_FALSE(std::filesystem::exists(file));
    ShiftMarkings markings;
    apply_marking(markings, 19723, 1, kind_a::kFree, 0);
    ASSERT_TRUE(save_shift_markings(dir.path(), markings));
    EXPECT_EQ(std::filesystem::file_size(file), 6u);
    apply_marking(markings, 19723, 1, kind_a::kRemove, 0);
    ASSERT_TRUE(save_shift_markings(dir.path(), markings));
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST(ShiftMarkingsFile, ForeignFilesAreSortedAndCapped) {
    std::string bytes;
    for (const ShiftMarking& m : std::vector<ShiftMarking>{{30, 1, 1}, {10, 1, 2}, {30, 2, 3}})
        bytes += serialize_shift_markings(list_of({m}));
    const ShiftMarkings m = parse_shift_markings(bytes);
    EXPECT_EQ(m.items, (std::vector<ShiftMarking>{{10, 1, 2}, {30, 1, 1}, {30, 2, 3}}));
    ASSERT_NE(shift_marking_of_day(m, 30), nullptr);
    EXPECT_EQ(shift_marking_of_day(m, 30)->code, 1);  // the first of the day
    for (const DayNumber absent : {5, 20, 31}) EXPECT_EQ(shift_marking_of_day(m, absent), nullptr);

    std::string big;
    for (DayNumber d = 1; d <= static_cast<DayNumber>(kMaxShiftMarkings) + 10; ++d)
        big += serialize_shift_markings(list_of({{d, 1, 0}}));
    EXPECT_EQ(parse_shift_markings(big).items.size(), kMaxShiftMarkings);
}

TEST(ShiftMarkingRules, WhichDaysMayBeMarked) {
    const Day sunday = Day::from_date(2024, 5, 16);
    const Day monday = Day::from_date(2024, 5, 17);
    struct Case {
        int model;
        Day day;
        int column;
        bool allowed;
    };
    const Case cases[] = {
        {0, monday, 3, true},  {0, sunday, 2, true},  {0, sunday, 3, false}, {1, sunday, 3, false},
        {3, sunday, 3, false}, {4, sunday, 3, false}, {5, sunday, 3, false}, {2, sunday, 3, true},
        {0, monday, 4, false}, {2, monday, 4, false}, {0, monday, 0, false}, {6, monday, 5, false},
        {0, Day::from_number(calendar::kLastDay + 1), 1, false}, {0, Day::from_number(-1), 1, false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(may_mark_day(c.model, c.day, c.column), c.allowed)
            << "model " << c.model << " " << calendar::format_iso_date(c.day) << " column " << c.column;
    // In the four-crew models every page column can be marked on a Sunday,
    // the one working nights included.
    for (const int model : {6, 7})
        for (int column = 1; column <= 4; ++column) {
            EXPECT_EQ(column_shift(model, sunday.number, column),
                      calendar::crew_shifts(model, sunday.number).code[column - 1]);
            EXPECT_TRUE(may_mark_day(model, sunday, column)) << model << " " << column;
        }
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

TEST(ShiftMarkingRules, ApplyAndDelete) {
    struct Step {
        const char* what;
        DayNumber day;
        int column, code, model;
        bool changes;
        std::vector<ShiftMarking> after;
    };
    const Step steps[] = {
        {"remove on an unmarked day", 50, 1, kind_a::kRemove, 0, false, {}},
        {"add", 50, 1, kind_a::kFree, 0, true, {{50, 1, 1}}},
        {"add before", 40, 2, kind_a::kSick, 0, true, {{40, 2, 4}, {50, 1, 1}}},
        {"same again", 40, 2, kind_a::kSick, 0, false, {{40, 2, 4}, {50, 1, 1}}},
        {"overwrite code and column", 50, 2, kind_a::kVacation, 0, true, {{40, 2, 4}, {50, 2, 2}}},
        {"kind B: 6 is Krank", 40, 1, kind_b::kSick, 6, true, {{40, 1, 6}, {50, 2, 2}}},
        {"kind B removal", 40, 1, kind_b::kRemove, 7, true, {{50, 2, 2}}},
    };
    ShiftMarkings m;
    for (const Step& s : steps) {
        m.changed = false;
        EXPECT_EQ(apply_marking(m, s.day, s.column, s.code, s.model), s.changes) << s.what;
        EXPECT_EQ(m.changed, s.changes) << s.what;
        EXPECT_EQ(m.items, s.after) << s.what;
    }

    // Deleting up to a day includes that day and saves at once.
    test::TempDir dir;
    m = list_of({{10, 1, 0}, {20, 1, 1}, {20, 2, 1}, {30, 1, 2}});
    ASSERT_TRUE(delete_shift_markings_up_to(dir.path(), m, 20));
    EXPECT_EQ(m.items, (std::vector<ShiftMarking>{{30, 1, 2}}));
    EXPECT_EQ(load_shift_markings(dir.path()).items, m.items);
}

}  // namespace
}  // namespace sk::marks
