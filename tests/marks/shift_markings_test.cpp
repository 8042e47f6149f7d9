#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "calendar/shift_model.hpp"
#include "marks/shift_markings.hpp"
#include "printers.hpp"
#include "test_support.hpp"

namespace sk::marks {
namespace {


// The list held by tests/marks/golden/Schichtmarkierung.dat (written with
// Python's struct.pack("<ibb")); the last column and code are values no
// dialog makes, kept as they are.
const std::vector<ShiftMarking> kGolden = {
    {19723, 1, 0}, {19754, 2, 1}, {20089, 4, 3}, {24683, -3, 127}};

ShiftMarkings list_of(std::vector<ShiftMarking> items) { return {std::move(items), false}; }

TEST(ShiftMarkingsFile, GoldenBytesWrittenAndReadBack) {
    const std::string golden = test::read_bytes(test::source_path("marks/golden/Schichtmarkierung.dat"));
    ASSERT_EQ(golden.size(), 24u);
    ShiftMarkings markings = list_of(kGolden);
    markings.changed = true;
    EXPECT_EQ(serialize_shift_markings(markings), golden);

    test::TempDir dir;
    ASSERT_TRUE(save_shift_markings(dir.path(), markings));
    EXPECT_FALSE(markings.changed);
    EXPECT_EQ(test::read_bytes(dir / "Schichtmarkierung.dat"), golden);
    EXPECT_EQ(load_shift_markings(dir.path()).items, kGolden);
    // A truncated last record is not half-read.
    test::write_bytes(dir / "Schichtmarkierung.dat", golden + std::string("\x01\x02\x03\x04\x05", 5));
    EXPECT_EQ(load_shift_markings(dir.path()).items, kGolden);
}

TEST(ShiftMarkingsFile, SaveSkipsDayZeroAndRepeatedDays) {
    struct Case {
        const char* what;
        std::vector<ShiftMarking> list;
        std::vector<ShiftMarking> written;
    };
    const Case cases[] = {
        {"day 0 is never written", {{0, 1, 2}, {5, 1, 2}}, {{5, 1, 2}}},
        {"first of a run of equal days", {{5, 1, 0}, {5, 2, 1}, {5, 3, 2}, {6, 1, 4}},
         {{5, 1, 0}, {6, 1, 4}}},
        {"negative days are written", {{-3, 1, 1}, {0, 1, 1}, {7, 1, 1}}, {{-3, 1, 1}, {7, 1, 1}}},
    };
    for (const Case& c : cases) {
        const std::string bytes = serialize_shift_markings(list_of(c.list));
        EXPECT_EQ(parse_shift_markings(bytes).items, c.written) << c.what;
    }
}

TEST(ShiftMarkingsFile, NothingToWriteDeletesTheFile) {
    test::TempDir dir;
    const auto file = dir / "Schichtmarkierung.dat";
    for (const auto& list : {std::vector<ShiftMarking>{}, std::vector<ShiftMarking>{{0, 1, 1}}}) {
        test::write_bytes(file, "old");
        ShiftMarkings markings = list_of(list);
        ASSERT_TRUE(save_shift_markings(dir.path(), markings));
        EXPECT_FALSE(std::filesystem::exists(file)) << list.size();
    }
    // Removing the last marking through the dialog's rules and saving.
    ShiftMarkings markings;
    apply_marking(markings, 19723, 1, kind_a::kFree, 0);
    ASSERT_TRUE(save_shift_markings(dir.path(), markings));
    EXPECT_EQ(std::filesystem::file_size(file), 6u);
    apply_marking(markings, 19723, 1, kind_a::kRemove, 0);
    ASSERT_TRUE(save_shift_markings(dir.path(), markings));
    EXPECT_FALSE(std::filesystem::exists(file));
}

// A write cut short (a full disk, simulated by a file size limit in a child
// process) leaves the previous file whole, and the list still to be saved.
TEST(ShiftMarkingsFile, InterruptedSaveKeepsTheOldFile) {
    test::TempDir dir;
    ShiftMarkings old = list_of(kGolden);
    ASSERT_TRUE(save_shift_markings(dir.path(), old));
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit{16, 16};
        setrlimit(RLIMIT_FSIZE, &limit);
        ShiftMarkings bigger;
        for (DayNumber d = 1; d <= 100; ++d) apply_marking(bigger, d, 1, kind_a::kSick, 0);
        const bool saved = save_shift_markings(dir.path(), bigger);
        _exit(!saved && bigger.changed ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    EXPECT_EQ(load_shift_markings(dir.path()).items, kGolden);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()),
                            std::filesystem::directory_iterator()),
              1);
}

