// The note commands of the main window: keys T, P, J, W, L and the note menu
// (F9, the button "Notiz") open their windows on the cursor day, and what is
// saved or deleted shows at once in the notes line and the page's highlight.
#include "app/delete_notes_dialog.hpp"
#include "app/message_box.hpp"
#include "app/note_editor_dialog.hpp"
#include "app/note_menu_dialog.hpp"
#include "notes/note_keys.hpp"
#include "notes/note_store.hpp"
#include "notes/notes_of_day.hpp"
#include "window_fixture.hpp"

namespace sk::app::test {
namespace {

using calendar::Day;

const Day kMonday = Day::from_date(2026, 10, 23);  // 23 November 2026, the day the tests start on

class WindowNotesTest : public WindowTest {
  protected:
    // Answers the editors with the text, saved by Ctrl+S; the title first checked.
    void write_in(const std::string& title, const std::string& text) {
        answer<NoteEditorDialog>([=](auto& d) {
            EXPECT_EQ(d.get_title(), title);
            d.get_text_view().get_buffer()->set_text(text);
            send_key(d, "Control+s");
        });
    }
    bool highlighted(const Day& day) { return notes::day_has_notes(state().session.notes, day); }
};

TEST_F(WindowNotesTest, EachKeyOpensItsEditorOnTheCursorDay) {
    struct Case {
        const char* key;
        const char* title;
        const char* file;
    };
    // In the order the notes line joins them.
    const Case cases[] = {
        {"t", "Notizen für den 24.11.2026", "20261024.txt"},
        {"p", "Periodische Notizen am 24.11.2026", "20781.7.tnt"},
        {"Shift+J", "Jährliche Notizen für den 24.11.2026", "1024.jnt"},
        {"w", "Wochentag im Monat", "11223.wmt"},  // the fourth Tuesday, every month
    };
    start(kMonday);
    key("Down");
    ASSERT_EQ(state().page.cursor.number, 20781);
    std::string joined;
    for (const Case& c : cases) {
        write_in(c.title, c.file);
        key(c.key);
        EXPECT_TRUE(std::filesystem::exists(user_dir() / c.file)) << c.title;
        joined += (joined.empty() ? "" : "\u00A0|\u00A0") + std::string(c.file);
        EXPECT_EQ(field_text(StatusField::Notes), joined);
    }
    EXPECT_TRUE(highlighted(state().page.cursor));
}

TEST_F(WindowNotesTest, NoteMenuLeadsToTheEditorAndLToTheDeletion) {
    start(kMonday);
    write_in("Notizen für den 23.11.2026", "Spätdienst mit Eva");
    answer<NoteMenuDialog>([](auto& d) { send_key(d, "t"); });
    key("F9");
    EXPECT_EQ(field_text(StatusField::Notes), "Spätdienst mit Eva");
    EXPECT_TRUE(highlighted(kMonday));

    // L: daily notes up to the cursor day, after "Ja".
    answer<DeleteNotesDialog>([](auto& d) {
        d.get_daily_box().set_active(true);
        d.get_delete_button().clicked();
    });
    answer<QuestionBox>([](auto& d) { d.response(Gtk::RESPONSE_YES); });
    key("l");
    EXPECT_EQ(field_text(StatusField::Notes), "");
    EXPECT_FALSE(highlighted(kMonday));
    EXPECT_FALSE(std::filesystem::exists(user_dir() / "20261023.txt"));
}

}  // namespace
}  // namespace sk::app::test
