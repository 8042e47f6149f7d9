// The marking and account dialogs as the user meets them: opened through
// the actions the main window calls (the test plays the window and the
// user), their results read back from the files with the core's readers.
#include <gtest/gtest.h>

#include <filesystem>

#include "app/calendar_marking_dialog.hpp"
#include "app/hours_dialog.hpp"
#include "app/marking_actions.hpp"
#include "app/shift_column_dialog.hpp"
#include "app/shift_marking_dialog.hpp"
#include "app/vacation_dialog.hpp"
#include "gui_support.hpp"
#include "marks/account_files.hpp"
#include "marks/calendar_markings.hpp"
#include "marks/shift_markings.hpp"
#include "test_support.hpp"

namespace sk::app {
namespace {

using calendar::Day;
using test::cell;
using test::on;
using test::parent_window;
using test::play;
using test::press;
using test::send_key;
using TempDir = sk::test::TempDir;

const Day kTuesday = Day::from_date(2024, 2, 5);  // 05.03.2024
const Day kToday = Day::from_date(2024, 5, 20);

constexpr char kShiftTitle[] = "Schichtmarkierung eingeben";
constexpr char kColumnTitle[] = "Schichtspalte eingeben";
constexpr char kBarTitle[] = "Eingabe einer Kalendermarkierung";

// A session of the model in a directory of its own.
struct Plan {
    explicit Plan(int model = 1) {
        session.data_root = session.user_dir = dir.path();
        session.settings.model = model;
    }
    std::vector<marks::ShiftMarking> markings_on_disk() const {
        return marks::load_shift_markings(dir.path()).items;
    }

