// The editor of a day's own note (key T, the note menu's "Tagesnotiz"),
// titled "Notizen für den " and the date. Saved as the day's "*.txt" file.
#pragma once

#include "app/note_editor_dialog.hpp"

namespace sk::app {

class DailyNoteDialog : public NoteEditorDialog {
  public:
    DailyNoteDialog(Gtk::Window& parent, view::CellSize cell, const notes::NoteStore& store,
                    const calendar::Day& day);
};

}  // namespace sk::app
