// The four note editors driven as a user drives them, through the same
// function the window's keys call (app::edit_note): what they show, and the
// files they leave behind, read back with the notes library's own reader.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>

#include "app/daily_note_dialog.hpp"
#include "app/note_actions.hpp"
#include "app/periodic_note_dialog.hpp"
#include "app/weekday_note_dialog.hpp"
#include "app/yearly_note_dialog.hpp"
#include "gui_support.hpp"
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

// Friday 15 March 2024: its daily note is 20240215.txt (months count from 0).
const Day kFriday = Day::from_date(2024, 2, 15);
// Friday 29 March 2024, the last Friday of its month.
const Day kLastFriday = Day::from_date(2024, 2, 29);

std::set<std::string> files_in(const std::filesystem::path& dir) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(dir))
        names.insert(entry.path().filename());
    return names;
}

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
        test::run_with(
            notes::editor_title(kind, day),
            [&] { changed = edit_note(parent_window(), cell(), session, kind, day); },
            [&](Gtk::Window& window) { action(dynamic_cast<NoteEditorDialog&>(window)); });
        return changed;
    }

    sk::test::TempDir dir;
    session::Session session;
};

void type_into(NoteEditorDialog& editor, const Glib::ustring& text) {
    test::type_text(editor.get_text_view(), text);
}

TEST_F(NoteEditorTest, FrameButtonsTooltipsAndFocus) {
    struct Button {
        Gtk::Button& (NoteEditorDialog::*get)();
        const char* name;
        const char* tooltip;
        guint mnemonic;
    };
    const Button buttons[] = {
        {&NoteEditorDialog::get_save_button, "Speichern",
         "Speichert die Notiz und verlässt das Eingabefenster", GDK_KEY_s},
        {&NoteEditorDialog::get_revert_button, "Alles zurück",
         "Nimmt alle Änderungen zurück, sofern beim Aufruf bereits ein Text vorhanden war",
         GDK_KEY_a},
        {&NoteEditorDialog::get_clear_button, "Lösche Text", "Löscht den gesamten Text", GDK_KEY_t},
        {&NoteEditorDialog::get_delete_button, "Lösche Notiz",
         "Löscht die gesamte Notiz und verlässt das Eingabefenster", GDK_KEY_n},
    };
    for (const NoteKind kind : notes::kNoteKinds) {
        edit(kind, kFriday, [&](NoteEditorDialog& editor) {
            EXPECT_TRUE(editor.get_text_view().has_focus()) << editor.get_title();
            EXPECT_EQ(test::accessible_name(editor.get_text_view()), "Notiztext");
            for (const Button& b : buttons) {
                Gtk::Button& button = (editor.*b.get)();
                EXPECT_EQ(test::accessible_name(button), b.name);
                EXPECT_EQ(button.get_tooltip_text(), b.tooltip);
                auto* label = dynamic_cast<Gtk::Label*>(button.get_child());
                ASSERT_TRUE(label);
                EXPECT_EQ(label->get_mnemonic_keyval(), b.mnemonic) << b.name;
            }
            const bool paging = kind == NoteKind::Periodic || kind == NoteKind::Weekday;
            EXPECT_EQ(editor.get_next_button().is_visible(), paging);
            if (paging) {
                EXPECT_EQ(editor.get_previous_button().get_tooltip_text(),
                          "Vorherige Notiz für diesen Tag");
                EXPECT_EQ(editor.get_next_button().get_tooltip_text(),
                          "Nächste Notiz für diesen Tag");
                EXPECT_EQ(editor.get_entry_text(), "Neuer Eintrag");
            }
            send_key(editor, GDK_KEY_Escape);
        });
    }
    EXPECT_TRUE(files_in(dir.path()).empty());
}

