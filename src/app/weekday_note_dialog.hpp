// The editor of notes for a weekday in the month (key W, the note menu's
// "Wochentag im Monat"), titled "Wochentag im Monat". The weekday is the
// cursor day's; below the text a line reads "Notiz jeden" [ersten ...
// letzten] [weekday] " im" [a month or "jeden"] "Monat" "anzeigen". It pages
// through the weekday notes of the day and then offers room for a new one.
#pragma once

#include "app/note_editor_dialog.hpp"

namespace sk::app {

class WeekdayNoteDialog : public NoteEditorDialog {
  public:
    WeekdayNoteDialog(Gtk::Window& parent, view::CellSize cell, const notes::NoteStore& store,
                      const calendar::Day& day);

    // Rows in code order: ordinals 0..4 ("ersten" .. "letzten"); months 0..11
    // and 12 ("jeden", every month).
    Gtk::ComboBoxText& get_ordinal_field() { return m_ordinal; }
    Gtk::ComboBoxText& get_month_field() { return m_month; }

  protected:
    notes::EditorKey current_key() const override;
    void show_key(const notes::EditorKey& key) override;

  private:
    Gtk::Box m_line{Gtk::ORIENTATION_HORIZONTAL};
    Gtk::Label m_each;
    Gtk::ComboBoxText m_ordinal;
    Gtk::Label m_weekday;
    Gtk::Label m_in;
    Gtk::ComboBoxText m_month;
    Gtk::Label m_month_word;
    Gtk::Label m_show;
    notes::EditorKey m_shown_key;
};

}  // namespace sk::app
