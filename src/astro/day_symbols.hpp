// What the sky puts beside a day of the page: the principal moon phase whose
// line falls on the day, an eclipse, and the moon's and the earth's apsides.
// The astronomy computes these; the page draws them.
#pragma once

#include <cstdint>

namespace sk::astro {

enum class MoonPhase : std::uint8_t { None, NewMoon, FirstQuarter, FullMoon, LastQuarter };

struct DaySymbols {
    MoonPhase phase = MoonPhase::None;
    bool solar_eclipse = false, lunar_eclipse = false;
    bool perigee = false, apogee = false, perihelion = false, aphelion = false;

    friend bool operator==(const DaySymbols&, const DaySymbols&) = default;
};

}  // namespace sk::astro
