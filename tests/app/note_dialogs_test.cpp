// The four note editors and the deletion window "Lösche Notizen und
// Markierungen" driven as a user drives them, through the same functions
// the window's keys call (app::edit_note, app::delete_notes_up_to): what
// they show, and the files they leave behind, read back with the notes
// library's own reader.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>

#include "app/daily_note_dialog.hpp"
#include "app/delete_notes_dialog.hpp"
#include "app/note_actions.hpp"
#include "app/periodic_note_dialog.hpp"
#include "app/weekday_note_dialog.hpp"
#include "app/yearly_note_dialog.hpp"
#include "gui_support.hpp"
#include "marks/shift_markings.hpp"
#include "notes/note_editing.hpp"
#include "test_support.hpp"

namespace sk::app {
namespace {

using calendar::Day;
using notes::NoteKind;
using test::cell;
using test::DialogAnswerer;
using test::parent_window;
using test::send_key;
using Files = std::set<std::string>;

Files files_in(const std::filesystem::path& dir) {
    Files names;
    for (const auto& entry : std::filesystem::directory_iterator(dir))
        names.insert(entry.path().filename());
    return names;
}

// Friday 15 March 2024: its daily note is 20240215.txt (months count from 0).
const Day kFriday = Day::from_date(2024, 2, 15);

class NoteEditorTest : public ::testing::Test {
  protected:
    void SetUp() override { open(""); }
    void open(const std::string& password) {
        session.user_dir = dir.path();
        session.password_latin9 = password;
        session.notes = notes::NoteStore(dir.path(), password);
        session.notes.scan_all();
    }

    // Runs the editor as key T, P, J or W does and `action` in it.
    bool edit(NoteKind kind, const Day& day, const std::function<void(NoteEditorDialog&)>& action) {
        bool changed = false;
        test::play(
            {{notes::editor_title(kind, day),
              [&](Gtk::Window& window) { action(dynamic_cast<NoteEditorDialog&>(window)); }}},
            [&] { changed = edit_note(parent_window(), cell(), session, kind, day); });
        return changed;
    }

    Files files() const { return files_in(dir.path()); }

