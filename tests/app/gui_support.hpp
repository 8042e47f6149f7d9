// Driving real widgets in the GUI tests: GTK is initialised once by the
// test program's main (gui_main.cpp), key presses are synthesised as GDK
// events and dispatched as the main loop would, and waiting is always for a
// condition, with a time limit, never for a fixed time.
#pragma once

#include <gtkmm.h>

#include <functional>
#include <string>

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
