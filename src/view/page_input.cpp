#include "view/page_input.hpp"

#include <algorithm>

#include "calendar/ranges.hpp"
#include "calendar/shift_model.hpp"

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

PageRequest page_request(const settings::Settings& s, const calendar::Day& first_month,
                         std::optional<calendar::Day> cursor, const calendar::Day& today) {
    PageRequest r;
    r.first_year = first_month.year;
    r.first_month_index = first_month.month_index;
    r.columns = calendar::kRenderColumns.clamp(s.columns);
    r.model = calendar::is_valid_model(s.model) ? s.model : 0;
    r.cursor = cursor;
    r.today = today;
    r.options = display_options(s);
    r.vacation_order = calendar::rotate_order(calendar::kVacationOrder, s.vacation_cycle);
    r.vacation_earliest = {s.vacation_start_month, s.vacation_start_day};
    r.target_hours = s.target_hours_38;
    return r;
}

DayRange page_days(const PageRequest& r) {
    const int last_index = r.first_month_index + std::max(r.columns, 1) - 1;
    const int last_year = r.first_year + last_index / 12;
    const int last_month = last_index % 12;
    return {calendar::day_number(r.first_year, r.first_month_index, 1),
            calendar::day_number(last_year, last_month, calendar::month_length(last_year, last_month))};
}

}  // namespace sk::view
