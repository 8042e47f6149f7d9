// The command line as a user meets it: golden outputs, and every kind of bad
// argument ending with one German line and status 2, never a partial table.
#include <gtest/gtest.h>

#include <algorithm>

#include "test_support.hpp"

namespace sk {
namespace {

std::string run_ok(const std::string& args) {
    const auto r = test::run_command(test::program() + " " + args);
    EXPECT_EQ(r.status, 0) << args << "\n" << r.err;
    return r.out;
}

TEST(Cli, GoldenOutputs) {
    struct Case { const char* args; const char* golden; };
    const Case cases[] = {
        {"days --from 2024-12-20 --to 2025-01-07 --model 1", "days-2024-12-model1.tsv"},
        {"days --from 2015-02-26 --to 2015-03-03 --model 0", "days-2015-changeover-model0.tsv"},
        {"days --from 2024-05-18 --to 2024-05-24 --model 4", "days-2024-block-model4.tsv"},
        {"days --from=2024-03-28 --to=2024-04-02 --model=6", "days-2024-easter-model6.tsv"},
        {"holidays 2025", "holidays-2025.tsv"},
        {"school-holidays 2030", "school-holidays-2030.tsv"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(run_ok(c.args), test::read_bytes(test::source_path(std::string("cli/golden/") + c.golden)))
            << c.args;
    }
}

TEST(Cli, WholeRangeHasOneRowPerDayInEveryModel) {
    for (int model = 0; model < 8; ++model) {
        const std::string out =
            run_ok("days --from 1970-01-01 --to 2037-07-31 --model " + std::to_string(model));
        ASSERT_EQ(std::count(out.begin(), out.end(), '\n'), 24685) << model;
        // Every row has the eleven columns.
        std::size_t tabs = 0, start = 0;
        for (std::size_t i = 0; i < out.size(); ++i) {
            if (out[i] == '\t') ++tabs;
            if (out[i] == '\n') {
                ASSERT_EQ(tabs, 10u) << out.substr(start, i - start);
                tabs = 0;
                start = i + 1;
            }
        }
        const std::size_t width = model == 2 ? 3 : (model >= 6 ? 4 : 5);
        const auto last_row = out.substr(out.rfind('\n', out.size() - 2) + 1);
        EXPECT_EQ(last_row.substr(0, 10), "2037-07-31");
        std::size_t column_start = 0;
        for (int c = 0; c < 8; ++c) column_start = last_row.find('\t', column_start) + 1;
        EXPECT_EQ(last_row.find('\t', column_start) - column_start, width) << model;
    }
}

TEST(Cli, SettingsComeFromTheDataDirectory) {
    test::TempDir dir;
    std::filesystem::create_directories(dir / "Anna");
    test::write_bytes(dir / "Anna" / "Einstellungen.dat",
                      "[Programmeinstellungen]\nSchichtart = 2\n");
    const std::string args = "days --from 2024-01-01 --to 2024-01-01 --data-dir '" +
                             dir.path().string() + "' --user Anna";
    const std::string out = run_ok(args);
    EXPECT_NE(out.find("\t201\t"), std::string::npos) << out;  // model 2: three crews
    EXPECT_NE(run_ok(args + " --model 7").find("\t3214\t"), std::string::npos);
}

TEST(Cli, BadArgumentsEndWithOneLineAndStatusTwo) {
    const char* cases[] = {
        "days --from 2024-02-30 --to 2024-03-01",
        "days --from 1969-12-31 --to 1970-01-02",
        "days --from 2037-07-01 --to 2037-08-01",
        "days --from 2024-03-01 --to 2024-02-01",
        "days --model 8",
        "days --model x",
        "days --from",
        "days --to 2024-1-1",
        "days --colour red",
        "days extra",
        "days --user ../x",
        "days --user ''",
        "holidays",
        "holidays 1969",
        "holidays 2024 2025",
        "school-holidays zwanzig",
        "frobnicate",
    };
    for (const char* args : cases) {
        const auto r = test::run_command(test::program() + " " + args);
        EXPECT_EQ(r.status, 2) << args;
        EXPECT_TRUE(r.out.empty()) << args << "\n" << r.out;
        EXPECT_EQ(std::count(r.err.begin(), r.err.end(), '\n'), 1) << args << "\n" << r.err;
    }
}

TEST(Cli, HelpForTheProgramAndEachCommand) {
    EXPECT_NE(run_ok("--help").find("days"), std::string::npos);
    for (const char* command : {"days", "holidays", "school-holidays"})
        EXPECT_NE(run_ok(std::string(command) + " --help").find("Aufruf: schichtkalender"),
                  std::string::npos)
            << command;
}

}  // namespace
}  // namespace sk
