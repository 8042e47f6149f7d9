// The command line as a user meets it: golden outputs, and every kind of bad
// argument ending with one German line and status 2, never a partial table.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "notes/note_store.hpp"
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

// Every model from the first to the last day: one row of eleven columns a day.
TEST(Cli, WholeRangeHasOneRowPerDayInEveryModel) {
    for (int model = 0; model < 8; ++model) {
        const std::string out =
            run_ok("days --from 1970-01-01 --to 2037-07-31 --model " + std::to_string(model));
        ASSERT_EQ(std::count(out.begin(), out.end(), '\n'), 24685) << model;
        EXPECT_EQ(std::count(out.begin(), out.end(), '\t'), 10 * 24685) << model;
        EXPECT_EQ(out.substr(out.rfind('\n', out.size() - 2) + 1, 10), "2037-07-31");
    }
}

TEST(Cli, SettingsComeFromTheDataDirectory) {
    test::TempDir dir;
    std::filesystem::create_directories(dir / "Anna");
    test::write_bytes(dir / "Anna" / "Einstellungen.dat",
                      "[Programmeinstellungen]\nSchichtart = 2\n");
    const std::string args = "days --from 2024-01-01 --to 2024-01-01 --data-dir '" +
                             dir.path().string() + "' --user Anna";
    EXPECT_NE(run_ok(args).find("\t201\t"), std::string::npos);  // model 2: three crews
    EXPECT_NE(run_ok(args + " --model 7").find("\t3214\t"), std::string::npos);
}

// Every kind of bad argument of every command ends with one German line
// naming the command and status 2, never with partial output; OUT stands
// for a page file to be written.
TEST(Cli, BadArgumentsEndWithOneLineAndStatusTwo) {
    test::TempDir dir;
    const char* month = "kein gültiger Monat für --month";
    const std::pair<std::string, const char*> cases[] = {
        {"days --from 2024-02-30 --to 2024-03-01", ""},
        {"days --from 1969-12-31 --to 1970-01-02", ""},
        {"days --from 2037-07-01 --to 2037-08-01", ""},
        {"days --from 2024-03-01 --to 2024-02-01", ""},
        {"days --model 8", ""}, {"days --model x", ""}, {"days --from", ""},
        {"days --to 2024-1-1", ""}, {"days --colour red", ""}, {"days extra", ""},
        {"days --user ../x", ""}, {"days --user ''", ""},
        {"days --password 'Pass\u2013wort'", ""},  // a character not in ISO-8859-15
        {"holidays", ""}, {"holidays 1969", ""}, {"holidays 2024 2025", ""},
        {"school-holidays zwanzig", ""}, {"accounts --model=8", ""},
        {"accounts --today=2037-08-01", ""}, {"accounts 2024", ""}, {"frobnicate", ""},
        {"ics --from 2024-01-01 --to 2024-01-31", ""},  // no crew
        {"ics --crew 6 --from 2024-01-01 --to 2024-01-31", "(erlaubt: 1 bis 5)"},
        {"ics --crew 4 --model 2 --from 2024-01-01 --to 2024-01-31", ""},
        {"ics --crew E --model 6 --from 2024-01-01 --to 2024-01-31", ""},
        {"ics --crew 1 --model 6 --from 2024-01-01 --to 2024-01-31", ""},
        {"ics --crew 1 --from 2024-01-01", ""}, {"ics --crew 1 --to 2024-01-01", ""},
        {"ics --crew 1 --from 2037-07-01 --to 2037-08-01", ""},
        {"ics --crew 1 --from 2024-01-01 --to 2024-01-02 --times=ja", ""},
        {"ics --crew 1 --from 2024-01-01 --to 2024-01-02 --out ''", ""},
        {"ics --crew 1 --from 2024-01-01 --to 2024-01-02 --with-notes --password 'Pass\u2013wort'",
         ""},
        {"csv --from 2024-01-01 --to 2024-01-02 --crew 1", ""},
        {"csv --from 2024-01-01 --to x", ""},
        {"next", ""}, {"next --crew 0", ""}, {"next --crew 1 --days 0", ""},
        {"next --crew 1 --days 1001", ""}, {"next --crew 1 --format xml", ""},
        {"next --crew 1 --today 2037-08-01", ""}, {"next --crew 1 heute", ""},
        {"render", "die Ausgabedatei fehlt"},
        {"render --out seite.jpg", "muss auf .png oder .pdf enden"},
        {"render OUT --month 2024-13", month}, {"render OUT --month 1969-12", month},
        {"render OUT --month 2037-08", month}, {"render OUT --month 2024-5", month},
        {"render OUT --columns 0", "kein gültiger Wert für --columns"},
        {"render OUT --columns 24", "kein gültiger Wert für --columns"},
        {"render OUT --model 8", "kein gültiger Wert für --model"},
        {"render OUT --font DejaVu", "keine gültige Schrift für --font"},
        {"render OUT --font 'DejaVu Sans 200'", "keine gültige Schrift für --font"},
        {"render OUT --paper A3", "--paper gilt nur für PDF-Dateien"},
        {"render --out x.pdf --paper A5", "kein gültiges Papierformat"},
        {"render OUT --month 2024-05 --columns 2 --cursor 2024-07-01", "liegt nicht auf der Seite"},
        {"render OUT --cursor 2024-02-30", "kein gültiges Datum für --cursor"},
        {"render OUT --farbe rot", "unbekannte Option --farbe"},
        {"render OUT extra", "unerwartetes Argument \"extra\""},
    };
    for (auto [args, message] : cases) {
        if (const auto at = args.find("OUT"); at != std::string::npos)
            args.replace(at, 3, "--out '" + (dir / "x.png").string() + "'");
        SCOPED_TRACE(args);
        const auto r = test::run_command(test::program() + " " + args);
        EXPECT_EQ(r.status, 2);
        EXPECT_EQ(r.out, "");
        EXPECT_EQ(std::count(r.err.begin(), r.err.end(), '\n'), 1) << r.err;
        const auto command = args == "frobnicate" ? "" : " " + args.substr(0, args.find(' '));
        EXPECT_EQ(r.err.rfind("schichtkalender" + command + ": ", 0), 0u) << r.err;
        EXPECT_NE(r.err.find(message), std::string::npos) << r.err;
    }
    EXPECT_TRUE(std::filesystem::is_empty(dir.path()));
}