TEST(ShiftMarkingsFile, ForeignOrderIsSortedAndTheFirstOfADayCounts) {
    const ShiftMarkings m = parse_shift_markings(
        serialize_shift_markings(list_of({{30, 1, 1}})) +
        serialize_shift_markings(list_of({{10, 1, 2}})) +
        serialize_shift_markings(list_of({{30, 2, 3}})) +
        serialize_shift_markings(list_of({{20, 3, 4}})));
    const std::vector<ShiftMarking> sorted = {{10, 1, 2}, {20, 3, 4}, {30, 1, 1}, {30, 2, 3}};
    EXPECT_EQ(m.items, sorted);
    ASSERT_NE(shift_marking_of_day(m, 30), nullptr);
    EXPECT_EQ(shift_marking_of_day(m, 30)->code, 1);
    EXPECT_EQ(shift_marking_of_day(m, 25), nullptr);
    EXPECT_EQ(shift_marking_of_day(m, 5), nullptr);
    EXPECT_EQ(shift_marking_of_day(m, 31), nullptr);
}

TEST(ShiftMarkingsFile, EnormousFileIsReadOnlyUpToTheCap) {
    test::TempDir dir;
    std::string bytes;
    for (std::size_t i = 0; i < kMaxShiftMarkings + 1000; ++i)
        bytes += serialize_shift_markings(list_of({{static_cast<DayNumber>(i + 1), 1, 0}}));
    test::write_bytes(dir / "Schichtmarkierung.dat", bytes);
    const ShiftMarkings m = load_shift_markings(dir.path());
    ASSERT_EQ(m.items.size(), kMaxShiftMarkings);
    EXPECT_EQ(m.items.back().day, static_cast<DayNumber>(kMaxShiftMarkings));
}

