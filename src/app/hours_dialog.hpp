// The window "Stunden eingeben": the start of the hours account of the home
// crew, that is the date from which the shift markings count ("Stunden
// am:"), the hours at that date in the chosen notation ("Std:Min" or
// "Std,dez"), the home crew ("Stammschicht:") and whether the vacation block
// counts as minus hours. The field rules are the core's
// (marks::check_hours_entry): while the text is no value the field turns
// red and "Speichern" is insensitive; a value beyond -600..600 is clamped
// and the hint says so. Return saves.
#pragma once

#include <gtkmm.h>

#include <array>

#include "app/date_field.hpp"
#include "app/home_crew_chooser.hpp"
#include "marks/account_files.hpp"
#include "view/page_text.hpp"

namespace sk::app {

class HoursDialog : public Gtk::Dialog {
  public:
    // `counted`: whether the model keeps accounts; else a line says that the
    // entry counts only in the models that do.
    HoursDialog(Gtk::Window& parent, view::CellSize cell, const marks::HoursAccount& hours,
                bool counted);

    // The account as entered, the value clamped; meaningful after run()
    // returned Gtk::RESPONSE_OK ("Speichern" waits for a valid entry).
    marks::HoursAccount get_hours() const;

    DateField& get_date_field() { return m_date; }
    Gtk::Entry& get_value_field() { return m_value; }
    Gtk::RadioButton& get_mode_button(int mode);
    HomeCrewChooser& get_crew_chooser() { return m_crew; }
    Gtk::CheckButton& get_block_check() { return m_block; }
    Glib::ustring get_hint() const { return m_hint.get_text(); }

  private:
    int get_mode() const;
    void on_entry_changed();

    marks::HoursAccount m_start;
    Gtk::Grid m_grid;
    Gtk::Label m_date_label;
    DateField m_date;
    Gtk::Label m_value_label;
    Gtk::Entry m_value;
    Gtk::Box m_modes{Gtk::ORIENTATION_HORIZONTAL};
    Gtk::RadioButton::Group m_mode_group;
    Gtk::RadioButton m_hours_minutes;
    Gtk::RadioButton m_decimal;
    Gtk::Label m_hint;
    Gtk::Label m_crew_label;
    HomeCrewChooser m_crew;
    Gtk::CheckButton m_block;
    Gtk::Label m_block_hint;
    Gtk::Label m_note;
};

}  // namespace sk::app
