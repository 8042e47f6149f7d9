#include "astro/lunar_apsides.hpp"

#include <cmath>

#include "astro/toolkit.hpp"

namespace sk::astro {

namespace {

constexpr double kAnomalisticMonthsPerCentury = 1325.55;
constexpr double kAnomalisticMonthsPerYear = 13.2555;

// A term of Table 50.A: (days + days_per_T·T) · sin(d·D + m·M + f·F).
struct ApsisTerm {
    double days, days_per_T;
    int d, m, f;
};

// Table 50.A, time of apogee.
constexpr ApsisTerm kApogeeTerms[] = {
    {+0.4392, 0, 2, 0, 0},         {+0.0684, 0, 4, 0, 0},   {+0.0456, -0.00011, 0, 1, 0},
    {+0.0426, -0.00011, 2, -1, 0}, {+0.0212, 0, 0, 0, 2},   {-0.0189, 0, 1, 0, 0},
    {+0.0144, 0, 6, 0, 0},         {+0.0113, 0, 4, -1, 0},  {+0.0047, 0, 2, 0, 2},
    {+0.0036, 0, 1, 1, 0},         {+0.0035, 0, 8, 0, 0},   {+0.0034, 0, 6, -1, 0},
    {-0.0034, 0, 2, 0, -2},        {+0.0022, 0, 2, -2, 0},  {-0.0017, 0, 3, 0, 0},
    {+0.0013, 0, 4, 0, 2},         {+0.0011, 0, 8, -1, 0},  {+0.0010, 0, 4, -2, 0},
    {+0.0009, 0, 10, 0, 0},        {+0.0007, 0, 3, 1, 0},   {+0.0006, 0, 0, 2, 0},
    {+0.0005, 0, 2, 1, 0},         {+0.0005, 0, 2, 2, 0},   {+0.0004, 0, 6, 0, 2},
    {+0.0004, 0, 6, -2, 0},        {+0.0004, 0, 10, -1, 0}, {-0.0004, 0, 5, 0, 0},
    {-0.0004, 0, 4, 0, -2},        {+0.0003, 0, 0, 1, 2},   {+0.0003, 0, 12, 0, 0},
    {+0.0003, 0, 2, -1, 2},        {-0.0003, 0, 1, -1, 0},
};

// Table 50.A, time of perigee.
constexpr ApsisTerm kPerigeeTerms[] = {
    {-1.6769, 0, 2, 0, 0},   {+0.4589, 0, 4, 0, 0},         {-0.1856, 0, 6, 0, 0},
    {+0.0883, 0, 8, 0, 0},   {-0.0773, +0.00019, 2, -1, 0}, {+0.0502, -0.00013, 0, 1, 0},
    {-0.0460, 0, 10, 0, 0},  {+0.0422, -0.00011, 4, -1, 0}, {-0.0256, 0, 6, -1, 0},
    {+0.0253, 0, 12, 0, 0},  {+0.0237, 0, 1, 0, 0},         {+0.0162, 0, 8, -1, 0},
    {-0.0145, 0, 14, 0, 0},  {+0.0129, 0, 0, 0, 2},         {-0.0112, 0, 3, 0, 0},
    {-0.0104, 0, 10, -1, 0}, {+0.0086, 0, 16, 0, 0},        {+0.0069, 0, 12, -1, 0},
    {+0.0066, 0, 5, 0, 0},   {-0.0053, 0, 2, 0, 2},         {-0.0052, 0, 18, 0, 0},
    {-0.0046, 0, 14, -1, 0}, {-0.0041, 0, 7, 0, 0},         {+0.0040, 0, 2, 1, 0},
    {+0.0032, 0, 20, 0, 0},  {-0.0032, 0, 1, 1, 0},         {+0.0031, 0, 16, -1, 0},
    {-0.0029, 0, 4, 1, 0},   {+0.0027, 0, 9, 0, 0},         {+0.0027, 0, 4, 0, 2},
    {-0.0027, 0, 2, -2, 0},  {+0.0024, 0, 4, -2, 0},        {-0.0021, 0, 6, -2, 0},
    {-0.0021, 0, 22, 0, 0},  {-0.0021, 0, 18, -1, 0},       {+0.0019, 0, 6, 1, 0},
    {-0.0018, 0, 11, 0, 0},  {-0.0014, 0, 8, 1, 0},         {-0.0014, 0, 4, 0, -2},
    {-0.0014, 0, 6, 0, 2},   {+0.0014, 0, 3, 1, 0},         {-0.0014, 0, 5, 1, 0},
    {+0.0013, 0, 13, 0, 0},  {+0.0013, 0, 20, -1, 0},       {+0.0011, 0, 3, 2, 0},
    {-0.0011, 0, 4, -2, 2},  {-0.0010, 0, 1, 2, 0},         {-0.0009, 0, 22, -1, 0},
    {-0.0008, 0, 0, 0, 4},   {+0.0008, 0, 6, 0, -2},        {+0.0008, 0, 2, 1, -2},
    {+0.0007, 0, 0, 2, 0},   {+0.0007, 0, 0, -1, 2},        {+0.0007, 0, 2, 0, 4},
    {-0.0006, 0, 0, -2, 2},  {-0.0006, 0, 2, 2, -2},        {+0.0006, 0, 24, 0, 0},
    {+0.0005, 0, 4, 0, -4},  {+0.0005, 0, 2, 2, 0},         {-0.0004, 0, 1, -1, 0},
};

template <std::size_t N>
double apsis_instant(const ApsisTerm (&terms)[N], double k, const ApsisElements& elements) {
    const double T = k / kAnomalisticMonthsPerCentury;
    const double D = elements.D.at(k, T);
    const double M = elements.M.at(k, T);
    const double F = elements.F.at(k, T);
    double jde = elements.jde.at(k, T);
    for (const ApsisTerm& t : terms)
        jde += (t.days + t.days_per_T * T) * sin_deg(t.d * D + t.m * M + t.f * F);
    return jde;
}

}  // namespace

double perigee_instant(double k, const ApsisElements& elements) {
    return apsis_instant(kPerigeeTerms, k, elements);
}

double apogee_instant(double k, const ApsisElements& elements) {
    return apsis_instant(kApogeeTerms, k, elements);
}

double perigee_number(const calendar::Day& day) {
    const int shift = day.year < 2000 ? 10 : -6;
    const double year_fraction = (day.number - (calendar::day_number(day.year, 0, 1) + shift)) /
                                 static_cast<double>(day.february_length() + 337);
    return std::trunc((day.year + year_fraction - 1999.97) * kAnomalisticMonthsPerYear);
}

std::string perigee_line(const calendar::Day& day, const Place& place, InstantMemo& memo) {
    const double k = perigee_number(day);
    const double jde = memo.get(EventSeries::Perigee, k, [&] { return perigee_instant(k); });
    return event_time_text(jde, "Mondnähe: ", day, place);
}

std::string apogee_line(const calendar::Day& day, const Place& place, InstantMemo& memo) {
    const double k = perigee_number(day) + 0.5;
    const double jde = memo.get(EventSeries::Apogee, k, [&] { return apogee_instant(k); });
    return event_time_text(jde, "Mondferne: ", day, place);
}

}  // namespace sk::astro
