#include "astro/eclipses.hpp"

#include <cmath>

#include "astro/lunar_terms.hpp"
#include "astro/moon_phases.hpp"
#include "astro/toolkit.hpp"

namespace sk::astro {

namespace {

// Terms of chapter 54; for the time of greatest eclipse the coefficient is
// in days.
// The first two terms differ between new and full moon.
constexpr LunarTerm kSolarLeadingTerms[] = {{-0.4075, 0, 0, 1, 0, 0}, {+0.1721, 1, 1, 0, 0, 0}};
constexpr LunarTerm kLunarLeadingTerms[] = {{-0.4065, 0, 0, 1, 0, 0}, {+0.1727, 1, 1, 0, 0, 0}};

constexpr LunarTerm kCommonTerms[] = {
    {+0.0161, 0, 0, 2, 0, 0}, {-0.0097, 0, 0, 0, 2, 0},  {+0.0073, 1, -1, 1, 0, 0},
    {-0.0050, 1, 1, 1, 0, 0}, {-0.0023, 0, 0, 1, -2, 0}, {+0.0021, 1, 2, 0, 0, 0},
    {+0.0012, 0, 0, 1, 2, 0}, {+0.0006, 1, 1, 2, 0, 0},  {-0.0004, 0, 0, 3, 0, 0},
    {-0.0003, 1, 1, 0, 2, 0}, {-0.0002, 1, 1, 0, -2, 0}, {-0.0002, 1, -1, 2, 0, 0},
    {-0.0002, 0, 0, 0, 0, 1},
};
constexpr double kA1Days = 0.0003;  // · sin A1

// P and Q: coefficient · E^e_power · sin or cos of the argument.
constexpr LunarTerm kPTerms[] = {
    {+0.2070, 1, 1, 0, 0, 0}, {+0.0024, 1, 2, 0, 0, 0}, {-0.0392, 0, 0, 1, 0, 0},
    {+0.0116, 0, 0, 2, 0, 0}, {-0.0073, 1, 1, 1, 0, 0}, {+0.0067, 1, -1, 1, 0, 0},
    {+0.0118, 0, 0, 0, 2, 0},
};
constexpr LunarTerm kQTerms[] = {
    {+5.2207, 0, 0, 0, 0, 0}, {-0.0048, 1, 1, 0, 0, 0}, {+0.0020, 1, 2, 0, 0, 0},
    {-0.3299, 0, 0, 1, 0, 0}, {-0.0060, 1, 1, 1, 0, 0}, {+0.0041, 1, -1, 1, 0, 0},
};
// u = sum of cosines.
constexpr LunarTerm kUTerms[] = {
    {+0.0059, 0, 0, 0, 0, 0}, {+0.0046, 1, 1, 0, 0, 0}, {-0.0182, 0, 0, 1, 0, 0},
    {+0.0004, 0, 0, 2, 0, 0}, {-0.0005, 0, 1, 1, 0, 0},
};

// Limits of the fundamental plane (earth radii).
constexpr double kMaxSinF = 0.36;
constexpr double kCentralLimit = 0.9972;
constexpr double kSolarLimit = 1.5433;
constexpr double kLunarUmbralLimit = 1.0128;
constexpr double kLunarLimit = 1.0248;  // the calendar's own, not the book's 1.0128
constexpr double kLunarTotalityLimit = 0.4678;
constexpr double kLunarMagnitudeScale = 0.545;


bool is_solar(double k) {
    return k - std::floor(k) == 0.0;
}

EventSeries series_of(bool solar, EclipseType type) {
    if (solar) {
        return type == EclipseType::Total     ? EventSeries::SolarEclipseTotal
               : type == EclipseType::Annular ? EventSeries::SolarEclipseAnnular
                                              : EventSeries::SolarEclipsePartial;
    }
    return type == EclipseType::Total ? EventSeries::LunarEclipseTotal
                                      : EventSeries::LunarEclipsePartial;
}

struct LabelledType {
    EclipseType type;
    const char* label;
};

constexpr LabelledType kSolarLineOrder[] = {
    {EclipseType::Total, "Sonnenfinsternis total: "},
    {EclipseType::Annular, "Sonnenfinsternis ringförmig: "},
    {EclipseType::Partial, "Sonnenfinsternis partiell: "},
};
constexpr LabelledType kLunarLineOrder[] = {
    {EclipseType::Total, "Mondfinsternis total: "},
    {EclipseType::Partial, "Mondfinsternis partiell: "},
};

template <std::size_t N>
std::string eclipse_line(const LabelledType (&order)[N], double fraction, const calendar::Day& day,
                         const Place& place, InstantMemo& memo) {
    for (const LabelledType& entry : order) {
        const double jde = search_lunation(day, fraction, [&](double k) {
            return memo.get(series_of(fraction == 0.0, entry.type), k,
                            [&] { return eclipse_instant(k, entry.type); });
        });
        std::string line = event_time_text(jde, entry.label, day, place);
        if (!line.empty()) return line;
    }
    return {};
}

}  // namespace

EclipseGeometry eclipse_geometry(double k) {
    const MeanLunation l = mean_lunation(k);
    EclipseGeometry g;
    if (std::fabs(sin_deg(l.F)) > kMaxSinF) return g;
    g.possible = true;

    // F1: the argument of latitude corrected for the node, used in place of F.
    const LunarArguments a{l.E, l.M, l.Mp, l.F - 0.02665 * sin_deg(l.Omega), l.Omega};
    const double A1 = 299.77 + 0.107408 * k - 0.009173 * l.T * l.T;
    g.jde = l.jde + sum_of_sines(is_solar(k) ? kSolarLeadingTerms : kLunarLeadingTerms, a) +
            sum_of_sines(kCommonTerms, a) + kA1Days * sin_deg(A1);

    const double P = sum_of_sines(kPTerms, a);
    const double Q = sum_of_cosines(kQTerms, a);
    const double W = std::fabs(cos_deg(a.F));
    g.gamma = (P * cos_deg(a.F) + Q * sin_deg(a.F)) * (1.0 - 0.0048 * W);
    g.u = sum_of_cosines(kUTerms, a);
    return g;
}

bool is_solar_eclipse_of_type(EclipseType type, double gamma, double u) {
    const double g = std::fabs(gamma);
    if (g > kSolarLimit + u) return false;
    if (type == EclipseType::Partial) {
        // Neither central nor within |u| of being central (those are the
        // non-central total or annular eclipses, reported as nothing at all).
        return g > kCentralLimit && g >= kCentralLimit + std::fabs(u);
    }
    if (g > kCentralLimit) return false;
    const bool annular = u > 0.0047 || u >= 0.00464 * std::sqrt(1.0 - gamma * gamma);
    return type == EclipseType::Annular ? annular : !annular;
}

bool is_lunar_eclipse_of_type(EclipseType type, double gamma, double u) {
    const double g = std::fabs(gamma);
    if ((kLunarLimit - u - g) / kLunarMagnitudeScale <= 0.0) return false;  // penumbral at most
    const double totality = (kLunarTotalityLimit - u) * (kLunarTotalityLimit - u) - gamma * gamma;
    switch (type) {
        case EclipseType::Partial:
            return !(totality > 0.0);
        case EclipseType::Total:
            return (kLunarUmbralLimit - u - g) / kLunarMagnitudeScale > 0.0 && totality > 0.0;
        case EclipseType::Annular:
            break;
    }
    return false;
}

double eclipse_instant(double k, EclipseType type) {
    const EclipseGeometry g = eclipse_geometry(k);
    if (!g.possible) return 0.0;
    const bool found = is_solar(k) ? is_solar_eclipse_of_type(type, g.gamma, g.u)
                                   : is_lunar_eclipse_of_type(type, g.gamma, g.u);
    return found ? g.jde : 0.0;
}

std::string solar_eclipse_line(const calendar::Day& day, const Place& place, InstantMemo& memo) {
    return eclipse_line(kSolarLineOrder, 0.0, day, place, memo);
}

std::string lunar_eclipse_line(const calendar::Day& day, const Place& place, InstantMemo& memo) {
    return eclipse_line(kLunarLineOrder, 0.5, day, place, memo);
}

}  // namespace sk::astro
