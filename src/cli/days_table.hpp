// The table of "schichtkalender days", reusable by the benchmark.
#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <string_view>

#include "calendar/dates.hpp"
#include "calendar/vacation.hpp"
#include "cli/commands.hpp"
#include "settings/settings.hpp"

namespace sk::cli {

struct DaysRequest {
    calendar::Day from;
    calendar::Day to;
    int model = 0;
    settings::Settings settings;
};

// Producers of the columns that need more than the calendar: the sky and the
// user's notes. An empty function leaves its column empty.
struct DayColumns {
    std::function<std::string(const calendar::Day&)> astro;
    std::function<std::string(const calendar::Day&)> notes;
};

DayColumns day_columns(const UserContext& context, const Options& options, const calendar::Day& today);

void write_days_table(std::ostream& out, const DaysRequest& request, const DayColumns& extra);

std::string escape_cell(std::string_view text);
std::string shift_digits(int model, calendar::DayNumber d, const calendar::VacationBlock* block);

}  // namespace sk::cli
