// The main window under test: a Program on a data directory of its own,
// real key presses and clicks synthesised as GDK events, every window that
// opens answered (and recorded) by the test or closed, and waiting for
// conditions, always with an upper bound. Also the shell scaffolding of the
// tests that run the program as its own process, driven by xdotool.
#pragma once

#include <gtest/gtest.h>
#include <gtkmm.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/application.hpp"
#include "app/commands.hpp"
#include "app/main_window.hpp"
#include "gui_support.hpp"
#include "settings/settings_file.hpp"
#include "test_support.hpp"
#include "view/page_layout.hpp"

namespace sk::app::test {

inline calendar::Day date(int y, int m, int d) {
    return calendar::Day::from_date(y, m - 1, d);
}

// Keys by their GDK names, separated by blanks: "F3 Home", "Shift+N", "Control+p".
void send_key(Gtk::Window& window, const std::string& names);
// A primary-button press at (x, y) of the widget (of an entry: into its
// text); two for a double click.
void click(Gtk::Widget& widget, double x, double y, bool twice = false);
const view::DayCell* day_cell(const view::PageLayout& page, const calendar::Day& day);

// A message box or window seen by the catcher: its title and (message boxes) text.
struct Message {
    std::string title;
    std::string text;
};

class WindowTest : public ::testing::Test {
  protected:
    WindowTest();
    ~WindowTest() override;

    // Starts the program (anew) with `today` on the screen given (large by default).
    void start(const calendar::Day& today,
               std::optional<ScreenSize> screen = ScreenSize{8000, 3000});
    void key(const std::string& names) { send_key(window(), names); }
    void write_daily(const calendar::Day& day, const std::string& text);

    MainWindow& window() { return m_program->window(); }
    AppState& state() { return m_program->state(); }
    std::filesystem::path user_dir() const { return m_dir.path() / "Programm"; }
    std::string field_text(StatusField field);
    // The page state as "first month, cursor, columns, model": "2026-11 2026-11-23 6 0".
    std::string page() const;

    // Every window that opens is answered once, from the main loop: by the
    // latest answer given for its class (which must close it), otherwise
    // message boxes with "OK" and other windows cancelled. A window still
    // open 30 s after its answer fails the test and is closed.
    template <class D>
    void answer(std::function<void(D&)> act) {
        m_answers.insert(m_answers.begin(), [act](Gtk::Dialog& dialog) {
            auto* typed = dynamic_cast<D*>(&dialog);
            if (typed) act(*typed);
            return typed != nullptr;
        });
    }

    sk::test::TempDir m_dir;
    std::unique_ptr<Program> m_program;
    std::vector<Message> m_messages;  // every box and window opened so far
    std::vector<std::function<bool(Gtk::Dialog&)>> m_answers;

  private:
    sigc::connection m_catcher;
};

// Runs `steps` in bash (or `shell`) after shell functions for driving the
// program with xdotool; every wait in them gives up after 30 s with a message
// on stderr, and the program is killed whatever way the script ends:
//   start [ARGS]    the program on $dir/SKDaten, today 23.11.2026; $id, $pid
//   focus TITLE     waits for a window (title as regular expression), focuses it; $w
//   gone TITLE      waits until no such window is left
//   until_ok WHAT CMD...   waits until CMD succeeds
//   ended           waits for the program's end; fails on a status other than 0
//   quit            Escape in the main window, then ended
sk::test::CommandResult run_session(const std::filesystem::path& dir, const std::string& steps,
                                    const std::string& shell = "bash");
settings::Settings saved_settings(const std::filesystem::path& user_dir);
// Pixels whose colour differs; -1 when the sizes differ.
int differing_pixels(const Glib::RefPtr<Gdk::Pixbuf>& a, const Glib::RefPtr<Gdk::Pixbuf>& b);

}  // namespace sk::app::test
