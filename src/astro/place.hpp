// Where the sky is seen from and by which clock its times are told: what the
// astronomy needs of the settings ("Breite", "Länge", "Zeitzone",
// "Sommerzeit automatisch", "Dämmerung"), and nothing more.
#pragma once

#include <cstdint>

namespace sk::astro {

// The twilight that the day information times: the sun 6°, 12° or 18°
// below the horizon.
enum class Twilight : std::uint8_t { Civil, Nautical, Astronomical };

struct Place {
    // Degrees.minutes (12.42 is 12°42'), used directly as degrees in every
    // formula, as the calendar always did.
    double latitude = 0.0;          // north positive
    double longitude = 0.0;         // positive towards west, as the sidereal time wants it
    double time_zone = 0.0;         // hours east of Greenwich, 1.5 = 1 h 30 min
    bool auto_summer_time = false;  // one hour more from the last Sunday of March to October's
    Twilight twilight = Twilight::Civil;

    friend bool operator==(const Place&, const Place&) = default;
};

}  // namespace sk::astro
