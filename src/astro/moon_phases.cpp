#include "astro/moon_phases.hpp"

#include <cmath>

#include "astro/lunar_terms.hpp"
#include "astro/toolkit.hpp"

namespace sk::astro {

namespace {

constexpr double kLunationsPerCentury = 1236.85;

// The corrections of Table 49.A, in days.

// Table 49.A, new moon.
constexpr LunarTerm kNewMoonTerms[] = {
    {-0.40720, 0, 0, 1, 0, 0},  {+0.17241, 1, 1, 0, 0, 0},   {+0.01608, 0, 0, 2, 0, 0},
    {+0.01039, 0, 0, 0, 2, 0},  {+0.00739, 1, -1, 1, 0, 0},  {-0.00514, 1, 1, 1, 0, 0},
    {+0.00208, 2, 2, 0, 0, 0},  {-0.00111, 0, 0, 1, -2, 0},  {-0.00057, 0, 0, 1, 2, 0},
    {+0.00056, 1, 1, 2, 0, 0},  {-0.00042, 0, 0, 3, 0, 0},   {+0.00042, 1, 1, 0, 2, 0},
    {+0.00038, 1, 1, 0, -2, 0}, {-0.00024, 1, -1, 2, 0, 0},  {-0.00017, 0, 0, 0, 0, 1},
    {-0.00007, 0, 2, 1, 0, 0},  {+0.00004, 0, 0, 2, -2, 0},  {+0.00004, 0, 3, 0, 0, 0},
    {+0.00003, 0, 1, 1, -2, 0}, {+0.00003, 0, 0, 2, 2, 0},   {-0.00003, 0, 1, 1, 2, 0},
    {+0.00003, 0, -1, 1, 2, 0}, {-0.00002, 0, -1, 1, -2, 0}, {-0.00002, 0, 1, 3, 0, 0},
    {+0.00002, 0, 0, 4, 0, 0},
};

// Table 49.A, full moon.
constexpr LunarTerm kFullMoonTerms[] = {
    {-0.40614, 0, 0, 1, 0, 0},  {+0.17302, 1, 1, 0, 0, 0},   {+0.01614, 0, 0, 2, 0, 0},
    {+0.01043, 0, 0, 0, 2, 0},  {+0.00734, 1, -1, 1, 0, 0},  {-0.00515, 1, 1, 1, 0, 0},
    {+0.00209, 2, 2, 0, 0, 0},  {-0.00111, 0, 0, 1, -2, 0},  {-0.00057, 0, 0, 1, 2, 0},
    {+0.00056, 1, 1, 2, 0, 0},  {-0.00042, 0, 0, 3, 0, 0},   {+0.00042, 1, 1, 0, 2, 0},
    {+0.00038, 1, 1, 0, -2, 0}, {-0.00024, 1, -1, 2, 0, 0},  {-0.00017, 0, 0, 0, 0, 1},
    {-0.00007, 0, 2, 1, 0, 0},  {+0.00004, 0, 0, 2, -2, 0},  {+0.00004, 0, 3, 0, 0, 0},
    {+0.00003, 0, 1, 1, -2, 0}, {+0.00003, 0, 0, 2, 2, 0},   {-0.00003, 0, 1, 1, 2, 0},
    {+0.00003, 0, -1, 1, 2, 0}, {-0.00002, 0, -1, 1, -2, 0}, {-0.00002, 0, 1, 3, 0, 0},
    {+0.00002, 0, 0, 4, 0, 0},
};

// Table 49.A, first and last quarter.
constexpr LunarTerm kQuarterTerms[] = {
    {-0.62801, 0, 0, 1, 0, 0},  {+0.17172, 1, 1, 0, 0, 0},   {-0.01183, 1, 1, 1, 0, 0},
    {+0.00862, 0, 0, 2, 0, 0},  {+0.00804, 0, 0, 0, 2, 0},   {+0.00454, 1, -1, 1, 0, 0},
    {+0.00204, 2, 2, 0, 0, 0},  {-0.00180, 0, 0, 1, -2, 0},  {-0.00070, 0, 0, 1, 2, 0},
    {-0.00040, 0, 0, 3, 0, 0},  {-0.00034, 1, -1, 2, 0, 0},  {+0.00032, 1, 1, 0, 2, 0},
    {+0.00032, 1, 1, 0, -2, 0}, {-0.00028, 2, 2, 1, 0, 0},   {+0.00027, 1, 1, 2, 0, 0},
    {-0.00017, 0, 0, 0, 0, 1},  {-0.00005, 0, -1, 1, -2, 0}, {+0.00004, 0, 0, 2, 2, 0},
    {-0.00004, 0, 1, 1, 2, 0},  {+0.00004, 0, -2, 1, 0, 0},  {+0.00003, 0, 1, 1, -2, 0},
    {+0.00003, 0, 3, 0, 0, 0},  {+0.00002, 0, 0, 2, -2, 0},  {+0.00002, 0, -1, 1, 2, 0},
    {-0.00002, 0, 1, 3, 0, 0},
};

// The quarter correction W, a sum of cosines: added at first quarter,
// subtracted at last quarter. The first row is the constant 0.00306.
constexpr LunarTerm kQuarterW[] = {
    {+0.00306, 0, 0, 0, 0, 0},  {-0.00038, 1, 1, 0, 0, 0}, {+0.00026, 0, 0, 1, 0, 0},
    {-0.00002, 0, -1, 1, 0, 0}, {+0.00002, 0, 1, 1, 0, 0}, {+0.00002, 0, 0, 0, 2, 0},
};

// The additional corrections for all phases: days · sin(A), A = c0 + ck·k + cT2·T² degrees.
struct PlanetaryTerm {
    double days;
    double c0, ck, cT2;
};

constexpr PlanetaryTerm kPlanetaryTerms[] = {
    {0.000325, 299.77, 0.107408, -0.009173}, {0.000165, 251.88, 0.016321, 0.0},
    {0.000164, 251.83, 26.651886, 0.0},      {0.000126, 349.42, 36.412478, 0.0},
    {0.000110, 84.66, 18.206239, 0.0},       {0.000062, 141.74, 53.303771, 0.0},
    {0.000060, 207.14, 2.453732, 0.0},       {0.000056, 154.84, 7.306860, 0.0},
    {0.000047, 34.52, 27.261239, 0.0},       {0.000042, 207.19, 0.121824, 0.0},
    {0.000040, 291.34, 1.844379, 0.0},       {0.000037, 161.72, 24.198154, 0.0},
    {0.000035, 239.56, 25.513099, 0.0},      {0.000023, 331.55, 3.592518, 0.0},
};


double planetary_corrections(const MeanLunation& l) {
    double sum = 0.0;
    for (const PlanetaryTerm& t : kPlanetaryTerms)
        sum += t.days * sin_deg(t.c0 + t.ck * l.k + t.cT2 * l.T * l.T);
    return sum;
}

struct PhaseRow {
    MoonPhase phase;
    EventSeries series;
    const char* label;
    int marker;  // left by the new-moon and full-moon searches; -1: leaves it alone
};

// In the order the moon phase line tries them.
constexpr PhaseRow kPhaseLineOrder[] = {
    {MoonPhase::FullMoon, EventSeries::FullMoon, "Vollmond: ", 2},
    {MoonPhase::LastQuarter, EventSeries::LastQuarter, "Letztes Viertel: ", -1},
    {MoonPhase::NewMoon, EventSeries::NewMoon, "Neumond: ", 1},
    {MoonPhase::FirstQuarter, EventSeries::FirstQuarter, "Erstes Viertel: ", -1},
};

}  // namespace

double lunation_fraction(MoonPhase phase) {
    switch (phase) {
        case MoonPhase::FirstQuarter:
            return 0.25;
        case MoonPhase::FullMoon:
            return 0.5;
        case MoonPhase::LastQuarter:
            return 0.75;
        case MoonPhase::NewMoon:
        case MoonPhase::None:
            break;
    }
    return 0.0;
}

MeanLunation mean_lunation(double k, const LunationElements& elements) {
    MeanLunation l{};
    l.k = k;
    l.T = k / kLunationsPerCentury;
    l.jde = elements.jde.at(k, l.T);
    l.E = elements.E.at(k, l.T);
    l.M = elements.M.at(k, l.T);
    l.Mp = elements.Mp.at(k, l.T);
    l.F = elements.F.at(k, l.T);
    l.Omega = elements.Omega.at(k, l.T);
    return l;
}

double moon_phase_instant(double k, MoonPhase phase, const LunationElements& elements) {
    const MeanLunation l = mean_lunation(k, elements);
    const LunarArguments a{l.E, l.M, l.Mp, l.F, l.Omega};
    double jde = l.jde;
    switch (phase) {
        case MoonPhase::NewMoon:
            jde += sum_of_sines(kNewMoonTerms, a);
            break;
        case MoonPhase::FullMoon:
            jde += sum_of_sines(kFullMoonTerms, a);
            break;
        case MoonPhase::FirstQuarter:
            jde += sum_of_sines(kQuarterTerms, a) + sum_of_cosines(kQuarterW, a);
            break;
        case MoonPhase::LastQuarter:
            jde += sum_of_sines(kQuarterTerms, a) - sum_of_cosines(kQuarterW, a);
            break;
        case MoonPhase::None:
            return 0.0;
    }
    return jde + planetary_corrections(l);
}

double lunation_estimate(const calendar::Day& day, int offset) {
    return (day.year + (day.month_index * 30.4 + day.mday + offset) / 365.0 - 2000.0) * 12.3685;
}

int day_marker(double jde, calendar::DayNumber day, int mark) {
    const double distance = std::fabs(std::trunc(jde) - day - 2440587.0);
    return distance >= 2.0 && distance <= 27.0 ? 0 : mark;
}

MoonPhaseLine moon_phase_line(const calendar::Day& day, const Place& place, InstantMemo& memo) {
    MoonPhaseLine line;
    for (const PhaseRow& row : kPhaseLineOrder) {
        const double jde = search_lunation(day, lunation_fraction(row.phase), [&](double k) {
            return memo.get(row.series, k, [&] { return moon_phase_instant(k, row.phase); });
        });
        if (row.marker >= 0) line.marker = day_marker(jde, day.number, row.marker);
        line.text = event_time_text(jde, row.label, day, place);
        if (!line.text.empty()) {
            line.phase = row.phase;
            break;
        }
    }
    return line;
}

}  // namespace sk::astro
