// The editor of a note that comes back every year on the day (key J, the
// note menu's "Jährliche Notiz"), titled "Jährliche Notizen für den " and the
// date. Below the text: "Beginn der Zählung mit dem Jahr", a year from 1900
// to 2100 and "Einsetzen", which puts "<year>. Geburtstag " into the text at
// the text cursor; the page shows it as the number of years.
#pragma once

#include "app/note_editor_dialog.hpp"

namespace sk::app {

class YearlyNoteDialog : public NoteEditorDialog {
  public:
    YearlyNoteDialog(Gtk::Window& parent, view::CellSize cell, const notes::NoteStore& store,
                     const calendar::Day& day);

    Gtk::SpinButton& get_year_field() { return m_year; }
    Gtk::Button& get_insert_button() { return m_insert; }

  private:
    void on_insert_clicked();

    Gtk::Box m_row{Gtk::ORIENTATION_HORIZONTAL};
    Gtk::Label m_label;
    Gtk::SpinButton m_year;
    Gtk::Button m_insert;
};

}  // namespace sk::app
