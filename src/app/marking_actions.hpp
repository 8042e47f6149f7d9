// Running the marking and account dialogs and applying what they return:
// each function opens its dialog over `parent`, applies the result to the
// session through the core, writes the file at once (atomically; the save on
// exit writes the markings again should that fail), and says whether
// anything changed, so that the caller redraws the page and the status
// lines. The model is the session's (`settings.model`, which the main window
// keeps equal to its page's).
//
// Writing the markings after every change goes beyond what the program
// always did (they were written on exit only): a crash loses nothing.
#pragma once

#include <gtkmm.h>

#include "calendar/dates.hpp"
#include "session/session.hpp"
#include "view/page_text.hpp"

namespace sk::app {

// Keys 1..4 on the cursor day, a double click into a crew's cell: the shift
// marking of the day in the column 1..4. A day that may not be marked opens
// no dialog but a message saying why. True when the markings changed.
bool edit_shift_marking(Gtk::Window& parent, view::CellSize cell, session::Session& session,
                        const calendar::Day& day, int column);

// The note menu's "Schichtmarkierung": the column chooser first, then as
// above; cancelling the chooser opens nothing.
bool choose_column_and_edit_shift_marking(Gtk::Window& parent, view::CellSize cell,
                                          session::Session& session, const calendar::Day& day);

// Key K and the note menu's "Kalendermarkierung" on the cursor day. True
// when a bar was saved or deleted.
bool edit_calendar_marking(Gtk::Window& parent, view::CellSize cell, session::Session& session,
                           const calendar::Day& day);

// "Prog." - "Stunden" and a click on the hours field: "Stunden eingeben",
// writing "Minusstunden.dat". True when saved.
bool edit_hours(Gtk::Window& parent, view::CellSize cell, session::Session& session);

// "Prog." - "Urlaub": "Urlaub eingeben", writing "Urlaubstage.dat" and, for
// the shared home crew, "Minusstunden.dat". `today` gives the first day the
// reference date may be (1 January of its year). True when saved.
bool edit_vacation(Gtk::Window& parent, view::CellSize cell, session::Session& session,
                   const calendar::Day& today);

}  // namespace sk::app
