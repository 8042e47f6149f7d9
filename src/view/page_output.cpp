#include "view/page_output.hpp"

#include <cairo-pdf.h>

#include <algorithm>
#include <cmath>

#include "view/page_painter.hpp"

namespace sk::view {

PageRenderer::PageRenderer(FontSpec font) : m_font(std::move(font)) {}

void PageRenderer::set_font(FontSpec font) {
    if (font == m_font) return;
    m_font = std::move(font);
    m_page.reset();
    m_plan.reset();
}

const std::shared_ptr<TextShaper>& PageRenderer::shaper(int model) {
    std::shared_ptr<TextShaper>& slot = model == 5 ? m_plan : m_page;
    if (!slot) slot = std::make_shared<TextShaper>(font_for_model(m_font, model));
    return slot;
}

PageLayout PageRenderer::layout(const PageRequest& request, const PageExtras& extras) {
    return layout_page(request, extras, shaper(request.model));
}

SurfacePtr render_image(const PageLayout& layout, double scale) {
    const int w = static_cast<int>(std::ceil(layout.width * scale));
    const int h = static_cast<int>(std::ceil(layout.height * scale));
    SurfacePtr surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, std::max(w, 1), std::max(h, 1)));
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) return nullptr;
    const CairoPtr cr(cairo_create(surface.get()));
    cairo_scale(cr.get(), scale, scale);
    paint_page(cr.get(), layout);
    cairo_surface_flush(surface.get());
    return surface;
}

bool write_png(const PageLayout& layout, const std::string& path, double scale) {
    const SurfacePtr surface = render_image(layout, scale);
    return surface && cairo_surface_write_to_png(surface.get(), path.c_str()) == CAIRO_STATUS_SUCCESS;
}

void paint_page_fitted(cairo_t* cr, const PageLayout& layout, double width, double height,
                       double margin) {
    const double scale =
        std::min((width - 2 * margin) / layout.width, (height - 2 * margin) / layout.height);
    cairo_save(cr);
    cairo_translate(cr, (width - layout.width * scale) / 2, (height - layout.height * scale) / 2);
    cairo_scale(cr, scale, scale);
    paint_page(cr, layout);
    cairo_restore(cr);
}

bool write_pdf(const PageLayout& layout, const std::string& path, Paper paper) {
    constexpr double kPointsPerMm = 72.0 / 25.4;
    // Landscape: the long side across.
    const double width = (paper == Paper::A3 ? 420.0 : 297.0) * kPointsPerMm;
    const double height = (paper == Paper::A3 ? 297.0 : 210.0) * kPointsPerMm;
    const double margin = 10.0 * kPointsPerMm;

    const SurfacePtr surface(cairo_pdf_surface_create(path.c_str(), width, height));
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) return false;
    cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_TITLE, "Schichtkalender");
    cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_CREATOR, "Quorvel Schichtkalender");
    {
        const CairoPtr cr(cairo_create(surface.get()));
        paint_page_fitted(cr.get(), layout, width, height, margin);
        cairo_show_page(cr.get());
        if (cairo_status(cr.get()) != CAIRO_STATUS_SUCCESS) return false;
    }
    cairo_surface_finish(surface.get());
    return cairo_surface_status(surface.get()) == CAIRO_STATUS_SUCCESS;
}

}  // namespace sk::view
