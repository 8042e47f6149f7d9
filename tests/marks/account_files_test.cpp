#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <limits>

#include "marks/account_files.hpp"
#include "marks/records.hpp"
#include "test_support.hpp"

namespace sk::marks {
namespace {

// The records of tests/marks/golden/Minusstunden.dat and Urlaubstage.dat
// (Python's struct.pack("<ifbbb") and ("<ii")).
const HoursAccount kGoldenHours{19723, -7.30f, hours_mode::kHoursMinutes, 4, true};
const VacationAccount kGoldenVacation{19723, -12};

TEST(AccountFiles, GoldenBytesWrittenAndReadBack) {
    const std::string hours_bytes = test::read_bytes(test::source_path("marks/golden/Minusstunden.dat"));
    const std::string vacation_bytes = test::read_bytes(test::source_path("marks/golden/Urlaubstage.dat"));
    ASSERT_EQ(hours_bytes.size(), 11u);
    ASSERT_EQ(vacation_bytes.size(), 8u);
    EXPECT_EQ(serialize_hours_record(kGoldenHours), hours_bytes);
    EXPECT_EQ(serialize_vacation_record(kGoldenVacation), vacation_bytes);

    test::TempDir dir;
    ASSERT_TRUE(save_hours_file(dir.path(), kGoldenHours));
    ASSERT_TRUE(save_vacation_file(dir.path(), kGoldenVacation));
    EXPECT_EQ(test::read_bytes(dir / "Minusstunden.dat"), hours_bytes);
    EXPECT_EQ(test::read_bytes(dir / "Urlaubstage.dat"), vacation_bytes);
    const AccountState back = load_accounts(dir.path());
    EXPECT_EQ(back.hours, kGoldenHours);
    EXPECT_EQ(back.vacation, kGoldenVacation);
}

TEST(AccountFiles, LastCompleteRecordWins) {
    const HoursAccount first{100, 1.5f, 0, 1, false};
    const HoursAccount second{200, -2.25f, 1, 2, true};
    const std::string two = serialize_hours_record(first) + serialize_hours_record(second);
    EXPECT_EQ(parse_hours_record(two), second);
    EXPECT_EQ(parse_hours_record(two + "\x01\x02\x03"), second);  // truncated third record
    EXPECT_EQ(parse_hours_record(two.substr(0, 21)), first);
    EXPECT_EQ(parse_hours_record(two.substr(0, 10)), std::nullopt);
    const std::string days = serialize_vacation_record({1, 5}) + serialize_vacation_record({2, 6});
    EXPECT_EQ(parse_vacation_record(days + "\x09"), (VacationAccount{2, 6}));

    // A missing file, an empty one or one without a complete record leaves
    // the values in memory as they were.
    test::TempDir dir;
    AccountState state{first, {7, 8}};
    for (const char* content : {static_cast<const char*>(nullptr), "", "1234567"}) {
        if (content) {
            test::write_bytes(dir / "Minusstunden.dat", content);
            test::write_bytes(dir / "Urlaubstage.dat", content);
        }
        EXPECT_FALSE(load_hours_file(dir.path(), state.hours));
        EXPECT_FALSE(load_vacation_file(dir.path(), state.vacation));
        EXPECT_EQ(state, (AccountState{first, {7, 8}}));
    }
}

// A file of a gigabyte (sparse, so nothing is written to disk) is not read
// through: only its last complete record is.
TEST(AccountFiles, EnormousFileReadsOnlyItsLastRecord) {
    test::TempDir dir;
    const auto file = dir / "Minusstunden.dat";
    const std::uintmax_t records = (1u << 30) / kHoursRecord;
    {
        std::ofstream out(file, std::ios::binary);
        out.seekp(static_cast<std::streamoff>((records - 1) * kHoursRecord));
        const std::string last = serialize_hours_record({4242, 3.0f, 0, 3, false});
        out.write(last.data(), static_cast<std::streamsize>(last.size()));
        out.write("xyz", 3);  // a truncated tail after it
    }
    HoursAccount hours;
    ASSERT_TRUE(load_hours_file(dir.path(), hours));
    EXPECT_EQ(hours, (HoursAccount{4242, 3.0f, 0, 3, false}));
}

TEST(AccountFiles, ValuesAreBroughtIntoRange) {
    struct Case {
        const char* what;
        float value;
        unsigned char mode, crew, block;
        HoursAccount read;
    };
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float inf = std::numeric_limits<float>::infinity();
    const Case cases[] = {
        {"in range", -599.5f, 1, 4, 1, {9, -599.5f, 1, 4, true}},
        {"700 hours", 700.0f, 0, 0, 0, {9, 600.0f, 0, 0, false}},
        {"minus infinity", -inf, 0, 0, 0, {9, -600.0f, 0, 0, false}},
        {"not a number", nan, 0, 0, 0, {9, 0.0f, 0, 0, false}},
        {"unknown mode and crew, block 2", 1.0f, 2, 5, 2, {9, 1.0f, 0, 0, false}},
        {"bytes above 127", 1.0f, 255, 200, 255, {9, 1.0f, 0, 0, false}},
    };
    for (const Case& c : cases) {
        std::string bytes;
        put_i32(bytes, 9);
        put_f32(bytes, c.value);
        bytes += static_cast<char>(c.mode);
        bytes += static_cast<char>(c.crew);
        bytes += static_cast<char>(c.block);
        EXPECT_EQ(parse_hours_record(bytes), c.read) << c.what;
    }
    for (const auto& [stored, read] : {std::pair{99, 60}, {-61, -60}, {60, 60}, {-2147483647 - 1, -60}}) {
        std::string bytes;
        put_i32(bytes, 1);
        put_i32(bytes, stored);
        EXPECT_EQ(parse_vacation_record(bytes)->days, read) << stored;
    }
}

TEST(AccountFiles, DialogValues) {
    // Hours entered as 700 are stored as 600.
    test::TempDir dir;
    ASSERT_TRUE(save_hours_file(dir.path(), {1, clamp_hours_value(700), 0, 0, false}));
    EXPECT_EQ(test::read_bytes(dir / "Minusstunden.dat").substr(4, 4),
              std::string("\x00\x00\x16\x44", 4));  // 600.0f
    EXPECT_EQ(clamp_hours_value(-600.5), -600.0f);
    EXPECT_EQ(clamp_hours_value(std::nan("")), 0.0f);
    EXPECT_EQ(clamp_vacation_days(61), 60);
    EXPECT_EQ(clamp_vacation_days(-1000000000000LL), -60);

    const std::pair<const char*, std::optional<double>> inputs[] = {
        {"7,5", 7.5}, {" -12.25 ", -12.25}, {"+3", 3.0}, {"700", 700.0}, {"0,30", 0.3},
        {"", std::nullopt}, {"abc", std::nullopt}, {"7,5h", std::nullopt}, {"1,2,3", std::nullopt},
        {"--1", std::nullopt},
    };
    for (const auto& [text, value] : inputs) EXPECT_EQ(parse_hours_input(text), value) << text;
}

}  // namespace
}  // namespace sk::marks
