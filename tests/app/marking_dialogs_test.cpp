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
using test::parent_window;
using test::play;
using test::press;
using TempDir = sk::test::TempDir;

const Day kTuesday = Day::from_date(2024, 2, 5);  // 05.03.2024
const Day kSunday = Day::from_date(2024, 5, 16);  // 16.06.2024
const Day kToday = Day::from_date(2024, 5, 20);

constexpr char kShiftTitle[] = "Schichtmarkierung eingeben";
constexpr char kColumnTitle[] = "Schichtspalte eingeben";
constexpr char kBarTitle[] = "Eingabe einer Kalendermarkierung";

session::Session session_in(const TempDir& dir, int model) {
    session::Session session;
    session.data_root = dir.path();
    session.user_dir = dir.path();
    session.settings.model = model;
    return session;
}

std::vector<marks::ShiftMarking> markings_on_disk(const TempDir& dir) {
    return marks::load_shift_markings(dir.path()).items;
}

// Keys 1..4 on a day unmarked or marked with code 2: each key and the way
// it ends. Saving waits while nothing is chosen.
TEST(ShiftMarkingEntry, KeysAndTheirCodes) {
    struct Case {
        const char* what;
        int model;
        std::optional<int> before;
        std::vector<guint> keys;
        std::optional<int> after;  // the code on disk; nullopt: no marking
        bool changed;
    };
    const Case cases[] = {
        {"X", 1, std::nullopt, {GDK_KEY_x}, 0, true},
        {"U is Nacht in model 7", 7, std::nullopt, {GDK_KEY_u}, 2, true},
        {"shifted A", 1, std::nullopt, {GDK_KEY_A}, 5, true},
        {"Delete removes", 1, 2, {GDK_KEY_Delete}, std::nullopt, true},
        {"Delete is Krank in model 6", 6, std::nullopt, {GDK_KEY_Delete}, 6, true},
        {"Return keeps the marking", 1, 2, {GDK_KEY_Return}, 2, false},
        {"Return waits on an unmarked day",
         1,
         std::nullopt,
         {GDK_KEY_Return, GDK_KEY_Escape},
         std::nullopt,
         false},
        {"arrow and Return", 1, 2, {GDK_KEY_Down, GDK_KEY_Return}, 3, true},
        {"space on the focused button", 0, std::nullopt, {GDK_KEY_space, GDK_KEY_Return}, 0, true},
        {"Escape", 1, 2, {GDK_KEY_Escape}, 2, false},
        {"L, then Escape too late", 1, 2, {GDK_KEY_l, GDK_KEY_Escape}, 3, true},
    };
    for (const Case& c : cases) {
        TempDir dir;
        session::Session session = session_in(dir, c.model);
        if (c.before) {
            marks::apply_marking(session.shift_markings, kTuesday.number, 2, *c.before, c.model);
            ASSERT_TRUE(marks::save_shift_markings(dir.path(), session.shift_markings));
        }
        bool changed = false;
        play({{kShiftTitle,
               [&](Gtk::Window& w) {
                   auto& dialog = dynamic_cast<ShiftMarkingDialog&>(w);
                   EXPECT_EQ(dialog.get_selected_code(), c.before) << c.what;
                   EXPECT_EQ(dialog.get_accept_button().get_sensitive(), c.before.has_value());
                   for (const guint key : c.keys)
                       if (w.get_visible()) test::send_key(w, key);
               }}},
             [&] { changed = edit_shift_marking(parent_window(), cell(), session, kTuesday, 2); });
        EXPECT_EQ(changed, c.changed) << c.what;
        const auto on_disk = markings_on_disk(dir);
        EXPECT_EQ(on_disk.empty(), !c.after) << c.what;
        if (c.after && !on_disk.empty()) {
            EXPECT_EQ(on_disk[0].code, *c.after) << c.what;
        }
        EXPECT_FALSE(session.shift_markings.changed) << c.what;  // written at once
    }
}

