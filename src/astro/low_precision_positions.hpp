// Low-precision positions of the sun and the moon and the local sidereal
// time, good to about a minute of arc and a second of time: enough to time
// risings, settings and twilight to the minute. These are the short series
// of Montenbruck and Pfleger's "Astronomy on the Personal Computer" (their
// MINI_SUN, MINI_MOON and LMST), with their constants.
#pragma once

namespace sk::astro {

// Geocentric equatorial place of date: right ascension in hours [0, 24),
// declination in degrees.
struct Equatorial {
    double right_ascension = 0.0;
    double declination = 0.0;
};

// T in Julian centuries since J2000.0, counted from MJD: (MJD - 51544.5) / 36525.
Equatorial sun_position(double T);
Equatorial moon_position(double T);

// Local mean sidereal time in hours [0, 24) at the instant `mjd` (UT) for a
// longitude in degrees counted positive towards west.
double local_mean_sidereal_time(double mjd, double west_longitude);

}  // namespace sk::astro