// The notes column, escaped: a note written by the note store as the program
// writes it, read with the password typed in UTF-8 (how the notes of a day
// are joined is the notes tests').
TEST(Cli, DaysShowsTheNotesOfEachDayOnOneLine) {
    test::TempDir dir;
    std::filesystem::create_directories(dir / "Anna");
    notes::NoteStore store(dir / "Anna", "Schl\xFCssel\xA4");  // "Schlüssel€"
    ASSERT_EQ(store.write_daily(20240219, "Arzt\r\num 10\tProbe \\ Noten"), std::nullopt);
    std::istringstream out(run_ok("days --data-dir '" + dir.path().string() +
                                  "' --from 2024-03-18 --to 2024-03-20 --user Anna "
                                  "--password 'Schlüssel€'"));
    std::vector<std::string> notes;  // the last column of each row
    for (std::string line; std::getline(out, line);)
        notes.push_back(line.substr(line.rfind('\t') + 1));
    EXPECT_EQ(notes,
              (std::vector<std::string>{"notes", "", "Arzt\\r\\num 10\\tProbe \\\\ Noten", ""}));
}

// Commands only read: in a directory without "SKDaten" they create nothing,
// also when --data-dir names a user without a directory (a note says the
// defaults apply). The page goes to another directory.
TEST(Cli, CommandsCreateNoDirectory) {
    test::TempDir dir, out;
    const std::string page = "render --out '" + (out / "seite.png").string() + "'";
    for (const std::string& command :
         {std::string("days --from 2024-01-01 --to 2024-01-02"), std::string("accounts"), page}) {
        for (const char* data : {"", " --data-dir SKDaten --user Anna"}) {
            const auto r = test::run_command("cd '" + dir.path().string() + "' && '" +
                                             test::program() + "' " + command + data);
            EXPECT_EQ(r.status, 0) << command << data << "\n" << r.err;
            EXPECT_TRUE(std::filesystem::is_empty(dir.path())) << command << data;
            EXPECT_EQ(r.err.find("Hinweis") != std::string::npos, *data != 0) << r.err;
        }
    }
}

TEST(Cli, HelpForTheProgramAndACommand) {
    EXPECT_NE(run_ok("--help").find("school-holidays"), std::string::npos);
    EXPECT_EQ(run_ok("holidays --help").rfind("Aufruf: schichtkalender holidays", 0), 0u);
}

}  // namespace
}  // namespace sk