// A day that may not be marked says why and opens no dialog.
TEST(ShiftMarkingEntry, RefusedDayShowsWhyAndOpensNoDialog) {
    struct Case {
        int model;
        Day day;
        int column;
        const char* message;
    };
    for (const Case& c :
         {Case{1, kSunday, 3,
               "Der 16.06.2024 ist ein Sonntag: an einem Sonntag kann die Nachtschicht nicht "
               "markiert werden."},
          Case{0, kTuesday, 4,
               "Die Verfügung kann nicht markiert werden, nur die Früh-, Spät- und Nachtschicht "
               "(Tasten 1, 2 und 3)."}}) {
        TempDir dir;
        session::Session session = session_in(dir, c.model);
        std::string message;
        bool changed = true;
        const auto shown = play({{"Information",
                                  [&](Gtk::Window& w) {
                                      message = test::message_text(w);
                                      test::send_key(w, GDK_KEY_Return);
                                  }}},
                                [&] {
                                    changed = edit_shift_marking(parent_window(), cell(), session,
                                                                 c.day, c.column);
                                });
        EXPECT_FALSE(changed);
        EXPECT_EQ(message, c.message);
        EXPECT_EQ(shown, std::vector<std::string>{"Information"});
        EXPECT_TRUE(std::filesystem::is_empty(dir.path()));
    }
}

// The note menu's way: the column first, "3" (keypad too) for the night
// shift, whose heading the dialog shows. The chooser's labels follow the model.
TEST(ShiftMarkingEntry, ColumnChooserFirst) {
    TempDir dir;
    session::Session session = session_in(dir, 1);
    for (const guint key : {GDK_KEY_3, GDK_KEY_KP_3}) {
        play({press(kColumnTitle, key),
              {kShiftTitle,
               [](Gtk::Window& w) {
                   EXPECT_EQ(dynamic_cast<ShiftMarkingDialog&>(w).get_heading(),
                             " Nachtschicht am 05.03.2024");
                   test::send_key(w, GDK_KEY_k);
               }}},
             [&] {
                 choose_column_and_edit_shift_marking(parent_window(), cell(), session, kTuesday);
             });
        EXPECT_EQ(markings_on_disk(dir),
                  (std::vector<marks::ShiftMarking>{{kTuesday.number, 3, marks::kind_a::kSick}}));
        marks::apply_marking(session.shift_markings, kTuesday.number, 3, marks::kind_a::kRemove, 1);
    }
    ShiftColumnDialog chooser(parent_window(), cell(), 7);
    EXPECT_EQ(test::accessible_name(chooser.get_button(3)),
              marks::column_labels(marks::marking_kind(7))[3]);
}

// Dates typed end first are saved the right way round; an unmarked day
// proposes itself and the seven following days.
TEST(CalendarMarkingEntry, ReversedDatesAreSwapped) {
    TempDir dir;
    session::Session session = session_in(dir, 1);
    bool changed = false;
    play({{kBarTitle,
           [](Gtk::Window& w) {
               auto& dialog = dynamic_cast<CalendarMarkingDialog&>(w);
               EXPECT_EQ(dialog.get_start_field().get_text(), "05.03.2024");
               EXPECT_EQ(dialog.get_end_field().get_text(), "12.03.2024");
               test::retype(dialog.get_start_field(), "20.03.2024");
               test::retype(dialog.get_end_field(), "10.03.2024");
               test::send_key(w, GDK_KEY_Return);
           }}},
         [&] { changed = edit_calendar_marking(parent_window(), cell(), session, kTuesday); });
    EXPECT_TRUE(changed);
    const std::vector<marks::CalendarMarking> expected = {{calendar::day_number(2024, 2, 10),
                                                           calendar::day_number(2024, 2, 20),
                                                           marks::kDefaultMarkingColour}};
    EXPECT_EQ(marks::load_calendar_markings(dir.path()).items, expected);
}

