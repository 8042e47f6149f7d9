#include "app/school_holiday_window.hpp"

#include <string>

#include "calendar/school_holidays.hpp"

namespace sk::app {

SchoolHolidayWindow::SchoolHolidayWindow(Gtk::Window& parent, view::CellSize cell, int year)
    : YearListWindow(parent, cell,
                     {"Ferientermine",
                      "Bayerische Schulferien " + std::to_string(year),
                      {{std::to_string(year), 24}, {"Bayerische Schulferien", 27}},
                      54,
                      12},
                     calendar::school_holiday_list(year)) {}

}  // namespace sk::app
