// Colours of the page: the calendar's colour type, mixing for the pale
// tints, and the choice of black or white text on a coloured cell by
// contrast.
#pragma once

#include "calendar/colour.hpp"

namespace sk::view {

using calendar::kBlack;
using calendar::kWhite;
using calendar::Rgb;

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
