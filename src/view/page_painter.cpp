#include "view/page_painter.hpp"

#include <cmath>
#include <vector>

#include "view/image_painter.hpp"
#include "view/page_builder.hpp"

namespace sk::view {

namespace {

void set_colour(cairo_t* cr, Rgb c, double alpha = 1.0) {
    cairo_set_source_rgba(cr, c.r / 255.0, c.g / 255.0, c.b / 255.0, alpha);
}

void fill_layer(cairo_t* cr, const std::vector<Box>& boxes) {
    // Few distinct colours per layer: collect the indices of each colour.
    std::vector<Rgb> colours;
    for (const Box& b : boxes) {
        bool known = false;
        for (const Rgb c : colours) known = known || c == b.colour;
        if (!known) colours.push_back(b.colour);
    }
    for (const Rgb c : colours) {
        for (const Box& b : boxes)
            if (b.colour == c) cairo_rectangle(cr, b.rect.x, b.rect.y, b.rect.w, b.rect.h);
        set_colour(cr, c);
        cairo_fill(cr);
    }
}

void inside_path(cairo_t* cr, const Rect& r, double width) {
    const double h = width / 2;
    cairo_rectangle(cr, r.x + h, r.y + h, r.w - width, r.h - width);
}

}  // namespace

// Frames of one colour and width in one stroke.
void paint_frames(cairo_t* cr, const std::vector<Frame>& frames) {
    std::vector<bool> done(frames.size(), false);
    for (std::size_t i = 0; i < frames.size(); ++i) {
        if (done[i]) continue;
        for (std::size_t j = i; j < frames.size(); ++j) {
            if (done[j] || frames[j].colour != frames[i].colour || frames[j].width != frames[i].width)
                continue;
            inside_path(cr, frames[j].rect, frames[j].width);
            done[j] = true;
        }
        set_colour(cr, frames[i].colour);
        cairo_set_line_width(cr, frames[i].width);
        cairo_stroke(cr);
    }
}

void paint_moon(cairo_t* cr, const MoonItem& m) {
    constexpr double kPi = 3.14159265358979323846;
    const auto disc = [&] {
        cairo_new_path(cr);
        cairo_arc(cr, m.cx, m.cy, m.r, 0, 2 * kPi);
    };
    const double outline = std::max(1.0, m.r / 5);
    Rgb inside = palette::kMoonLight;
    if (m.phase == MoonPhase::NewMoon) inside = m.eclipse ? palette::kSolarEclipse : palette::kMoonDark;
    if (m.phase == MoonPhase::FullMoon && m.eclipse) inside = palette::kLunarEclipse;
    disc();
    set_colour(cr, inside);
    cairo_fill(cr);
    if (m.phase == MoonPhase::FirstQuarter || m.phase == MoonPhase::LastQuarter) {
        // Dark half: the left one at first quarter (the right half is lit),
        // the right one at last quarter.
        const double from = m.phase == MoonPhase::FirstQuarter ? kPi / 2 : -kPi / 2;
        cairo_new_path(cr);
        cairo_arc(cr, m.cx, m.cy, m.r, from, from + kPi);
        cairo_close_path(cr);
        set_colour(cr, palette::kMoonDark);
        cairo_fill(cr);
    }
    disc();
    set_colour(cr, palette::kMoonDark);
    cairo_set_line_width(cr, outline);
    cairo_stroke(cr);
}

namespace {

struct GlyphBatch {
    cairo_scaled_font_t* font;
    Rgb colour;
    double squeeze;
    std::vector<cairo_glyph_t> glyphs;
};

void show_batches(cairo_t* cr, std::vector<GlyphBatch>& batches) {
    for (GlyphBatch& b : batches) {
        if (b.glyphs.empty()) continue;
        cairo_save(cr);
        if (b.squeeze != 1) cairo_scale(cr, b.squeeze, 1);
        cairo_set_scaled_font(cr, b.font);
        set_colour(cr, b.colour);
        cairo_show_glyphs(cr, b.glyphs.data(), static_cast<int>(b.glyphs.size()));
        cairo_restore(cr);
        b.glyphs.clear();
    }
}

// Texts are drawn in batches of one font and colour per tile of a day row
// (a month column wide, a line high). Cairo composites a glyph call through a
// mask as large as the call's glyphs cover, so page-wide batches would cost
// far more than the glyphs themselves.
void paint_texts(cairo_t* cr, const PageLayout& layout) {
    const double tile_w = layout.cell.width * 18;
    const double tile_h = std::max(1.0, layout.cell.height);
    std::vector<GlyphBatch> batches;
    long tile = -1;
    for (const TextItem& t : layout.texts) {
        if (!t.shaped) continue;
        const long here = static_cast<long>(t.y / tile_h) * 1024 + static_cast<long>(t.x / tile_w);
        if (here != tile) {
            show_batches(cr, batches);
            tile = here;
        }
        // A squeezed text is drawn under a horizontal scale, so its x
        // positions are divided by that scale.
        const double x = t.x / t.squeeze;
        for (const GlyphRun& run : t.shaped->runs) {
            GlyphBatch* batch = nullptr;
            for (GlyphBatch& b : batches)
                if (b.font == run.font.get() && b.colour == t.colour && b.squeeze == t.squeeze) batch = &b;
            if (!batch) batch = &batches.emplace_back(GlyphBatch{run.font.get(), t.colour, t.squeeze, {}});
            for (const cairo_glyph_t& g : run.glyphs) batch->glyphs.push_back({g.index, g.x + x, g.y + t.y});
        }
    }
    show_batches(cr, batches);
}

}  // namespace

void paint_moons(cairo_t* cr, const std::vector<MoonItem>& moons) {
    for (const MoonItem& m : moons) paint_moon(cr, m);
}

void paint_overlays(cairo_t* cr, const std::vector<Overlay>& overlays) {
    for (const Overlay& o : overlays) {
        if (o.fill_alpha > 0) {
            cairo_rectangle(cr, o.rect.x, o.rect.y, o.rect.w, o.rect.h);
            set_colour(cr, o.fill, o.fill_alpha);
            cairo_fill(cr);
        }
        if (o.frame_width > 0) {
            // Centred on the row's edges, so the frame does not cover the text.
            cairo_rectangle(cr, o.rect.x, o.rect.y, o.rect.w, o.rect.h);
            set_colour(cr, o.frame);
            cairo_set_line_width(cr, o.frame_width);
            cairo_stroke(cr);
        }
    }
}

void paint_page(cairo_t* cr, const PageLayout& layout) {
    if (paint_page_on_image(cr, layout)) return;
    cairo_save(cr);
    cairo_rectangle(cr, 0, 0, layout.width, layout.height);
    cairo_clip(cr);
    set_colour(cr, layout.background);
    cairo_paint(cr);
    for (const auto& boxes : layout.boxes) fill_layer(cr, boxes);
    paint_frames(cr, layout.frames);
    paint_moons(cr, layout.moons);
    paint_texts(cr, layout);
    paint_overlays(cr, layout.overlays);
    cairo_restore(cr);
}

}  // namespace sk::view
