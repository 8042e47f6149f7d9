// Driving real widgets in the GUI tests: GTK is initialised once by the
// test program's main (gui_main.cpp), key presses are synthesised as GDK
// events and dispatched as the main loop would, and waiting is always for a
// condition, with a time limit, never for a fixed time.
#pragma once

#include <gtkmm.h>

#include <functional>
#include <string>
#include <vector>

#include "view/page_text.hpp"

namespace sk::app::test {

// The character cell of the test font (DejaVu Sans 10, fonts.conf).
view::CellSize cell();
// A cell twice as large, to check that windows scale with it.
view::CellSize large_cell();

// A shown top-level window to be the parent of the dialogs.
Gtk::Window& parent_window();

// Processes events until `condition` holds; false when `seconds` passed first.
bool wait_until(const std::function<bool()>& condition, double seconds = 10);

// Gives the window the keyboard focus as a window manager would (Xvfb runs
// none): GTK moves the focus between widgets only in a focused window.
void focus_window(Gtk::Window& window);

// A key press and release on the window (or the window of `widget`), as the
// keyboard would deliver them to the focused widget.
void send_key(Gtk::Widget& widget, guint keyval, GdkModifierType state = GdkModifierType(0));
// Types the characters one key press each.
void type_text(Gtk::Widget& widget, const Glib::ustring& text);

// Runs the dialog modally as the program does and calls `action` once it is
// on the screen and focused; returns run()'s response. A dialog still open after ten
// seconds is closed with kTimedOut.
inline constexpr int kTimedOut = -1000;
int run_dialog(Gtk::Dialog& dialog, const std::function<void()>& action);

// The accessible name of a widget.
std::string accessible_name(Gtk::Widget& widget);

}  // namespace sk::app::test

namespace sk::app::test {

// The shown (mapped) top-level window with the title, or nullptr.
Gtk::Window* shown_window(const Glib::ustring& title);

// Answers dialogs titled `title` with `response` as soon as they are shown,
// also while another dialog's run() waits, at most `times` of them. Keeps
// the text of each message box it answered. Stops when it goes out of scope.
class DialogAnswerer {
  public:
    DialogAnswerer(const Glib::ustring& title, int response, int times = 1);
    ~DialogAnswerer();
    DialogAnswerer(const DialogAnswerer&) = delete;
    DialogAnswerer& operator=(const DialogAnswerer&) = delete;

    int count() const { return static_cast<int>(m_texts.size()); }
    const std::vector<std::string>& texts() const { return m_texts; }

  private:
    Glib::ustring m_title;
    int m_response;
    int m_times;
    std::vector<std::string> m_texts;
    sigc::connection m_poll;
};

// Calls `call`, which runs a modal window titled `title` (as the program's
// note commands do), and calls `action` with that window once it is shown
// and focused. Windows still open after ten seconds are closed.
void run_with(const Glib::ustring& title, const std::function<void()>& call,
              const std::function<void(Gtk::Window&)>& action);

}  // namespace sk::app::test