    sk::test::TempDir dir;
    session::Session session;
};

void type_into(NoteEditorDialog& editor, const Glib::ustring& text) {
    test::type_text(editor.get_text_view(), text);
}

// Every editor opens with the focus in the text; paging only where a day
// can have several notes.
TEST_F(NoteEditorTest, FocusAndPaging) {
    for (const NoteKind kind : notes::kNoteKinds) {
        edit(kind, kFriday, [&](NoteEditorDialog& editor) {
            EXPECT_TRUE(editor.get_text_view().has_focus()) << editor.get_title();
            const bool paging = kind == NoteKind::Periodic || kind == NoteKind::Weekday;
            EXPECT_EQ(editor.get_next_button().is_visible(), paging) << editor.get_title();
            send_key(editor, GDK_KEY_Escape);
        });
    }
    EXPECT_TRUE(files().empty());
}

// Alt+T clears the text, Alt+A brings back what the note held, Alt+S saves.
// (A button's mnemonic clicks it a moment later.)
TEST_F(NoteEditorTest, ClearRevertAndSaveByAltKeys) {
    ASSERT_FALSE(session.notes.write_daily(20240215, "Alt"));
    edit(NoteKind::Daily, kFriday, [](NoteEditorDialog& editor) {
        send_key(editor, GDK_KEY_t, GDK_MOD1_MASK);
        EXPECT_TRUE(test::wait_until([&] { return editor.get_text().empty(); }));
        type_into(editor, "Neu");
        send_key(editor, GDK_KEY_a, GDK_MOD1_MASK);
        EXPECT_TRUE(test::wait_until([&] { return editor.get_text() == "Alt"; }));
        send_key(editor, GDK_KEY_t, GDK_MOD1_MASK);
        EXPECT_TRUE(test::wait_until([&] { return editor.get_text().empty(); }));
        type_into(editor, "Neu");
        send_key(editor, GDK_KEY_s, GDK_MOD1_MASK);
    });
    EXPECT_EQ(session.notes.read_daily(20240215), "Neu");
}

// Typed, saved with Ctrl+S under the password: the store's reader gives the
// text back ("€" through ISO-8859-15), with the line end the files keep.
TEST_F(NoteEditorTest, DailyNoteTypedAndSavedWithCtrlS) {
    open("Schl\xFCssel");  // "Schlüssel" in ISO-8859-15
    EXPECT_TRUE(edit(NoteKind::Daily, kFriday, [](NoteEditorDialog& editor) {
        type_into(editor, "Zahnarzt 10 Uhr");
        send_key(editor.get_text_view(), GDK_KEY_Return);
        type_into(editor, "25 € Zuzahlung");
        send_key(editor, GDK_KEY_s, GDK_CONTROL_MASK);
    }));
    EXPECT_EQ(files(), Files{"20240215.txt"});
    EXPECT_EQ(notes::NoteStore(dir.path(), "Schl\xFCssel").read_daily(20240215),
              "Zahnarzt 10 Uhr\r\n25 € Zuzahlung");
    // Opened again, the editor shows it; Escape without a change writes nothing.
    const std::string bytes = sk::test::read_bytes(dir / "20240215.txt");
    edit(NoteKind::Daily, kFriday, [&](NoteEditorDialog& editor) {
        EXPECT_EQ(editor.get_text(), "Zahnarzt 10 Uhr\n25 € Zuzahlung");
        send_key(editor, GDK_KEY_Escape);
    });
    EXPECT_EQ(sk::test::read_bytes(dir / "20240215.txt"), bytes);
}

// Pasted past 8191 characters, the text is cut with a message.
TEST_F(NoteEditorTest, PastedTextIsCutToTheLimitWithAMessage) {
    DialogAnswerer info("Info", Gtk::RESPONSE_OK);
    edit(NoteKind::Daily, kFriday, [&](NoteEditorDialog& editor) {
        Gtk::Clipboard::get()->set_text(Glib::ustring(9000, gunichar('x')));
        send_key(editor.get_text_view(), GDK_KEY_v, GDK_CONTROL_MASK);
        ASSERT_TRUE(test::wait_until([&] { return info.count() == 1; }));
        send_key(editor, GDK_KEY_s, GDK_CONTROL_MASK);
    });
    EXPECT_EQ(info.texts(),
              std::vector<std::string>{"Die Länge der Notiz wurde auf 8191 Zeichen gekürzt!"});
    EXPECT_EQ(sk::test::read_bytes(dir / "20240215.txt"), std::string(8191, 'x'));
}

TEST_F(NoteEditorTest, DeleteNoteWithoutANoteLeavesNoFile) {
    for (const NoteKind kind : notes::kNoteKinds) {
        EXPECT_FALSE(edit(kind, kFriday, [](NoteEditorDialog& editor) {
            type_into(editor, "nie gespeichert");
            editor.get_delete_button().clicked();
        }));
    }
    EXPECT_TRUE(files().empty());
    ASSERT_FALSE(session.notes.write_yearly(notes::day_key(kFriday), "Jahrestag"));
    EXPECT_TRUE(edit(NoteKind::Yearly, kFriday, [](NoteEditorDialog& editor) {
        send_key(editor, GDK_KEY_n, GDK_MOD1_MASK);  // Alt+N: "Lösche Notiz"
    }));
    EXPECT_TRUE(files().empty());
}

TEST_F(NoteEditorTest, RefusedCharacterLeavesNoFileAndKeepsTheText) {
    DialogAnswerer error("Fehler", Gtk::RESPONSE_OK);
    DialogAnswerer question("Frage", Gtk::RESPONSE_NO);
    edit(NoteKind::Daily, kFriday, [&](NoteEditorDialog& editor) {
        type_into(editor, "Pfeil → rechts");
        send_key(editor, GDK_KEY_s, GDK_CONTROL_MASK);
        ASSERT_TRUE(test::wait_until([&] { return error.count() == 1; }));
        EXPECT_TRUE(editor.get_mapped());
        EXPECT_EQ(editor.get_text(), "Pfeil → rechts");
        send_key(editor, GDK_KEY_Escape);
    });
    ASSERT_EQ(error.count(), 1);
    EXPECT_NE(error.texts()[0].find("\"→\""), std::string::npos) << error.texts()[0];
    EXPECT_EQ(question.texts(),
              std::vector<std::string>{"Sollen die Änderungen gespeichert werden?"});
    EXPECT_TRUE(files().empty());
}

// Escape after a change asks; "Ja" saves (for "Nein" see above).
TEST_F(NoteEditorTest, EscapeWithChangesAsks) {
    DialogAnswerer question("Frage", Gtk::RESPONSE_YES);
    edit(NoteKind::Yearly, kFriday, [](NoteEditorDialog& editor) {
        type_into(editor, "Hochzeitstag");
        send_key(editor, GDK_KEY_Escape);
    });
    EXPECT_EQ(question.count(), 1);
    EXPECT_EQ(files(), Files{"215.jnt"});
}

TEST_F(NoteEditorTest, YearlyEditorInsertsTheYearAtTheCursor) {
    edit(NoteKind::Yearly, kFriday, [](NoteEditorDialog& editor) {
        auto& yearly = dynamic_cast<YearlyNoteDialog&>(editor);
        Gtk::SpinButton& year = yearly.get_year_field();
        EXPECT_EQ(year.get_value_as_int(), 2024);
        type_into(editor, " von Jörg");
        const auto buffer = editor.get_text_view().get_buffer();
        buffer->place_cursor(buffer->begin());
        year.set_value(1980);
        yearly.get_insert_button().clicked();
        EXPECT_TRUE(editor.get_text_view().has_focus());
        send_key(editor, GDK_KEY_s, GDK_CONTROL_MASK);
    });
    EXPECT_EQ(session.notes.read_yearly(215), "<1980>. Geburtstag  von Jörg");
}

TEST_F(NoteEditorTest, PagingTwoPeriodicNotesOfADay) {
    ASSERT_FALSE(session.notes.write_periodic({kFriday.number - 7, 7}, "Sport"));
    ASSERT_FALSE(session.notes.write_periodic({kFriday.number - 28, 14}, "Papiertonne"));
    std::vector<std::string> seen;
    std::vector<Glib::ustring> labels;
    edit(NoteKind::Periodic, kFriday, [&](NoteEditorDialog& editor) {
        auto& periodic = dynamic_cast<PeriodicNoteDialog&>(editor);
        for (int i = 0; i < 3; ++i) {
            labels.push_back(editor.get_entry_text());
            seen.push_back(editor.get_text() + " alle " +
                           std::to_string(periodic.get_interval_field().get_value_as_int()));
            if (i < 2) editor.get_next_button().clicked();
        }
        EXPECT_FALSE(editor.get_next_button().is_sensitive());
        send_key(editor, GDK_KEY_Left, GDK_MOD1_MASK);
        send_key(editor, GDK_KEY_Left, GDK_MOD1_MASK);
        labels.push_back(editor.get_entry_text());
        EXPECT_FALSE(editor.get_previous_button().is_sensitive());
        send_key(editor, GDK_KEY_Right, GDK_MOD1_MASK);
        labels.push_back(editor.get_entry_text());
        send_key(editor, GDK_KEY_Escape);
    });
    EXPECT_EQ(labels, (std::vector<Glib::ustring>{
                          "Eintrag 1 von insgesamt 2", "Eintrag 2 von insgesamt 2", "Neuer Eintrag",
                          "Eintrag 1 von insgesamt 2", "Eintrag 2 von insgesamt 2"}));
    std::sort(seen.begin(), seen.end() - 1);  // the notes come in directory order
    EXPECT_EQ(seen, (std::vector<std::string>{"Papiertonne alle 14", "Sport alle 7", " alle 7"}));
}

// A changed repeat moves the note onto another note only after "Ja".
TEST_F(NoteEditorTest, PeriodicRepeatChangedAndOverwriteQuestion) {
    const notes::PeriodicKey weekly{kFriday.number - 7, 7};
    ASSERT_FALSE(session.notes.write_periodic(weekly, "Sport"));
    ASSERT_FALSE(session.notes.write_periodic({kFriday.number, 3}, "Blumen"));
    const std::string three_file = std::to_string(kFriday.number) + ".3.tnt";
    // The weekly note among the two, set to repeat every `days` and saved;
    // after a "Nein" the editor stays open until Escape.
    auto set_repeat = [](int days, bool no = false) {
        return [days, no](NoteEditorDialog& editor) {
            if (editor.get_text() != "Sport") editor.get_next_button().clicked();
            ASSERT_EQ(editor.get_text(), "Sport");
            dynamic_cast<PeriodicNoteDialog&>(editor).get_interval_field().set_value(days);
            editor.get_save_button().clicked();
            if (!no) return;
            EXPECT_TRUE(editor.get_mapped());
            send_key(editor, GDK_KEY_Escape);
        };
    };
    {
        DialogAnswerer question("Frage", Gtk::RESPONSE_NO, 2);
        edit(NoteKind::Periodic, kFriday, set_repeat(3, true));
        EXPECT_EQ(question.texts(),
                  (std::vector<std::string>{"Eine Datei mit der gewählten Periode existiert "
                                            "bereits!\nSoll sie überschrieben werden?",
                                            "Sollen die Änderungen gespeichert werden?"}));
    }
    EXPECT_EQ(files(), (Files{notes::periodic_file_name(weekly), three_file}));
    {
        DialogAnswerer question("Frage", Gtk::RESPONSE_YES);
        edit(NoteKind::Periodic, kFriday, set_repeat(3));
        EXPECT_EQ(question.count(), 1);
    }
    EXPECT_EQ(files(), Files{three_file});
    EXPECT_EQ(session.notes.read_note(three_file), "Sport");
}

// The weekday editor proposes the day's own place in its month, every month.
TEST_F(NoteEditorTest, WeekdayNoteOfTheDay) {
    edit(NoteKind::Weekday, Day::from_date(2024, 2, 29), [](NoteEditorDialog& editor) {
        auto& weekday = dynamic_cast<WeekdayNoteDialog&>(editor);
        EXPECT_EQ(weekday.get_ordinal_field().get_active_text(), "letzten");  // the 29th
        EXPECT_EQ(weekday.get_month_field().get_active_text(), "jeden");
        type_into(editor, "Monatsabschluss");
        send_key(editor, GDK_KEY_s, GDK_CONTROL_MASK);
    });
    EXPECT_EQ(files(), Files{"11254.wmt"});
}

// Sunday 10 March 2024 is the cursor day.
const Day kCursor = Day::from_date(2024, 2, 10);

class DeleteNotesTest : public ::testing::Test {
  protected:
    void SetUp() override {
        session.user_dir = dir.path();
        session.notes = notes::NoteStore(dir.path(), "");
        for (const int mday : {1, 10, 20})
            ASSERT_FALSE(session.notes.write_daily(20240200 + mday, "Tag"));
        ASSERT_FALSE(session.notes.write_yearly(1124, "Heiligabend"));
        session.shift_markings.items = {{kCursor.number - 3, 1, 2}, {kCursor.number + 3, 1, 2}};
        ASSERT_TRUE(marks::save_shift_markings(dir.path(), session.shift_markings));
        session.notes.scan_all();
        before = files_in(dir.path());
        ASSERT_EQ(before.size(), 5u);
    }

