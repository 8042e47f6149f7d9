// The notes column of "schichtkalender days", with notes written by the
// note store as the program writes them.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <sstream>
#include <string>

#include "notes/note_store.hpp"
#include "test_support.hpp"

namespace sk::cli {
namespace {

const std::string kBar = "\u00A0|\u00A0";

// date -> notes column of each row of the table.
std::map<std::string, std::string> notes_by_date(const std::string& table) {
    std::map<std::string, std::string> rows;
    std::istringstream in(table);
    std::string line;
    std::getline(in, line);  // header
    while (std::getline(in, line))
        rows[line.substr(0, line.find('\t'))] = line.substr(line.rfind('\t') + 1);
    return rows;
}

class DaysNotesTest : public ::testing::Test {
protected:
    test::TempDir dir;

    void SetUp() override {
        std::filesystem::create_directories(dir / "Anna");
        notes::NoteStore store(dir / "Anna", "Schl\xFCssel\xA4");  // "Schlüssel€"
        ASSERT_EQ(store.write_daily(20240219, "Arzt\r\num 10"), std::nullopt);
        ASSERT_EQ(store.write_yearly(219, "<2000>. Jahrestag"), std::nullopt);
        ASSERT_EQ(store.write_weekday(10222, "Chor\tProbe \\ Noten"), std::nullopt);
    }

    test::CommandResult days(const std::string& options) const {
        return test::run_command(test::program() + " days --data-dir '" + dir.path().string() +
                                 "' --from 2024-03-18 --to 2024-03-20 " + options);
    }
};

TEST_F(DaysNotesTest, ShowsTheNotesOfEachDayOnOneLine) {
    const auto result = days("--user Anna --password 'Schlüssel€'");
    ASSERT_EQ(result.status, 0) << result.err;
    const auto rows = notes_by_date(result.out);
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows.at("2024-03-19"),
              "Arzt\\r\\num 10" + kBar + "24. Jahrestag" + kBar + "Chor\\tProbe \\\\ Noten");
    EXPECT_EQ(rows.at("2024-03-18"), "");
    EXPECT_EQ(rows.at("2024-03-20"), "");
}

TEST_F(DaysNotesTest, RefusesAPasswordThatCannotBeStored) {
    const auto result = days("--user Anna --password 'Pass\u2013wort'");
    EXPECT_EQ(result.status, 2);
    EXPECT_NE(result.err.find("U+2013"), std::string::npos) << result.err;
    EXPECT_EQ(result.out, "");
}

}  // namespace
}  // namespace sk::cli
