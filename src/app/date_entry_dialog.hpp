// The date entry window: key F8 or D ("Datum") goes to a date, key F sets
// the earliest start of the vacation block for the run (only day and month
// of the date count there). The caller gives the start value and the range;
// Return takes the date, Escape or "Abbruch" leaves without one.
//
//     DateEntryDialog dialog(window, cell, DateEntryDialog::Purpose::GoTo, start, min, max);
//     if (dialog.run() == Gtk::RESPONSE_OK) go_to(dialog.get_date());
#pragma once

#include <gtkmm.h>

#include "app/date_field.hpp"
#include "calendar/dates.hpp"
#include "view/page_text.hpp"

namespace sk::app {

class DateEntryDialog : public Gtk::Dialog {
  public:
    enum class Purpose {
        GoTo,           // "Datum": the page moves to the date
        VacationStart,  // "Blockurlaub": earliest start of the vacation block
    };

    DateEntryDialog(Gtk::Window& parent, view::CellSize cell, Purpose purpose,
                    const calendar::Day& start, calendar::DayNumber min, calendar::DayNumber max);

    // The date entered; meaningful after run() returned Gtk::RESPONSE_OK
    // (the OK button is insensitive while the field holds no valid date).
    calendar::Day get_date() const;

    DateField& get_field() { return m_field; }

  private:
    void on_validity_changed(bool valid);

    Gtk::Label m_prompt;
    DateField m_field;
    Gtk::Label m_hint;
    Gtk::Label m_note;
    calendar::Day m_start;  // within the range
};

}  // namespace sk::app
