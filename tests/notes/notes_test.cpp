#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <functional>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "notes/note_cipher.hpp"
#include "notes/note_keys.hpp"
#include "notes/note_store.hpp"
#include "notes/notes_of_day.hpp"
#include "test_support.hpp"

namespace sk::notes {
namespace {

using calendar::Day;

const std::string kPassword = "Schl\xFCssel\xA4";  // "Schlüssel€" in ISO-8859-15

// The notes of tests/notes/golden/{plain,enciphered}, as UTF-8 text.
struct GoldenNote {
    std::string file, text;
    std::function<std::optional<std::string>(NoteStore&, std::string_view)> write;
    std::function<std::string(const NoteStore&)> read;
};
const std::vector<GoldenNote> kGolden = {
    {"20240215.txt", "Zahnarzt um 10 Uhr\r\n25 € Zuzahlung, Öffnungszeiten prüfen",
     [](NoteStore& s, std::string_view t) { return s.write_daily(20240215, t); },
     [](const NoteStore& s) { return s.read_daily(20240215); }},
    {"19797.14.tnt", "Müll rausstellen",
     [](NoteStore& s, std::string_view t) { return s.write_periodic({19797, 14}, t); },
     [](const NoteStore& s) { return s.read_periodic({19797, 14}); }},
    {"215.jnt", "<1980>. Geburtstag von Jörg",
     [](NoteStore& s, std::string_view t) { return s.write_yearly(215, t); },
     [](const NoteStore& s) { return s.read_yearly(215); }},
    {"10222.wmt", "Stammtisch, Beitrag 5 €",
     [](NoteStore& s, std::string_view t) { return s.write_weekday(10222, t); },
     [](const NoteStore& s) { return s.read_weekday(10222); }},
};

using test::date;
using test::files_in;

// One line per indexed key, as "daily 20240215" or "periodic 19797.14".
std::string describe(const NoteIndex& index) {
    std::string text;
    for (const auto key : index.daily) text += "daily " + std::to_string(key) + "\n";
    for (const auto key : index.periodic)
        text += "periodic " + std::to_string(key.start) + "." + std::to_string(key.interval) + "\n";
    for (const auto key : index.yearly) text += "yearly " + std::to_string(key) + "\n";
    for (const auto key : index.weekday) text += "weekday " + std::to_string(key) + "\n";
    return text;
}

TEST(NoteNames, ScanAdmissionRulesAndWeekdayNames) {
    EXPECT_EQ(weekday_file_name(weekday_key(2, 2, 2)), "10222.wmt");  // third Tuesday of March
    EXPECT_EQ(weekday_file_name(weekday_key(kEveryMonth, 5, kLastOrdinal)), "11254.wmt");
    const std::pair<std::string, std::string> cases[] = {
        {"20240215.txt", "daily 20240215\n"}, {"20240215.TXT", ""},
        {"202402150.txt", "daily 20240215\n"},  // the first 8 characters count
        {"19691131.txt", ""}, {"20381131.txt", "daily 20381131\n"}, {"20381132.txt", ""},
        {"1.jnt", "yearly 1\n"}, {"1131.jnt", "yearly 1131\n"}, {"0.jnt", ""}, {"1132.jnt", ""},
        {"19797.14.tnt", "periodic 19797.14\n"}, {"19797.14x.tnt", "periodic 19797.14\n"},
        {"x.5.tnt", "periodic 0.5\n"}, {"19797.0.tnt", ""}, {"19797.tnt", ""},
        {"99999999999.14.tnt", ""}, {"10222.wmt", "weekday 10222\n"},
        {"Treffen.wmt", "weekday 0\n"},  // every "*.wmt" is taken, unless its number does not
        {"2147483648.wmt", ""}, {".wmt", ""},  // fit or it is hidden like a write's temporary file
    };
    for (const auto& [name, indexed] : cases) {
        NoteIndex index;
        EXPECT_EQ(index.admit(name), !indexed.empty()) << name;
        EXPECT_EQ(describe(index), indexed) << name;
    }
}

// Text and password as ISO-8859-15 bytes; a stored form that reads as the
// text, and the form the text is written in: three digits per character, the
// exclusive-or of the text's and the password's bytes.
TEST(NoteCipher, Cases) {
    struct Case {
        std::string text, password, stored, written;
    };
    const Case cases[] = {
        {"Hi", "ab", "041011", "041011"},  // 72 ^ 97 = 41, 105 ^ 98 = 11
        {"xa", "ya", "001000", "001000"},  // a character equal to the password's gives 000
        {"\xFC", "\xA4", "088", "088"},    // ü ^ €
        {"Hc", "ab", "04101", "041001"},   // a final two-digit group is its own number
        {"a", "a", "x41", "000"},          // no leading digit gives 0, and 0 ^ 97 is "a"
        {"\x86", "a", "999", "231"},       // 999 ^ 97 cut to 8 bits; 134 ^ 97 = 231
    };
    for (const Case& c : cases) {
        EXPECT_EQ(decipher_note(c.stored, c.password), c.text) << c.stored;
        EXPECT_EQ(encipher_note(c.text, c.password), c.written) << c.text;
    }
}

const std::string kBar = "\u00A0|\u00A0";

class NoteStoreTest : public ::testing::Test {
protected:
    test::TempDir dir;
    NoteStore store{dir.path(), "geheim"};

