#include "astro/low_precision_positions.hpp"

#include <cmath>
#include <cstddef>

#include "astro/toolkit.hpp"

namespace sk::astro {

namespace {

constexpr double kTwoPi = 6.283185307;
constexpr double kArcsecondsPerRadian = 206264.8062;
constexpr double kArcsecondsPerCircle = 1296000.0;
// The obliquity of the ecliptic, fixed at its value for the epoch 2000.
constexpr double kCosObliquity = 0.91748;
constexpr double kSinObliquity = 0.39778;

// Mean elements as fractions of a revolution: value + rate * T.
struct MeanElement {
    double at_epoch;
    double per_century;
    double revolutions(double T) const { return frac(at_epoch + per_century * T); }
    double radians(double T) const { return kTwoPi * revolutions(T); }
};

constexpr MeanElement kSunMeanAnomaly{0.993133, 99.997361};
constexpr MeanElement kMoonMeanLongitude{0.606433, 1336.855225};
constexpr MeanElement kMoonMeanAnomaly{0.374897, 1325.552410};
constexpr MeanElement kMoonElongation{0.827361, 1236.853086};
constexpr MeanElement kMoonArgumentOfLatitude{0.259086, 1342.227825};

// A periodic term of the moon's series: arcseconds * sin(l·l + ls·l' + D·D + F·F),
// l and l' the mean anomalies of the moon and the sun, D the elongation and F
// the argument of latitude.
struct MoonTerm {
    double arcseconds;
    int l, ls, D, F;
};

// Perturbations of the ecliptic longitude.
constexpr MoonTerm kMoonLongitudeTerms[] = {
    {22640.0, 1, 0, 0, 0}, {-4586.0, 1, 0, -2, 0}, {2370.0, 0, 0, 2, 0},  {769.0, 2, 0, 0, 0},
    {-668.0, 0, 1, 0, 0},  {-412.0, 0, 0, 0, 2},   {-212.0, 2, 0, -2, 0}, {-206.0, 1, 1, -2, 0},
    {192.0, 1, 0, 2, 0},   {-165.0, 0, 1, -2, 0},  {-125.0, 0, 0, 1, 0},  {-110.0, 1, 1, 0, 0},
    {148.0, 1, -1, 0, 0},  {-55.0, 0, 0, -2, 2},
};

// The latitude's perturbations N; H = F - 2D is written out.
constexpr MoonTerm kMoonLatitudeTerms[] = {
    {-526.0, 0, 0, -2, 1}, {44.0, 1, 0, -2, 1},  {-31.0, -1, 0, -2, 1}, {-23.0, 0, 1, -2, 1},
    {11.0, 0, -1, -2, 1},  {-25.0, -2, 0, 0, 1}, {21.0, -1, 0, 0, 1},
};

template <std::size_t N>
double sum_of_sines(const MoonTerm (&terms)[N], double l, double ls, double D, double F) {
    double sum = 0.0;
    for (const MoonTerm& t : terms)
        sum += t.arcseconds * std::sin(t.l * l + t.ls * ls + t.D * D + t.F * F);
    return sum;
}

// Direction cosines of a place of date, in equatorial axes.
Equatorial equatorial_from_cartesian(double x, double y, double z) {
    const double rho = std::sqrt(1.0 - z * z);
    Equatorial place;
    place.declination = (360.0 / kTwoPi) * std::atan(z / rho);
    place.right_ascension = (48.0 / kTwoPi) * std::atan(y / (x + rho));
    if (place.right_ascension < 0.0) place.right_ascension += 24.0;
    return place;
}

}  // namespace

Equatorial sun_position(double T) {
    const double M = kSunMeanAnomaly.radians(T);
    // Equation of centre, arcseconds.
    const double DL = 6893.0 * std::sin(M) + 72.0 * std::sin(2.0 * M);
    const double L =
        kTwoPi * frac(0.7859453 + M / kTwoPi + (6191.2 * T + DL) / kArcsecondsPerCircle);
    const double sin_l = std::sin(L);
    return equatorial_from_cartesian(std::cos(L), kCosObliquity * sin_l, kSinObliquity * sin_l);
}

Equatorial moon_position(double T) {
    const double L0 = kMoonMeanLongitude.revolutions(T);
    const double l = kMoonMeanAnomaly.radians(T);
    const double ls = kSunMeanAnomaly.radians(T);
    const double D = kMoonElongation.radians(T);
    const double F = kMoonArgumentOfLatitude.radians(T);

    const double DL = sum_of_sines(kMoonLongitudeTerms, l, ls, D, F);
    const double S =
        F + (DL + 412.0 * std::sin(2.0 * F) + 541.0 * std::sin(ls)) / kArcsecondsPerRadian;
    const double N = sum_of_sines(kMoonLatitudeTerms, l, ls, D, F);

    const double longitude = kTwoPi * frac(L0 + DL / kArcsecondsPerCircle);
    const double latitude = (18520.0 * std::sin(S) + N) / kArcsecondsPerRadian;

    const double cos_b = std::cos(latitude);
    const double sin_b = std::sin(latitude);
    const double sin_l = std::sin(longitude);
    return equatorial_from_cartesian(cos_b * std::cos(longitude),
                                     kCosObliquity * cos_b * sin_l - kSinObliquity * sin_b,
                                     kSinObliquity * cos_b * sin_l + kCosObliquity * sin_b);
}

double local_mean_sidereal_time(double mjd, double west_longitude) {
    const double mjd0 = std::trunc(mjd);
    const double ut = (mjd - mjd0) * 24.0;
    const double T0 = (mjd0 - kMjdJ2000) / kDaysPerJulianCentury;
    const double gmst = 6.697374558 + 1.0027379093 * ut +
                        (8640184.812866 + (0.093104 - 0.0000062 * T0) * T0) * T0 / 3600.0;
    return 24.0 * frac((gmst - west_longitude / 15.0) / 24.0);
}

}  // namespace sk::astro
