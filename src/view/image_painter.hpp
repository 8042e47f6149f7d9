// Internal to the painter: the fast way of painting a page onto an image
// surface at its natural size (the window's page image, the clipboard, PNG).
// Boxes and frames are filled and texts and moon symbols composited directly
// with pixman, the library under Cairo's image surfaces; each text is
// rasterised once into a coverage mask ("stamp"), each kind of moon symbol
// into a small image, and kept with the page's shaper. Cairo's own glyph drawing costs
// about half a microsecond per glyph, which a 23-month page cannot afford.
#pragma once

#include <cairo.h>

#include "view/page_layout.hpp"

namespace sk::view {

// Paints the page when the context draws onto an RGB image surface without
// scaling (whole-pixel translations and rectangular clips are allowed) and
// returns true; returns false, having drawn nothing, for any other target.
bool paint_page_on_image(cairo_t* cr, const PageLayout& layout);

// The parts that both painters draw with Cairo.
void paint_frames(cairo_t* cr, const std::vector<Frame>& frames);
void paint_moon(cairo_t* cr, const MoonItem& moon);
void paint_moons(cairo_t* cr, const std::vector<MoonItem>& moons);
void paint_overlays(cairo_t* cr, const std::vector<Overlay>& overlays);

}  // namespace sk::view