    TempDir dir;
    session::Session session;
};
struct MarkingTest : ::testing::Test, Plan {};

// Key 2 on a day unmarked or marked with code 2: each key and the way it
// ends. Saving waits while nothing is chosen; the file is written at once.
TEST(ShiftMarkingEntry, KeysAndTheirCodes) {
    struct Case {
        const char* what;
        int model;
        int before;  // the code of the day, -1: unmarked
        std::vector<guint> keys;
        int after;  // the code on disk, -1: none
        bool changed;
    };
    const Case cases[] = {
        {"X", 1, -1, {GDK_KEY_x}, 0, true},
        {"Delete removes", 1, 2, {GDK_KEY_Delete}, -1, true},
        {"Delete is Krank in model 6", 6, -1, {GDK_KEY_Delete}, 6, true},
        {"U is Urlaub, code 2, in model 7", 7, -1, {GDK_KEY_u}, 2, true},
        {"Return keeps the marking", 1, 2, {GDK_KEY_Return}, 2, false},
        {"Return waits on an unmarked day", 1, -1, {GDK_KEY_Return, GDK_KEY_Escape}, -1, false},
        {"arrow and Return", 1, 2, {GDK_KEY_Down, GDK_KEY_Return}, 3, true},
        {"space on the focused button", 0, -1, {GDK_KEY_space, GDK_KEY_Return}, 0, true},
        {"Escape", 1, 2, {GDK_KEY_Escape}, 2, false},
        {"L, then Escape too late", 1, 2, {GDK_KEY_l, GDK_KEY_Escape}, 3, true},
    };
    for (const Case& c : cases) {
        Plan t(c.model);
        if (c.before >= 0) {
            marks::apply_marking(t.session.shift_markings, kTuesday.number, 2, c.before, c.model);
            ASSERT_TRUE(marks::save_shift_markings(t.dir.path(), t.session.shift_markings));
        }
        bool changed = false;
        play(
            {on<ShiftMarkingDialog>(kShiftTitle,
                                    [&](ShiftMarkingDialog& d) {
                                        EXPECT_EQ(d.get_selected_code().value_or(-1), c.before);
                                        EXPECT_EQ(d.get_accept_button().get_sensitive(),
                                                  c.before >= 0);
                                        for (const guint key : c.keys)
                                            if (d.get_visible()) send_key(d, key);
                                    })},
            [&] { changed = edit_shift_marking(parent_window(), cell(), t.session, kTuesday, 2); });
        EXPECT_EQ(changed, c.changed) << c.what;
        const auto on_disk = t.markings_on_disk();
        EXPECT_EQ(on_disk.empty() ? -1 : on_disk[0].code, c.after) << c.what;
        EXPECT_FALSE(t.session.shift_markings.changed) << c.what;
    }
}

// The column chooser's labels follow the model.
TEST(ShiftColumnDialog, LabelsOfTheModel) {
    ShiftColumnDialog chooser(parent_window(), cell(), 7);
    EXPECT_EQ(test::accessible_name(chooser.get_button(3)),
              marks::column_labels(marks::marking_kind(7))[3]);
}

// Dates typed end first are saved the right way round; an unmarked day
// proposes itself and the seven following days.
TEST_F(MarkingTest, ReversedDatesAreSwapped) {
    bool changed = false;
    play({on<CalendarMarkingDialog>(kBarTitle,
                                    [](CalendarMarkingDialog& d) {
                                        EXPECT_EQ(d.get_start_field().get_text(), "05.03.2024");
                                        EXPECT_EQ(d.get_end_field().get_text(), "12.03.2024");
                                        test::retype(d.get_start_field(), "20.03.2024");
                                        test::retype(d.get_end_field(), "10.03.2024");
                                        send_key(d, GDK_KEY_Return);
                                    })},
         [&] { changed = edit_calendar_marking(parent_window(), cell(), session, kTuesday); });
    EXPECT_TRUE(changed);
    EXPECT_EQ(marks::load_calendar_markings(dir.path()).items,
              (std::vector<marks::CalendarMarking>{{calendar::day_number(2024, 2, 10),
                                                    calendar::day_number(2024, 2, 20),
                                                    marks::kDefaultMarkingColour}}));
}

// The colour chooser's choice becomes the colour, cancelling it keeps the
// colour; "Löschen" removes the bar around the start date, and says so when
// there is none.
TEST_F(MarkingTest, ColourAndDelete) {
    marks::save_marking(session.calendar_markings, kTuesday.number, kTuesday.number + 3,
                        {10, 20, 30});
    const auto click_colour = on<CalendarMarkingDialog>(kBarTitle, [](CalendarMarkingDialog& d) {
        test::later([&d] { d.get_colour_button().clicked(); });
    });
    bool changed = false;
    auto edit = [&] {
        changed = edit_calendar_marking(parent_window(), cell(), session, kTuesday);
    };
    play({click_colour,
          on<Gtk::ColorChooserDialog>("Markierungsfarbe",
                                      [](Gtk::ColorChooserDialog& chooser) {
                                          chooser.set_rgba(Gdk::RGBA("#00ff00"));
                                          chooser.response(Gtk::RESPONSE_OK);
                                      }),
          click_colour, press("Markierungsfarbe", GDK_KEY_Escape),
          on<CalendarMarkingDialog>(
              kBarTitle,
              [](CalendarMarkingDialog& d) {
                  EXPECT_EQ(d.get_start_field().get_text(), "05.03.2024");
                  EXPECT_EQ(d.get_colour(), (calendar::Rgb{0, 255, 0}));
                  d.get_widget_for_response(CalendarMarkingDialog::kSave)->grab_focus();
                  send_key(d, GDK_KEY_Return);
              })},
         edit);
    EXPECT_TRUE(changed);
    const auto saved = marks::load_calendar_markings(dir.path()).items;
    ASSERT_EQ(saved.size(), 1u);
    EXPECT_EQ(saved[0].colour, (calendar::Rgb{0, 255, 0}));

    play({press(kBarTitle, GDK_KEY_l, GDK_MOD1_MASK)}, edit);
    EXPECT_TRUE(changed);
    EXPECT_FALSE(std::filesystem::exists(dir / "Kalendermarkierung.dat"));

    std::string message;
    play({press(kBarTitle, GDK_KEY_l, GDK_MOD1_MASK),
          {"Information",
           [&](Gtk::Window& w) {
               message = test::message_text(w);
               send_key(w, GDK_KEY_Escape);
           }}},
         edit);
    EXPECT_FALSE(changed);
    EXPECT_EQ(message, "Am 05.03.2024 liegt keine Kalendermarkierung; es wurde nichts gelöscht.");
}

// Saving waits for a number; 700 hours are stored as 600, and the dialog
// says so before.
TEST_F(MarkingTest, HoursAreClamped) {
    play({on<HoursDialog>("Stunden eingeben",
                          [](HoursDialog& d) {
                              Gtk::Widget& save = *d.get_widget_for_response(Gtk::RESPONSE_OK);
                              test::retype(d.get_value_field(), "7,5h");
                              EXPECT_FALSE(save.get_sensitive());
                              send_key(d, GDK_KEY_Return);  // waits for a value
                              test::retype(d.get_value_field(), "700");
                              EXPECT_TRUE(save.get_sensitive());
                              EXPECT_EQ(d.get_hint(),
                                        "Höchstens 600 Stunden: gespeichert wird 600.");
                              test::retype(d.get_date_field(), "01.02.2024");
                              d.get_crew_chooser().get_button(3).set_active(true);
                              d.get_block_check().set_active(true);
                              send_key(d, GDK_KEY_Return);
                          })},
         [&] { EXPECT_TRUE(edit_hours(parent_window(), cell(), session)); });
    marks::HoursAccount on_disk;
    ASSERT_TRUE(marks::load_hours_file(dir.path(), on_disk));
    EXPECT_EQ(on_disk, (marks::HoursAccount{calendar::day_number(2024, 1, 1), 600.0f,
                                            marks::hours_mode::kDecimal, 3, true}));
    EXPECT_EQ(session.accounts.hours, on_disk);
}

// 61 days are stored as 60; the home crew goes into both files; a date
// before this year is refused, as the account would reset it at once.
TEST_F(MarkingTest, VacationDaysAndHomeCrew) {
    session.accounts.vacation = {calendar::day_number(2024, 0, 1), 30};
    play({on<VacationDialog>("Urlaub eingeben",
                             [](VacationDialog& d) {
                                 Gtk::Widget& save = *d.get_widget_for_response(Gtk::RESPONSE_OK);
                                 EXPECT_EQ(d.get_days_field().get_text(), "30");
                                 test::retype(d.get_date_field(), "31.12.2023");
                                 EXPECT_FALSE(save.get_sensitive());
                                 test::retype(d.get_date_field(), "15.06.2024");
                                 test::retype(d.get_days_field(), "61");
                                 EXPECT_EQ(d.get_hint(), "Höchstens 60 Tage: gespeichert wird 60.");
                                 send_key(d.get_crew_chooser(), GDK_KEY_g, GDK_MOD1_MASK);
                                 EXPECT_EQ(d.get_home_crew(), 2);
                                 send_key(d, GDK_KEY_s, GDK_MOD1_MASK);
                             })},
         [&] { EXPECT_TRUE(edit_vacation(parent_window(), cell(), session, kToday)); });
    marks::VacationAccount vacation;
    marks::HoursAccount hours;
    ASSERT_TRUE(marks::load_vacation_file(dir.path(), vacation));
    ASSERT_TRUE(marks::load_hours_file(dir.path(), hours));
    EXPECT_EQ(vacation, (marks::VacationAccount{calendar::day_number(2024, 5, 15), 60}));
    EXPECT_EQ(hours.home_crew, 2);
}

std::size_t open_windows() {
    GList* windows = gtk_window_list_toplevels();
    std::size_t count = 0;
    for (GList* at = windows; at; at = at->next)
        if (gtk_window_get_window_type(GTK_WINDOW(at->data)) == GTK_WINDOW_TOPLEVEL) ++count;
    g_list_free(windows);
    return count;
}

// The number the next signal handler connected anywhere will get (they are
// counted up across all objects).
gulong next_handler_id() {
    GObject* probe = G_OBJECT(parent_window().gobj());
    const gulong id = g_signal_connect(probe, "notify", G_CALLBACK(+[] {}), nullptr);
    g_signal_handler_disconnect(probe, id);
    return id + 1;
}

// Escape leaves every dialog without writing anything, and nothing of a
// dialog outlives it: no window, no handler on the parent.
TEST(MarkingDialogs, EscapeWritesNothingAndLeavesNothingBehind) {
    parent_window();
    const std::size_t windows_before = open_windows();
    const gulong first_handler = next_handler_id();
    using Action = std::function<bool(session::Session&)>;
    const std::pair<const char*, Action> cases[] = {
        {kShiftTitle,
         [](auto& s) { return edit_shift_marking(parent_window(), cell(), s, kTuesday, 1); }},
        {kColumnTitle,
         [](auto& s) {
             return choose_column_and_edit_shift_marking(parent_window(), cell(), s, kTuesday);
         }},
        {kBarTitle,
         [](auto& s) { return edit_calendar_marking(parent_window(), cell(), s, kTuesday); }},
        {"Stunden eingeben", [](auto& s) { return edit_hours(parent_window(), cell(), s); }},
        {"Urlaub eingeben",
         [](auto& s) { return edit_vacation(parent_window(), cell(), s, kToday); }},
    };
    for (const auto& [title, open] : cases) {
        Plan t;
        const session::Session before = t.session;
        bool changed = true;
        const auto shown = play({press(title, GDK_KEY_Escape)}, [&] { changed = open(t.session); });
        EXPECT_FALSE(changed) << title;
        EXPECT_EQ(shown, std::vector<std::string>{title});
        EXPECT_TRUE(std::filesystem::is_empty(t.dir.path())) << title;
        EXPECT_EQ(t.session.accounts, before.accounts) << title;
        EXPECT_EQ(t.session.shift_markings.items, before.shift_markings.items) << title;
        EXPECT_EQ(t.session.calendar_markings.items, before.calendar_markings.items) << title;
    }
    test::wait_until([&] { return open_windows() == windows_before; }, 2);
    EXPECT_EQ(open_windows(), windows_before);
    int left = 0;  // handlers connected to the parent since, still there
    for (gulong id = first_handler, end = next_handler_id(); id < end; ++id)
        left += g_signal_handler_is_connected(parent_window().gobj(), id) ? 1 : 0;
    EXPECT_EQ(left, 0);
}

}  // namespace
}  // namespace sk::app
