// The texts of the status lines: the day line with its parts in order, the
// notes of a day in one line, and the account fields by model.
#include "view/status_texts.hpp"

#include <gtest/gtest.h>

#include "notes/note_keys.hpp"
#include "session/session.hpp"
#include "test_support.hpp"

namespace sk::view {
namespace {

using calendar::Day;

struct DayLineCase {
    Day day;
    ProgramState state;
    std::string expected;
};

TEST(StatusTexts, DayLineNamesTheDayAndTheProgramState) {
    const std::string dot = "\u00A0· ";
    const DayLineCase cases[] = {
        // A statutory holiday in the Christmas school holidays.
        {Day::from_date(2024, 11, 25),
         {0, true, "Programm"},
         "Mittwoch, 25.12.2024" + dot + "KW 52" + dot + "Weihnachten" + dot +
             "Namenstag: Christfest, Anastasia, Eugenia" + dot + "Schulferien" + dot +
             "Rodenwald PM 1" + dot + "Benutzer: Programm"},
        // A named day that is no holiday, outside the school holidays; the
        // block switched off is mentioned in a model with a block.
        {Day::from_date(2026, 10, 18),
         {3, false, "Anna"},
         "Mittwoch, 18.11.2026" + dot + "KW 47" + dot + "Buß- und Bettag" + dot +
             "Namenstag: Alda, Bettina, Odo, Philippine, Roman" + dot + "PM 1 mit 2er Block" + dot +
             "Urlaubsblock ausgeblendet" + dot + "Benutzer: Anna"},
        // ... and not in a model without one; week 1 at the turn of the year.
        {Day::from_date(2024, 11, 30),
         {7, false, "Programm"},
         "Montag, 30.12.2024" + dot + "KW 1" + dot + "Namenstag: Felix, Herma, Hermine, Minna" +
             dot + "Schulferien" + dot + "Hallner Karton" + dot + "Benutzer: Programm"},
    };
    for (const DayLineCase& c : cases)
        EXPECT_EQ(day_status(c.day, c.state), c.expected) << c.expected;
}

// The notes in one line: line ends and tabs become blanks.
TEST(StatusTexts, NotesAndAccountFields) {
    test::TempDir dir;
    session::OpenResult opened = session::open_session({.data_root = dir.path()});
    ASSERT_TRUE(opened.session) << opened.error;
    session::Session& s = *opened.session;
    const Day day = Day::from_date(2026, 10, 23);
    EXPECT_EQ(notes_status(s.notes, day), "");
    s.notes.write_daily(notes::date_key(day), "Frühdienst\r\ntauschen\tB");
    s.notes.write_yearly(notes::day_key(day), "<1980>. Geburtstag");
    EXPECT_EQ(notes_status(s.notes, day), "Frühdienst tauschen B\u00A0|\u00A046. Geburtstag");
    // Models 6 and 7 keep no accounts.
    for (const int model : {5, 6}) {
        s.settings.model = model;
        const StatusTexts texts = status_texts(s, day, day);
        EXPECT_EQ(texts.hours + "|" + texts.vacation, model == 5 ? "   0,00|  0" : "|") << model;
        EXPECT_EQ(texts.notes, notes_status(s.notes, day));
        EXPECT_EQ(texts.astronomy.find("Dämmerung: "), 0u) << texts.astronomy;
        EXPECT_EQ(texts.day.find("Montag, 23.11.2026"), 0u) << texts.day;
    }
}

}  // namespace
}  // namespace sk::view
