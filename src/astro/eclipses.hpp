// Solar and lunar eclipses after Meeus, Astronomical Algorithms, chapter 54:
// for a new or full moon the instant of greatest eclipse, γ (the least
// distance of the shadow axis from the earth's centre, in earth radii) and u
// (the radius of the umbral cone in the fundamental plane). The limits that
// decide the kind are the calendar's own where they differ from the book:
// non-central total or annular eclipses are not reported, the lunar limit
// is 1.0248, and penumbral eclipses are not reported either.
#pragma once

#include <string>

#include "astro/instant_memo.hpp"
#include "astro/place.hpp"
#include "calendar/dates.hpp"

namespace sk::astro {

enum class EclipseType { Partial = 0, Total = 1, Annular = 2 };  // annular: solar only

// The lunation's geometry. `possible` is false when |sin F| > 0.36: the moon
// is too far from its node and nothing else was computed.
struct EclipseGeometry {
    bool possible = false;
    double jde = 0.0;  // greatest eclipse
    double gamma = 0.0;
    double u = 0.0;
};
// k: whole lunation number + 0.0 (new moon, solar) or + 0.5 (full moon, lunar).
EclipseGeometry eclipse_geometry(double k);

// Whether γ and u make an eclipse of the type asked for.
bool is_solar_eclipse_of_type(EclipseType type, double gamma, double u);
bool is_lunar_eclipse_of_type(EclipseType type, double gamma, double u);

// JDE of greatest eclipse of lunation k (fraction 0.0 solar, 0.5 lunar) when
// it is an eclipse of the type asked for, 0.0 otherwise.
double eclipse_instant(double k, EclipseType type);

// "Sonnenfinsternis total: 20:17" (then "ringförmig", "partiell") and
// "Mondfinsternis total: 22:21" (then "partiell") on the local date of the
// greatest eclipse; empty otherwise.
std::string solar_eclipse_line(const calendar::Day& day, const Place& place, InstantMemo& memo);
std::string lunar_eclipse_line(const calendar::Day& day, const Place& place, InstantMemo& memo);

}  // namespace sk::astro