    // Runs the window as key L does and `action` in it.
    bool run(const std::function<void(DeleteNotesDialog&)>& action) {
        bool changed = false;
        test::play(
            {{"Lösche Notizen und Markierungen",
              [&](Gtk::Window& window) { action(dynamic_cast<DeleteNotesDialog&>(window)); }}},
            [&] { changed = delete_notes_up_to(parent_window(), cell(), session, kCursor); });
        return changed;
    }

    sk::test::TempDir dir;
    session::Session session;
    Files before;
};

// No box ticked, the cursor day, a mnemonic each.
TEST_F(DeleteNotesTest, OpensSafe) {
    DeleteNotesDialog dialog(parent_window(), cell(), kCursor);
    EXPECT_EQ(dialog.get_date_field().get_text(), "10.03.2024");
    EXPECT_EQ(dialog.get_choice(), (session::DeletionChoice{kCursor.number}));
    std::set<guint> mnemonics;
    for (Gtk::CheckButton* box :
         {&dialog.get_daily_box(), &dialog.get_shift_box(), &dialog.get_calendar_box(),
          &dialog.get_periodic_box(), &dialog.get_yearly_box(), &dialog.get_weekday_box()}) {
        EXPECT_FALSE(box->get_active()) << test::accessible_name(*box);
        mnemonics.insert(dynamic_cast<Gtk::Label*>(box->get_child())->get_mnemonic_keyval());
    }
    EXPECT_EQ(mnemonics.size(), 6u);
}

TEST_F(DeleteNotesTest, DeletesUpToTheDateAfterTheQuestion) {
    DialogAnswerer question("Frage", Gtk::RESPONSE_YES);
    EXPECT_TRUE(run([](DeleteNotesDialog& dialog) {
        dialog.get_date_field().set_text("7.3.2024");
        send_key(dialog, GDK_KEY_t, GDK_MOD1_MASK);  // Alt+T: "Tagesnotizen"
        dialog.get_shift_box().set_active(true);
        dialog.get_yearly_box().set_active(true);
        dialog.get_delete_button().clicked();
    }));
    EXPECT_EQ(question.texts(),
              std::vector<std::string>{"Sollen die Notizen wirklich alle gelöscht werden?"});
    EXPECT_EQ(files_in(dir.path()),
              (Files{"20240210.txt", "20240220.txt", "Schichtmarkierung.dat"}));
    const auto shifts = marks::load_shift_markings(dir.path()).items;
    ASSERT_EQ(shifts.size(), 1u);
    EXPECT_EQ(shifts[0].day, kCursor.number + 3);
}

TEST_F(DeleteNotesTest, NothingTickedOrNoOrEscapeDeletesNothing) {
    const std::string shifts = sk::test::read_bytes(dir / "Schichtmarkierung.dat");
    {
        // No box: the question still comes, and "Ja" deletes nothing.
        DialogAnswerer question("Frage", Gtk::RESPONSE_YES);
        run([](DeleteNotesDialog& dialog) { dialog.get_delete_button().clicked(); });
        EXPECT_EQ(question.count(), 1);
    }
    {
        // "Nein": nothing deleted, the window stays for another choice.
        DialogAnswerer question("Frage", Gtk::RESPONSE_NO);
        EXPECT_FALSE(run([](DeleteNotesDialog& dialog) {
            dialog.get_daily_box().set_active(true);
            dialog.get_delete_button().clicked();
            EXPECT_TRUE(dialog.get_mapped());
            send_key(dialog, GDK_KEY_Escape);
        }));
        EXPECT_EQ(question.count(), 1);
    }
    // Return in the date field is no "Löschen"; Escape leaves.
    EXPECT_FALSE(run([](DeleteNotesDialog& dialog) {
        dialog.get_daily_box().set_active(true);
        dialog.get_date_field().grab_focus();
        send_key(dialog, GDK_KEY_Return);
        send_key(dialog, GDK_KEY_Escape);
    }));
    EXPECT_EQ(files_in(dir.path()), before);
    EXPECT_EQ(sk::test::read_bytes(dir / "Schichtmarkierung.dat"), shifts);
}

}  // namespace
}  // namespace sk::app
