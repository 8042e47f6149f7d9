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

// A shown top-level window to be the parent of the dialogs.
Gtk::Window& parent_window();

// Processes events until `condition` holds; false when `seconds` passed first.
bool wait_until(const std::function<bool()>& condition, double seconds = 30);

// A key press and release on the window (or the window of `widget`), as the
// keyboard would deliver them to the focused widget.
void send_key(Gtk::Widget& widget, guint keyval, GdkModifierType state = GdkModifierType(0));
// Types the characters one key press each.
void type_text(Gtk::Widget& widget, const Glib::ustring& text);
// Gives the entry the focus and types `text` over all it holds.
void retype(Gtk::Entry& entry, const Glib::ustring& text);

// Runs the dialog modally as the program does and calls `action` once it is
// on the screen and focused (see `play`); returns run()'s response.
int run_dialog(Gtk::Dialog& dialog, const std::function<void()>& action);

// The accessible name of a widget.
std::string accessible_name(Gtk::Widget& widget);
// The text of a message box.
std::string message_text(Gtk::Window& window);

// Answers dialogs titled `title` with `response` as soon as they are shown,
// also while another dialog's run() waits, at most `times` of them. Keeps
// the text of each message box it answered. Stops when it goes out of scope.
class DialogAnswerer {
  public:
    DialogAnswerer(const Glib::ustring& title, int response, int times = 1);
    ~DialogAnswerer() { m_poll.disconnect(); }
    DialogAnswerer(const DialogAnswerer&) = delete;
    DialogAnswerer& operator=(const DialogAnswerer&) = delete;

    int count() const { return static_cast<int>(m_texts.size()); }
    const std::vector<std::string>& texts() const { return m_texts; }

  private:
    std::vector<std::string> m_texts;
    sigc::connection m_poll;
};

// Playing the user for windows that the code under test opens and runs by
// itself: `play` calls `call` while each step waits until a window of its
// title (any window for an empty title) is shown, gives it the focus and
// runs its action on it; the steps have to run to their end. Returns the
// titles of the windows shown, in order, once for each time shown, so a
// test can tell that a dialog did not open. Should a step wait 10 seconds
// without any window to act on, every open dialog is answered with
// Gtk::RESPONSE_CANCEL, so the test fails instead of hanging.
//
// An action runs inside a main-loop callback that does not run again until
// it returns: an action that opens a further modal window (a click on the
// colour button) must do so from an idle callback (`later`).
struct ScriptStep {
    Glib::ustring title;
    std::function<void(Gtk::Window&)> action;
};
std::vector<std::string> play(std::vector<ScriptStep> steps, const std::function<void()>& call);
// A step whose action takes the window as the W it is.
template <class W>
ScriptStep on(const Glib::ustring& title, std::function<void(W&)> action) {
    return {title, [action](Gtk::Window& w) { action(dynamic_cast<W&>(w)); }};
}
// A step that presses a key.
ScriptStep press(const Glib::ustring& title, guint key, GdkModifierType state = GdkModifierType(0));

// Runs `action` from an idle callback of the main loop.
void later(std::function<void()> action);

}  // namespace sk::app::test
