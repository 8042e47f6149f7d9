#include "astro/seasons.hpp"

#include "astro/toolkit.hpp"

namespace sk::astro {

namespace {

// Table 27.B: JDE0 = c0 + c1·Y + c2·Y² + c3·Y³ + c4·Y⁴, Y = (year - 2000) / 1000.
struct SeasonRow {
    Season season;
    int month_index;
    const char* label;
    double c0, c1, c2, c3, c4;
};

constexpr SeasonRow kSeasons[] = {
    {Season::Spring, 2, "Frühlingsanfang: ", 2451623.80984, 365242.37404, 0.05169, -0.00411,
     -0.00057},
    {Season::Summer, 5, "Sommeranfang: ", 2451716.56767, 365241.62603, 0.00325, 0.00888, -0.00030},
    {Season::Autumn, 8, "Herbstanfang: ", 2451810.21715, 365242.01767, -0.11575, 0.00337, 0.00078},
    {Season::Winter, 11, "Winteranfang: ", 2451900.05952, 365242.74049, -0.06223, -0.00823,
     0.00032},
};

// Table 27.C: A · cos(B + C·T), B in degrees, C in degrees per Julian century.
struct SeasonTerm {
    double A, B, C;
};

constexpr SeasonTerm kSeasonTerms[] = {
    {485, 324.96, 1934.136},  {203, 337.23, 32964.467}, {199, 342.08, 20.186},
    {182, 27.85, 445267.112}, {156, 73.14, 45036.886},  {136, 171.52, 22518.443},
    {77, 222.54, 65928.934},  {74, 296.72, 3034.906},   {70, 243.58, 9037.513},
    {58, 119.81, 33718.147},  {52, 297.17, 150.678},    {50, 21.02, 2281.226},
    {45, 247.54, 29929.562},  {44, 325.15, 31555.956},  {29, 60.93, 4443.417},
    {18, 155.12, 67555.328},  {17, 288.79, 4562.452},   {16, 198.04, 62894.029},
    {14, 199.76, 31436.921},  {12, 95.39, 14577.848},   {12, 287.11, 31931.756},
    {12, 320.81, 34777.259},  {9, 227.73, 1222.114},    {8, 15.45, 16859.074},
};

const SeasonRow& row_of(Season season) {
    return kSeasons[static_cast<int>(season)];
}

}  // namespace

double season_mean_instant(int year, Season season) {
    const SeasonRow& r = row_of(season);
    const double Y = (year - 2000) / 1000.0;
    return r.c0 + (r.c1 + (r.c2 + (r.c3 + r.c4 * Y) * Y) * Y) * Y;
}

double season_instant(int year, Season season) {
    const double jde0 = season_mean_instant(year, season);
    const double T = (jde0 - kJdJ2000) / kDaysPerJulianCentury;
    const double W = 35999.373 * T - 2.47;
    const double delta_lambda = 1.0 + 0.0334 * cos_deg(W) + 0.0007 * cos_deg(2.0 * W);
    double S = 0.0;
    for (const SeasonTerm& t : kSeasonTerms)
        S += t.A * cos_deg(t.B + t.C * T);
    return jde0 + 0.00001 * S / delta_lambda;
}

std::string season_line(const calendar::Day& day, const Place& place) {
    for (const SeasonRow& r : kSeasons) {
        if (r.month_index == day.month_index) {
            return event_time_text(season_instant(day.year, r.season), r.label, day, place);
        }
    }
    return {};
}

}  // namespace sk::astro
