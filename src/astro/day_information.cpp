#include "astro/day_information.hpp"

#include "astro/earth_orbit.hpp"
#include "astro/eclipses.hpp"
#include "astro/instant_memo.hpp"
#include "astro/lunar_apsides.hpp"
#include "astro/rise_set.hpp"
#include "astro/seasons.hpp"

namespace sk::astro {

namespace {

constexpr int kNewMoonMarker = 1;
constexpr int kFullMoonMarker = 2;

// The events the page draws, shared by the line and the page.
struct SymbolEvents {
    MoonPhaseLine moon_phase;
    std::string eclipse;
    std::string apogee, perigee, aphelion, perihelion;
};

SymbolEvents symbol_events(const calendar::Day& day, const Place& place, InstantMemo& memo) {
    SymbolEvents e;
    e.moon_phase = moon_phase_line(day, place, memo);
    // Eclipses are looked for only near a new or full moon, as the marker says.
    if (e.moon_phase.marker == kNewMoonMarker) {
        e.eclipse = solar_eclipse_line(day, place, memo);
    } else if (e.moon_phase.marker == kFullMoonMarker) {
        e.eclipse = lunar_eclipse_line(day, place, memo);
    }
    e.apogee = apogee_line(day, place, memo);
    e.perigee = perigee_line(day, place, memo);
    e.aphelion = aphelion_line(day, place, memo);
    e.perihelion = perihelion_line(day, place, memo);
    return e;
}

}  // namespace

DayEvents day_events(const calendar::Day& day, const Place& place) {
    DayEvents events;
    events.twilight = rise_set_line(rise_set_kind(place.twilight), day, place);
    events.sun = rise_set_line(RiseSetKind::Sun, day, place);
    events.moon = rise_set_line(RiseSetKind::Moon, day, place);
    events.season = season_line(day, place);
    events.summer_time_change = summer_time_change_line(day);

    InstantMemo memo;
    SymbolEvents symbols = symbol_events(day, place, memo);
    events.moon_phase = std::move(symbols.moon_phase.text);
    events.phase = symbols.moon_phase.phase;
    events.marker = symbols.moon_phase.marker;
    events.eclipse = std::move(symbols.eclipse);
    events.solar_eclipse = !events.eclipse.empty() && events.marker == kNewMoonMarker;
    events.lunar_eclipse = !events.eclipse.empty() && events.marker == kFullMoonMarker;
    events.apogee = std::move(symbols.apogee);
    events.perigee = std::move(symbols.perigee);
    events.aphelion = std::move(symbols.aphelion);
    events.perihelion = std::move(symbols.perihelion);
    return events;
}

std::string day_information(const DayEvents& events) {
    std::string line = events.twilight;
    line += kPartSeparator;
    line += events.sun;
    line += kPartSeparator;
    line += events.moon;
    for (const std::string* part :
         {&events.season, &events.summer_time_change, &events.moon_phase, &events.eclipse,
          &events.apogee, &events.perigee, &events.aphelion, &events.perihelion}) {
        if (part->empty()) continue;
        line += kPartSeparator;
        line += *part;
    }
    return line;
}

std::string day_information(const calendar::Day& day, const Place& place) {
    return day_information(day_events(day, place));
}

std::vector<DaySymbols> page_symbols(calendar::DayNumber first, calendar::DayNumber last,
                                     const Place& place) {
    std::vector<DaySymbols> symbols;
    if (last < first) return symbols;
    symbols.reserve(static_cast<std::size_t>(last - first) + 1);
    InstantMemo memo;  // shared by the days of the page
    for (calendar::DayNumber d = first; d <= last; ++d) {
        const calendar::Day day = calendar::Day::from_number(d);
        const SymbolEvents e = symbol_events(day, place, memo);
        DaySymbols s;
        s.phase = e.moon_phase.phase;
        s.solar_eclipse = !e.eclipse.empty() && e.moon_phase.marker == kNewMoonMarker;
        s.lunar_eclipse = !e.eclipse.empty() && e.moon_phase.marker == kFullMoonMarker;
        s.apogee = !e.apogee.empty();
        s.perigee = !e.perigee.empty();
        s.aphelion = !e.aphelion.empty();
        s.perihelion = !e.perihelion.empty();
        symbols.push_back(s);
    }
    return symbols;
}

}  // namespace sk::astro
