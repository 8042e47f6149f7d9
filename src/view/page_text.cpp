#include "view/page_text.hpp"

#include <algorithm>
#include <cmath>

namespace sk::view {

namespace {

struct StyleShape {
    double scale;
    bool bold;
};
constexpr std::array<StyleShape, kTextStyleCount> kStyles = {{
    {1.0, false},   // Regular
    {1.0, true},    // Bold
    {0.8, false},   // Small
    {0.8, true},    // SmallBold
    {1.25, true},   // Large
}};

FontOptionsPtr page_font_options() {
    FontOptionsPtr options(cairo_font_options_create());
    // No hinting: glyph shapes and advances are then the same on screen, in
    // an image and in a PDF, and on every machine.
    cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
    cairo_font_options_set_antialias(options.get(), CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_subpixel_order(options.get(), CAIRO_SUBPIXEL_ORDER_DEFAULT);
    return options;
}

}  // namespace

FontSpec font_spec(const settings::Settings& settings) {
    FontSpec font;
    if (!settings.font_name.empty()) font.family = settings.font_name;
    font.size = std::clamp(settings.font_size, 4, 96);
    font.style = settings.font_style;
    return font;
}

FontSpec font_for_model(const FontSpec& font, int model) {
    if (model != 5) return font;
    FontSpec plan = font;
    plan.family = kPlanFamily;
    return plan;
}

TextShaper::TextShaper(const FontSpec& font)
    : m_font(font),
      m_font_map(pango_cairo_font_map_new()),
      m_context(pango_font_map_create_context(m_font_map.get())) {
    pango_cairo_context_set_resolution(m_context.get(), 96.0);
    const FontOptionsPtr options = page_font_options();
    pango_cairo_context_set_font_options(m_context.get(), options.get());
    pango_context_set_round_glyph_positions(m_context.get(), FALSE);

    for (int i = 0; i < kTextStyleCount; ++i) {
        const StyleShape& s = kStyles[static_cast<std::size_t>(i)];
        FontDescriptionPtr d(pango_font_description_new());
        pango_font_description_set_family(d.get(), m_font.family.c_str());
        pango_font_description_set_size(
            d.get(), static_cast<gint>(std::lround(m_font.size * s.scale * PANGO_SCALE)));
        const bool bold = s.bold || (m_font.style & 1) != 0;
        pango_font_description_set_weight(d.get(), bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
        pango_font_description_set_style(d.get(),
                                          (m_font.style & 2) ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
        m_descriptions[static_cast<std::size_t>(i)] = std::move(d);
    }

    const FontMetricsPtr metrics(
        pango_context_get_metrics(m_context.get(), m_descriptions[0].get(), nullptr));
    const double digit = pango_font_metrics_get_approximate_digit_width(metrics.get()) /
                         static_cast<double>(PANGO_SCALE);
    // The font's line spacing, or its ascent and descent if they need more;
    // FreeSans has a tight box and wants its line gap.
    const double line = std::max(pango_font_metrics_get_ascent(metrics.get()) +
                                     pango_font_metrics_get_descent(metrics.get()),
                                 pango_font_metrics_get_height(metrics.get())) /
                        static_cast<double>(PANGO_SCALE);
    m_cell.width = std::max(1.0, std::round(digit));
    m_cell.height = std::max(1.0, std::round(line));
}

const ShapedText& TextShaper::shape(TextStyle style, std::string_view text) {
    Cache& cache = m_cache[static_cast<std::size_t>(style)];
    if (const auto it = cache.find(text); it != cache.end()) return it->second;
    return cache.emplace(std::string(text), make(style, text)).first->second;
}

ShapedText TextShaper::make(TextStyle style, std::string_view text) const {
    const GObjectPtr<PangoLayout> layout(pango_layout_new(m_context.get()));
    pango_layout_set_font_description(layout.get(),
                                      m_descriptions[static_cast<std::size_t>(style)].get());
    pango_layout_set_text(layout.get(), text.data(), static_cast<int>(text.size()));

    ShapedText shaped;
    PangoRectangle logical{};
    pango_layout_get_extents(layout.get(), nullptr, &logical);
    shaped.width = logical.width / static_cast<double>(PANGO_SCALE);
    shaped.height = logical.height / static_cast<double>(PANGO_SCALE);
    shaped.baseline = pango_layout_get_baseline(layout.get()) / static_cast<double>(PANGO_SCALE);

    PangoLayoutIter* iter = pango_layout_get_iter(layout.get());
    do {
        PangoLayoutRun* run = pango_layout_iter_get_run_readonly(iter);
        if (!run) continue;
        PangoRectangle run_logical{};
        pango_layout_iter_get_run_extents(iter, nullptr, &run_logical);
        const double baseline = pango_layout_iter_get_baseline(iter) / static_cast<double>(PANGO_SCALE);
        GlyphRun glyph_run{
            ScaledFontRef(pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(run->item->analysis.font))),
            {}};
        int x = run_logical.x;
        for (int i = 0; i < run->glyphs->num_glyphs; ++i) {
            const PangoGlyphInfo& g = run->glyphs->glyphs[i];
            if (g.glyph != PANGO_GLYPH_EMPTY && !(g.glyph & PANGO_GLYPH_UNKNOWN_FLAG)) {
                glyph_run.glyphs.push_back(
                    {g.glyph, (x + g.geometry.x_offset) / static_cast<double>(PANGO_SCALE),
                     baseline + g.geometry.y_offset / static_cast<double>(PANGO_SCALE)});
            }
            x += g.geometry.width;
        }
        if (glyph_run.font.get() && !glyph_run.glyphs.empty()) shaped.runs.push_back(std::move(glyph_run));
    } while (pango_layout_iter_next_run(iter));
    pango_layout_iter_free(iter);
    // Glyph y positions are absolute within the line; make them relative to
    // the baseline.
    for (GlyphRun& r : shaped.runs)
        for (cairo_glyph_t& g : r.glyphs) g.y -= shaped.baseline;
    return shaped;
}

}  // namespace sk::view
