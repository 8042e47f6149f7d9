#include "view/colour.hpp"

#include <algorithm>
#include <cmath>

namespace sk::view {

namespace {

std::uint8_t blend(std::uint8_t a, std::uint8_t b, double t) {
    return static_cast<std::uint8_t>(std::lround(a + (b - a) * t));
}

double linear(std::uint8_t channel) {
    const double c = channel / 255.0;
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

}  // namespace

Rgb mix(Rgb a, Rgb b, double t) {
    t = std::clamp(t, 0.0, 1.0);
    return {blend(a.r, b.r, t), blend(a.g, b.g, t), blend(a.b, b.b, t)};
}

double relative_luminance(Rgb c) {
    return 0.2126 * linear(c.r) + 0.7152 * linear(c.g) + 0.0722 * linear(c.b);
}

double contrast_ratio(Rgb a, Rgb b) {
    const double la = relative_luminance(a);
    const double lb = relative_luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

Rgb text_colour_on(Rgb background) {
    return contrast_ratio(background, kBlack) >= contrast_ratio(background, kWhite) ? kBlack
                                                                                     : kWhite;
}

}  // namespace sk::view
