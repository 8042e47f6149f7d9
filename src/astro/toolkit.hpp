// The conventions every astronomical computation of the calendar shares: how
// a calendar day becomes a Modified Julian Date or a Julian Date, the epochs
// the centuries count from, trigonometry in degrees, the fractional part, the
// two summer-time rules (whole days for rise and set, an instant for events)
// and the text of an event's local clock time. Everything is a pure function
// of its arguments; nothing is cached between days.
#pragma once

#include <string>
#include <string_view>

#include "astro/place.hpp"
#include "calendar/dates.hpp"

namespace sk::astro {

// Day number 0 (1970-01-01) is MJD 40587 and JD 2440587.5 at 0 h UT.
inline constexpr int kMjdOfDayZero = 40587;
inline constexpr double kJdOfDayZero = 2440587.5;
// Integer Julian day number of the local date of day number 0: an event's
// local date is found by comparing trunc(JD + zone + 0.5) with this + day number.
inline constexpr double kJulianDayNumberOfDayZero = 2440588.0;
// J2000.0 as a Modified Julian Date and as a Julian Date.
inline constexpr double kMjdJ2000 = 51544.5;
inline constexpr double kJdJ2000 = 2451545.0;
inline constexpr double kDaysPerJulianCentury = 36525.0;
inline constexpr double kDaysPerJulianMillennium = 365250.0;

// Degrees to radians as the calendar has always written it.
inline constexpr double kRadiansPerDegree = 0.0174532925199433;

// MJD of 0 h UT of the day.
constexpr int mjd_of_day(calendar::DayNumber day) {
    return day + kMjdOfDayZero;
}
// Julian Date of 0 h UT of the day.
constexpr double jd_of_day(calendar::DayNumber day) {
    return day + kJdOfDayZero;
}

double sin_deg(double degrees);
double cos_deg(double degrees);

// x - trunc(x), moved into [0, 1) for negative x.
double frac(double x);

// Whole-day summer-time rule of the rise and set times: true from the last
// Sunday of March up to the Saturday before the last Sunday of October of
// `year`, both whole days. `mjd` is the MJD of the day.
bool summer_time_on_day(int mjd, int year);

// Summer-time shift of an event instant in the shifted scale of
// `event_time_text` (JD + zone + 0.5): 1/24 inside the year's summer-time
// window, 0 outside it or when automatic summer time is off.
double event_summer_time_shift(double shifted_jd, int year, const Place& place);

// The local clock time of an event at `jd` (UT), labelled, when its local
// date is `day`: label + "7:05". Empty when the event falls on another day.
std::string event_time_text(double jd, std::string_view label, const calendar::Day& day,
                            const Place& place);

}  // namespace sk::astro
