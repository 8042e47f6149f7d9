#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "notes/note_cipher.hpp"
#include "notes/note_keys.hpp"
#include "notes/note_store.hpp"
#include "settings/text_encoding.hpp"
#include "test_support.hpp"

namespace sk::notes {
namespace {

using calendar::Day;

Day date(int year, int month, int mday) { return Day::from_date(year, month - 1, mday); }

// The password of the golden files, "Schlüssel€" as ISO-8859-15 bytes.
const std::string kPassword = "Schl\xFCssel\xA4";

// The golden notes (tests/notes/golden/), as UTF-8 text.
struct GoldenNote {
    NoteKind kind;
    std::string file;
    std::string text;
};
const std::vector<GoldenNote> kGolden = {
    {NoteKind::Daily, "20240215.txt", "Zahnarzt um 10 Uhr\r\n25 € Zuzahlung, Öffnungszeiten prüfen"},
    {NoteKind::Periodic, "19797.14.tnt", "Müll rausstellen"},
    {NoteKind::Yearly, "215.jnt", "<1980>. Geburtstag von Jörg"},
    {NoteKind::Weekday, "10222.wmt", "Stammtisch, Beitrag 5 €"},
};

std::optional<std::string> write(NoteStore& store, NoteKind kind, const std::string& file,
                                 std::string_view text) {
    switch (kind) {
        case NoteKind::Daily: return store.write_daily(*daily_key_of_name(file), text);
        case NoteKind::Periodic: return store.write_periodic(*periodic_key_of_name(file), text);
        case NoteKind::Yearly: return store.write_yearly(*yearly_key_of_name(file), text);
        case NoteKind::Weekday: return store.write_weekday(*weekday_key_of_name(file), text);
    }
    return std::nullopt;
}

std::string read(const NoteStore& store, NoteKind kind, const std::string& file) {
    switch (kind) {
        case NoteKind::Daily: return store.read_daily(*daily_key_of_name(file));
        case NoteKind::Periodic: return store.read_periodic(*periodic_key_of_name(file));
        case NoteKind::Yearly: return store.read_yearly(*yearly_key_of_name(file));
        case NoteKind::Weekday: return store.read_weekday(*weekday_key_of_name(file));
    }
    return {};
}

std::set<std::string> files_in(const std::filesystem::path& dir) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(dir))
        names.insert(entry.path().filename().string());
    return names;
}

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

