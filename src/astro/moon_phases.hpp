// The principal phases of the moon after Meeus, Astronomical Algorithms,
// chapter 49: the mean phase of lunation k, the periodic corrections of
// Table 49.A and the search that matches a lunation to a calendar day. The
// eclipses build on the same lunations and the same search.
#pragma once

#include <cmath>
#include <string>

#include "astro/day_symbols.hpp"
#include "astro/instant_memo.hpp"
#include "astro/place.hpp"
#include "calendar/dates.hpp"

namespace sk::astro {

// Fraction of the lunation added to the whole lunation number: 0, 0.25, 0.5, 0.75.
double lunation_fraction(MoonPhase phase);

// c0 + ck·k + cT·T + cT2·T² + cT3·T³ + cT4·T⁴.
struct LunationPolynomial {
    double c0, ck, cT, cT2, cT3, cT4;
    double at(double k, double T) const {
        return c0 + ck * k + ((cT4 * T + cT3) * T + cT2) * T * T + cT * T;
    }
};

// Mean phase instant and fundamental arguments (degrees) of lunation k.
struct LunationElements {
    LunationPolynomial jde, E, M, Mp, F, Omega;
};

// The calendar's own coefficients. The mean phase, M, M′, F and Ω differ
// slightly from the book's second edition; the T² coefficient of M′
// (0.1017438 against the book's 0.0107582) is the largest difference, worth
// a few seconds of time at the ends of the calendar's years.
inline constexpr LunationElements kLunationElements{
    {2451550.09765, 29.530588853, 0.0, 0.0001337, -0.00000015, 0.00000000073},
    {1.0, 0.0, -0.002516, -0.0000074, 0.0, 0.0},
    {2.5534, 29.10535669, 0.0, -0.0000218, -0.00000011, 0.0},
    {201.5643, 385.81693528, 0.0, 0.1017438, 0.00001239, -0.000000058},
    {160.7108, 390.67050274, 0.0, -0.0016341, -0.00000227, 0.000000011},
    {124.7746, -1.5637558, 0.0, 0.0020691, 0.00000215, 0.0},
};

// Meeus, 2nd edition (1998), equations 49.1 and 49.4-49.7, for checking the
// tables against the book's worked examples.
inline constexpr LunationElements kBookLunationElements{
    {2451550.09766, 29.530588861, 0.0, 0.00015437, -0.000000150, 0.00000000073},
    {1.0, 0.0, -0.002516, -0.0000074, 0.0, 0.0},
    {2.5534, 29.10535670, 0.0, -0.0000014, -0.00000011, 0.0},
    {201.5643, 385.81693528, 0.0, 0.0107582, 0.00001238, -0.000000058},
    {160.7108, 390.67050284, 0.0, -0.0016118, -0.00000227, 0.000000011},
    {124.7746, -1.56375588, 0.0, 0.0020672, 0.00000215, 0.0},
};

// The mean lunation k (k already holds the phase fraction), T = k / 1236.85.
struct MeanLunation {
    double k, T, jde, E, M, Mp, F, Omega;
};
MeanLunation mean_lunation(double k, const LunationElements& elements = kLunationElements);

// JDE of the true phase of lunation k (whole lunation number + fraction).
double moon_phase_instant(double k, MoonPhase phase,
                          const LunationElements& elements = kLunationElements);

// Rough lunation number of the day moved by `offset` days: 30.4 days a
// month, 365 days a year, 12.3685 lunations a year since 2000.
double lunation_estimate(const calendar::Day& day, int offset);

// The day search: from the first offset (-35 before 2000, because negative
// estimates truncate towards zero and so a lunation late; -1 from 2000 on)
// walk the estimate forward a day at a time until the instant of lunation
// trunc(estimate) + fraction is no earlier than noon UT of the day before,
// or the offset reaches 3. `instant_of(k)` gives the instant of lunation k;
// it may return 0.0 for "none", which never ends the walk early.
template <class InstantOf>
double search_lunation(const calendar::Day& day, double fraction, InstantOf&& instant_of) {
    const double noon_before = day.number + 2440587.0;
    int offset = day.year < 2000 ? -35 : -1;
    double last_k = NAN;
    double instant = 0.0;
    do {
        const double k = std::trunc(lunation_estimate(day, offset)) + fraction;
        if (k != last_k) {  // the same k gives the same instant
            instant = instant_of(k);
            last_k = k;
        }
        ++offset;
    } while (std::trunc(instant) < noon_before && offset != 3);
    return instant;
}

// The day marker a new-moon (1) or full-moon (2) search leaves: `mark` when
// the phase found lies within a day of noon before the day or more than 27
// days away from it, 0 otherwise.
int day_marker(double jde, calendar::DayNumber day, int mark);

// The moon phase line of a day: full moon, last quarter, new moon and first
// quarter are tried in this order and the first whose local date is the day
// gives "Vollmond: 13:54" and so on. `marker` is what the last new-moon or
// full-moon search that ran left (0 none, 1 new moon, 2 full moon).
struct MoonPhaseLine {
    std::string text;
    MoonPhase phase = MoonPhase::None;
    int marker = 0;
};
MoonPhaseLine moon_phase_line(const calendar::Day& day, const Place& place, InstantMemo& memo);

}  // namespace sk::astro