// The colour chooser's choice becomes the colour, cancelling it keeps the
// colour; "Löschen" removes the bar around the start date, and says so when
// there is none.
TEST(CalendarMarkingEntry, ColourAndDelete) {
    TempDir dir;
    session::Session session = session_in(dir, 1);
    marks::save_marking(session.calendar_markings, kTuesday.number, kTuesday.number + 3,
                        {10, 20, 30});
    auto click_colour = [](Gtk::Window& w) {
        auto* dialog = &dynamic_cast<CalendarMarkingDialog&>(w);
        test::later([dialog] { dialog->get_colour_button().clicked(); });
    };
    auto chooser_picks = [](Gtk::Window& w) {
        auto& chooser = dynamic_cast<Gtk::ColorChooserDialog&>(w);
        Gdk::RGBA green;
        green.set_rgba(0, 1, 0, 1);
        chooser.set_rgba(green);
        chooser.response(Gtk::RESPONSE_OK);
    };
    auto edit = [&] { return edit_calendar_marking(parent_window(), cell(), session, kTuesday); };
    bool changed = false;
    play({{kBarTitle, click_colour},
          {"Markierungsfarbe", chooser_picks},
          {kBarTitle, click_colour},
          press("Markierungsfarbe", GDK_KEY_Escape),
          {kBarTitle,
           [](Gtk::Window& w) {
               auto& dialog = dynamic_cast<CalendarMarkingDialog&>(w);
               EXPECT_EQ(dialog.get_start_field().get_text(), "05.03.2024");  // the bar's own
               EXPECT_EQ(dialog.get_colour(), (calendar::Rgb{0, 255, 0}));
               dialog.get_widget_for_response(CalendarMarkingDialog::kSave)->grab_focus();
               test::send_key(w, GDK_KEY_Return);
           }}},
         [&] { changed = edit(); });
    EXPECT_TRUE(changed);
    ASSERT_EQ(marks::load_calendar_markings(dir.path()).items.size(), 1u);
    EXPECT_EQ(marks::load_calendar_markings(dir.path()).items[0].colour,
              (calendar::Rgb{0, 255, 0}));

    play({press(kBarTitle, GDK_KEY_l, GDK_MOD1_MASK)}, [&] { changed = edit(); });
    EXPECT_TRUE(changed);
    EXPECT_FALSE(std::filesystem::exists(dir / "Kalendermarkierung.dat"));

    std::string message;
    play({press(kBarTitle, GDK_KEY_l, GDK_MOD1_MASK),
          {"Information",
           [&](Gtk::Window& w) {
               message = test::message_text(w);
               test::send_key(w, GDK_KEY_Escape);
           }}},
         [&] { changed = edit(); });
    EXPECT_FALSE(changed);
    EXPECT_EQ(message, "Am 05.03.2024 liegt keine Kalendermarkierung; es wurde nichts gelöscht.");
}

// Saving waits for a number; 700 hours are stored as 600, and the dialog
// says so before. "7:30" is stored as 7.30 and shown again as "7:30".
TEST(AccountDialogs, HoursAreClamped) {
    TempDir dir;
    session::Session session = session_in(dir, 1);
    play({{"Stunden eingeben",
           [](Gtk::Window& w) {
               auto& dialog = dynamic_cast<HoursDialog&>(w);
               Gtk::Widget& save = *dialog.get_widget_for_response(Gtk::RESPONSE_OK);
               test::retype(dialog.get_value_field(), "7,5h");
               EXPECT_FALSE(save.get_sensitive());
               test::send_key(w, GDK_KEY_Return);  // waits for a value
               test::retype(dialog.get_value_field(), "700");
               EXPECT_TRUE(save.get_sensitive());
               EXPECT_EQ(dialog.get_hint(), "Höchstens 600 Stunden: gespeichert wird 600.");
               test::retype(dialog.get_date_field(), "01.02.2024");
               dialog.get_crew_chooser().get_button(3).set_active(true);
               dialog.get_block_check().set_active(true);
               test::send_key(w, GDK_KEY_Return);
           }}},
         [&] { EXPECT_TRUE(edit_hours(parent_window(), cell(), session)); });
    marks::HoursAccount on_disk;
    ASSERT_TRUE(marks::load_hours_file(dir.path(), on_disk));
    EXPECT_EQ(on_disk, (marks::HoursAccount{calendar::day_number(2024, 1, 1), 600.0f,
                                            marks::hours_mode::kDecimal, 3, true}));
    EXPECT_EQ(session.accounts.hours, on_disk);

    play({{"Stunden eingeben",
           [](Gtk::Window& w) {
               auto& dialog = dynamic_cast<HoursDialog&>(w);
               dialog.get_mode_button(marks::hours_mode::kHoursMinutes).set_active(true);
               test::retype(dialog.get_value_field(), "-7:30");
               test::send_key(w, GDK_KEY_Return);
           }},
          {"Stunden eingeben",
           [](Gtk::Window& w) {
               EXPECT_EQ(dynamic_cast<HoursDialog&>(w).get_value_field().get_text(), "-7:30");
               test::send_key(w, GDK_KEY_Escape);
           }}},
         [&] {
             edit_hours(parent_window(), cell(), session);
             edit_hours(parent_window(), cell(), session);
         });
    ASSERT_TRUE(marks::load_hours_file(dir.path(), on_disk));
    EXPECT_FLOAT_EQ(on_disk.start_value, -7.30f);
    EXPECT_EQ(on_disk.mode, marks::hours_mode::kHoursMinutes);
}

