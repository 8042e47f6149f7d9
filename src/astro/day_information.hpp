// The astronomical information of one calendar day, as the information line
// of the main window shows it and as the page draws it: twilight, sun and
// moon times always; the start of a season, the change of the clocks, a moon
// phase, an eclipse, the moon's and the earth's apsides when they fall on
// the day. The page asks only for the symbols of a whole range of days,
// without the rise and set times, and shares the event instants between the
// days of the range.
#pragma once

#include <string>
#include <vector>

#include "astro/day_symbols.hpp"
#include "astro/moon_phases.hpp"
#include "astro/place.hpp"
#include "calendar/dates.hpp"

namespace sk::astro {

// Joins the parts of the line: "," and a no-break space (U+00A0).
inline constexpr const char* kPartSeparator = ",\u00A0";

struct DayEvents {
    std::string twilight, sun, moon;  // always present
    // Empty when nothing of the kind falls on the day.
    std::string season, summer_time_change, moon_phase, eclipse, apogee, perigee, aphelion,
        perihelion;
    // What the new-moon and full-moon searches left: 0 none, 1 new moon near
    // the day, 2 full moon near the day. The eclipse line is looked for only
    // when it is 1 (solar) or 2 (lunar).
    int marker = 0;
    MoonPhase phase = MoonPhase::None;                  // the phase whose line falls on the day
    bool solar_eclipse = false, lunar_eclipse = false;  // an eclipse line was produced
};

DayEvents day_events(const calendar::Day& day, const Place& place);

// "Dämmerung: 5:12 - 21:31, Sonne: 5:52 - 20:51, Mond: 13:40 - --:--, ..."
std::string day_information(const DayEvents& events);
std::string day_information(const calendar::Day& day, const Place& place);

// The symbols of the days first..last (inclusive), one entry per day; empty
// when last < first. The same values as day_events() gives day by day.
std::vector<DaySymbols> page_symbols(calendar::DayNumber first, calendar::DayNumber last,
                                     const Place& place);

}  // namespace sk::astro
