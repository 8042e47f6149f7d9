// The window "Feiertage": the statutory holidays and the named Easter days
// of one year, as the core lists them (calendar::holiday_list). 50 by 33
// character cells, the list 48 by 31 with columns of 16 and 27 cells.
#pragma once

#include <gtkmm.h>

#include "app/read_only_list.hpp"
#include "view/page_text.hpp"

namespace sk::app {

class HolidayListWindow : public Gtk::Dialog {
  public:
    HolidayListWindow(Gtk::Window& parent, view::CellSize cell, int year);
    ReadOnlyList& get_list() { return m_list; }

  private:
    Gtk::ScrolledWindow m_scroller;
    ReadOnlyList m_list;
};

}  // namespace sk::app
