// The deletion window "Lösche Notizen und Markierungen": its safe first
// state, and what is left on disk after the deletion as the window's key L
// carries it out (app::delete_notes_up_to).
#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "app/delete_notes_dialog.hpp"
#include "app/note_actions.hpp"
#include "gui_support.hpp"
#include "marks/shift_markings.hpp"
#include "test_support.hpp"

namespace sk::app {
namespace {

using calendar::Day;
using test::cell;
using test::DialogAnswerer;
using test::parent_window;
using test::send_key;

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
    std::set<std::string> before;
};

// No box ticked, the cursor day, a mnemonic each; no date, no deleting.
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
    dialog.get_date_field().set_text("31.02.2024");
    EXPECT_FALSE(dialog.get_delete_button().is_sensitive());
    dialog.get_date_field().set_text("29.02.2024");
    EXPECT_TRUE(dialog.get_delete_button().is_sensitive());
    EXPECT_EQ(dialog.get_choice().up_to, kCursor.number - 10);
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
              (std::set<std::string>{"20240210.txt", "20240220.txt", "Schichtmarkierung.dat"}));
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
