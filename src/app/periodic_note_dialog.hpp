// The editor of notes that repeat every n days (key P, the note menu's
// "Periodische Notiz"), titled "Periodische Notizen am " and the date. It
// pages through the periodic notes of the day and then offers room for a
// new one; below the text the repeat is set between "Die Ausgabe dieser
// Notiz alle" and "Tage wiederholen", from 1 to 365 days.
#pragma once

#include "app/note_editor_dialog.hpp"

namespace sk::app {

class PeriodicNoteDialog : public NoteEditorDialog {
  public:
    PeriodicNoteDialog(Gtk::Window& parent, view::CellSize cell, const notes::NoteStore& store,
                       const calendar::Day& day);

    Gtk::SpinButton& get_interval_field() { return m_interval; }

  protected:
    notes::EditorKey current_key() const override;
    void show_key(const notes::EditorKey& key) override;

  private:
    Gtk::Box m_row{Gtk::ORIENTATION_HORIZONTAL};
    Gtk::Label m_before;
    // Typed digits count only after update(), which reading the key does.
    mutable Gtk::SpinButton m_interval;
    Gtk::Label m_after;
    notes::EditorKey m_shown_key;
};

}  // namespace sk::app
