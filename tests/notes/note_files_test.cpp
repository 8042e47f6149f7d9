#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "notes/note_cipher.hpp"
#include "notes/note_keys.hpp"
#include "notes/note_store.hpp"
#include "test_support.hpp"

namespace sk::notes {
namespace {

using calendar::Day;

Day date(int year, int month, int mday) {
    return Day::from_date(year, month - 1, mday);
}

const std::string kPassword = "Schl\xFCssel\xA4";  // "Schlüssel€" in ISO-8859-15

// The notes of tests/notes/golden/{plain,enciphered}, as UTF-8 text.
struct GoldenNote {
    std::string file;
    std::string text;
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

std::set<std::string> files_in(const std::filesystem::path& dir) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(dir))
        names.insert(entry.path().filename());
    return names;
}

// One line per indexed key, as "daily 20240215" or "periodic 19797.14".
std::string describe(const NoteIndex& index) {
    std::string text;
    for (const auto key : index.daily)
        text += "daily " + std::to_string(key) + "\n";
    for (const auto key : index.periodic)
        text += "periodic " + std::to_string(key.start) + "." + std::to_string(key.interval) + "\n";
    for (const auto key : index.yearly)
        text += "yearly " + std::to_string(key) + "\n";
    for (const auto key : index.weekday)
        text += "weekday " + std::to_string(key) + "\n";
    return text;
}

TEST(NoteKeys, ZeroBasedMonthsAndOrdinals) {
    struct Case {
        Day day;
        std::int32_t date_key, day_key;
    };
    for (const Case& c :
         {Case{date(2024, 3, 15), 20240215, 215}, Case{date(2024, 1, 10), 20240010, 10},
          Case{date(2024, 2, 1), 20240101, 101}, Case{date(2038, 12, 31), 20381131, 1131}}) {
        EXPECT_EQ(date_key(c.day), c.date_key);
        EXPECT_EQ(day_key(c.day), c.day_key);
    }
    EXPECT_EQ(yearly_file_name(day_key(date(2024, 1, 1))), "1.jnt");
    EXPECT_EQ(weekday_file_name(weekday_key(2, 2, 2)), "10222.wmt");  // third Tuesday of March
    EXPECT_EQ(weekday_file_name(weekday_key(kEveryMonth, 5, kLastOrdinal)), "11254.wmt");
    for (int mday = 1; mday <= 31; ++mday) {
        EXPECT_EQ(ordinal_in_month(mday), static_cast<int>(mday / 7.1)) << mday;
        EXPECT_EQ(ordinal_in_month(mday), std::min((mday - 1) / 7, 4)) << mday;
    }
}

TEST(NoteNames, ScanAdmissionRules) {
    const std::pair<std::string, std::string> cases[] = {
        {"20240215.txt", "daily 20240215\n"},
        {"19691131.txt", ""},  // 31 December 1969
        {"20381131.txt", "daily 20381131\n"},
        {"20381132.txt", ""},
        {"202402150.txt", "daily 20240215\n"},  // the first 8 characters count
        {"Notizen.txt", ""},
        {".20240215.txt", ""},  // hidden, like the temporary files of writes
        {"20240215.TXT", ""},
        {"1.jnt", "yearly 1\n"},
        {"1131.jnt", "yearly 1131\n"},
        {"0.jnt", ""},
        {"1132.jnt", ""},
        {"19797.14.tnt", "periodic 19797.14\n"},
        {"19797.0.tnt", ""},
        {"19797.tnt", ""},
        {"19797.-7.tnt", ""},
        {"x.5.tnt", "periodic 0.5\n"},
        {"19797.14x.tnt", "periodic 19797.14\n"},
        {"99999999999.14.tnt", ""},
        {"10222.wmt", "weekday 10222\n"},
        {"Treffen.wmt", "weekday 0\n"},  // every "*.wmt" is taken
        {"2147483648.wmt", ""},         // unless its number does not fit
        {".wmt", ""},
        {"Einstellungen.dat", ""},
    };
    for (const auto& [name, indexed] : cases) {
        NoteIndex index;
        EXPECT_EQ(index.admit(name), !indexed.empty()) << name;
        EXPECT_EQ(describe(index), indexed) << name;
    }
}

TEST(NoteCipher, Cases) {
    struct Case {
        std::string text, password, stored;
        bool both_ways;
    };
    const Case cases[] = {
        {"Hi", "ab", "041011", true},      // 72 ^ 97 = 41, 105 ^ 98 = 11
        {"xa", "ya", "001000", true},      // a character equal to the password's gives 000
        {"abc", "ab", "000000002", true},  // the password starts over
        {"\xFC", "\xA4", "088", true},     // ü ^ €
        {"Hi", "", "Hi", true},            // no password: plain text
        {"Hc", "ab", "04101", false},      // a final two-digit group is its own number
        {"a", "a", "x41", false},          // no leading digit gives 0
        {"\x86", "a", "999", false},       // 999 ^ 97 cut to 8 bits
    };
    for (const Case& c : cases) {
        if (c.both_ways) {
            EXPECT_EQ(encipher_note(c.text, c.password), c.stored);
        }
        EXPECT_EQ(decipher_note(c.stored, c.password), c.text) << c.stored;
    }
}

class NoteStoreTest : public ::testing::Test {
protected:
    test::TempDir dir;
    NoteStore store{dir.path(), ""};
};

TEST_F(NoteStoreTest, GoldenFilesWithAndWithoutPassword) {
    for (const std::string variant : {"plain", "enciphered"}) {
        const auto user_dir = dir / variant;
        const auto golden = test::source_path("notes/golden/" + variant);
        const std::string password = variant == "plain" ? "" : kPassword;
        std::filesystem::create_directory(user_dir);
        NoteStore writer(user_dir, password);
        for (const GoldenNote& note : kGolden) {
            EXPECT_EQ(note.write(writer, note.text), std::nullopt);
            EXPECT_EQ(test::read_bytes(user_dir / note.file), test::read_bytes(golden / note.file))
                << note.file;
        }
        EXPECT_EQ(files_in(user_dir), files_in(golden));

        NoteStore reader(golden, password);
        reader.scan_all();
        EXPECT_EQ(describe(reader.index()),
                  "daily 20240215\nperiodic 19797.14\nyearly 215\nweekday 10222\n");
        for (const GoldenNote& note : kGolden)
            EXPECT_EQ(note.read(reader), note.text) << variant;
    }
    // Without the password the stored digits show.
    EXPECT_EQ(NoteStore(dir / "enciphered", "").read_yearly(215),
              test::read_bytes(dir / "enciphered/215.jnt"));
}

TEST_F(NoteStoreTest, EmptyTextDeletesTheNoteAndItsKey) {
    for (const GoldenNote& note : kGolden)
        ASSERT_EQ(note.write(store, note.text), std::nullopt);
    for (const GoldenNote& note : kGolden)
        EXPECT_EQ(note.write(store, ""), std::nullopt);
    EXPECT_EQ(describe(store.index()), "");
    EXPECT_TRUE(files_in(dir.path()).empty());
    EXPECT_EQ(kGolden[0].read(store), "");
    EXPECT_EQ(store.write_daily(20240101, ""), std::nullopt);  // nothing to delete is no error
}

TEST_F(NoteStoreTest, RefusesWhatCouldNotBeReadBack) {
    ASSERT_EQ(store.write_daily(20240215, "alt"), std::nullopt);
    const auto error = store.write_daily(20240215, "Preis 5 \u2013 6 €");
    ASSERT_TRUE(error.has_value());
    EXPECT_NE(error->find("\u2013\" (U+2013)"), std::string::npos) << *error;
    EXPECT_TRUE(store.write_daily(20240215, "\xFF kein UTF-8").has_value());
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
    ASSERT_EQ(store.write_daily(20240215, text), std::nullopt);
    EXPECT_EQ(std::filesystem::file_size(dir / "20240215.txt"), 8191u);
    EXPECT_EQ(store.read_daily(20240215), text);

    NoteStore enciphered(dir.path(), "a");  // 'A' ^ 'a' = 32, stored as "032"
    ASSERT_EQ(enciphered.write_daily(20240215, text), std::nullopt);
    EXPECT_EQ(std::filesystem::file_size(dir / "20240215.txt"), 24573u);
    // 8192 bytes are read: 2730 groups and "03", which gives 3 ^ 'a' = 'b'.
    EXPECT_EQ(enciphered.read_daily(20240215), std::string(2730, 'A') + "b");

    test::write_bytes(dir / "101.jnt", std::string(9000, 'x'));
    EXPECT_EQ(store.read_yearly(101), std::string(8192, 'x'));
}

TEST_F(NoteStoreTest, ScanSortsAndScansOneKindAlone) {
    for (const char* name : {"20381131.txt", "20240215.txt", ".20240101.txt.x1Y2z3", "19797.14.tnt",
                             "1.jnt", "11254.wmt", "10222.wmt", "Schichtmarkierung.dat"})
        test::write_bytes(dir / name, "x");
    store.scan_all();
    EXPECT_EQ(describe(store.index()),
              "daily 20240215\ndaily 20381131\nperiodic 19797.14\nyearly 1\nweekday 10222\nweekday "
              "11254\n");
    std::filesystem::remove(dir / "1.jnt");
    std::filesystem::remove(dir / "10222.wmt");
    store.scan(NoteKind::Yearly);
    EXPECT_EQ(describe(store.index()),
              "daily 20240215\ndaily 20381131\nperiodic 19797.14\nweekday 10222\nweekday 11254\n");
}

TEST_F(NoteStoreTest, DeleteOperations) {
    for (const std::int32_t key : {20240114, 20240115, 20240116, 20231131})
        ASSERT_EQ(store.write_daily(key, "Tag"), std::nullopt);
    for (const GoldenNote& note : std::vector(kGolden.begin() + 1, kGolden.end()))
        ASSERT_EQ(note.write(store, note.text), std::nullopt);
    store.delete_daily_notes_up_to(date_key(date(2024, 2, 15)));
    EXPECT_EQ(describe(store.index()),
              "daily 20240116\nperiodic 19797.14\nyearly 215\nweekday 10222\n");
    store.delete_all_periodic_notes();
    EXPECT_EQ(describe(store.index()), "daily 20240116\nyearly 215\nweekday 10222\n");
    store.delete_all_yearly_notes();
    store.delete_all_weekday_notes();
    EXPECT_EQ(describe(store.index()), "daily 20240116\n");
    EXPECT_EQ(files_in(dir.path()), std::set<std::string>{"20240116.txt"});
}

TEST_F(NoteStoreTest, InterruptedWriteKeepsTheOldNote) {
    NoteStore enciphered(dir.path(), kPassword);
    ASSERT_EQ(enciphered.write_daily(20240215, "alte Notiz"), std::nullopt);
    EXPECT_TRUE(test::fails_on_full_disk(
        [&] { return !enciphered.write_daily(20240215, std::string(100, 'n')).has_value(); }));
    EXPECT_EQ(enciphered.read_daily(20240215), "alte Notiz");
    EXPECT_EQ(files_in(dir.path()), std::set<std::string>{"20240215.txt"});
}

}  // namespace
}  // namespace sk::notes
