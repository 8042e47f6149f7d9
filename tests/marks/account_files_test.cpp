#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <limits>

#include "marks/account_files.hpp"
#include "marks/records.hpp"
#include "test_support.hpp"

namespace sk::marks {
namespace {

TEST(AccountFiles, GoldenBytesWrittenAndReadBack) {
    // tests/marks/golden/Minusstunden.dat and Urlaubstage.dat come from
    // Python's struct.pack("<ifbbb") and ("<ii").
    const HoursAccount hours{19723, -7.30f, hours_mode::kHoursMinutes, 4, true};
    const VacationAccount vacation{19723, -12};
    test::TempDir dir;
    ASSERT_TRUE(save_hours_file(dir.path(), hours));
    ASSERT_TRUE(save_vacation_file(dir.path(), vacation));
    EXPECT_EQ(test::read_bytes(dir / "Minusstunden.dat"),
              test::read_bytes(test::source_path("marks/golden/Minusstunden.dat")));
    EXPECT_EQ(test::read_bytes(dir / "Urlaubstage.dat"),
              test::read_bytes(test::source_path("marks/golden/Urlaubstage.dat")));
    EXPECT_EQ(load_accounts(dir.path()), (AccountState{hours, vacation}));
}

TEST(AccountFiles, LastCompleteRecordWins) {
    const HoursAccount first{100, 1.5f, 0, 1, false};
    const HoursAccount second{200, -2.25f, 1, 2, true};
    const std::string two = serialize_hours_record(first) + serialize_hours_record(second);
    EXPECT_EQ(parse_hours_record(two + "\x01\x02\x03"), second);
    EXPECT_EQ(parse_hours_record(two.substr(0, 21)), first);
    EXPECT_EQ(parse_vacation_record(serialize_vacation_record({1, 5}) + "\x09"), (VacationAccount{1, 5}));

    // No file or no complete record: the values in memory stay.
    test::TempDir dir;
    AccountState state{first, {7, 8}};
    EXPECT_EQ(load_accounts(dir.path(), state), state);
    test::write_bytes(dir / "Minusstunden.dat", "1234567");
    test::write_bytes(dir / "Urlaubstage.dat", "");
    EXPECT_EQ(load_accounts(dir.path(), state), state);

    // Of a gigabyte file (sparse, nothing on disk) only the last record is read.
    {
        std::ofstream out(dir / "Minusstunden.dat", std::ios::binary | std::ios::trunc);
        out.seekp(static_cast<std::streamoff>(((1u << 30) / kHoursRecord - 1) * kHoursRecord));
        out << serialize_hours_record(second) << "xyz";
    }
    EXPECT_EQ(load_accounts(dir.path(), state).hours, second);
}

TEST(AccountFiles, ValuesAreBroughtIntoRange) {
    struct Case {
        float value;
        unsigned char mode, crew, block;
        HoursAccount read;
    };
    const Case cases[] = {
        {-599.5f, 1, 4, 1, {9, -599.5f, 1, 4, true}},
        {700.0f, 0, 0, 0, {9, 600.0f, 0, 0, false}},
        {-std::numeric_limits<float>::infinity(), 0, 0, 0, {9, -600.0f, 0, 0, false}},
        {std::numeric_limits<float>::quiet_NaN(), 0, 0, 0, {9, 0.0f, 0, 0, false}},
        {1.0f, 2, 5, 2, {9, 1.0f, 0, 0, false}},
        {1.0f, 255, 200, 255, {9, 1.0f, 0, 0, false}},
    };
    for (const Case& c : cases) {
        std::string bytes;
        put_i32(bytes, 9);
        put_f32(bytes, c.value);
        bytes += {static_cast<char>(c.mode), static_cast<char>(c.crew), static_cast<char>(c.block)};
        EXPECT_EQ(parse_hours_record(bytes), c.read) << c.value << " " << int(c.mode);
    }
    for (const auto& [stored, read] : {std::pair{99, 60}, {-61, -60}, {-2147483647 - 1, -60}}) {
        EXPECT_EQ(parse_vacation_record(serialize_vacation_record({1, stored}))->days, read) << stored;
    }
}

TEST(AccountFiles, DialogValues) {
    // Hours entered as 700 are stored as 600.
    test::TempDir dir;
    ASSERT_TRUE(save_hours_file(dir.path(), {1, clamp_hours_value(700), 0, 0, false}));
    EXPECT_EQ(test::read_bytes(dir / "Minusstunden.dat").substr(4, 4), std::string("\0\0\x16\x44", 4));
    EXPECT_EQ(clamp_hours_value(std::nan("")), 0.0f);
    EXPECT_EQ(clamp_vacation_days(-1000000000000LL), -60);

    const std::pair<const char*, std::optional<double>> inputs[] = {
        {"7,5", 7.5},        {" -12.25 ", -12.25},   {"+3", 3.0},
        {"", std::nullopt},  {"7,5h", std::nullopt}, {"1,2,3", std::nullopt},
    };
    for (const auto& [text, value] : inputs) EXPECT_EQ(parse_hours_input(text), value) << text;
}

}  // namespace
}  // namespace sk::marks
