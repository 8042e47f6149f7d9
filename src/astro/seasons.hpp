// The starts of the seasons: the equinoxes and solstices after Meeus,
// Astronomical Algorithms, chapter 27 (mean instants of Table 27.B for the
// years 1000 to 3000 and the periodic terms of Table 27.C).
#pragma once

#include <string>

#include "astro/place.hpp"
#include "calendar/dates.hpp"

namespace sk::astro {

enum class Season { Spring, Summer, Autumn, Winter };  // March, June, September, December

// Mean instant JDE0 (Table 27.B) and instant JDE of the year's event.
double season_mean_instant(int year, Season season);
double season_instant(int year, Season season);

// "Frühlingsanfang: 4:06" and so on, only in the event's month and only on
// its local date; empty otherwise.
std::string season_line(const calendar::Day& day, const Place& place);

}  // namespace sk::astro
