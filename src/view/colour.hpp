// Colours of the page: the 24-bit values of the calendar (red in the low
// byte, red + green * 256 + blue * 65536) as a small value type, mixing for
// the pale tints, and the choice of black or white text on a coloured cell
// by contrast.
#pragma once

#include <cstdint>

namespace sk::view {

struct Rgb {
    std::uint8_t r = 0, g = 0, b = 0;

    friend constexpr bool operator==(Rgb, Rgb) = default;
    // The calendar's colour value: red + green * 256 + blue * 65536.
    constexpr std::uint32_t value() const {
        return std::uint32_t{r} | (std::uint32_t{g} << 8) | (std::uint32_t{b} << 16);
    }
    static constexpr Rgb from_value(std::uint32_t v) {
        return {static_cast<std::uint8_t>(v & 0xFF), static_cast<std::uint8_t>((v >> 8) & 0xFF),
                static_cast<std::uint8_t>((v >> 16) & 0xFF)};
    }
};

inline constexpr Rgb kBlack{0, 0, 0};
inline constexpr Rgb kWhite{255, 255, 255};

// a * (1 - t) + b * t per channel, t in [0, 1].
Rgb mix(Rgb a, Rgb b, double t);

// Relative luminance (sRGB, 0 for black .. 1 for white) and the contrast
// ratio of two colours (1 .. 21), as the WCAG define them.
double relative_luminance(Rgb c);
double contrast_ratio(Rgb a, Rgb b);

// Black or white, whichever reads better on the background: yellow, green,
// orange and the pale tints get black, blue gets white.
Rgb text_colour_on(Rgb background);

}  // namespace sk::view
