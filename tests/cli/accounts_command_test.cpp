#include <gtest/gtest.h>

#include <sstream>

#include "cli/cli.hpp"
#include "marks/account_files.hpp"
#include "marks/shift_markings.hpp"
#include "test_support.hpp"

namespace sk::cli {
namespace {

using calendar::day_number;

std::string run_args(const std::vector<std::string>& args) {
    std::ostringstream out, err;
    EXPECT_EQ(run(args, out, err), 0) << err.str();
    return out.str() + err.str();
}

// The user's markings and accounts as the window counts them (model 0, home
// crew 0): an X on Sunday 7 January, when crew 0 is off, adds 12 hours to the
// 10.5 of the start date; a U on 5 February, a night shift, takes a day of the
// vacation account, which is reset to 1 January with 0 days first, on disk too.
TEST(AccountsCommand, PrintsTheUsersAccounts) {
    test::TempDir dir;
    const std::filesystem::path user = dir / "Anna";
    std::filesystem::create_directory(user);
    marks::ShiftMarkings markings;
    marks::apply_marking(markings, day_number(2024, 0, 7), 1, marks::kind_a::kWorked, 0);
    marks::apply_marking(markings, day_number(2024, 1, 5), 3, marks::kind_a::kVacation, 0);
    ASSERT_TRUE(marks::save_shift_markings(user, markings));
    ASSERT_TRUE(marks::save_hours_file(user, {day_number(2024, 0, 1), 10.5f, 0, 0, false}));
    ASSERT_TRUE(marks::save_vacation_file(user, {day_number(2023, 6, 1), 28}));

    const std::vector<std::string> args = {"accounts", "--data-dir", dir.path().string(),
                                           "--user",   "Anna",       "--today", "2024-06-15"};
    const std::string text = run_args(args);
    EXPECT_EQ(text.substr(0, text.find("Januar")),
              "Minus- und Plusstunden\t  22,50\nResturlaub\t -1\nJahresstunden\t2024\n"
              "Monat\tRot\tBlau\tGelb\tGrün\tBraun\n");
    std::istringstream lines(text);
    std::string names;  // the first field of each line
    for (std::string line; std::getline(lines, line);)
        names += line.substr(0, line.find('\t')) + ",";
    EXPECT_EQ(names.substr(names.find("Januar")),
              "Januar,Februar,März,April,Mai,Juni,Juli,August,September,Oktober,November,Dezember,"
              "Summe,Soll,");
    EXPECT_EQ(marks::load_accounts(user).vacation,
              (marks::VacationAccount{day_number(2024, 0, 1), 0}));

    auto four_crews = args;
    four_crews.insert(four_crews.end(), {"--model", "6"});
    EXPECT_EQ(run_args(four_crews),
              "Minus- und Plusstunden\t\nResturlaub\t\nJahresstunden\t2024\n");
}

}  // namespace
}  // namespace sk::cli
