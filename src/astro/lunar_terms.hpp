// Periodic terms in the moon's fundamental arguments, as the phase and
// eclipse series of the lunation use them: coefficient · E^power · sin or cos
// of (m·M + mp·M′ + f·F + om·Ω), all angles in degrees.
#pragma once

#include <cstddef>

#include "astro/toolkit.hpp"

namespace sk::astro {

struct LunarTerm {
    double coefficient;  // days for the instants, earth radii for P, Q and u
    int e_power;         // 0, 1 or 2: the eccentricity factor E as printed with the term
    int m, mp, f, om;
};

// The arguments of one lunation: E, the sun's and the moon's mean anomalies
// M and M′, the moon's argument of latitude F (or F1 for eclipses) and the
// longitude of the ascending node Ω.
struct LunarArguments {
    double E, M, Mp, F, Omega;
};

constexpr double e_factor(double E, int power) { return power == 0 ? 1.0 : power == 1 ? E : E * E; }

inline double lunar_argument(const LunarTerm& t, const LunarArguments& a) {
    return t.m * a.M + t.mp * a.Mp + t.f * a.F + t.om * a.Omega;
}

template <std::size_t N>
double sum_of_sines(const LunarTerm (&terms)[N], const LunarArguments& a) {
    double sum = 0.0;
    for (const LunarTerm& t : terms)
        sum += t.coefficient * e_factor(a.E, t.e_power) * sin_deg(lunar_argument(t, a));
    return sum;
}

template <std::size_t N>
double sum_of_cosines(const LunarTerm (&terms)[N], const LunarArguments& a) {
    double sum = 0.0;
    for (const LunarTerm& t : terms)
        sum += t.coefficient * e_factor(a.E, t.e_power) * cos_deg(lunar_argument(t, a));
    return sum;
}

}  // namespace sk::astro
