#include "app/holiday_list_window.hpp"

#include <string>

namespace sk::app {

HolidayListWindow::HolidayListWindow(Gtk::Window& parent, view::CellSize cell, int year)
    : YearListWindow(parent, cell,
                     {"Feiertage",
                      "Feiertage " + std::to_string(year),
                      {{std::to_string(year), 16}, {"Feiertag", 27}},
                      50,
                      33},
                     calendar::holiday_list(year)) {}

}  // namespace sk::app
