// Painting of a laid-out page onto any Cairo context: a window's, an image
// surface for the clipboard or a PNG, or a PDF page. The painter draws in the
// layout's pixel units; scale the context first to draw larger or smaller.
#pragma once

#include <cairo.h>

#include "view/page_layout.hpp"

namespace sk::view {

// Paints the whole page, background included, at the context's current
// transformation. Boxes of a layer are filled grouped by colour and texts are
// drawn in one glyph call per font and colour.
void paint_page(cairo_t* cr, const PageLayout& layout);

}  // namespace sk::view
