// The iCalendar export read back with libical's parser: every event a duty
// of the core's plan, all-day ends exclusive, nights across the clock changes
// 7 and 9 hours long, long notes folded and unfolded intact, stable UIDs, and
// markings in place of the planned shift.
#include "export/ical_export.hpp"

#include <gtest/gtest.h>
#include <libical/ical.h>

#include <algorithm>
#include <map>
#include <set>

#include "calendar/holidays.hpp"
#include "files/text_encoding.hpp"
#include "test_support.hpp"

namespace sk::exporting {
namespace {

using calendar::Day;

struct Event {
    std::string uid, summary, description;
    icaltimetype start{}, end{};
    long long seconds = 0;  // end - start, by the file's own VTIMEZONE
};

std::vector<Event> parse(const std::string& text) {
    std::vector<Event> events;
    icalcomponent* cal = icalparser_parse_string(text.c_str());
    EXPECT_NE(cal, nullptr);
    if (!cal) return events;
    for (icalcomponent* e = icalcomponent_get_first_component(cal, ICAL_VEVENT_COMPONENT); e;
         e = icalcomponent_get_next_component(cal, ICAL_VEVENT_COMPONENT)) {
        Event ev;
        ev.uid = icalcomponent_get_uid(e);
        ev.summary = icalcomponent_get_summary(e);
        if (const char* d = icalcomponent_get_description(e)) ev.description = d;
        ev.start = icalcomponent_get_dtstart(e);
        ev.end = icalcomponent_get_dtend(e);
        if (!ev.start.is_date) {
            // Resolved against the file's VTIMEZONE, not libical's own zone.
            EXPECT_STREQ(icaltimezone_get_tzid(const_cast<icaltimezone*>(ev.start.zone)),
                         "Europe/Berlin");
            ev.seconds = icaltime_as_timet_with_zone(ev.end, ev.end.zone) -
                         icaltime_as_timet_with_zone(ev.start, ev.start.zone);
        }
        events.push_back(ev);
    }
    icalcomponent_free(cal);
    return events;
}

Day date_of(const icaltimetype& t) {
    return Day::from_date(t.year, t.month - 1, t.day);
}

ExportSource plan(int model, const marks::ShiftMarkings* markings = nullptr,
                  const notes::NoteStore* notes = nullptr) {
    return {{model, true, calendar::kVacationOrder, {}}, markings, notes};
}

std::string ics(const ExportSource& source, int crew, const char* from, const char* to,
                bool times = false, bool notes = false, std::int64_t stamp = 0) {
    const ExportText t = ics_text(source, {crew, *calendar::parse_iso_date(from),
                                           *calendar::parse_iso_date(to), times, notes, stamp});
    EXPECT_FALSE(t.error);
    return t.text;
}

// One all-day event with an exclusive end per duty of every crew in every
// model (that the duties are what the page draws, the command line's duties
// test checks).
TEST(Ics, OneAllDayEventPerDutyWithAnExclusiveEnd) {
    const calendar::DayNumber first = calendar::day_number(2024, 0, 1);
    const calendar::DayNumber last = calendar::day_number(2024, 11, 31);
    for (int model = 0; model < 8; ++model) {
        for (int crew = 0; crew < calendar::kShiftModels[static_cast<std::size_t>(model)].crews;
             ++crew) {
            std::map<int, std::string> expected, got;  // day number -> summary
            for (const Duty& duty : crew_duties(plan(model), crew, first, last))
                expected[duty.day.number] = duty.summary;
            for (const Event& e : parse(ics(plan(model), crew, "2024-01-01", "2024-12-31"))) {
                ASSERT_TRUE(e.start.is_date && e.end.is_date) << e.uid;
                EXPECT_EQ(date_of(e.end).number, date_of(e.start).number + 1) << e.uid;
                got[date_of(e.start).number] = e.summary;
            }
            EXPECT_EQ(got, expected) << "model " << model << " crew " << crew;
            EXPECT_GT(got.size(), 200u);
        }
    }
}

// Shift times are Berlin wall-clock times: the nights into the last Sunday
// of March lose an hour, those into the autumn change gain one (before 1996
// the clocks went back on the last Sunday of September).
TEST(Ics, NightsAcrossTheClockChangesLastSevenAndNineHours) {
    struct Case {
        int year;
        const char* spring;
        const char* autumn;
    };
    for (const Case& c :
         {Case{1990, "1990-03-25", "1990-09-30"}, Case{2024, "2024-03-31", "2024-10-27"},
          Case{2037, "2037-03-29", "2037-10-25"}}) {
        const int spring = calendar::parse_iso_date(c.spring)->number;
        const int autumn = calendar::parse_iso_date(c.autumn)->number;
        for (const int model : {1, 6}) {
            int short_nights = 0, long_nights = 0;
            for (int crew = 0; crew < (model == 6 ? 4 : 5); ++crew) {
                const std::string from = std::to_string(c.year) + "-01-01";
                const std::string to =
                    c.year == 2037 ? "2037-07-31" : std::to_string(c.year) + "-12-31";
                const std::string text = ics(plan(model), crew, from.c_str(), to.c_str(), true);
                EXPECT_EQ(text.find("00Z\r\nDTEND"), std::string::npos);
                for (const Event& e : parse(text)) {
                    if (e.start.is_date) continue;
                    const int next = date_of(e.start).number + 1;
                    const bool night = e.summary == "Nachtschicht";
                    long long hours = 8;
                    if (night && next == spring) hours = 7, ++short_nights;
                    if (night && next == autumn) hours = 9, ++long_nights;
                    EXPECT_EQ(e.seconds, hours * 3600) << e.uid;
                }
            }
            EXPECT_EQ(short_nights, 1) << c.year << " model " << model;
            EXPECT_EQ(long_nights, c.year == 2037 ? 0 : 1) << c.year << " model " << model;
        }
    }
}

TEST(Ics, LongNotesAreFoldedWithinWholeCharactersAndUnfoldIntact) {
    test::TempDir dir;
    notes::NoteStore store(dir.path(), "");
    const std::string first = "Übergabe an Jürgen; Öl, Maß\\Kühlwasser prüfen";
    const std::string note = first + "\r\n" + std::string(60, 'x') + std::string(40 * 2, ' ') +
                             "ÄÖÜäöüß€ÄÖÜäöüß€ÄÖÜäöüß€ÄÖÜäöüß€ÄÖÜäöüß€ÄÖÜäöüß€ÄÖÜäöüß€ÄÖÜäöüß€";
    ASSERT_EQ(store.write_daily(20240214, note), std::nullopt);  // 14 March 2024
    ASSERT_EQ(store.write_yearly(214, "Geburtstag"), std::nullopt);
    store.scan_all();
    const std::string text =
        ics(plan(1, nullptr, &store), 0, "2024-03-13", "2024-03-15", false, true);

    std::size_t at = 0, lines = 0;
    for (std::size_t end; (end = text.find("\r\n", at)) != std::string::npos;
         at = end + 2, ++lines) {
        const std::string line = text.substr(at, end - at);
        EXPECT_LE(line.size(), 75u) << line;
        EXPECT_TRUE(files::decode_utf8(line)) << "split character: " << line;
        EXPECT_EQ(line.find('\n'), std::string::npos);
    }
    EXPECT_EQ(at, text.size()) << "every line ends with CRLF";
    EXPECT_NE(text.find("\\;"), std::string::npos);
    EXPECT_NE(text.find("\\,"), std::string::npos);
    EXPECT_NE(text.find("\\\\"), std::string::npos);

    std::vector<Event> notes;
    for (const Event& e : parse(text))
        if (e.uid.find("-notiz-") != std::string::npos) notes.push_back(e);
    ASSERT_EQ(notes.size(), 1u);
    EXPECT_EQ(notes[0].uid, "20240314-notiz-1@schichtkalender");
    EXPECT_EQ(notes[0].summary, first);
    std::string unix_note = note;
    unix_note.replace(unix_note.find('\r'), 2, "\n");
    EXPECT_EQ(notes[0].description, unix_note + "\n\nGeburtstag");
}

TEST(Ics, UidsAreStableAcrossExportsAndUniqueWithinOne) {
    const auto uids = [](const std::string& text) {
        std::vector<std::string> all;
        for (const Event& e : parse(text))
            all.push_back(e.uid);
        return all;
    };
    const std::string later =
        ics(plan(4), 2, "2024-05-01", "2024-06-30", false, false, 1'700'000'000);
    const auto a = uids(ics(plan(4), 2, "2024-05-01", "2024-06-30", true, false, 0));
    const auto b = uids(later);
    EXPECT_EQ(a, b);
    EXPECT_EQ(std::set<std::string>(a.begin(), a.end()).size(), a.size());
    EXPECT_EQ(a.front().rfind("202405", 0), 0u);
    EXPECT_EQ(a.front().substr(8), "-schicht-3@schichtkalender");
    EXPECT_NE(later.find("DTSTAMP:20231114T221320Z\r\n"), std::string::npos);
}

// A marking replaces the planned shift of the crew the page draws it on
// (which crew that is, the command line's duties test checks): its label,
// its hours or the whole day, and the planned shift in the description.
TEST(Ics, AMarkingReplacesThePlannedShift) {
    const Day day = *calendar::parse_iso_date("2024-01-10");  // a Wednesday outside the block
    const auto crew_with = [&](int model, int code) {
        const calendar::CrewShifts s = calendar::crew_shifts(model, day.number);
        return static_cast<int>(std::find(s.code.begin(), s.code.end(), code) - s.code.begin());
    };
    struct Case {
        int model, column, code, crew;
        std::string summary, planned;
        long long seconds;  // 0: all-day
    };
    const Case cases[] = {
        {1, 1, marks::kind_a::kSick, crew_with(1, 1), "Krank", "Frühschicht", 0},
        {1, 3, marks::kind_a::kWorked, crew_with(1, 3), "Arbeitseinsatz", "Nachtschicht", 8 * 3600},
        {1, 4, marks::kind_a::kCourse, crew_with(1, 0), "Lehrgang", "Verfügungswoche", 0},
        {7, 2, marks::kind_b::kNight, 1, "Nachtschicht", "Spätschicht", 8 * 3600},
        {7, 3, marks::kind_b::kPaidAbsence, 2, "Ausfallbezahlung, kurzer Wechsel", "Frühschicht",
         0},
    };
    for (const Case& c : cases) {
        marks::ShiftMarkings markings;
        markings.items = {
            {day.number, static_cast<std::int8_t>(c.column), static_cast<std::int8_t>(c.code)}};
        const auto marked =
            parse(ics(plan(c.model, &markings), c.crew, "2024-01-10", "2024-01-10", true));
        ASSERT_EQ(marked.size(), 1u) << c.summary;
        EXPECT_EQ(marked[0].uid, "20240110-schicht-" + calendar::crew_label(c.model, c.crew) +
                                     "@schichtkalender");
        EXPECT_EQ(marked[0].summary, c.summary);
        EXPECT_EQ(marked[0].seconds, c.seconds) << c.summary;
        EXPECT_EQ(marked[0].start.is_date, c.seconds == 0) << c.summary;
        EXPECT_EQ(marked[0].description, c.planned.empty() ? "" : "Geplant: " + c.planned)
            << c.summary;
    }
}

}  // namespace
}  // namespace sk::exporting