TEST(ShiftMarkingRules, WhichDaysMayBeMarked) {
    const Day sunday = Day::from_date(2024, 5, 16);  // 16 June 2024
    const Day monday = Day::from_date(2024, 5, 17);
    ASSERT_TRUE(sunday.is_sunday());
    struct Case {
        int model;
        Day day;
        int column;
        bool allowed;
    };
    const Case cases[] = {
        {0, monday, 1, true},  {0, monday, 3, true},  {0, sunday, 2, true},
        {0, sunday, 3, false}, {1, sunday, 3, false}, {3, sunday, 3, false},
        {4, sunday, 3, false}, {5, sunday, 3, false}, {2, sunday, 3, true},
        {0, monday, 4, false},  // "Verfügung" stands for no shift
        {2, monday, 4, false},  {0, monday, 0, false}, {0, monday, 5, false},
        {6, monday, 0, false},  {6, monday, 5, false},
        {0, Day::from_number(calendar::kLastDay), 1, true},
        {0, Day::from_number(calendar::kLastDay + 1), 1, false},
        {0, Day::from_number(-1), 1, false},
        {8, monday, 1, false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(may_mark_day(c.model, c.day, c.column), c.allowed)
            << "model " << c.model << " " << calendar::format_iso_date(c.day) << " column " << c.column;

    // In the four-crew models a Sunday night can be marked: find the page
    // column that works nights on that Sunday.
    for (const int model : {6, 7}) {
        const auto shifts = calendar::crew_shifts(model, sunday.number);
        for (int column = 1; column <= 4; ++column) {
            EXPECT_EQ(column_shift(model, sunday.number, column), shifts.code[column - 1]);
            EXPECT_TRUE(may_mark_day(model, sunday, column)) << model << " " << column;
        }
    }
}

TEST(ShiftMarkingRules, DialogKeysPickCodesByPosition) {
    const std::pair<char32_t, int> keys[] = {{U'X', 0}, {U'F', 1}, {U'U', 2}, {U'L', 3},
                                             {U'K', 4}, {U'A', 5}, {kDeleteKey, 6}, {U'u', 2},
                                             {U'x', 0}};
    for (const auto& [key, code] : keys) EXPECT_EQ(dialog_key_code(key), code) << int(key);
    for (const char32_t key : {U'Q', U'1', U' ', U'\0', U'Ü'}) EXPECT_FALSE(dialog_key_code(key));

    // Under model 7, U stores "Nacht" and Delete stores "Krank".
    const auto labels = code_labels(MarkingKind::B);
    EXPECT_EQ(labels[static_cast<std::size_t>(*dialog_key_code(U'U'))], "Nacht");
    EXPECT_EQ(labels[static_cast<std::size_t>(*dialog_key_code(kDeleteKey))], "Krank");
    ShiftMarkings m;
    EXPECT_TRUE(apply_marking(m, 20000, 2, *dialog_key_code(U'U'), 7));
    EXPECT_TRUE(apply_marking(m, 20001, 2, *dialog_key_code(kDeleteKey), 7));
    const std::vector<ShiftMarking> stored = {{20000, 2, kind_b::kNight}, {20001, 2, kind_b::kSick}};
    EXPECT_EQ(m.items, stored);
}

TEST(ShiftMarkingRules, ApplyAddsOverwritesAndRemoves) {
    struct Step {
        const char* what;
        DayNumber day;
        int column;
        int code;
        int model;
        bool changes;
        std::vector<ShiftMarking> after;
    };
    const Step steps[] = {
        {"remove on an unmarked day", 50, 1, kind_a::kRemove, 0, false, {}},
        {"add", 50, 1, kind_a::kFree, 0, true, {{50, 1, 1}}},
        {"add before", 40, 2, kind_a::kSick, 0, true, {{40, 2, 4}, {50, 1, 1}}},
        {"add after", 60, 3, kind_a::kWorked, 0, true, {{40, 2, 4}, {50, 1, 1}, {60, 3, 0}}},
        {"same again", 60, 3, kind_a::kWorked, 0, false, {{40, 2, 4}, {50, 1, 1}, {60, 3, 0}}},
        {"overwrite code and column", 50, 2, kind_a::kVacation, 0, true,
         {{40, 2, 4}, {50, 2, 2}, {60, 3, 0}}},
        {"kind B: 6 is Krank, not removal", 40, 1, kind_b::kSick, 6, true,
         {{40, 1, 6}, {50, 2, 2}, {60, 3, 0}}},
        {"kind B removal", 40, 1, kind_b::kRemove, 7, true, {{50, 2, 2}, {60, 3, 0}}},
        {"kind A removal", 60, 1, kind_a::kRemove, 5, true, {{50, 2, 2}}},
    };
    ShiftMarkings m;
    for (const Step& s : steps) {
        m.changed = false;
        EXPECT_EQ(apply_marking(m, s.day, s.column, s.code, s.model), s.changes) << s.what;
        EXPECT_EQ(m.changed, s.changes) << s.what;
        EXPECT_EQ(m.items, s.after) << s.what;
    }
}

TEST(ShiftMarkingRules, DeleteUpToADayIncludesThatDayAndSaves) {
    test::TempDir dir;
    ShiftMarkings m = list_of({{10, 1, 0}, {20, 1, 1}, {20, 2, 1}, {30, 1, 2}});
    EXPECT_EQ(erase_shift_markings_up_to(m, 9), 0u);
    EXPECT_FALSE(m.changed);
    ASSERT_TRUE(delete_shift_markings_up_to(dir.path(), m, 20));
    const std::vector<ShiftMarking> left = {{30, 1, 2}};
    EXPECT_EQ(m.items, left);
    EXPECT_FALSE(m.changed);  // saved at once
    EXPECT_EQ(load_shift_markings(dir.path()).items, left);
    ASSERT_TRUE(delete_shift_markings_up_to(dir.path(), m, 30));
    EXPECT_FALSE(std::filesystem::exists(dir / "Schichtmarkierung.dat"));
}

TEST(ShiftMarkingRules, HeadingsAndLetters) {
    const Day day = Day::from_date(2024, 11, 24);
    EXPECT_EQ(dialog_heading(0, 1, day), " Frühschicht am 24.12.2024");
    EXPECT_EQ(dialog_heading(1, 3, day), " Nachtschicht am 24.12.2024");
    EXPECT_EQ(heading_label(2, 4), " Verfügung");
    EXPECT_EQ(heading_label(6, 1), " Schicht A");
    EXPECT_EQ(heading_label(7, 4), " Schicht D");
    EXPECT_EQ(heading_label(7, 5), "");
    EXPECT_EQ(heading_label(0, -1), "");

    EXPECT_EQ(code_labels(MarkingKind::A).size(), 7u);
    EXPECT_EQ(code_labels(MarkingKind::A).back(), "Schichtmarkierung löschen (Entf)");
    EXPECT_EQ(code_labels(MarkingKind::B).size(), 9u);
    std::string kind_a, kind_b;
    for (int code = 0; code < 6; ++code) kind_a += code_letter(MarkingKind::A, code);
    for (int code = 0; code < 8; ++code) kind_b += code_letter(MarkingKind::B, code);
    EXPECT_EQ(kind_a, "XFULKA");
    EXPECT_EQ(kind_b, "FrSpNaFULKA");
    EXPECT_EQ(code_letter(MarkingKind::A, 6), "?");
    EXPECT_EQ(code_letter(MarkingKind::B, -1), "?");
}

}  // namespace
}  // namespace sk::marks
