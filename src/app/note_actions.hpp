// The window's note commands from the opening of a window to the change on
// disk: each runs its dialog over the parent for the cursor day, applies
// what the user chose through the core, and shows what went wrong. They
// return true when the user's notes or markings may have changed, so that
// the caller lays out the page and refreshes the status lines.
#pragma once

#include <gtkmm.h>

#include <optional>

#include "app/note_menu_dialog.hpp"
#include "calendar/dates.hpp"
#include "notes/note_keys.hpp"
#include "session/session.hpp"
#include "view/page_text.hpp"

namespace sk::app {

// Keys T, P, J, W and the note menu's editors: the editor of the kind for
// the day. Every save the editor asks for is applied at once.
bool edit_note(Gtk::Window& parent, view::CellSize cell, session::Session& session,
               notes::NoteKind kind, const calendar::Day& day);

// Key L and the note menu's "Löschen": "Lösche Notizen und Markierungen".
bool delete_notes_up_to(Gtk::Window& parent, view::CellSize cell, session::Session& session,
                        const calendar::Day& cursor);

// F9 and the button "Notiz": the note menu; nullopt when it was closed
// without a choice.
std::optional<NoteMenuChoice> choose_from_note_menu(Gtk::Window& parent, view::CellSize cell);

// The kind of note a menu entry edits; nullopt for the other entries.
std::optional<notes::NoteKind> note_kind_of(NoteMenuChoice choice);

}  // namespace sk::app
