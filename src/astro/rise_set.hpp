// Rising and setting of the sun and the moon and the beginning and end of
// twilight, as local clock times of the day described. One search serves all
// of them: it steps through the local day in two-hour steps, fits a parabola
// through three altitudes and takes its roots as the moments the body's
// centre crosses the threshold altitude of the event. This is Montenbruck
// and Pfleger's rise-and-set method (QUAD, SIN_ALT and the search around
// them), kept exactly as the calendar has always run it.
#pragma once

#include <string>

#include "astro/place.hpp"
#include "calendar/dates.hpp"

namespace sk::astro {

// What is timed, with its threshold altitude of the body's centre.
enum class RiseSetKind {
    Moon = 1,                  // +8': parallax less refraction and semidiameter
    Sun = 2,                   // -50': refraction and semidiameter
    CivilTwilight = 3,         // -6°
    NauticalTwilight = 4,      // -12°
    AstronomicalTwilight = 5,  // -18°
};

double threshold_altitude(RiseSetKind kind);  // degrees

// What is timed for the place's twilight.
RiseSetKind rise_set_kind(Twilight twilight);

// A parabola y = a x² + b x + c through (-1, y_minus), (0, y0), (+1, y_plus).
struct ParabolaFit {
    double xe = 0.0, ye = 0.0;  // its extreme
    double root1 = 0.0,
           root2 = 0.0;     // its roots, ascending; root1 = root2 when only root2 is in [-1, 1]
    int roots_in_step = 0;  // roots within [-1, 1]
};
ParabolaFit fit_parabola(double y_minus, double y0, double y_plus);

// The day's crossings of the threshold in hours of local time; 0.0 stands
// for "none", so a crossing at exactly 0:00 counts as none. `above` tells
// whether the body was above the threshold at the start of the last two-hour
// step looked at (22:00 when nothing was found).
struct Crossings {
    double rise = 0.0;
    double set = 0.0;
    bool above = false;
};
Crossings find_crossings(RiseSetKind kind, const calendar::Day& day, const Place& place);

// "6:05" for 6.08 h (the minutes rounded), "--:--" for 0.0.
std::string clock_time_text(double hours);

// "Sonne: 7:42 - 16:58", "Mond: 13:40 - --:--", "Sonne: immer sichtbar",
// "Dämmerung: immer dunkel", ...
std::string rise_set_line(RiseSetKind kind, const calendar::Day& day, const Place& place);

// "Sommerzeit von 2:00 Uhr auf 3:00 Uhr" on the last Sunday of March,
// "Winterzeit von 3:00 Uhr auf 2:00b Uhr" on the last Sunday of October,
// empty on every other day.
std::string summer_time_change_line(const calendar::Day& day);

}  // namespace sk::astro