// Typed, saved with Ctrl+S, enciphered with the password: the store's reader
// gives the text back, with the line end as the files keep it.
TEST_F(NoteEditorTest, DailyNoteTypedAndSavedWithCtrlS) {
    open("Schl\xFCssel");  // "Schlüssel" in ISO-8859-15
    const bool changed = edit(NoteKind::Daily, kFriday, [](NoteEditorDialog& editor) {
        type_into(editor, "Zahnarzt 10 Uhr");
        send_key(editor.get_text_view(), GDK_KEY_Return);
        type_into(editor, "25 € Zuzahlung");
        send_key(editor, GDK_KEY_s, GDK_CONTROL_MASK);
    });
    EXPECT_TRUE(changed);
    EXPECT_EQ(files_in(dir.path()), std::set<std::string>{"20240215.txt"});
    const std::string stored = "Zahnarzt 10 Uhr\r\n25 € Zuzahlung";
    const std::string bytes = sk::test::read_bytes(dir / "20240215.txt");
    EXPECT_EQ(bytes.size(), 3 * (stored.size() - 2));  // "€" is one byte in ISO-8859-15
    EXPECT_TRUE(
        std::all_of(bytes.begin(), bytes.end(), [](char c) { return c >= '0' && c <= '9'; }));
    const notes::NoteStore reader(dir.path(), "Schl\xFCssel");
    EXPECT_EQ(reader.read_daily(20240215), stored);
    EXPECT_NE(notes::NoteStore(dir.path(), "").read_daily(20240215), stored);

    // Opened again, the editor shows it; Escape without a change writes nothing.
    edit(NoteKind::Daily, kFriday, [&](NoteEditorDialog& editor) {
        EXPECT_EQ(editor.get_text(), "Zahnarzt 10 Uhr\n25 € Zuzahlung");
        send_key(editor, GDK_KEY_Escape);
    });
    EXPECT_EQ(sk::test::read_bytes(dir / "20240215.txt"), bytes);
}

TEST_F(NoteEditorTest, PasteIsCutToTheLimitWithAMessage) {
    DialogAnswerer info("Info", Gtk::RESPONSE_OK);
    edit(NoteKind::Daily, kFriday, [&](NoteEditorDialog& editor) {
        Gtk::Clipboard::get()->set_text(Glib::ustring(9000, gunichar('x')));
        send_key(editor.get_text_view(), GDK_KEY_v, GDK_CONTROL_MASK);
        ASSERT_TRUE(test::wait_until([&] { return info.count() == 1; }));
        EXPECT_EQ(editor.get_text(), std::string(8191, 'x'));
        editor.get_save_button().clicked();
    });
    EXPECT_EQ(info.texts(),
              std::vector<std::string>{"Die Länge der Notiz wurde auf 8191 Zeichen gekürzt!"});
    EXPECT_EQ(sk::test::read_bytes(dir / "20240215.txt"), std::string(8191, 'x'));
}

TEST_F(NoteEditorTest, TypingPastTheLimitIsCutToo) {
    DialogAnswerer info("Info", Gtk::RESPONSE_OK);
    DialogAnswerer question("Frage", Gtk::RESPONSE_NO);
    edit(NoteKind::Daily, kFriday, [&](NoteEditorDialog& editor) {
        editor.get_text_view().get_buffer()->set_text(std::string(8190, 'x'));
        type_into(editor, "ab");
        ASSERT_TRUE(test::wait_until([&] { return info.count() == 1; }));
        EXPECT_EQ(editor.get_text(), std::string(8190, 'x') + "a");
        send_key(editor, GDK_KEY_Escape);
    });
    EXPECT_EQ(question.count(), 1);
    EXPECT_TRUE(files_in(dir.path()).empty());
}

TEST_F(NoteEditorTest, DeleteNoteWithoutANoteLeavesNoFile) {
    for (const NoteKind kind : notes::kNoteKinds) {
        const bool changed = edit(kind, kFriday, [](NoteEditorDialog& editor) {
            type_into(editor, "nie gespeichert");
            editor.get_delete_button().clicked();
        });
        EXPECT_FALSE(changed);
    }
    EXPECT_TRUE(files_in(dir.path()).empty());

    ASSERT_FALSE(session.notes.write_yearly(notes::day_key(kFriday), "Jahrestag"));
    EXPECT_TRUE(edit(NoteKind::Yearly, kFriday, [](NoteEditorDialog& editor) {
        send_key(editor, GDK_KEY_n, GDK_MOD1_MASK);  // Alt+N: "Lösche Notiz"
    }));
    EXPECT_TRUE(files_in(dir.path()).empty());
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
    EXPECT_TRUE(files_in(dir.path()).empty());
}

