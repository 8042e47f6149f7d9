#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "calendar/shift_model.hpp"
#include "cli/cli.hpp"
#include "marks/account_files.hpp"
#include "marks/shift_markings.hpp"
#include "test_support.hpp"

namespace sk::cli {
namespace {

struct Output {
    int status;
    std::string out;
    std::string err;
};

Output run_args(std::vector<std::string> args) {
    std::ostringstream out, err;
    const int status = run(args, out, err);
    return {status, out.str(), err.str()};
}

std::vector<std::string> lines(const std::string& text) {
    std::vector<std::string> result;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) result.push_back(line);
    return result;
}

TEST(AccountsCommand, BadArgumentsAreRefused) {
    const std::vector<std::vector<std::string>> cases = {
        {"accounts", "--model", "8"},
        {"accounts", "--today", "2024-13-01"},
        {"accounts", "--today", "2037-08-01"},
        {"accounts", "--bogus"},
        {"accounts", "2024"},
        {"accounts", "--user", "a/b"},
    };
    for (const auto& args : cases) {
        const Output o = run_args(args);
        EXPECT_EQ(o.status, 2) << args.back();
        EXPECT_EQ(o.err.rfind("schichtkalender accounts: ", 0), 0u) << o.err;
        EXPECT_TRUE(o.out.empty());
    }
    EXPECT_NE(run_args({"--help"}).out.find("accounts"), std::string::npos);
}

TEST(AccountsCommand, PrintsTheUsersAccounts) {
    test::TempDir dir;
    const std::filesystem::path user = dir / "Anna";
    std::filesystem::create_directory(user);
    // Model 0 (the default), home crew 0: an X on a Sunday off adds 12 hours
    // to the 10.5 of the start date; a U on a working day takes one of the
    // vacation days of last year's reference date, which the command resets
    // to 1 January with 0 days first.
    calendar::DayNumber off_sunday = calendar::day_number(2024, 0, 1);
    while (!(calendar::weekday_sunday0(off_sunday) == 0 &&
             calendar::crew_shifts(0, off_sunday).code[0] == calendar::shift::kOff))
        ++off_sunday;
    calendar::DayNumber work_day = calendar::day_number(2024, 1, 1);
    while (!calendar::is_working(calendar::crew_shifts(0, work_day).code[0])) ++work_day;
    marks::ShiftMarkings markings;
    marks::apply_marking(markings, off_sunday, 1, marks::kind_a::kWorked, 0);
    marks::apply_marking(markings, work_day, 1, marks::kind_a::kVacation, 0);
    ASSERT_TRUE(marks::save_shift_markings(user, markings));
    ASSERT_TRUE(marks::save_hours_file(user, {calendar::day_number(2024, 0, 1), 10.5f, 0, 0, false}));
    ASSERT_TRUE(marks::save_vacation_file(user, {calendar::day_number(2023, 6, 1), 28}));

    const Output o = run_args({"accounts", "--data-dir", dir.path().string(), "--user", "Anna",
                               "--today", "2024-06-15"});
    ASSERT_EQ(o.status, 0) << o.err;
    const auto rows = lines(o.out);
    ASSERT_EQ(rows.size(), 3u + 1 + 12 + 2);
    EXPECT_EQ(rows[0], "Minus- und Plusstunden\t  22,50");
    EXPECT_EQ(rows[1], "Resturlaub\t -1");
    EXPECT_EQ(rows[2], "Jahresstunden\t2024");
    EXPECT_EQ(rows[3], "Monat\tRot\tBlau\tGelb\tGrün\tBraun");
    EXPECT_EQ(rows[4].rfind("Januar\t", 0), 0u);
    EXPECT_EQ(rows[15].rfind("Dezember\t", 0), 0u);
    EXPECT_EQ(rows[16].rfind("Summe\t", 0), 0u);
    EXPECT_EQ(rows[17], "Soll\t1982,76\t1982,76\t1982,76\t1982,76\t1982,76");

    marks::VacationAccount vacation;
    ASSERT_TRUE(marks::load_vacation_file(user, vacation));
    EXPECT_EQ(vacation, (marks::VacationAccount{calendar::day_number(2024, 0, 1), 0}));

    // The four-crew models keep no accounts.
    const Output none = run_args({"accounts", "--data-dir", dir.path().string(), "--user", "Anna",
                                  "--today", "2024-06-15", "--model", "6"});
    ASSERT_EQ(none.status, 0);
    EXPECT_EQ(none.out, "Minus- und Plusstunden\t\nResturlaub\t\nJahresstunden\t2024\n");
    // Model 2: the three-crew table with the target of the 40-hour week.
    const auto two = lines(run_args({"accounts", "--data-dir", dir.path().string(), "--user",
                                     "Anna", "--today", "2024-06-15", "--model", "2"})
                               .out);
    ASSERT_EQ(two.size(), 18u);
    EXPECT_EQ(two[3], "Monat\tRot\tBlau\tGelb");
    EXPECT_EQ(two[4].rfind("Januar\t178,50\t", 0), 0u);
    EXPECT_EQ(two[17], "Soll\t2088,00\t2088,00\t2088,00");
}

}  // namespace
}  // namespace sk::cli
