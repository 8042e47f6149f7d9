#include "astro/earth_orbit.hpp"

#include <cmath>

#include "astro/toolkit.hpp"

namespace sk::astro {

namespace {

// A term of the radius vector: A · cos(B + C·τ), A in 10⁻⁸ au, B in radians,
// C in radians per Julian millennium.
struct VsopTerm {
    double A, B, C;
};

constexpr VsopTerm kEarthR0[] = {
    {100013989, 0, 0},
    {1670700, 3.0984635, 6283.0758500},
    {13956, 3.05525, 12566.15170},
    {3084, 5.1985, 77713.7715},
    {1628, 1.1739, 5753.3849},
    {1576, 2.8469, 7860.4194},
    {925, 5.453, 11506.770},
    {542, 4.564, 3930.210},
    {472, 3.661, 5884.927},
    {346, 0.964, 5507.553},
    {329, 5.900, 5223.694},
    {307, 0.299, 5573.143},
    {243, 4.273, 11790.629},
    {212, 5.847, 1577.344},
    {186, 5.022, 10977.079},
    {175, 3.012, 18849.228},
    {110, 5.055, 5486.778},
    {98, 0.89, 6069.78},
    {86, 5.69, 15720.84},
    {86, 1.27, 161000.69},
    {65, 0.27, 17260.15},
    {63, 0.92, 529.69},
    {57, 2.01, 83996.85},
    {56, 5.24, 71430.70},
    {49, 3.25, 2544.31},
    {47, 2.58, 775.52},
    {45, 5.54, 9437.76},
    {43, 6.01, 6275.96},
    {39, 5.36, 4694.00},
    {38, 2.39, 8827.39},
    {37, 0.83, 19651.05},
    {37, 4.90, 12139.55},
    {36, 1.67, 12036.46},
    {35, 1.84, 2942.46},
    {33, 0.24, 7084.90},
    {32, 0.18, 5088.63},
    {32, 1.78, 398.15},
    {28, 1.21, 6286.60},
    {28, 1.90, 6279.55},
    {26, 4.59, 10447.39},
};

constexpr VsopTerm kEarthR1[] = {
    {103019, 1.107490, 6283.075850},
    {1721, 1.0644, 12566.1517},
    {702, 3.142, 0},
    {32, 1.02, 18849.23},
    {31, 2.84, 5507.55},
    {25, 1.32, 5223.69},
    {18, 1.42, 1577.34},
    {10, 5.91, 10977.08},
    {9, 1.42, 6275.96},
    {9, 0.27, 5486.78},
};

constexpr VsopTerm kEarthR2[] = {
    {4359, 5.7846, 6283.0758}, {124, 5.579, 12566.152}, {12, 3.14, 0},
    {9, 3.63, 77713.77},       {6, 1.87, 5573.14},      {3, 5.47, 18849.23},
};

constexpr VsopTerm kEarthR3[] = {{145, 4.273, 6283.076}, {7, 3.92, 12566.15}};

constexpr VsopTerm kEarthR4[] = {{4, 2.56, 6283.08}};

template <std::size_t N>
double series(const VsopTerm (&terms)[N], double tau) {
    double sum = 0.0;
    for (const VsopTerm& t : terms)
        sum += t.A * std::cos(t.B + t.C * tau);
    return sum;
}

// Chapter 38, the earth: A_i = c0 + ck·k degrees, and the corrections
// perihelion · sin A_i or aphelion · sin A_i in days.
struct PassageTerm {
    double c0, ck;
    double perihelion_days, aphelion_days;
};

// The A5 perihelion coefficient is +0.045 where the book prints -0.045; it
// is the calendar's own and is kept.
constexpr PassageTerm kPassageTerms[] = {
    {328.41, 132.788585, +1.278, -1.352}, {316.13, 584.903153, -0.055, +0.061},
    {346.20, 450.380738, -0.091, +0.062}, {136.95, 659.306737, -0.056, +0.029},
    {249.52, 329.653368, +0.045, +0.031},
};

// Mean passage: the book has 0.0000000156 for k²; 0.0000000158 is the calendar's.
double mean_passage(double k) {
    return 2451547.507 + 365.2596358 * k + 0.0000000158 * k * k;
}

double orbit_number(int year) {
    const double x = year - 2000.01 + (year >= 2000 ? 0.5 : 0.0);
    return std::trunc(x * 0.99997);
}

constexpr double kStepBack = 0.1667;    // days, about four hours
constexpr double kStepLength = 0.0104;  // days, about a quarter hour

// Steps forward while R keeps moving the way it moves before the passage.
template <class StillApproaching>
double step_radius_vector(double estimate, double first_previous, StillApproaching approaching) {
    double t = estimate - kStepBack;
    double previous = first_previous;
    for (;;) {
        const double r = earth_radius_vector(t);
        if (!approaching(r, previous)) return t;
        previous = r;
        t += kStepLength;
    }
}

// A passage is looked at only when its estimate lies within two days of noon
// UT of the day before the described day.
std::string passage_line(double estimate, EventSeries series, double k, const char* label,
                         const calendar::Day& day, const Place& place, InstantMemo& memo,
                         double (*refine)(double)) {
    if (!(std::fabs(estimate - day.number - 2440587.0) < 2.0)) return {};
    const double jde = memo.get(series, k, [&] { return refine(k); });
    return event_time_text(jde, label, day, place);
}

}  // namespace

double earth_radius_vector(double jde) {
    const double tau = (jde - kJdJ2000) / kDaysPerJulianMillennium;
    const double r = series(kEarthR0, tau) +
                     tau * (series(kEarthR1, tau) +
                            tau * (series(kEarthR2, tau) +
                                   tau * (series(kEarthR3, tau) + tau * series(kEarthR4, tau))));
    return r / 100000000.0;
}

double perihelion_number(int year) {
    return orbit_number(year);
}
double aphelion_number(int year) {
    return orbit_number(year) + 0.5;
}

double perihelion_estimate(double k) {
    double jde = mean_passage(k);
    for (const PassageTerm& t : kPassageTerms)
        jde += t.perihelion_days * sin_deg(t.c0 + t.ck * k);
    return jde;
}

double aphelion_estimate(double k) {
    double jde = mean_passage(k);
    for (const PassageTerm& t : kPassageTerms)
        jde += t.aphelion_days * sin_deg(t.c0 + t.ck * k);
    return jde;
}

double perihelion_instant(double k) {
    // The distance before the first step is taken as 2 au, beyond any R.
    return step_radius_vector(perihelion_estimate(k), 2.0,
                              [](double r, double previous) { return r < previous; });
}

double aphelion_instant(double k) {
    return step_radius_vector(aphelion_estimate(k), 0.0,
                              [](double r, double previous) { return r > previous; });
}

std::string perihelion_line(const calendar::Day& day, const Place& place, InstantMemo& memo) {
    const double k = perihelion_number(day.year);
    return passage_line(perihelion_estimate(k), EventSeries::PerihelionStepped, k,
                        "Sonnennähe: ", day, place, memo, perihelion_instant);
}

std::string aphelion_line(const calendar::Day& day, const Place& place, InstantMemo& memo) {
    const double k = aphelion_number(day.year);
    return passage_line(aphelion_estimate(k), EventSeries::AphelionStepped, k, "Sonnenferne: ", day,
                        place, memo, aphelion_instant);
}

}  // namespace sk::astro