TEST_F(NoteEditorTest, EscapeWithChangesAsks) {
    struct Case {
        int answer;
        std::set<std::string> files;
    };
    for (const Case& c : {Case{Gtk::RESPONSE_NO, {}}, Case{Gtk::RESPONSE_YES, {"215.jnt"}}}) {
        DialogAnswerer question("Frage", c.answer);
        edit(NoteKind::Yearly, kFriday, [](NoteEditorDialog& editor) {
            type_into(editor, "Hochzeitstag");
            send_key(editor, GDK_KEY_Escape);
        });
        EXPECT_EQ(question.count(), 1);
        EXPECT_EQ(files_in(dir.path()), c.files);
    }
}

TEST_F(NoteEditorTest, YearlyEditorInsertsTheYearAtTheCursor) {
    edit(NoteKind::Yearly, kFriday, [](NoteEditorDialog& editor) {
        auto& yearly = dynamic_cast<YearlyNoteDialog&>(editor);
        Gtk::SpinButton& year = yearly.get_year_field();
        EXPECT_EQ(year.get_value_as_int(), 2024);
        double min = 0, max = 0;
        year.get_range(min, max);
        EXPECT_EQ(min, 1900);
        EXPECT_EQ(max, 2100);
        EXPECT_EQ(year.get_tooltip_text(), "Eingabe des Jahres mit dem die Zählung beginnt");
        EXPECT_EQ(yearly.get_insert_button().get_tooltip_text(), "Jahr in den Text einfügen");
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
    const notes::PeriodicKey weekly{kFriday.number - 7, 7}, fortnightly{kFriday.number - 28, 14};
    ASSERT_FALSE(session.notes.write_periodic(weekly, "Sport"));
    ASSERT_FALSE(session.notes.write_periodic(fortnightly, "Papiertonne"));
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
        editor.get_previous_button().clicked();
        labels.push_back(editor.get_entry_text());
        send_key(editor, GDK_KEY_Left, GDK_MOD1_MASK);
        labels.push_back(editor.get_entry_text());
        EXPECT_FALSE(editor.get_previous_button().is_sensitive());
        send_key(editor, GDK_KEY_Right, GDK_MOD1_MASK);
        labels.push_back(editor.get_entry_text());
        send_key(editor, GDK_KEY_Escape);
    });
    EXPECT_EQ(labels, (std::vector<Glib::ustring>{
                          "Eintrag 1 von insgesamt 2", "Eintrag 2 von insgesamt 2", "Neuer Eintrag",
                          "Eintrag 2 von insgesamt 2", "Eintrag 1 von insgesamt 2",
                          "Eintrag 2 von insgesamt 2"}));
    std::sort(seen.begin(), seen.end() - 1);  // the notes come in directory order
    EXPECT_EQ(seen, (std::vector<std::string>{"Papiertonne alle 14", "Sport alle 7", " alle 7"}));
}

