// What the note editors decide: line ends, the length limit, the notes an
// editor pages through, where a changed note goes, and the save itself,
// checked against the files on disk and the store's own reader.
#include "notes/note_editing.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "notes/note_cipher.hpp"
#include "notes/notes_of_day.hpp"
#include "test_support.hpp"

namespace sk::notes {
namespace {

using calendar::Day;

using test::files_in;

std::string repeat(std::string_view piece, std::size_t times) {
    std::string text;
    for (std::size_t i = 0; i < times; ++i)
        text += piece;
    return text;
}

TEST(NoteText, LineEndsBetweenEditorAndFile) {
    struct Case {
        std::string stored, edited, stored_again;
    };
    const Case cases[] = {
        {"a\r\nb", "a\nb", "a\r\nb"},
        {"a\rb", "a\nb", "a\r\nb"},  // a lone carriage return is a line end too
        {"a\nb", "a\nb", "a\r\nb"},
        {"\r\n\r\n", "\n\n", "\r\n\r\n"},
        {"Grüße €\r\n", "Grüße €\n", "Grüße €\r\n"},
        {"", "", ""},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(editor_text(c.stored), c.edited) << c.stored;
        EXPECT_EQ(stored_text(c.edited), c.stored_again) << c.stored;
    }
}

TEST(NoteText, LengthAsStoredAndTheCut) {
    struct Case {
        std::string edited;
        std::size_t length;
    };
    for (const Case& c : {Case{"", 0}, Case{"abc", 3}, Case{"äß€", 3}, Case{"a\nb", 4},
                          Case{"a\r\nb", 4}, Case{"\n", 2}}) {
        EXPECT_EQ(stored_length(c.edited), c.length) << c.edited;
        EXPECT_FALSE(cut_to_note_length(c.edited)) << c.edited;
    }
    EXPECT_FALSE(cut_to_note_length(repeat("x", 8191)));
    struct Cut {
        std::string edited;
        std::string kept;
    };
    const Cut cuts[] = {
        {repeat("x", 8192), repeat("x", 8191)},
        {repeat("€", 9000), repeat("€", 8191)},  // characters, not bytes
        // A line end that does not fit whole is dropped.
        {repeat("x", 8190) + "\nx", repeat("x", 8190)},
        {repeat("x", 8189) + "\nx", repeat("x", 8189) + "\n"},
        {repeat("ab\n", 3000), repeat("ab\n", 2047) + "ab"},
    };
    for (const Cut& c : cuts) {
        const auto cut = cut_to_note_length(c.edited);
        ASSERT_TRUE(cut) << c.edited.size();
        EXPECT_EQ(*cut, c.kept) << c.edited.size();
    }
    EXPECT_EQ(note_cut_message(), "Die Länge der Notiz wurde auf 8191 Zeichen gekürzt!");
}

// Refusals name the first character ISO-8859-15 lacks; titles and the
// year placeholder the editors insert.
TEST(NoteText, RefusalsTitlesAndPlaceholder) {
    EXPECT_FALSE(refused_note_text("Zahnarzt: 25 € Zuzahlung, Öffnungszeiten prüfen"));
    for (const std::string bad : {"Pfeil → rechts 🎉", "a\xFF"})
        EXPECT_NE(refused_note_text(bad).value_or("").find("nicht gespeichert"), std::string::npos);
    const Day day = Day::from_date(2024, 2, 15);
    EXPECT_EQ(editor_title(NoteKind::Daily, day), "Notizen für den 15.03.2024");
    EXPECT_EQ(editor_title(NoteKind::Yearly, day), "Jährliche Notizen für den 15.03.2024");
    EXPECT_EQ(editor_title(NoteKind::Periodic, day), "Periodische Notizen am 15.03.2024");
    EXPECT_EQ(editor_title(NoteKind::Weekday, day), "Wochentag im Monat");
    EXPECT_EQ(apply_year_placeholder("Tante Erna " + year_placeholder(1980), 2024),
              "Tante Erna 44. Geburtstag ");
}

class NoteEditingTest : public ::testing::Test {
  protected:
    void SetUp() override { store.scan_all(); }
    test::TempDir dir;
    NoteStore store{dir.path(), ""};
};

TEST_F(NoteEditingTest, NotesAnEditorPagesThrough) {
    // Friday 23 February 2024 is the last Friday of its month and the fourth.
    const Day friday = Day::from_date(2024, 1, 23);
    ASSERT_EQ(friday.weekday(), 5);
    for (const std::int32_t key : {11254, 10154, 10152, 11253, 10153, 10253})
        ASSERT_FALSE(store.write_weekday(key, "W" + std::to_string(key)));
    // Repeats that meet the day and one that misses it by a day.
    const PeriodicKey on_day{friday.number - 42, 14}, also{friday.number - 9, 3},
        missed{friday.number - 41, 14};
    for (const PeriodicKey key : {on_day, also, missed})
        ASSERT_FALSE(store.write_periodic(key, "P"));
    ASSERT_FALSE(store.write_daily(date_key(friday), "T"));

    const auto weekday = notes_for_editor(store, NoteKind::Weekday, friday);
    const std::vector<NoteRef> expected_weekday = {NoteRef::weekday(10153), NoteRef::weekday(11253),
                                                   NoteRef::weekday(10154),
                                                   NoteRef::weekday(11254)};
    EXPECT_EQ(weekday, expected_weekday);
    // A week earlier the third Friday: February's note; no "last" notes.
    EXPECT_EQ(notes_for_editor(store, NoteKind::Weekday, Day::from_number(friday.number - 7)),
              std::vector<NoteRef>{NoteRef::weekday(10152)});

    const auto periodic = notes_for_editor(store, NoteKind::Periodic, friday);
    ASSERT_EQ(periodic.size(), 2u);
    EXPECT_EQ(std::count(periodic.begin(), periodic.end(), NoteRef::periodic_note(on_day)), 1);
    EXPECT_EQ(std::count(periodic.begin(), periodic.end(), NoteRef::periodic_note(also)), 1);

    EXPECT_EQ(notes_for_editor(store, NoteKind::Daily, friday),
              std::vector<NoteRef>{NoteRef::daily(20240123)});
    EXPECT_TRUE(notes_for_editor(store, NoteKind::Yearly, friday).empty());

    EXPECT_EQ(entry_label(0, 2), "Eintrag 1 von insgesamt 2");
    EXPECT_EQ(entry_label(1, 2), "Eintrag 2 von insgesamt 2");
    EXPECT_EQ(entry_label(2, 2), "Neuer Eintrag");
    EXPECT_EQ(entry_label(0, 0), "Neuer Eintrag");
}

TEST(NoteTargets, WhereASaveGoes) {
    const Day day = Day::from_number(100);
    struct Case {
        std::optional<PeriodicKey> shown;
        int interval;
        PeriodicKey target;
    };
    const Case cases[] = {
        {std::nullopt, 7, {100, 7}},          // a new note starts on the day
        {PeriodicKey{93, 7}, 7, {93, 7}},     // only the text changed
        {PeriodicKey{86, 7}, 14, {86, 14}},   // the day still lies on the new repeat
        {PeriodicKey{93, 7}, 14, {100, 14}},  // it would not: the repeat counts from the day
        {PeriodicKey{2, 7}, 1, {2, 1}},
        {PeriodicKey{107, 7}, 7, {107, 7}},  // a start after the day is kept as well
    };
    for (const Case& c : cases) {
        std::optional<NoteRef> shown;
        if (c.shown) shown = NoteRef::periodic_note(*c.shown);
        EditorKey key = editor_key(shown, day);
        key.interval = c.interval;
        const NoteRef target = save_target(NoteKind::Periodic, day, shown, key);
        EXPECT_EQ(target, NoteRef::periodic_note(c.target))
            << (c.shown ? c.shown->start : -1) << " every " << c.interval;
        EXPECT_TRUE(periodic_note_applies(target.periodic, day.number));
    }

    // The last Friday of every month, entered on Friday 23 February 2024.
    const Day friday = Day::from_date(2024, 1, 23);
    const EditorKey fresh = editor_key(std::nullopt, friday);
    EXPECT_EQ(fresh, (EditorKey{7, 3, kEveryMonth}));
    EXPECT_EQ(save_target(NoteKind::Weekday, friday, std::nullopt, {7, kLastOrdinal, kEveryMonth}),
              NoteRef::weekday(11254));
    EXPECT_EQ(editor_key(NoteRef::weekday(10154), friday), (EditorKey{7, 4, 1}));
    EXPECT_EQ(save_target(NoteKind::Daily, friday, std::nullopt, fresh), NoteRef::daily(20240123));
    EXPECT_EQ(save_target(NoteKind::Yearly, friday, std::nullopt, fresh), NoteRef::yearly(123));
}

TEST_F(NoteEditingTest, SavingMovesOverwritesAndDeletes) {
    const NoteRef weekly = NoteRef::periodic_note({93, 7});
    const NoteRef other = NoteRef::periodic_note({100, 14});
    ASSERT_FALSE(apply_note_edit(store, {std::nullopt, weekly, "Müll\nraus"}));
    EXPECT_EQ(test::read_bytes(dir / "93.7.tnt"), "M\xFCll\r\nraus");
    EXPECT_EQ(read_for_editor(store, weekly), "Müll\nraus");

    // The repeat changed: the note moves, nothing is left behind.
    const NoteEdit move{weekly, other, "Müll raus"};
    EXPECT_FALSE(overwrites_other_note(store, move));
    ASSERT_FALSE(apply_note_edit(store, move));
    EXPECT_EQ(files_in(dir.path()), std::set<std::string>{"100.14.tnt"});
    EXPECT_EQ(store.index().periodic, std::vector<PeriodicKey>{other.periodic});

    // A second note onto the first one's key asks first; the same key does not.
    const NoteEdit onto{std::nullopt, other, "Papier"};
    EXPECT_TRUE(overwrites_other_note(store, onto));
    EXPECT_FALSE(overwrites_other_note(store, {other, other, "Papier"}));
    EXPECT_FALSE(overwrites_other_note(store, {std::nullopt, other, ""}));

    // Refused text touches nothing, not even the note it would replace.
    const auto refused = apply_note_edit(store, {other, weekly, "Pfeil →"});
    ASSERT_TRUE(refused);
    EXPECT_NE(refused->find("→"), std::string::npos);
    EXPECT_EQ(files_in(dir.path()), std::set<std::string>{"100.14.tnt"});

    // Emptied text deletes the shown note only, never the one at the target.
    ASSERT_FALSE(apply_note_edit(store, {weekly, NoteRef::periodic_note({93, 1}), "x"}));
    ASSERT_FALSE(apply_note_edit(store, {other, NoteRef::periodic_note({93, 1}), ""}));
    EXPECT_EQ(files_in(dir.path()), std::set<std::string>{"93.1.tnt"});
    EXPECT_FALSE(deletion_of(std::nullopt));
    ASSERT_FALSE(apply_note_edit(store, *deletion_of(NoteRef::periodic_note({93, 1}))));
    EXPECT_TRUE(files_in(dir.path()).empty());

    // Longer text is cut to the limit as stored; it reads back whole.
    ASSERT_FALSE(
        apply_note_edit(store, {std::nullopt, NoteRef::daily(20240215), repeat("Zeile\n", 2000)}));
    const std::string kept = read_for_editor(store, NoteRef::daily(20240215));
    EXPECT_EQ(stored_length(kept), 8191u);
    EXPECT_EQ(test::read_bytes(dir / "20240215.txt").size(), 8191u);
}

TEST_F(NoteEditingTest, EncipheredLikeTheStoreWritesIt) {
    NoteStore locked(dir.path(), "Geheim");
    ASSERT_FALSE(apply_note_edit(locked, {std::nullopt, NoteRef::yearly(1124), "Fest\nFeier"}));
    EXPECT_EQ(test::read_bytes(dir / "1124.jnt"), encipher_note("Fest\r\nFeier", "Geheim"));
}

TEST_F(NoteEditingTest, FailedWriteKeepsTheNoteWhereItWas) {
    const NoteRef weekly = NoteRef::periodic_note({93, 7});
    ASSERT_FALSE(apply_note_edit(store, {std::nullopt, weekly, "alt"}));
    const NoteEdit move{weekly, NoteRef::periodic_note({100, 14}),
                        "ein Text, der nicht mehr auf die volle Platte passt"};
    EXPECT_TRUE(test::fails_on_full_disk([&] { return !apply_note_edit(store, move); }));
    EXPECT_EQ(files_in(dir.path()), std::set<std::string>{"93.7.tnt"});
    EXPECT_EQ(test::read_bytes(dir / "93.7.tnt"), "alt");
}

TEST(NotePaging, EntryAfterASave) {
    const NoteRef a = NoteRef::weekday(1), b = NoteRef::weekday(2), c = NoteRef::weekday(3);
    struct Case {
        std::vector<NoteRef> entries;
        std::optional<NoteRef> saved;
        std::size_t old_index;
        int step;
        std::size_t expected;
    };
    const Case cases[] = {
        {{a, b, c}, b, 1, +1, 2},
        {{a, b, c}, b, 1, -1, 0},
        {{a, c, b}, b, 1, +1, 3},  // listed anew in another order: after it comes the new note
        {{a, c}, std::nullopt, 1, +1, 1},  // b went: c took its place
        {{a, c}, std::nullopt, 1, -1, 0},
        {{a, c}, b, 1, +1, 1},  // b moved off the day
        {{a, b, c}, c, 2, +1, 3},
        {{a, b}, b, 0, -1, 0},  // a new note saved from the first place
        {{}, std::nullopt, 0, -1, 0},
        {{a}, a, 1, -1, 0},  // the new note, saved, listed first
    };
    for (const Case& t : cases)
        EXPECT_EQ(entry_after_save(t.entries, t.saved, t.old_index, t.step), t.expected)
            << t.entries.size() << " entries, from " << t.old_index << " by " << t.step;
}

}  // namespace
}  // namespace sk::notes
