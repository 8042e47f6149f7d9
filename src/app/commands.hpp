// The commands of the main window: one id per command, the table of keys
// and the table of buttons that issue them, and the dispatcher that carries
// them out on the AppState through the page-state functions, the session
// and the program's windows. The main window only reports keys, buttons and
// clicks; everything they do is decided here.
//
// Each window of the program is hooked in at one place: the
// case of its command in CommandDispatcher::run (commands.cpp) opens the
// dialog on `window()` with `cell()`, and when the dialog's result was
// applied through the core, calls `changed(...)` with what changed, which
// lays out the page anew, refreshes the status lines, and resizes the window
// or renames it where needed.
#pragma once

#include <gtkmm.h>

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "app/app_state.hpp"
#include "app/page_printer.hpp"
#include "app/ui_support.hpp"
#include "calendar/dates.hpp"
#include "notes/note_keys.hpp"
#include "view/page_input.hpp"
#include "view/page_text.hpp"

namespace sk::app {

class MainWindow;

enum class Command : std::uint8_t {
    Quit,  // Esc, closing the window
    YearBack,
    MonthBack,
    MonthForward,
    YearForward,
    PageBack,
    PageForward,
    Today,
    CursorLeft,
    CursorRight,
    CursorUp,
    CursorDown,
    DateEntry,         // F8, D
    NoteMenu,          // F9, button "Notiz"
    ProgMenu,          // F10, button "Prog."
    Login,             // F11, A, button "Name"
    InfoMenu,          // F12, button "Info"
    MoreColumns,       // keypad +
    FewerColumns,      // keypad -
    DailyNote,         // T
    PeriodicNote,      // P
    YearlyNote,        // J
    WeekdayNote,       // W
    NotesOverview,     // U
    CalendarMarking,   // K
    DeleteUpTo,        // L
    MarkEarly,         // 1
    MarkLate,          // 2
    MarkNight,         // 3
    MarkStandby,       // 4
    ProgramInfo,       // I
    Font,              // S
    BackgroundColour,  // H
    Settings,          // E
    ModelN,
    ModelM,
    ModelB,
    ModelV,
    ModelC,
    ModelX,
    Clipboard,            // Z
    RotateVacationOrder,  // Y
    VacationStart,        // F
    BlockToggle,          // the button of models 0, 1, 3, 4
    // Reached through the "Prog." window or the status lines only.
    ModelChooser,
    Hours,
    Vacation,
    DataDirectory,
    Export,
    ProgInfoText,
    Print,  // Ctrl+P
};

struct KeyBinding {
    guint keyval;  // lower-case for letters: letters act with and without Shift
    Command command;
};

// Every key of the window. Keypad keys are listed beside their main keys.
std::span<const KeyBinding> key_bindings();

// The command of a key press; nullopt for keys the window does not use and
// for any key held with Ctrl, Alt or Super (those are left to the widgets),
// except Ctrl+P, which prints.
std::optional<Command> command_for_key(guint keyval, GdkModifierType state);

struct ButtonEntry {
    Command command;
    std::string_view label;
    std::string_view tooltip;
};

// The button row from left to right; the block toggle comes last.
std::span<const ButtonEntry> button_entries();

class CommandDispatcher {
  public:
    CommandDispatcher(MainWindow& window, AppState& state);
    CommandDispatcher(const CommandDispatcher&) = delete;
    CommandDispatcher& operator=(const CommandDispatcher&) = delete;

    // Carries out a command and redraws what it changed.
    void run(Command command);

    // A click on the page (pixels of the page) selects the day under it; a
    // double click into a crew's cell opens the shift marking of that day.
    void click(double x, double y);
    void double_click(double x, double y);
    // The scroll wheel: one month back (up) or forward (down), as F2 and F3.
    void scroll(int direction);

    // What a command or dialog changed; the window redraws accordingly.
    enum Change : unsigned {
        kPage = 1,      // page state or user data: the page is laid out anew
        kStatus = 2,    // the status lines (they follow every page change too)
        kSize = 4,      // the page's size: the window fits itself to it
        kControls = 8,  // the font: status lines, buttons and sizes anew
        kTitle = 16,    // the user
        kSources = 32,  // the session's stores or settings were replaced: the page's sources anew
        kCursor = 64,   // the cursor alone moved: the page is laid out anew, its two rows repainted
    };
    void changed(unsigned what);

    // The page font, checked strictly against the screen; false (and the
    // "Fehler" message) when the page would not fit; the old font stays.
    bool try_font(const view::FontSpec& font);

    // Opening the shift marking of a day in a column 1..4 (keys 1 to 4 on
    // the cursor day, a double click into a crew's cell).
    void open_shift_marking(const calendar::Day& day, int column);
    // A click on the hours field of the status lines.
    void open_hours();

    // The save on exit, at most once: errors are shown in a box while the
    // window can still show one (`can_show`), else written to stderr.
    void quit(bool can_show);
    bool has_quit() const { return m_quit; }

    // Today's notes in their window, when today has notes (at the start).
    void show_todays_notes();

    // The screen check of a page of `columns` month columns in the cell.
    bool page_fits(int columns, view::CellSize cell) const;

    // Messages: key Z's "Information", the font checks' "Fehler".
    static constexpr std::string_view kCopiedMessage =
        "Die Kalender wurde in die Zwischenablage kopiert.";
    static constexpr std::string_view kFontTooLarge =
        "Der gewählte Zeichensatz war für den Bildschirm zu groß!";
    static constexpr std::string_view kStartFontTooLarge =
        "Der Zeichensatz ist für den Bildschirm zu groß!";

    // The parent of every window the commands open, and the character cell
    // of the page font that sizes them.
    Gtk::Window& window();
    view::CellSize cell();

  private:
    void set_page(const calendar::PageState& page);
    void change_columns(int delta);
    void switch_model(char key);
    void copy_to_clipboard();
    void choose_font();
    void choose_background();
    void enter_date();
    void enter_vacation_start();
    void show_notes_overview();
    void note_menu();
    void edit_note(notes::NoteKind kind);
    void delete_up_to();
    void mark_shift_from_note_menu();
    void prog_menu();
    void info_menu();
    void choose_model();
    void show_help(Command command);
    void log_in();
    void edit_settings();
    void change_data_directory();
    void print_page();
    // After a login or a move of the data root: the page takes the new
    // user's columns, model and font, and everything is drawn anew.
    void session_replaced();

    MainWindow& m_window;
    AppState& m_state;
    ControlFont m_control_font;  // the page font on every control
    view::PageExtras m_extras;   // notes, markings and sky of the session, kept between redraws
    PagePrinter m_printer;       // keeps printer and page setup for the run
    bool m_quit = false;
};

// The window title: "Quorvel Schichtkalender - Benutzername: Programm" at the
// start, and with two blanks before the dash after a login.
std::string start_title(std::string_view user);
std::string login_title(std::string_view user);

}  // namespace sk::app