// A changed repeat moves the note; onto another note only after "Ja".
TEST_F(NoteEditorTest, PeriodicRepeatChangedAndOverwriteQuestion) {
    const notes::PeriodicKey weekly{kFriday.number - 7, 7};
    ASSERT_FALSE(session.notes.write_periodic(weekly, "Sport"));
    ASSERT_FALSE(session.notes.write_periodic({kFriday.number, 3}, "Blumen"));
    const std::string weekly_file = notes::periodic_file_name(weekly);
    const std::string three_file = std::to_string(kFriday.number) + ".3.tnt";
    // Find the weekly note among the two, set 3 days: that key is taken.
    auto to_weekly = [](NoteEditorDialog& editor) {
        if (editor.get_text() != "Sport") editor.get_next_button().clicked();
        ASSERT_EQ(editor.get_text(), "Sport");
    };
    {
        DialogAnswerer question("Frage", Gtk::RESPONSE_NO, 2);
        edit(NoteKind::Periodic, kFriday, [&](NoteEditorDialog& editor) {
            to_weekly(editor);
            dynamic_cast<PeriodicNoteDialog&>(editor).get_interval_field().set_value(3);
            editor.get_save_button().clicked();
            EXPECT_TRUE(editor.get_mapped());  // "Nein": nothing saved, still open
            send_key(editor, GDK_KEY_Escape);
        });
        EXPECT_EQ(question.texts(),
                  (std::vector<std::string>{"Eine Datei mit der gewählten Periode existiert "
                                            "bereits!\nSoll sie überschrieben werden?",
                                            "Sollen die Änderungen gespeichert werden?"}));
    }
    EXPECT_EQ(files_in(dir.path()), (std::set<std::string>{weekly_file, three_file}));

    // Every day still meets the day from the old start: the start is kept.
    edit(NoteKind::Periodic, kFriday, [&](NoteEditorDialog& editor) {
        to_weekly(editor);
        dynamic_cast<PeriodicNoteDialog&>(editor).get_interval_field().set_value(1);
        editor.get_save_button().clicked();
    });
    EXPECT_EQ(files_in(dir.path()),
              (std::set<std::string>{three_file, std::to_string(weekly.start) + ".1.tnt"}));
    {
        DialogAnswerer question("Frage", Gtk::RESPONSE_YES);
        edit(NoteKind::Periodic, kFriday, [&](NoteEditorDialog& editor) {
            if (editor.get_text() != "Sport") editor.get_next_button().clicked();
            dynamic_cast<PeriodicNoteDialog&>(editor).get_interval_field().set_value(3);
            editor.get_save_button().clicked();
        });
        EXPECT_EQ(question.count(), 1);
    }
    EXPECT_EQ(files_in(dir.path()), std::set<std::string>{three_file});
    EXPECT_EQ(session.notes.read_note(three_file), "Sport");
}

TEST_F(NoteEditorTest, LastFridayOfEveryMonth) {
    edit(NoteKind::Weekday, kLastFriday, [](NoteEditorDialog& editor) {
        auto& weekday = dynamic_cast<WeekdayNoteDialog&>(editor);
        EXPECT_EQ(weekday.get_ordinal_field().get_active_text(), "letzten");  // the 29th
        EXPECT_EQ(weekday.get_month_field().get_active_text(), "jeden");
        type_into(editor, "Monatsabschluss");
        send_key(editor, GDK_KEY_s, GDK_CONTROL_MASK);
    });
    EXPECT_EQ(files_in(dir.path()), std::set<std::string>{"11254.wmt"});

    // On the fourth Friday, the 22nd: "vierten" at first; "letzten" in March
    // is a note of its own beside the every-month one.
    edit(NoteKind::Weekday, Day::from_date(2024, 2, 22), [](NoteEditorDialog& editor) {
        auto& weekday = dynamic_cast<WeekdayNoteDialog&>(editor);
        EXPECT_EQ(editor.get_entry_text(), "Neuer Eintrag");
        EXPECT_EQ(weekday.get_ordinal_field().get_active_text(), "vierten");
        weekday.get_ordinal_field().set_active(4);
        weekday.get_month_field().set_active(2);
        type_into(editor, "Inventur");
        editor.get_save_button().clicked();
    });
    EXPECT_EQ(files_in(dir.path()), (std::set<std::string>{"10254.wmt", "11254.wmt"}));
    // Both show on the last Friday, the month's first.
    edit(NoteKind::Weekday, kLastFriday, [](NoteEditorDialog& editor) {
        EXPECT_EQ(editor.get_entry_text(), "Eintrag 1 von insgesamt 2");
        EXPECT_EQ(editor.get_text(), "Inventur");
        send_key(editor, GDK_KEY_Escape);
    });
}

}  // namespace
}  // namespace sk::app