// 61 days are stored as 60; the home crew goes into both files; a date
// before this year is refused, as the account would reset it at once.
TEST(AccountDialogs, VacationDaysAndHomeCrew) {
    TempDir dir;
    session::Session session = session_in(dir, 1);
    session.accounts.vacation = {calendar::day_number(2024, 0, 1), 30};
    play({{"Urlaub eingeben",
           [](Gtk::Window& w) {
               auto& dialog = dynamic_cast<VacationDialog&>(w);
               Gtk::Widget& save = *dialog.get_widget_for_response(Gtk::RESPONSE_OK);
               EXPECT_EQ(dialog.get_days_field().get_text(), "30");
               test::retype(dialog.get_date_field(), "31.12.2023");
               EXPECT_FALSE(save.get_sensitive());
               test::retype(dialog.get_date_field(), "15.06.2024");
               test::retype(dialog.get_days_field(), "61");
               EXPECT_EQ(dialog.get_hint(), "Höchstens 60 Tage: gespeichert wird 60.");
               test::send_key(dialog.get_crew_chooser(), GDK_KEY_g, GDK_MOD1_MASK);
               EXPECT_EQ(dialog.get_home_crew(), 2);
               test::send_key(w, GDK_KEY_s, GDK_MOD1_MASK);
           }}},
         [&] { EXPECT_TRUE(edit_vacation(parent_window(), cell(), session, kToday)); });
    marks::VacationAccount vacation;
    marks::HoursAccount hours;
    ASSERT_TRUE(marks::load_vacation_file(dir.path(), vacation));
    ASSERT_TRUE(marks::load_hours_file(dir.path(), hours));
    EXPECT_EQ(vacation, (marks::VacationAccount{calendar::day_number(2024, 5, 15), 60}));
    EXPECT_EQ(hours.home_crew, 2);
}

// Escape leaves every dialog without writing anything, and nothing of a
// dialog outlives it: no window, no handler on the parent.
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

TEST(MarkingDialogs, EscapeWritesNothingAndLeavesNothingBehind) {
    parent_window();
    const std::size_t windows_before = open_windows();
    const gulong first_handler = next_handler_id();
    const std::pair<const char*, std::function<bool(session::Session&)>> cases[] = {
        {kShiftTitle,
         [](session::Session& s) {
             return edit_shift_marking(parent_window(), cell(), s, kTuesday, 1);
         }},
        {kColumnTitle,
         [](session::Session& s) {
             return choose_column_and_edit_shift_marking(parent_window(), cell(), s, kTuesday);
         }},
        {kBarTitle,
         [](session::Session& s) {
             return edit_calendar_marking(parent_window(), cell(), s, kTuesday);
         }},
        {"Stunden eingeben",
         [](session::Session& s) { return edit_hours(parent_window(), cell(), s); }},
        {"Urlaub eingeben",
         [](session::Session& s) { return edit_vacation(parent_window(), cell(), s, kToday); }},
    };
    for (const auto& [title, open] : cases) {
        TempDir dir;
        session::Session session = session_in(dir, 1);
        const session::Session before = session;
        bool changed = true;
        const auto shown = play({press(title, GDK_KEY_Escape)}, [&] { changed = open(session); });
        EXPECT_FALSE(changed) << title;
        EXPECT_EQ(shown, std::vector<std::string>{title});
        EXPECT_TRUE(std::filesystem::is_empty(dir.path())) << title;
        EXPECT_EQ(session.accounts, before.accounts) << title;
        EXPECT_EQ(session.shift_markings.items, before.shift_markings.items) << title;
        EXPECT_EQ(session.calendar_markings.items, before.calendar_markings.items) << title;
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
