// The window "Ferientermine": the six Bavarian school-holiday ranges of one
// year as the core lists them (calendar::school_holiday_list); empty for a
// year the table does not hold. 54 by 12 character cells, columns of 24 and
// 27 cells.
#pragma once

#include "app/year_list_window.hpp"

namespace sk::app {

class SchoolHolidayWindow : public YearListWindow {
  public:
    SchoolHolidayWindow(Gtk::Window& parent, view::CellSize cell, int year);
};

}  // namespace sk::app
