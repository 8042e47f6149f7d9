// The table of "schichtkalender days", reusable by the benchmark.
#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <string_view>

#include "calendar/dates.hpp"
#include "calendar/vacation.hpp"
#include "cli/commands.hpp"
#include "session/session.hpp"

namespace sk::cli {

struct DaysRequest {
    calendar::Day from;
    calendar::Day to;
    int model = 0;
    bool vacation_block = true;  // "UrlaubBlockAnzeige"
    calendar::VacationOrder vacation_order = calendar::kVacationOrder;
    calendar::VacationStart vacation_earliest{};
};

// Producers of the columns that need more than the calendar: the sky and the
// user's notes. An empty function leaves its column empty.
struct DayColumns {
    std::function<std::string(const calendar::Day&)> astro;
    std::function<std::string(const calendar::Day&)> notes;
};

// The sky of the session's place and, when the user's directory exists, the
// user's notes of each day joined on one line. The session must outlive the
// columns.
DayColumns day_columns(const session::Session& session);

void write_days_table(std::ostream& out, const DaysRequest& request, const DayColumns& extra);

std::string escape_cell(std::string_view text);
std::string shift_digits(int model, calendar::DayNumber d, const calendar::VacationBlock* block);

}  // namespace sk::cli
