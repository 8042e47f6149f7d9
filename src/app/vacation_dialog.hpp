// The window "Urlaub eingeben": the remaining vacation days of the home crew
// at a reference date ("Resturlaub am:", "Tage") and the home crew
// ("Stammschicht:"), which the hours account shares. The days follow the
// core's rule (marks::check_vacation_days_entry): a whole number, clamped to
// -60..60 with a hint. The date cannot lie before 1 January of this year,
// since the account moves such a date to that day with 0 days at once.
// Return saves.
#pragma once

#include <gtkmm.h>

#include "app/date_field.hpp"
#include "app/home_crew_chooser.hpp"
#include "marks/account_files.hpp"
#include "view/page_text.hpp"

namespace sk::app {

class VacationDialog : public Gtk::Dialog {
  public:
    // `earliest`: the first day the reference date may be; `counted` as in
    // HoursDialog.
    VacationDialog(Gtk::Window& parent, view::CellSize cell, const marks::VacationAccount& vacation,
                   int home_crew, calendar::DayNumber earliest, bool counted);

    // Meaningful after run() returned Gtk::RESPONSE_OK.
    marks::VacationAccount get_vacation() const;
    int get_home_crew() const { return m_crew.get_crew(); }

    DateField& get_date_field() { return m_date; }
    Gtk::Entry& get_days_field() { return m_days; }
    HomeCrewChooser& get_crew_chooser() { return m_crew; }
    Glib::ustring get_hint() const { return m_hint.get_text(); }

  private:
    void on_entry_changed();

    marks::VacationAccount m_start;
    Gtk::Grid m_grid;
    Gtk::Label m_date_label;
    DateField m_date;
    Gtk::Label m_days_label;
    Gtk::Entry m_days;
    Gtk::Label m_hint;
    Gtk::Label m_crew_label;
    HomeCrewChooser m_crew;
    Gtk::Label m_note;
};

}  // namespace sk::app
