// The window "Export" ("Prog." - "Export"): what to export before the file
// chooser asks where. The format (iCalendar for calendar programs and
// phones, a CSV table for spreadsheets), the crew as the page heads its
// column, the days, and for iCalendar whether the shifts carry their clock
// times and whether the notes come along. A CSV table holds every crew and
// no notes, so crew, times and notes are insensitive while it is chosen.
// The last day cannot lie before the first (the "bis" field's range starts
// at the first day); while a date is no date of its range "Speichern unter"
// is insensitive. The window writes nothing: the caller reads the choices
// (get_request) and writes through the export core.
//
//     ExportDialog dialog(window, cell, page.model, exporting::default_export_request(page, crew));
//     if (dialog.run() == Gtk::RESPONSE_OK) request = dialog.get_request();
#pragma once

#include <gtkmm.h>

#include "app/date_field.hpp"
#include "export/export_request.hpp"
#include "view/page_text.hpp"

namespace sk::app {

class ExportDialog : public Gtk::Dialog {
  public:
    // `model` names the crews; `initial` holds the first choices.
    ExportDialog(Gtk::Window& parent, view::CellSize cell, int model,
                 const exporting::ExportRequest& initial);

    // The choices as shown; meaningful after run() returned Gtk::RESPONSE_OK.
    exporting::ExportRequest get_request() const;

    Gtk::RadioButton& get_ics_button() { return m_ics; }
    Gtk::RadioButton& get_csv_button() { return m_csv; }
    Gtk::ComboBoxText& get_crew_choice() { return m_crew; }
    DateField& get_first_field() { return m_first; }
    DateField& get_last_field() { return m_last; }
    Gtk::CheckButton& get_times_box() { return m_times; }
    Gtk::CheckButton& get_notes_box() { return m_notes; }
    Gtk::Button& get_save_button() { return *m_save; }
    // The reason a date cannot be taken; empty while both can.
    Glib::ustring get_hint() const { return m_hint.get_text(); }

  private:
    void on_format_toggled();
    void on_first_date_changed(const calendar::Day& first);
    void on_validity_changed();

    exporting::ExportRequest m_initial;
    Gtk::Grid m_grid;
    Gtk::Label m_format_label;
    Gtk::RadioButton m_ics;
    Gtk::RadioButton m_csv;
    Gtk::Label m_crew_label;
    Gtk::ComboBoxText m_crew;
    Gtk::Label m_first_label;
    DateField m_first;
    Gtk::Label m_last_label;
    DateField m_last;
    Gtk::CheckButton m_times;
    Gtk::CheckButton m_notes;
    Gtk::Label m_hint;
    Gtk::Button* m_save = nullptr;
};

}  // namespace sk::app
