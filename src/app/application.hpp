// The desktop program: what `schichtkalender` runs when no headless command
// is named. Options: --today YYYY-MM-DD (the day that counts as today) and
// --data-dir DIR (instead of "SKDaten" in the current directory), besides
// GTK's own (--display, ...).
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/app_state.hpp"
#include "calendar/dates.hpp"

namespace sk::app {

// Runs the window until it is closed; returns the exit status (2 for bad
// arguments, 1 when the window cannot open).
int run(int argc, char** argv);

struct ProgramOptions {
    std::optional<calendar::Day> today;
    std::filesystem::path data_root;
    // The screen the page must fit; empty: the work area of the window's monitor.
    std::function<std::optional<ScreenSize>()> screen;
};
// The program's own options, taken out of `args` (GTK's and unknown ones
// stay); a German message as error for a bad value.
struct ParsedOptions {
    ProgramOptions options;
    std::vector<std::string> rest;
    std::string error;
};
ParsedOptions parse_options(const std::vector<std::string>& args);

// The local date of the system clock.
calendar::Day system_today();

class MainWindow;
class CommandDispatcher;

// One window of the program on a session: made by `start` in the order of
// the start-up (window, data, page fitted to the screen, status lines,
// today, page, today's notes, the message on a font too large, the block
// button). Tests make one on a directory of their own.
class Program {
  public:
    Program();
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // False when the user's data cannot be opened (the "Fehler" box was shown).
    bool start(const ProgramOptions& options);

    MainWindow& window() { return *m_window; }
    CommandDispatcher& commands() { return *m_commands; }
    AppState& state() { return *m_state; }

  private:
    std::unique_ptr<AppState> m_state;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<CommandDispatcher> m_commands;
};

}  // namespace sk::app
