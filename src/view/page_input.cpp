#include "view/page_input.hpp"

#include <algorithm>

namespace sk::view {

DisplayOptions display_options(const settings::Settings& s) {
    DisplayOptions o;
    o.school_holidays = s.school_holidays_shown != 0;
    o.week_numbers = s.week_numbers_shown != 0;
    o.moon_phases = s.moon_phases_shown != 0;
    o.distances = s.perihelion_shown != 0;
    o.vacation_block = s.vacation_block_shown != 0;
    return o;
}

DayRange page_days(const PageRequest& r) {
    const int last_index = r.first_month_index + std::max(r.columns, 1) - 1;
    const int last_year = r.first_year + last_index / 12;
    const int last_month = last_index % 12;
    return {calendar::day_number(r.first_year, r.first_month_index, 1),
            calendar::day_number(last_year, last_month, calendar::month_length(last_year, last_month))};
}

}  // namespace sk::view
