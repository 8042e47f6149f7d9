// The calendar's colours: crews, calendar markings, the hours field and the
// page all use this one value type. The files and the original tables hold a
// colour as the 24-bit number red + green * 256 + blue * 65536.
#pragma once

#include <cstdint>

namespace sk::calendar {

struct Rgb {
    std::uint8_t r = 0, g = 0, b = 0;

    friend constexpr bool operator==(Rgb, Rgb) = default;
    // The colour as the number the files hold: red + green * 256 + blue * 65536.
    constexpr std::uint32_t value() const {
        return std::uint32_t{r} | (std::uint32_t{g} << 8) | (std::uint32_t{b} << 16);
    }
    // The bits above the 24 of the colour are ignored.
    static constexpr Rgb from_value(std::uint32_t v) {
        return {static_cast<std::uint8_t>(v & 0xFF), static_cast<std::uint8_t>((v >> 8) & 0xFF),
                static_cast<std::uint8_t>((v >> 16) & 0xFF)};
    }
};

inline constexpr Rgb kBlack{0, 0, 0};
inline constexpr Rgb kWhite{255, 255, 255};

}  // namespace sk::calendar
