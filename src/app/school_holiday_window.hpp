// The window "Ferientermine": the six Bavarian school-holiday ranges of one
// year as the core lists them (calendar::school_holiday_list); empty for a
// year the table does not hold. 54 by 12 character cells, the list 52 cells
// wide one cell in from the edges, columns of 24 and 27 cells.
#pragma once

#include <gtkmm.h>

#include "app/read_only_list.hpp"
#include "view/page_text.hpp"

namespace sk::app {

class SchoolHolidayWindow : public Gtk::Dialog {
  public:
    SchoolHolidayWindow(Gtk::Window& parent, view::CellSize cell, int year);
    ReadOnlyList& get_list() { return m_list; }

  private:
    Gtk::ScrolledWindow m_scroller;
    ReadOnlyList m_list;
};

}  // namespace sk::app