    void weekday_note(int month_code, int weekday, int ordinal, std::string_view text) {
        ASSERT_EQ(store.write_weekday(weekday_key(month_code, weekday, ordinal), text), std::nullopt);
    }
    // The notes joined on one line; a day is highlighted exactly when they are not empty.
    std::string one_line(const Day& day) const {
        const std::string text = notes_of_day(store, day, Separator::OneLine);
        EXPECT_EQ(day_has_notes(store, day), !text.empty()) << calendar::format_iso_date(day);
        return text;
    }
};
using NotesOfDayTest = NoteStoreTest;

TEST_F(NoteStoreTest, GoldenFilesWithAndWithoutPassword) {
    for (const std::string variant : {"plain", "enciphered"}) {
        const auto user_dir = dir / variant;
        const auto golden = test::source_path("notes/golden/" + variant);
        const std::string password = variant == "plain" ? "" : kPassword;
        std::filesystem::create_directory(user_dir);
        NoteStore writer(user_dir, password);
        for (const GoldenNote& note : kGolden) {
            EXPECT_EQ(note.write(writer, note.text), std::nullopt);
            EXPECT_EQ(test::read_bytes(user_dir / note.file), test::read_bytes(golden / note.file)) << note.file;
        }
        EXPECT_EQ(files_in(user_dir), files_in(golden));

        NoteStore reader(golden, password);
        reader.scan_all();
        EXPECT_EQ(describe(reader.index()), "daily 20240215\nperiodic 19797.14\nyearly 215\nweekday 10222\n");
        for (const GoldenNote& note : kGolden) EXPECT_EQ(note.read(reader), note.text) << variant;
    }
}

TEST_F(NoteStoreTest, RefusesWhatCouldNotBeReadBack) {
    ASSERT_EQ(store.write_daily(20240215, "alt"), std::nullopt);
    const auto error = store.write_daily(20240215, "Preis 5 \u2013 6 €");
    ASSERT_TRUE(error.has_value());
    EXPECT_NE(error->find("\u2013\" (U+2013)"), std::string::npos) << *error;
    EXPECT_EQ(store.read_daily(20240215), "alt");

    for (const auto& refused : {store.write_daily(19691131, "x"), store.write_daily(20381132, "x"),
                                store.write_yearly(0, "x"), store.write_yearly(1132, "x"),
                                store.write_periodic({19797, 0}, "x"),
                                store.write_periodic({-7, 14}, "x"), store.write_weekday(-1, "x")})
        EXPECT_TRUE(refused.has_value());
    EXPECT_EQ(files_in(dir.path()), std::set<std::string>{"20240215.txt"});
}

TEST_F(NoteStoreTest, LongestNoteIsCutOnlyWhenEnciphered) {
    const std::string text(kMaxNoteLength, 'A');
    NoteStore plain(dir.path(), "");
    ASSERT_EQ(plain.write_daily(20240215, text), std::nullopt);
    EXPECT_EQ(std::filesystem::file_size(dir / "20240215.txt"), 8191u);
    EXPECT_EQ(plain.read_daily(20240215), text);

    NoteStore enciphered(dir.path(), "a");  // 'A' ^ 'a' = 32, stored as "032"
    ASSERT_EQ(enciphered.write_daily(20240215, text), std::nullopt);
    EXPECT_EQ(std::filesystem::file_size(dir / "20240215.txt"), 24573u);
    // 8192 bytes are read: 2730 groups and "03", which gives 3 ^ 'a' = 'b'.
    EXPECT_EQ(enciphered.read_daily(20240215), std::string(2730, 'A') + "b");
}

// The scan sorts each kind; an empty text deletes the note (the deletions
// by kind are the session's deletion test's).
TEST_F(NoteStoreTest, ScanSortsAndEmptyTextDeletes) {
    for (const char* name : {"20240116.txt", "20231131.txt", "20240115.txt", "19797.14.tnt",
                             "1.jnt", "11254.wmt", "10222.wmt"})
        test::write_bytes(dir / name, "x");
    store.scan_all();
    EXPECT_EQ(describe(store.index()),
              "daily 20231131\ndaily 20240115\ndaily 20240116\n"
              "periodic 19797.14\nyearly 1\nweekday 10222\nweekday 11254\n");
    EXPECT_EQ(store.write_daily(20240116, ""), std::nullopt);
    EXPECT_EQ(store.write_daily(20240116, ""), std::nullopt);  // nothing to delete is no error
    EXPECT_FALSE(files_in(dir.path()).contains("20240116.txt"));
    EXPECT_EQ(store.index().daily, (std::vector<std::int32_t>{20231131, 20240115}));
}

TEST_F(NoteStoreTest, InterruptedWriteKeepsTheOldNote) {
    NoteStore enciphered(dir.path(), kPassword);
    ASSERT_EQ(enciphered.write_daily(20240215, "alte Notiz"), std::nullopt);
    EXPECT_TRUE(test::fails_on_full_disk(
        [&] { return !enciphered.write_daily(20240215, std::string(100, 'n')).has_value(); }));
    EXPECT_EQ(enciphered.read_daily(20240215), "alte Notiz");
    EXPECT_EQ(files_in(dir.path()), std::set<std::string>{"20240215.txt"});
}

TEST_F(NotesOfDayTest, PeriodicNoteAlsoBeforeItsStart) {
    ASSERT_EQ(store.write_periodic({100, 7}, "Wochenputz"), std::nullopt);
    const std::pair<int, int> cases[] = {{2, 1}, {93, 1}, {94, 0}, {100, 1}, {107, 1}};
    for (const auto& [day, count] : cases) {
        EXPECT_EQ(periodic_note_count(store, day), count) << day;
        EXPECT_EQ(one_line(Day::from_number(day)), count ? "Wochenputz" : "") << day;
    }
    ASSERT_EQ(store.write_periodic({97, 3}, "Gießen"), std::nullopt);
    EXPECT_EQ(periodic_note_count(store, 100), 2);
    EXPECT_EQ(periodic_notes_of_day(store, 103), (std::vector<PeriodicKey>{{97, 3}}));
}

TEST_F(NotesOfDayTest, FourthAndLastWeekday) {
    constexpr std::string_view kShort[7] = {"So", "Mo", "Di", "Mi", "Do", "Fr", "Sa"};
    for (int w = 0; w < 7; ++w) {
        weekday_note(kEveryMonth, w, 3, "4. " + std::string(kShort[w]));
        weekday_note(kEveryMonth, w, kLastOrdinal, "letzter " + std::string(kShort[w]));
    }
    // March 2024 has 31 days and begins on a Friday.
    const std::tuple<Day, std::string, int> cases[] = {
        {date(2024, 3, 21), "", 0},
        {date(2024, 3, 25), "4. Mo" + kBar + "letzter Mo", 3},  // no fifth Monday follows
        {date(2024, 3, 29), "letzter Fr", 1},  // days 29-31 have ordinal 4 themselves
        {date(2023, 2, 28), "4. Di" + kBar + "letzter Di", 3},  // 28-day February
        {date(2024, 2, 22), "4. Do", 1},                        // the 29th is the last Thursday
    };
    for (const auto& [day, notes, flags] : cases) {
        EXPECT_EQ(one_line(day), notes) << calendar::format_iso_date(day);
        EXPECT_EQ(weekday_note_flags(store, day), flags) << calendar::format_iso_date(day);
    }
}

TEST_F(NotesOfDayTest, MonthNoteWinsAndEveryMonthNoteStandsIn) {
    const std::array<std::string, 4> cases[] = {  // March, every month, April: shown
        {"", "Chor", "", "Chor"},  // stands in for March, and is not shown twice
        {"Probe", "Chor", "", "Probe" + kBar + "Chor"},
        {"Chor", "Chor", "", "Chor"},
        {"", "", "Chor", ""},
    };
    for (const auto& [march, every_month, april, notes] : cases) {
        weekday_note(2, 2, 2, march);  // third Tuesday
        weekday_note(kEveryMonth, 2, 2, every_month);
        weekday_note(3, 2, 2, april);
        EXPECT_EQ(one_line(date(2024, 3, 19)), notes);
    }
}

TEST_F(NotesOfDayTest, JoinsInFixedOrderWithEitherSeparator) {
    const Day day = date(2024, 3, 19);
    ASSERT_EQ(store.write_yearly(day_key(day), "<2000>. Jahrestag"), std::nullopt);
    EXPECT_EQ(one_line(day), "24. Jahrestag");
    weekday_note(2, 2, 2, "Chor");
    ASSERT_EQ(store.write_periodic({day.number - 700, 14}, "Müll"), std::nullopt);
    ASSERT_EQ(store.write_daily(date_key(day), "Arzt\r\num 10"), std::nullopt);
    EXPECT_EQ(notes_of_day(store, day, Separator::MultiLine),
              "Arzt\r\num 10\r\n\r\nMüll\r\n\r\n24. Jahrestag\r\n\r\nChor");
    EXPECT_EQ(one_line(day), "Arzt\r\num 10" + kBar + "Müll" + kBar + "24. Jahrestag" + kBar + "Chor");

    // Indexed notes whose files are gone still add their empty entries.
    std::filesystem::remove(dir / "20240219.txt");
    std::filesystem::remove(dir / "219.jnt");
    EXPECT_EQ(one_line(day), kBar + "Müll" + kBar + kBar + "Chor");
    weekday_note(2, 2, 2, "");
    EXPECT_EQ(one_line(day), kBar + "Müll" + kBar);  // one trailing separator removed
}

TEST(YearPlaceholder, Cases) {
    const std::pair<std::string, std::string> cases[] = {  // shown in 2024
        {"<1980>. Geburtstag", "44. Geburtstag"},
        {"<1980> und <1980>, <2000>", "44 und 44, 24"}, {"<2030>", "-6"}, {"<>", "<>"},
        {"<19800> Jahre", "<19800> Jahre"},  // five digits
        {"<0> <1980>", "<0> <1980>"},        // 0 stops everything after it
        {"<0198>", "<0198>"},                // names 198, and "<198>" is not there
        {"<0198> <198>", "<0198> 1826"},
        {"<1äöü> <1>", "<1äöü> 2023"},  // four characters in seven bytes
        {"<1äöüß> <1>", "<1äöüß> <1>"},
    };
    for (const auto& [text, shown] : cases)
        EXPECT_EQ(apply_year_placeholder(text, 2024), shown) << text;
}

TEST_F(NotesOfDayTest, OverviewOfTheShownMonths) {
    const auto overview = [&](const Day& today) {
        // Any day of the first and the last shown month stands for the whole month.
        return notes_overview(store, date(2024, 3, 20).number, date(2024, 4, 10).number, today);
    };
    ASSERT_EQ(store.write_daily(20240204, "A\r\n\r\nA2"), std::nullopt);
    ASSERT_EQ(store.write_yearly(204, "B"), std::nullopt);
    ASSERT_EQ(store.write_daily(20240219, "C"), std::nullopt);
    ASSERT_EQ(store.write_daily(20240302, "D"), std::nullopt);
    ASSERT_EQ(store.write_daily(20240128, "Februar"), std::nullopt);
    ASSERT_EQ(store.write_daily(20240401, "Mai"), std::nullopt);

    const std::string march = "04.03.2024\r\nA\r\nA2\r\nB\r\n";
    const std::string later = " \r\n19.03.2024\r\nC\r\n \r\n02.04.2024\r\nD";
    const std::string line = std::string(56, '_') + "\r\n";
    EXPECT_EQ(overview(date(2024, 3, 15)), march + line + later);
    EXPECT_EQ(overview(date(2024, 3, 1)), march + later);
    EXPECT_EQ(overview(date(2024, 4, 30)), march + later + "\r\n" + line);
    EXPECT_EQ(one_line(date(2024, 3, 19)), "C");
}

}  // namespace
}  // namespace sk::notes
