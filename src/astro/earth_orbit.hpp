// The earth's distance from the sun and its perihelion and aphelion. The
// distance is the radius vector R of the VSOP87 theory as abridged in Meeus,
// Astronomical Algorithms, Appendix III; the passages are first estimated by
// the formulas of chapter 38 and then refined by stepping R in quarter hours.
#pragma once

#include <string>

#include "astro/instant_memo.hpp"
#include "astro/place.hpp"
#include "calendar/dates.hpp"

namespace sk::astro {

// Heliocentric distance of the earth in astronomical units at `jde`.
double earth_radius_vector(double jde);

// Orbit numbers of the year's passages: integer for the perihelion (early
// January), + 0.5 for the aphelion (early July).
double perihelion_number(int year);
double aphelion_number(int year);

// Estimated JDE of passage k (chapter 38 with the calendar's coefficients).
double perihelion_estimate(double k);
double aphelion_estimate(double k);

// The refined passage: stepping from four hours before the estimate in steps
// of 0.0104 day, the first step at which R no longer decreases (perihelion)
// or no longer increases (aphelion).
double perihelion_instant(double k);
double aphelion_instant(double k);

// "Sonnennähe: 1:39" / "Sonnenferne: 7:06" on the passage's local date, empty otherwise.
std::string perihelion_line(const calendar::Day& day, const Place& place, InstantMemo& memo);
std::string aphelion_line(const calendar::Day& day, const Place& place, InstantMemo& memo);

}  // namespace sk::astro
