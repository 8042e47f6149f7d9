// The note menu "Notiz" and the deletion window "Lösche Notizen und
// Markierungen": exact texts, letter keys, and what is left on disk after
// the deletion as the window's key L carries it out (app::delete_notes_up_to).
#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "app/delete_notes_dialog.hpp"
#include "app/note_actions.hpp"
#include "gui_support.hpp"
#include "marks/shift_markings.hpp"
#include "notes/note_keys.hpp"
#include "test_support.hpp"

namespace sk::app {
namespace {

using calendar::Day;
using test::cell;
using test::DialogAnswerer;
using test::parent_window;
using test::send_key;

struct Entry {
    const char* name;
    const char* tooltip;
    guint key;
    NoteMenuChoice choice;
};

const Entry kEntries[] = {
    {"Tagesnotiz", "Eingabe einer Notiz für einen Tag", GDK_KEY_t, NoteMenuChoice::DailyNote},
    {"Periodische Notiz", "Eingabe einer sich in Tagesabständen wiederholenden Notiz", GDK_KEY_p,
     NoteMenuChoice::PeriodicNote},
    {"Jährliche Notiz", "Eingabe einer sich in jährlich wiederholenden Notiz", GDK_KEY_j,
     NoteMenuChoice::YearlyNote},
    {"Wochentag im Monat",
     "Eingabe sich an einen bestimmten Wochentag im Monat wiederholenden Notiz", GDK_KEY_w,
     NoteMenuChoice::WeekdayNote},
    {"Kalendermarkierung", "Eingabe einer Markierung zwischen zwei Tagen in wählbarer Farbe",
     GDK_KEY_k, NoteMenuChoice::CalendarMarking},
    {"Schichtmarkierung", "Eingabe eines abweichenden Arbeitseinsatzes", GDK_KEY_s,
     NoteMenuChoice::ShiftMarking},
    {"Löschen", "Löscht die ausgewählten eingaben bis zum gewählten Datum", GDK_KEY_l,
     NoteMenuChoice::Delete},
    {"Übersicht", "Übersicht der Notizen für die angezeigten Monate", GDK_KEY_u,
     NoteMenuChoice::Overview},
    {"Info", "Informationen zu den Notizeingaben", GDK_KEY_i, NoteMenuChoice::Info},
};

TEST(NoteMenu, EntriesTooltipsAndKinds) {
    NoteMenuDialog menu(parent_window(), cell());
    EXPECT_EQ(menu.get_title(), "Notiz");
    ASSERT_EQ(menu.get_entry_count(), 9);
    for (int i = 0; i < 9; ++i) {
        EXPECT_EQ(test::accessible_name(menu.get_button(i)), kEntries[i].name);
        EXPECT_EQ(menu.get_button(i).get_tooltip_text(), kEntries[i].tooltip);
    }
    EXPECT_EQ(note_kind_of(NoteMenuChoice::WeekdayNote), notes::NoteKind::Weekday);
    EXPECT_EQ(note_kind_of(NoteMenuChoice::DailyNote), notes::NoteKind::Daily);
    EXPECT_FALSE(note_kind_of(NoteMenuChoice::ShiftMarking));
}

// One letter, with or without Shift, chooses and closes; Escape chooses nothing.
TEST(NoteMenu, LetterKeysChooseAndClose) {
    for (const Entry& e : kEntries) {
        for (const GdkModifierType state : {GdkModifierType(0), GDK_SHIFT_MASK}) {
            std::optional<NoteMenuChoice> choice;
            test::run_with(
                "Notiz", [&] { choice = choose_from_note_menu(parent_window(), cell()); },
                [&](Gtk::Window& menu) {
                    send_key(menu, state ? gdk_keyval_to_upper(e.key) : e.key, state);
                });
            EXPECT_EQ(choice, e.choice) << e.name;
        }
    }
    std::optional<NoteMenuChoice> none = NoteMenuChoice::Info;
    test::run_with(
        "Notiz", [&] { none = choose_from_note_menu(parent_window(), cell()); },
        [](Gtk::Window& menu) { send_key(menu, GDK_KEY_Escape); });
    EXPECT_FALSE(none);
}

std::set<std::string> files_in(const std::filesystem::path& dir) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(dir))
        names.insert(entry.path().filename());
    return names;
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
    }

    // Runs the window as key L does and `action` in it.
    bool run(const std::function<void(DeleteNotesDialog&)>& action) {
        bool changed = false;
        test::run_with(
            "Lösche Notizen und Markierungen",
            [&] { changed = delete_notes_up_to(parent_window(), cell(), session, kCursor); },
            [&](Gtk::Window& window) { action(dynamic_cast<DeleteNotesDialog&>(window)); });
        return changed;
    }

    sk::test::TempDir dir;
    session::Session session;
};

TEST_F(DeleteNotesTest, OpensSafeWithItsTexts) {
    DeleteNotesDialog dialog(parent_window(), cell(), kCursor);
    EXPECT_EQ(dialog.get_date_field().get_text(), "10.03.2024");
    EXPECT_EQ(dialog.get_choice(), (session::DeletionChoice{kCursor.number}));
    const std::pair<Gtk::CheckButton*, const char*> boxes[] = {
        {&dialog.get_daily_box(), "Tagesnotizen"},
        {&dialog.get_shift_box(), "Schichtmarkierungen"},
        {&dialog.get_calendar_box(), "Kalendermarkierungen"},
        {&dialog.get_periodic_box(), "Periodische Notizen"},
        {&dialog.get_yearly_box(), "Jährliche Notizen"},
        {&dialog.get_weekday_box(), "Wochentag im Monat"},
    };
    std::set<guint> mnemonics;
    for (const auto& [box, name] : boxes) {
        EXPECT_FALSE(box->get_active()) << name;
        EXPECT_EQ(test::accessible_name(*box), name);
        mnemonics.insert(dynamic_cast<Gtk::Label*>(box->get_child())->get_mnemonic_keyval());
    }
    EXPECT_EQ(mnemonics.size(), 6u);
    EXPECT_EQ(dialog.get_delete_button().get_tooltip_text(), "Löscht die Notizen");
    EXPECT_EQ(dialog.get_cancel_button().get_tooltip_text(),
              "Verlässt das Eingabefenster ohne Löschen");
    EXPECT_EQ(test::accessible_name(dialog.get_date_field()), "Notizen löschen bis zum");
}

TEST_F(DeleteNotesTest, DeletesUpToTheDateAfterTheQuestion) {
    const std::set<std::string> before = files_in(dir.path());
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
              (std::set<std::string>{"20240210.txt", "20240220.txt", "Schichtmarkierung.dat"}));
    const auto shifts = marks::load_shift_markings(dir.path()).items;
    ASSERT_EQ(shifts.size(), 1u);
    EXPECT_EQ(shifts[0].day, kCursor.number + 3);
    EXPECT_EQ(before.size(), 5u);
}

TEST_F(DeleteNotesTest, NothingTickedOrNoOrEscapeDeletesNothing) {
    const std::set<std::string> before = files_in(dir.path());
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

TEST_F(DeleteNotesTest, NoDateNoDeleting) {
    DeleteNotesDialog dialog(parent_window(), cell(), kCursor);
    dialog.get_date_field().set_text("31.02.2024");
    EXPECT_FALSE(dialog.get_delete_button().is_sensitive());
    dialog.get_date_field().set_text("29.02.2024");
    EXPECT_TRUE(dialog.get_delete_button().is_sensitive());
    EXPECT_EQ(dialog.get_choice().up_to, kCursor.number - 10);
}

}  // namespace
}  // namespace sk::app
