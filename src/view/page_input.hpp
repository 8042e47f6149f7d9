// What a calendar page shows: the request (first month, number of month
// columns, shift model, cursor, today, display options and vacation-block
// parameters) and the per-day extras that come from the user's data and the
// sky (notes, calendar and shift markings, moon symbols). The extras are
// functions, so the window, the clipboard and the render command plug in
// whatever store they hold without the page knowing it.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "astro/day_symbols.hpp"
#include "calendar/dates.hpp"
#include "calendar/vacation.hpp"
#include "settings/settings.hpp"
#include "view/colour.hpp"

namespace sk::view {

// Display options of the settings ("Schulferien anzeigen", ...).
struct DisplayOptions {
    bool school_holidays = true;  // grey stripe behind the day number
    bool week_numbers = true;     // on Mondays and on the 1st
    bool moon_phases = false;     // phase circles and eclipses
    // The letters for the moon's and the earth's distances (perigee, apogee,
    // perihelion, aphelion). The settings file has one switch for them,
    // "Perihel und Aphel anzeigen"; they are drawn with the moon symbols, so
    // they also need `moon_phases`.
    bool distances = false;
    bool vacation_block = true;  // vacation exchange in the five-crew models
};

DisplayOptions display_options(const settings::Settings& settings);

struct PageRequest {
    int first_year = 2024;
    int first_month_index = 0;  // 0 = January
    int columns = 6;            // month columns, 1..23
    int model = 0;              // shift model 0..7
    std::optional<calendar::Day> cursor;  // drawn when it lies on the page
    calendar::Day today;
    DisplayOptions options;
    calendar::VacationOrder vacation_order = calendar::kVacationOrder;
    calendar::VacationStart vacation_earliest;
    float target_hours = 1982.76f;  // "Sollstunden" of the model-5 plan
};

// First and last day shown on the page.
struct DayRange {
    calendar::DayNumber first = 0;
    calendar::DayNumber last = -1;
    constexpr bool contains(calendar::DayNumber d) const { return d >= first && d <= last; }
};
DayRange page_days(const PageRequest& request);

using astro::DaySymbols;
using astro::MoonPhase;

// A shift marking as stored: the column the user chose (1..4) and the
// marking code of the model's kind.
struct ShiftMark {
    int column = 0;
    int code = 0;
};

// Per-day data the page draws beside the calendar's own. An empty function
// means "none".
struct PageExtras {
    std::function<bool(const calendar::Day&)> has_notes;
    // Colour of the calendar marking that covers the day.
    std::function<std::optional<Rgb>(calendar::DayNumber)> marking_colour;
    std::function<std::optional<ShiftMark>(calendar::DayNumber)> shift_marking;
    // The sky of every day of a range, one entry per day from `first`;
    // asked once per page.
    std::function<std::vector<DaySymbols>(calendar::DayNumber first, calendar::DayNumber last)> sky;
};

}  // namespace sk::view
