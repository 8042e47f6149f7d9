// The page as a finished product: a renderer that keeps the shapers of the
// page font (and of the plan font for model 5) between redraws, and the
// outputs built on it: an image surface, a PNG file, and a PDF page sized to
// A4 or A3 landscape for printing. A window keeps the page as one image
// (render_image after each change) and paints that image in its draw
// handler; the clipboard copies the same image.
#pragma once

#include <memory>
#include <string>

#include "view/cairo_handles.hpp"
#include "view/page_layout.hpp"

namespace sk::view {

class PageRenderer {
public:
    explicit PageRenderer(FontSpec font);

    const FontSpec& font() const { return m_font; }
    // A new page font: later layouts use new shapers. Layouts made before
    // keep the old shapers alive and still paint in the old font.
    void set_font(FontSpec font);
    // The shaper of a model's page (the plan font for model 5).
    const std::shared_ptr<TextShaper>& shaper(int model);
    // The character cell of the page font, for window sizes and the font check.
    CellSize cell() { return shaper(0)->cell(); }

    PageLayout layout(const PageRequest& request, const PageExtras& extras);

private:
    FontSpec m_font;
    std::shared_ptr<TextShaper> m_page;
    std::shared_ptr<TextShaper> m_plan;
};

// The page painted into a new RGB image surface of the page's size times
// `scale` (null if the surface cannot be made).
SurfacePtr render_image(const PageLayout& layout, double scale = 1.0);

// Both return false when the file cannot be written.
bool write_png(const PageLayout& layout, const std::string& path, double scale = 1.0);

// Paints the page scaled to fit `width` by `height` (in the context's units)
// less `margin` on every side, centred: the PDF page and the printer's page.
void paint_page_fitted(cairo_t* cr, const PageLayout& layout, double width, double height,
                       double margin);

enum class Paper { A4, A3 };
// One landscape page of the paper size; the calendar page is scaled to fit
// within a margin of 10 mm and centred. Text stays text (vector output).
bool write_pdf(const PageLayout& layout, const std::string& path, Paper paper = Paper::A4);

}  // namespace sk::view
