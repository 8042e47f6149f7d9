// The moon's perigee and apogee after Meeus, Astronomical Algorithms,
// chapter 50: the mean instant of anomalistic month k and the periodic terms
// of Table 50.A for its time (the distances are not needed).
#pragma once

#include <string>

#include "astro/instant_memo.hpp"
#include "astro/place.hpp"
#include "calendar/dates.hpp"

namespace sk::astro {

// c0 + ck·k + cT2·T² + cT3·T³ + cT4·T⁴, T = k / 1325.55.
struct ApsisPolynomial {
    double c0, ck, cT2, cT3, cT4;
    double at(double k, double T) const {
        return c0 + ck * k + ((cT4 * T + cT3) * T + cT2) * T * T;
    }
};

// Mean instant and arguments (degrees) of the apsis k.
struct ApsisElements {
    ApsisPolynomial jde, D, M, F;
};

// The calendar's own coefficients; they differ from the book's second
// edition in the rate of the mean instant and in the T² terms.
inline constexpr ApsisElements kApsisElements{
    {2451534.6698, 27.55454988, -0.0006886, -0.000001098, 0.0000000052},
    {171.9179, 335.9106046, -0.010025, -0.00001156, 0.000000055},
    {347.3477, 27.1577721, -0.0008323, -0.000001, 0.0},
    {316.6109, 364.5287911, -0.0125131, -0.0000148, 0.0},
};

// Meeus, 2nd edition, equations 50.1 and 50.4-50.6.
inline constexpr ApsisElements kBookApsisElements{
    {2451534.6698, 27.55454989, -0.0006691, -0.000001098, 0.0000000052},
    {171.9179, 335.9106046, -0.0100383, -0.00001156, 0.000000055},
    {347.3477, 27.1577721, -0.0008130, -0.0000010, 0.0},
    {316.6109, 364.5287911, -0.0125053, -0.0000148, 0.0},
};

// JDE of the perigee (integer k) or the apogee (k + 0.5).
double perigee_instant(double k, const ApsisElements& elements = kApsisElements);
double apogee_instant(double k, const ApsisElements& elements = kApsisElements);

// The perigee's k for a day: the year and its fraction, counted from ten
// days after 1 January before 2000 and from six days before it since, in
// anomalistic months since 2000 and truncated towards zero. The apogee takes
// this k + 0.5; before 2000 that names an apogee four days to a month
// after the day, never one on the day itself.
double perigee_number(const calendar::Day& day);

// "Mondnähe: 3:12" / "Mondferne: 21:40" when the event's local date is the
// day, empty otherwise.
std::string perigee_line(const calendar::Day& day, const Place& place, InstantMemo& memo);
std::string apogee_line(const calendar::Day& day, const Place& place, InstantMemo& memo);

}  // namespace sk::astro
