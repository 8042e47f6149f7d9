// The window "Lösche Notizen und Markierungen" (key L, the note menu's
// "Löschen"): which notes and markings to delete up to which day. It asks
// "Sollen die Notizen wirklich alle gelöscht werden?" before it answers
// Gtk::RESPONSE_OK; the caller deletes through session::delete_up_to.
//
// It opens with no box ticked and the date on the cursor day, "Löschen" is
// not the default button and the question's focus is on "Nein": a key
// pressed by mistake deletes nothing.
#pragma once

#include <gtkmm.h>

#include "app/date_field.hpp"
#include "calendar/dates.hpp"
#include "session/deletion.hpp"
#include "view/page_text.hpp"

namespace sk::app {

class DeleteNotesDialog : public Gtk::Dialog {
  public:
    DeleteNotesDialog(Gtk::Window& parent, view::CellSize cell, const calendar::Day& cursor);

    // What to delete; meaningful after run() returned Gtk::RESPONSE_OK.
    session::DeletionChoice get_choice() const;

    DateField& get_date_field() { return m_date; }
    Gtk::CheckButton& get_daily_box() { return m_daily; }
    Gtk::CheckButton& get_shift_box() { return m_shift; }
    Gtk::CheckButton& get_calendar_box() { return m_calendar; }
    Gtk::CheckButton& get_periodic_box() { return m_periodic; }
    Gtk::CheckButton& get_yearly_box() { return m_yearly; }
    Gtk::CheckButton& get_weekday_box() { return m_weekday; }
    Gtk::Button& get_delete_button() { return m_delete_button; }
    Gtk::Button& get_cancel_button() { return m_cancel_button; }

  private:
    void on_delete_clicked();
    void on_validity_changed(bool valid);

    Gtk::Box m_layout{Gtk::ORIENTATION_VERTICAL};
    Gtk::Box m_date_row{Gtk::ORIENTATION_HORIZONTAL};
    Gtk::Label m_date_label;
    DateField m_date;
    Gtk::Label m_hint;
    Gtk::CheckButton m_daily;
    Gtk::CheckButton m_shift;
    Gtk::CheckButton m_calendar;
    Gtk::Label m_all_heading;
    Gtk::CheckButton m_periodic;
    Gtk::CheckButton m_yearly;
    Gtk::CheckButton m_weekday;
    Gtk::ButtonBox m_buttons{Gtk::ORIENTATION_HORIZONTAL};
    Gtk::Button m_delete_button;
    Gtk::Button m_cancel_button;
    calendar::Day m_cursor;
};

}  // namespace sk::app
