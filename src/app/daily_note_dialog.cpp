#include "app/daily_note_dialog.hpp"

namespace sk::app {

DailyNoteDialog::DailyNoteDialog(Gtk::Window& parent, view::CellSize cell,
                                 const notes::NoteStore& store, const calendar::Day& day)
    : NoteEditorDialog(parent, cell, store, notes::NoteKind::Daily, day) {
    start();
}

}  // namespace sk::app
