// Owning handles for the C objects of Cairo, Pango and GObject that the page
// code creates: each releases its object with the library's own function
// when it goes out of scope, so no drawing path needs manual clean-up.
#pragma once

#include <cairo.h>
#include <glib-object.h>
#include <pango/pangocairo.h>

#include <memory>

namespace sk::view {

namespace detail {
struct CairoDeleter {
    void operator()(cairo_t* p) const { cairo_destroy(p); }
    void operator()(cairo_surface_t* p) const { cairo_surface_destroy(p); }
    void operator()(cairo_scaled_font_t* p) const { cairo_scaled_font_destroy(p); }
    void operator()(cairo_font_options_t* p) const { cairo_font_options_destroy(p); }
    void operator()(PangoFontDescription* p) const { pango_font_description_free(p); }
    void operator()(PangoFontMetrics* p) const { pango_font_metrics_unref(p); }
};
struct GObjectDeleter {
    void operator()(gpointer p) const { g_object_unref(p); }
};
}  // namespace detail

using CairoPtr = std::unique_ptr<cairo_t, detail::CairoDeleter>;
using SurfacePtr = std::unique_ptr<cairo_surface_t, detail::CairoDeleter>;
using FontOptionsPtr = std::unique_ptr<cairo_font_options_t, detail::CairoDeleter>;
using FontDescriptionPtr = std::unique_ptr<PangoFontDescription, detail::CairoDeleter>;
using FontMetricsPtr = std::unique_ptr<PangoFontMetrics, detail::CairoDeleter>;

template <typename T>
using GObjectPtr = std::unique_ptr<T, detail::GObjectDeleter>;

// A shared reference to a scaled font: copying adds a reference.
class ScaledFontRef {
public:
    ScaledFontRef() = default;
    explicit ScaledFontRef(cairo_scaled_font_t* font)
        : m_font(font ? cairo_scaled_font_reference(font) : nullptr) {}
    ScaledFontRef(const ScaledFontRef& other) : ScaledFontRef(other.m_font) {}
    ScaledFontRef(ScaledFontRef&& other) noexcept : m_font(other.m_font) { other.m_font = nullptr; }
    ScaledFontRef& operator=(ScaledFontRef other) noexcept {
        std::swap(m_font, other.m_font);
        return *this;
    }
    ~ScaledFontRef() {
        if (m_font) cairo_scaled_font_destroy(m_font);
    }
    cairo_scaled_font_t* get() const { return m_font; }

private:
    cairo_scaled_font_t* m_font = nullptr;
};

}  // namespace sk::view