TEST(NoteKeys, KeysOfADayUseZeroBasedMonths) {
    struct Case {
        Day day;
        std::int32_t date_key;
        std::int32_t day_key;
        std::string yearly_file;
    };
    const Case cases[] = {
        {date(2024, 3, 15), 20240215, 215, "215.jnt"},   {date(2024, 1, 1), 20240001, 1, "1.jnt"},
        {date(2024, 1, 10), 20240010, 10, "10.jnt"},     {date(2024, 2, 1), 20240101, 101, "101.jnt"},
        {date(2024, 12, 24), 20241124, 1124, "1124.jnt"}, {date(2038, 12, 31), 20381131, 1131, "1131.jnt"},
        {date(1970, 1, 1), 19700001, 1, "1.jnt"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(calendar::format_iso_date(c.day));
        EXPECT_EQ(date_key(c.day), c.date_key);
        EXPECT_EQ(day_key(c.day), c.day_key);
        EXPECT_EQ(yearly_file_name(day_key(c.day)), c.yearly_file);
    }
    EXPECT_EQ(daily_file_name(20240215), "20240215.txt");
    EXPECT_EQ(periodic_file_name({19797, 14}), "19797.14.tnt");
    EXPECT_EQ(weekday_file_name(weekday_key(2, 2, 2)), "10222.wmt");        // third Tuesday of March
    EXPECT_EQ(weekday_file_name(weekday_key(kEveryMonth, 5, kLastOrdinal)), "11254.wmt");  // last Friday
}

TEST(NoteKeys, OrdinalIsTheWholePartOfDayBySevenPointOne) {
    for (int mday = 1; mday <= 31; ++mday) {
        SCOPED_TRACE(mday);
        EXPECT_EQ(ordinal_in_month(mday), static_cast<int>(mday / 7.1));
        EXPECT_EQ(ordinal_in_month(mday), std::min((mday - 1) / 7, 4));
    }
}

TEST(NoteNames, ScanAdmissionRules) {
    struct Case {
        std::string name;
        std::string indexed;  // describe() of an index holding only this name
    };
    const Case cases[] = {
        {"20240215.txt", "daily 20240215\n"},
        {"19700001.txt", "daily 19700001\n"},
        {"20381131.txt", "daily 20381131\n"},
        {"19691131.txt", ""},                    // 31 December 1969
        {"20381132.txt", ""},
        {"202402150.txt", "daily 20240215\n"},   // only the first 8 characters count
        {"2024x.txt", ""},                       // value 2024
        {"Notizen.txt", ""},
        {".20240215.txt", ""},                   // hidden, like a temporary file
        {".20240215.txt.a8Xk2Q", ""},
        {"20240215.TXT", ""},
        {"20240215.txt~", ""},
        {"215.jnt", "yearly 215\n"},
        {"1.jnt", "yearly 1\n"},
        {"1131.jnt", "yearly 1131\n"},
        {"0.jnt", ""},
        {"1132.jnt", ""},
        {"19797.14.tnt", "periodic 19797.14\n"},
        {"19797.0.tnt", ""},
        {"19797.tnt", ""},
        {"19797..tnt", ""},
        {"19797.14x.tnt", "periodic 19797.14\n"},
        {"x.5.tnt", "periodic 0.5\n"},
        {"19797.-7.tnt", ""},
        {"99999999999.14.tnt", ""},              // beyond 32 bits
        {"19797.99999999999.tnt", ""},
        {"10222.wmt", "weekday 10222\n"},
        {"Treffen.wmt", "weekday 0\n"},          // every "*.wmt" is taken
        {"2147483647.wmt", "weekday 2147483647\n"},
        {"2147483648.wmt", ""},
        {".wmt", ""},
        {"Einstellungen.dat", ""},
        {"txt", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        NoteIndex index;
        EXPECT_EQ(index.admit(c.name), !c.indexed.empty());
        EXPECT_EQ(describe(index), c.indexed);
    }
}

TEST(NoteNames, EveryWrittenNameIsReadBack) {
    for (int m = 0; m < 12; ++m) {
        for (int d = 1; d <= 31; ++d) {
            const std::int32_t day = m * 100 + d;
            ASSERT_EQ(yearly_key_of_name(yearly_file_name(day)), day);
            ASSERT_EQ(daily_key_of_name(daily_file_name(20380000 + day)), 20380000 + day);
            ASSERT_EQ(daily_key_of_name(daily_file_name(19700000 + day)), 19700000 + day);
        }
    }
    for (int month = 0; month <= kEveryMonth; ++month)
        for (int weekday = 0; weekday < 7; ++weekday)
            for (int ordinal = 0; ordinal <= kLastOrdinal; ++ordinal) {
                const auto key = weekday_key(month, weekday, ordinal);
                ASSERT_EQ(weekday_key_of_name(weekday_file_name(key)), key);
            }
    for (const PeriodicKey key : {PeriodicKey{0, 1}, PeriodicKey{24683, 365}, PeriodicKey{19797, 14}})
        EXPECT_EQ(periodic_key_of_name(periodic_file_name(key)), key);
}

TEST(NoteCipher, EnciphersEachCodeToThreeDigits) {
    struct Case {
        std::string text;
        std::string password;
        std::string stored;
    };
    const Case cases[] = {
        {"Hi", "ab", "041011"},                 // 72 ^ 97 = 41, 105 ^ 98 = 11
        {"a", "a", "000"},                      // character equal to the password character
        {"xa", "ya", "001000"},
        {"abc", "ab", "000000002"},             // the password starts over
        {"\xFC", "\xA4", "088"},                // ü ^ € = 0x58
        {"\x9F", "`", "255"},
        {"Hi", "", "Hi"},                       // no password: plain text
        {"", "ab", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.stored);
        EXPECT_EQ(encipher_note(c.text, c.password), c.stored);
        EXPECT_EQ(decipher_note(c.stored, c.password), c.text);
    }
}

TEST(NoteCipher, DeciphersAnyBytes) {
    struct Case {
        std::string stored;
        std::string password;
        std::string text;
    };
    const Case cases[] = {
        {"04101", "ab", "Hc"},     // a final group of two digits is its own number: 1 ^ 98
        {"0410", "ab", "Hb"},      // and of one digit: 0 ^ 98
        {"x41", "a", "a"},         // no leading digit: 0
        {"4 1", "a", "e"},         // leading digits only: 4 ^ 97
        {"999", "a", "\x86"},      // (999 ^ 97) cut to 8 bits
        {"041011041", "a", "H" "j" "H"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.stored);
        EXPECT_EQ(decipher_note(c.stored, c.password), c.text);
    }
}

TEST(NoteCipher, EveryCodeRoundTrips) {
    std::string text;
    for (int c = 0; c < 256; ++c) text += static_cast<char>(c);
    const std::string stored = encipher_note(text, kPassword);
    EXPECT_EQ(stored.size(), 768u);
    EXPECT_EQ(stored.find_first_not_of("0123456789"), std::string::npos);
    EXPECT_EQ(decipher_note(stored, kPassword), text);
}

class NoteStoreTest : public ::testing::Test {
protected:
    test::TempDir dir;
};

TEST_F(NoteStoreTest, GoldenFilesWithAndWithoutPassword) {
    for (const std::string variant : {"plain", "enciphered"}) {
        SCOPED_TRACE(variant);
        const std::string password = variant == "plain" ? "" : kPassword;
        const auto user_dir = dir / variant;
        std::filesystem::create_directory(user_dir);
        NoteStore store(user_dir, password);
        std::set<std::string> expected_files;
        for (const GoldenNote& note : kGolden) {
            SCOPED_TRACE(note.file);
            EXPECT_EQ(write(store, note.kind, note.file, note.text), std::nullopt);
            EXPECT_EQ(test::read_bytes(user_dir / note.file),
                      test::read_bytes(test::source_path("notes/golden/" + variant + "/" + note.file)));
            expected_files.insert(note.file);
        }
        EXPECT_EQ(files_in(user_dir), expected_files);

        NoteStore fresh(test::source_path("notes/golden/" + variant), password);
        fresh.scan_all();
        EXPECT_EQ(describe(fresh.index()), "daily 20240215\nperiodic 19797.14\nyearly 215\nweekday 10222\n");
        for (const GoldenNote& note : kGolden) EXPECT_EQ(read(fresh, note.kind, note.file), note.text);
    }
}

TEST_F(NoteStoreTest, WrongOrMissingPasswordGivesOtherText) {
    const auto golden = test::source_path("notes/golden/enciphered");
    const GoldenNote& note = kGolden.front();
    EXPECT_EQ(NoteStore(golden, "").read_daily(20240215), test::read_bytes(golden / note.file));
    const std::string wrong = NoteStore(golden, "Schlussel").read_daily(20240215);
    EXPECT_NE(wrong, note.text);
    EXPECT_EQ(settings::utf8_length(wrong), settings::utf8_length(note.text));
}

TEST_F(NoteStoreTest, EmptyTextDeletesTheNoteAndItsKey) {
    NoteStore store(dir.path(), "");
    for (const GoldenNote& note : kGolden) ASSERT_EQ(write(store, note.kind, note.file, note.text), std::nullopt);
    for (const GoldenNote& note : kGolden) {
        SCOPED_TRACE(note.file);
        NoteIndex own;
        own.admit(note.file);
        std::string expected = describe(store.index());
        expected.erase(expected.find(describe(own)), describe(own).size());
        EXPECT_EQ(write(store, note.kind, note.file, ""), std::nullopt);
        EXPECT_FALSE(std::filesystem::exists(dir / note.file));
        EXPECT_EQ(read(store, note.kind, note.file), "");
        EXPECT_EQ(describe(store.index()), expected);
    }
    EXPECT_TRUE(files_in(dir.path()).empty());
    // Deleting a note that is not there is no error.
    EXPECT_EQ(store.write_daily(20240101, ""), std::nullopt);
}

TEST_F(NoteStoreTest, RefusesWhatCouldNotBeReadBack) {
    NoteStore store(dir.path(), "");
    ASSERT_EQ(store.write_daily(20240215, "alt"), std::nullopt);

    const auto error = store.write_daily(20240215, "Preis 5 \u2013 6 €");
    ASSERT_TRUE(error.has_value());
    EXPECT_NE(error->find("\u2013"), std::string::npos) << *error;
    EXPECT_NE(error->find("U+2013"), std::string::npos) << *error;
    EXPECT_EQ(store.read_daily(20240215), "alt");
    EXPECT_TRUE(store.write_daily(20240215, "\xFF kein UTF-8").has_value());
    EXPECT_EQ(store.read_daily(20240215), "alt");

    EXPECT_TRUE(store.write_daily(19691131, "x").has_value());
    EXPECT_TRUE(store.write_daily(20381132, "x").has_value());
    EXPECT_TRUE(store.write_yearly(0, "x").has_value());
    EXPECT_TRUE(store.write_yearly(1132, "x").has_value());
    EXPECT_TRUE(store.write_periodic({19797, 0}, "x").has_value());
    EXPECT_TRUE(store.write_periodic({-7, 14}, "x").has_value());
    EXPECT_TRUE(store.write_weekday(-1, "x").has_value());
    EXPECT_EQ(files_in(dir.path()), std::set<std::string>{"20240215.txt"});
}

TEST_F(NoteStoreTest, LongestNoteIsCutOnlyWhenEnciphered) {
    // 'A' ^ 'a' = 32, stored as "032" per character.
    const std::string text(kMaxNoteLength, 'A');

    NoteStore plain(dir / "plain", "");
    std::filesystem::create_directory(plain.directory());
    ASSERT_EQ(plain.write_daily(20240215, text), std::nullopt);
    EXPECT_EQ(std::filesystem::file_size(plain.directory() / "20240215.txt"), 8191u);
    EXPECT_EQ(plain.read_daily(20240215), text);

    NoteStore enciphered(dir / "enciphered", "a");
    std::filesystem::create_directory(enciphered.directory());
    ASSERT_EQ(enciphered.write_daily(20240215, text), std::nullopt);
    EXPECT_EQ(std::filesystem::file_size(enciphered.directory() / "20240215.txt"), 24573u);
    // 8192 bytes: 2730 whole groups and "03", which is 3 ^ 'a' = 'b'.
    EXPECT_EQ(enciphered.read_daily(20240215), std::string(2730, 'A') + "b");

    // A longer file from elsewhere is read up to the cut.
    test::write_bytes(plain.directory() / "101.jnt", std::string(9000, 'x'));
    EXPECT_EQ(plain.read_yearly(101), std::string(8192, 'x'));
}

TEST_F(NoteStoreTest, ScanListsNoteFilesOnly) {
    for (const char* name : {"20381131.txt", "20240215.txt", "19691131.txt", "Liste.txt", ".20240101.txt.x1Y2z3",
                             "19797.0.tnt", "19797.14.tnt", "1.jnt", "1132.jnt", "11254.wmt", "10222.wmt",
                             "Einstellungen.dat", "Schichtmarkierung.dat"})
        test::write_bytes(dir / name, "x");
    std::filesystem::create_directory(dir / "Archiv");
    NoteStore store(dir.path(), "");
    store.scan_all();
    EXPECT_EQ(describe(store.index()),
              "daily 20240215\ndaily 20381131\nperiodic 19797.14\nyearly 1\nweekday 10222\nweekday 11254\n");

    // A scan of one kind leaves the other indexes alone.
    std::filesystem::remove(dir / "1.jnt");
    std::filesystem::remove(dir / "10222.wmt");
    store.scan(NoteKind::Yearly);
    EXPECT_EQ(describe(store.index()),
              "daily 20240215\ndaily 20381131\nperiodic 19797.14\nweekday 10222\nweekday 11254\n");

    NoteStore missing(dir / "fehlt", "");
    missing.scan_all();
    EXPECT_EQ(describe(missing.index()), "");
    EXPECT_EQ(missing.write_daily(20240215, "x").has_value(), true);
}

TEST_F(NoteStoreTest, DeleteDailyNotesUpToADate) {
    NoteStore store(dir.path(), "");
    for (const std::int32_t key : {20240114, 20240115, 20240116, 20231131})
        ASSERT_EQ(store.write_daily(key, "Tag"), std::nullopt);
    ASSERT_EQ(store.write_yearly(1, "Neujahr"), std::nullopt);
    store.delete_daily_notes_up_to(date_key(date(2024, 2, 15)));
    EXPECT_EQ(describe(store.index()), "daily 20240116\nyearly 1\n");
    EXPECT_EQ(files_in(dir.path()), (std::set<std::string>{"20240116.txt", "1.jnt"}));
}

TEST_F(NoteStoreTest, DeleteAllNotesOfAKind) {
    struct Case {
        void (NoteStore::*delete_all)();
        std::string left;
    };
    const Case cases[] = {
        {&NoteStore::delete_all_periodic_notes, "daily 20240215\nyearly 215\nweekday 10222\n"},
        {&NoteStore::delete_all_yearly_notes, "daily 20240215\nperiodic 19797.14\nweekday 10222\n"},
        {&NoteStore::delete_all_weekday_notes, "daily 20240215\nperiodic 19797.14\nyearly 215\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.left);
        std::filesystem::remove_all(dir / "user");
        std::filesystem::create_directory(dir / "user");
        NoteStore store(dir / "user", kPassword);
        for (const GoldenNote& note : kGolden) ASSERT_EQ(write(store, note.kind, note.file, note.text), std::nullopt);
        (store.*c.delete_all)();
        EXPECT_EQ(describe(store.index()), c.left);
        store.scan_all();
        EXPECT_EQ(describe(store.index()), c.left);
    }
}

TEST_F(NoteStoreTest, InterruptedWriteKeepsTheOldNote) {
    NoteStore store(dir.path(), kPassword);
    ASSERT_EQ(store.write_daily(20240215, "alte Notiz"), std::nullopt);
    const std::string old_bytes = test::read_bytes(dir / "20240215.txt");
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        // The file may grow to 16 bytes only: the write fails half way.
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit{16, 16};
        setrlimit(RLIMIT_FSIZE, &limit);
        const auto error = store.write_daily(20240215, std::string(100, 'n'));
        _exit(error.has_value() ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    EXPECT_EQ(test::read_bytes(dir / "20240215.txt"), old_bytes);
    EXPECT_EQ(store.read_daily(20240215), "alte Notiz");
    EXPECT_EQ(files_in(dir.path()), std::set<std::string>{"20240215.txt"});
}

}  // namespace
}  // namespace sk::notes
