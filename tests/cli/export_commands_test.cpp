// The export commands as a user meets them (ics, csv, next), and the one
// promise that ties them to the window: a crew's duty is the letter the page
// draws in that crew's cell.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "export/duties.hpp"
#include "marks/shift_markings.hpp"
#include "session/session.hpp"
#include "settings/settings_file.hpp"
#include "test_support.hpp"
#include "view/page_output.hpp"
#include "view/page_sources.hpp"

namespace sk {
namespace {

using calendar::day_number;

// A data directory with a user "Anna" whose markings are given.
struct UserDir {
    test::TempDir dir;
    explicit UserDir(const std::vector<marks::ShiftMarking>& items) {
        std::filesystem::create_directories(dir / "Anna");
        marks::ShiftMarkings markings{items, true};
        EXPECT_TRUE(marks::save_shift_markings(dir / "Anna", markings));
    }
    std::string args() const { return " --data-dir '" + dir.path().string() + "' --user Anna"; }
};

test::CommandResult run(const std::string& args) {
    return test::run_command(test::program() + " " + args);
}

// The page of a year laid out in the process, cell by cell, against the
// duties of every crew: the marking's letter where a marking is drawn, no
// duty where the cell is empty or the plant stands still.
TEST(ExportCommands, DutiesAreTheLettersThePageDraws) {
    marks::ShiftMarkings markings;
    for (int d = day_number(2024, 0, 3); d < day_number(2025, 0, 1); d += 11)
        markings.items.push_back(
            {d, static_cast<std::int8_t>(1 + d % 4), static_cast<std::int8_t>(d % 8)});
    view::PageRenderer renderer({"DejaVu Sans", 8, 0});
    for (int model = 0; model < 8; ++model) {
        session::Session s;
        s.settings = settings::default_settings("/");
        s.settings.model = model;
        s.settings.columns = 12;
        s.shift_markings = markings;
        const view::PageRequest request = view::page_request(
            s, calendar::Day::from_date(2024, 0, 1), std::nullopt, calendar::Day{});
        view::PageExtras extras = view::page_extras(s);
        extras.sky = nullptr;
        const view::PageLayout page = renderer.layout(request, extras);
        const exporting::ExportSource source{
            {model, true, request.vacation_order, request.vacation_earliest}, &markings, nullptr};
        for (int crew = 0; crew < page.days.front().crews; ++crew) {
            std::map<int, std::string> letters;
            for (const auto& duty : exporting::crew_duties(source, crew, day_number(2024, 0, 1),
                                                           day_number(2024, 11, 31)))
                letters[duty.day.number] = duty.letter;
            for (const view::DayCell& cell : page.days) {
                const view::ShiftCell& sc = cell.shifts[static_cast<std::size_t>(crew)];
                std::string drawn(view::shift_letter(sc.kind, sc.code));
                if (sc.kind == view::CellKind::Work && cell.free_day) drawn.clear();
                if (sc.marked)
                    drawn = view::marking_letter(
                        model, marks::shift_marking_of_day(markings, cell.day.number)->code);
                EXPECT_EQ(letters.count(cell.day.number) ? letters[cell.day.number] : "", drawn)
                    << "model " << model << " crew " << crew << " "
                    << calendar::format_iso_date(cell.day);
            }
        }
    }
}

TEST(ExportCommands, NextAcrossABlockVacationAMarkingAndAClockChange) {
    const UserDir user({{day_number(2024, 4, 21), 2, marks::kind_a::kVacation}});
    struct Case {
        std::string args, out;
    };
    const Case cases[] = {
        {"next --crew 3 --model 1 --today 2024-05-17 --days 4",  // Whit Sunday: Betriebsruhe
         "Fr 17.05. Nachtschicht 22:00–6:00\nSa 18.05. Nachtschicht 22:00–6:00\n"
         "Mo 20.05. Urlaub (Block)\nDi 21.05. Urlaub (Block)\n"},
        {"next --crew 4 --model 1 --today 2024-05-19 --days 2" + user.args(),
         "Di 21.05. Urlaub\nFr 24.05. Frühschicht 6:00–14:00\n"},
        {"next --crew 5 --model 1 --today 2024-03-30 --days 1 --format json",
         "[\n  {\"date\": \"2024-03-30\", \"weekday\": \"Sa\", \"summary\": \"Nachtschicht\", "
         "\"letter\": \"N\", "
         "\"marked\": false, \"allDay\": false, \"start\": \"2024-03-30T22:00:00+01:00\", \"end\": "
         "\"2024-03-31T06:00:00+02:00\"}\n]\n"},
        {"next --crew=a --model=7 --today=2024-10-26 --days=1 --format=json",
         "[\n  {\"date\": \"2024-10-26\", \"weekday\": \"Sa\", \"summary\": \"Nachtschicht\", "
         "\"letter\": \"N\", \"marked\": false, \"allDay\": false, "
         "\"start\": \"2024-10-26T22:00:00+02:00\", \"end\": \"2024-10-27T06:00:00+01:00\"}\n]\n"},
        {"next --crew 2 --model 1 --today 2037-07-31 --days 5",  // the calendar ends
         "Fr 31.07. Spätschicht 14:00–22:00\n"},
    };
    for (const Case& c : cases) {
        const auto r = run(c.args);
        EXPECT_EQ(r.status, 0) << c.args << "\n" << r.err;
        EXPECT_EQ(r.out, c.out) << c.args;
    }
}

TEST(ExportCommands, FilesWrittenWithOutEqualStandardOutput) {
    const UserDir user({{day_number(2024, 0, 10), 1, marks::kind_a::kSick}});
    notes::NoteStore store(user.dir / "Anna", "geheim");
    ASSERT_EQ(store.write_daily(20240009, "Zahnarzt, 8 Uhr"), std::nullopt);
    for (const std::string args : {"ics --crew 2 --from 2024-01-01 --to 2024-01-31 --times "
                                   "--with-notes --password geheim --today 2024-01-01",
                                   "csv --from 2024-01-01 --to 2024-01-31"}) {
        const std::string file = (user.dir / "out").string();
        const auto to_stdout = run(args + user.args());
        const auto to_file = run(args + user.args() + " --out '" + file + "'");
        EXPECT_EQ(to_file.status, 0) << to_file.err;
        EXPECT_TRUE(to_file.out.empty());
        EXPECT_EQ(test::read_bytes(file), to_stdout.out) << args;
    }
    const std::string text =
        run("ics --crew 2 --from 2024-01-09 --to 2024-01-09 --with-notes --password geheim" +
            user.args())
            .out;
    EXPECT_NE(text.find("SUMMARY:Zahnarzt\\, 8 Uhr\r\n"), std::string::npos) << text;
}

// A second, independent reader: Python's icalendar package from Debian,
// when it is installed. It counts the events, the nights of 7 and 9 hours of
// every crew's year by its own zone data, and the whole days.
TEST(ExportCommands, AnotherParserReadsTheFiles) {
    const std::string python = "/usr/bin/python3";
    if (test::run_command(python + " -c 'import icalendar' 2>/dev/null").status != 0)
        GTEST_SKIP() << "python3-icalendar is not installed";
    test::TempDir dir;
    std::string files;
    std::size_t events = 0, days = 0;
    for (int crew = 1; crew <= 5; ++crew) {
        const std::string file = (dir / ("crew" + std::to_string(crew) + ".ics")).string();
        ASSERT_EQ(run("ics --model 1 --times --from 2024-01-01 --to 2024-12-31 --crew " +
                      std::to_string(crew) + " --out " + file)
                      .status,
                  0);
        const std::string text = test::read_bytes(file);
        for (std::size_t at = 0; (at = text.find("BEGIN:VEVENT", at)) != std::string::npos; ++at)
            ++events;
        for (std::size_t at = 0; (at = text.find("DTSTART;VALUE=DATE:", at)) != std::string::npos;
             at += 2)
            ++days;
        files += " " + file;
    }
    test::write_bytes(dir / "read.py",
                      "import sys, datetime, icalendar\n"
                      "hours = []\n"
                      "for name in sys.argv[1:]:\n"
                      "    cal = icalendar.Calendar.from_ical(open(name, 'rb').read())\n"
                      "    for e in cal.walk('VEVENT'):\n"
                      "        a, b = e.decoded('dtstart'), e.decoded('dtend')\n"
                      "        if isinstance(a, datetime.datetime):\n"
                      "            a, b = a.astimezone(datetime.timezone.utc), "
                      "b.astimezone(datetime.timezone.utc)\n"
                      "        hours.append((b - a).total_seconds() / 3600)\n"
                      "print(len(hours), hours.count(7), hours.count(9), hours.count(24))\n");
    const auto r = test::run_command(python + " " + (dir / "read.py").string() + files);
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, std::to_string(events) + " 1 1 " + std::to_string(days) + "\n");
}

}  // namespace
}  // namespace sk
