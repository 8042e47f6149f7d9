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

using calendar::day_number;

std::string run_args(const std::vector<std::string>& args) {
    std::ostringstream out, err;
    EXPECT_EQ(run(args, out, err), 0) << err.str();
    return out.str() + err.str();
}

// Model 0, home crew 0: an X on an off Sunday adds 12 hours to the 10.5 of
// the start date; a U on a working day takes a day of the vacation account,
// which is reset to 1 January with 0 days first.
TEST(AccountsCommand, PrintsTheUsersAccounts) {
    test::TempDir dir;
    const std::filesystem::path user = dir / "Anna";
    std::filesystem::create_directory(user);
    calendar::DayNumber off_sunday = day_number(2024, 0, 1);
    while (calendar::weekday_sunday0(off_sunday) != 0 ||
           calendar::crew_shifts(0, off_sunday).code[0] != calendar::shift::kOff)
        ++off_sunday;
    calendar::DayNumber work_day = day_number(2024, 1, 1);
    while (!calendar::is_working(calendar::crew_shifts(0, work_day).code[0])) ++work_day;
    marks::ShiftMarkings markings;
    marks::apply_marking(markings, off_sunday, 1, marks::kind_a::kWorked, 0);
    marks::apply_marking(markings, work_day, 1, marks::kind_a::kVacation, 0);
    ASSERT_TRUE(marks::save_shift_markings(user, markings));
    ASSERT_TRUE(marks::save_hours_file(user, {day_number(2024, 0, 1), 10.5f, 0, 0, false}));
    ASSERT_TRUE(marks::save_vacation_file(user, {day_number(2023, 6, 1), 28}));

    const std::vector<std::string> args = {"accounts", "--data-dir", dir.path().string(),
                                           "--user",   "Anna",       "--today", "2024-06-15"};
    const std::string text = run_args(args);
    EXPECT_EQ(text.substr(0, text.find("Januar")),
              "Minus- und Plusstunden\t  22,50\nResturlaub\t -1\nJahresstunden\t2024\n"
              "Monat\tRot\tBlau\tGelb\tGrün\tBraun\n");
    EXPECT_NE(text.find("\nDezember\t"), std::string::npos);
    EXPECT_NE(text.find("\nSumme\t"), std::string::npos);
    EXPECT_EQ(text.substr(text.find("\nSoll")),
              "\nSoll\t1982,76\t1982,76\t1982,76\t1982,76\t1982,76\n");
    EXPECT_EQ(marks::load_accounts(user).vacation,
              (marks::VacationAccount{day_number(2024, 0, 1), 0}));

    auto four_crews = args;
    four_crews.insert(four_crews.end(), {"--model", "6"});
    EXPECT_EQ(run_args(four_crews),
              "Minus- und Plusstunden\t\nResturlaub\t\nJahresstunden\t2024\n");
}

}  // namespace
}  // namespace sk::cli
