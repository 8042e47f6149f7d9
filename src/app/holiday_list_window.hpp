// The window "Feiertage": the statutory holidays and the named Easter days
// of one year, as the core lists them (calendar::holiday_list). 50 by 33
// character cells, columns of 16 and 27 cells.
#pragma once

#include "app/year_list_window.hpp"

namespace sk::app {

class HolidayListWindow : public YearListWindow {
  public:
    HolidayListWindow(Gtk::Window& parent, view::CellSize cell, int year);
};

}  // namespace sk::app
