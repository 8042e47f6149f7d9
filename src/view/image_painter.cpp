#include "view/image_painter.hpp"

#include <pixman.h>

#include <cmath>
#include <cstring>
#include <unordered_map>
#include <vector>

namespace sk::view {

namespace {

struct PixmanDeleter {
    void operator()(pixman_image_t* p) const { pixman_image_unref(p); }
};
using PixmanPtr = std::unique_ptr<pixman_image_t, PixmanDeleter>;

class Region {
public:
    Region() { pixman_region32_init(&m_region); }
    ~Region() { pixman_region32_fini(&m_region); }
    Region(const Region&) = delete;
    Region& operator=(const Region&) = delete;
    pixman_region32_t* get() { return &m_region; }

private:
    pixman_region32_t m_region;
};

struct ClipListDeleter {
    void operator()(cairo_rectangle_list_t* p) const { cairo_rectangle_list_destroy(p); }
};

constexpr int kStampPad = 2;  // pixels around the logical box for overhanging ink

pixman_color_t pixman_colour(Rgb c) {
    return {static_cast<std::uint16_t>(c.r * 257), static_cast<std::uint16_t>(c.g * 257),
            static_cast<std::uint16_t>(c.b * 257), 0xFFFF};
}

bool whole(double v) { return v == std::floor(v); }

}  // namespace

// A text as coverage mask: the text's baseline starts at (left, baseline).
struct Stamp {
    SurfacePtr surface;  // A8
    PixmanPtr mask;      // the surface's pixels for pixman
    int left = 0;
    int baseline = 0;
    int width = 0;
    int height = 0;
};

// A moon symbol as image with alpha, centred on (centre, centre).
struct MoonStamp {
    SurfacePtr surface;  // ARGB32
    PixmanPtr image;
    int centre = 0;
    int size = 0;
};

class Stamps {
public:
    const Stamp& get(const ShapedText& text, double squeeze) {
        const Key key{&text, squeeze};
        if (const auto it = m_stamps.find(key); it != m_stamps.end()) return it->second;
        return m_stamps.emplace(key, make(text, squeeze)).first->second;
    }

    const MoonStamp& moon(const MoonItem& m) {
        for (const auto& [look, stamp] : m_moons)
            if (look.phase == m.phase && look.eclipse == m.eclipse && look.r == m.r) return stamp;
        MoonStamp s;
        s.centre = static_cast<int>(std::ceil(m.r)) + 2;
        s.size = 2 * s.centre + 1;
        s.surface.reset(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, s.size, s.size));
        {
            const CairoPtr cr(cairo_create(s.surface.get()));
            MoonItem centred = m;
            centred.cx = centred.cy = s.centre + 0.5;
            paint_moon(cr.get(), centred);
        }
        cairo_surface_flush(s.surface.get());
        s.image.reset(pixman_image_create_bits(
            PIXMAN_a8r8g8b8, s.size, s.size,
            reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(s.surface.get())),
            cairo_image_surface_get_stride(s.surface.get())));
        m_moons.emplace_back(m, std::move(s));
        return m_moons.back().second;
    }

private:
    struct Key {
        const ShapedText* text;
        double squeeze;
        bool operator==(const Key&) const = default;
    };
    struct KeyHash {
        std::size_t operator()(const Key& k) const {
            return std::hash<const void*>{}(k.text) ^ (std::hash<double>{}(k.squeeze) << 1);
        }
    };

    static Stamp make(const ShapedText& text, double squeeze) {
        Stamp s;
        s.left = kStampPad;
        s.baseline = kStampPad + static_cast<int>(std::ceil(text.baseline));
        s.width = static_cast<int>(std::ceil(text.width * squeeze)) + 2 * kStampPad;
        s.height = s.baseline + static_cast<int>(std::ceil(text.height - text.baseline)) + kStampPad;
        s.surface.reset(cairo_image_surface_create(CAIRO_FORMAT_A8, s.width, s.height));
        {
            const CairoPtr cr(cairo_create(s.surface.get()));
            cairo_translate(cr.get(), s.left, s.baseline);
            if (squeeze != 1) cairo_scale(cr.get(), squeeze, 1);
            cairo_set_source_rgb(cr.get(), 0, 0, 0);
            for (const GlyphRun& run : text.runs) {
                cairo_set_scaled_font(cr.get(), run.font.get());
                cairo_show_glyphs(cr.get(), run.glyphs.data(), static_cast<int>(run.glyphs.size()));
            }
        }
        cairo_surface_flush(s.surface.get());
        s.mask.reset(pixman_image_create_bits(
            PIXMAN_a8, s.width, s.height,
            reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(s.surface.get())),
            cairo_image_surface_get_stride(s.surface.get())));
        return s;
    }

    std::unordered_map<Key, Stamp, KeyHash> m_stamps;
    std::vector<std::pair<MoonItem, MoonStamp>> m_moons;
};

void StampsDeleter::operator()(Stamps* stamps) const { delete stamps; }

// Defined here, where the stamps are known, so that the shaper's header
// needs no pixman.
Stamps& TextShaper::stamps() {
    if (!m_stamps) m_stamps.reset(new Stamps);
    return *m_stamps;
}

bool paint_page_on_image(cairo_t* cr, const PageLayout& layout) {
    if (!layout.shaper) return false;
    // The group target, not the context's first target: inside a pushed
    // group the drawing goes there.
    cairo_surface_t* target = cairo_get_group_target(cr);
    if (cairo_surface_get_type(target) != CAIRO_SURFACE_TYPE_IMAGE) return false;
    const cairo_format_t format = cairo_image_surface_get_format(target);
    if (format != CAIRO_FORMAT_RGB24 && format != CAIRO_FORMAT_ARGB32) return false;
    cairo_matrix_t m;
    cairo_get_matrix(cr, &m);
    if (m.xx != 1 || m.yy != 1 || m.xy != 0 || m.yx != 0) return false;
    double ox = 0, oy = 0;
    cairo_surface_get_device_offset(target, &ox, &oy);
    const double dx = m.x0 + ox, dy = m.y0 + oy;
    if (!whole(dx) || !whole(dy)) return false;

    // The context's clip as a pixman region, cut to the page.
    const std::unique_ptr<cairo_rectangle_list_t, ClipListDeleter> clip(cairo_copy_clip_rectangle_list(cr));
    if (clip->status != CAIRO_STATUS_SUCCESS) return false;
    std::vector<pixman_box32_t> clip_boxes;
    for (int i = 0; i < clip->num_rectangles; ++i) {
        const cairo_rectangle_t& r = clip->rectangles[i];
        if (!whole(r.x) || !whole(r.y) || !whole(r.width) || !whole(r.height)) return false;
        clip_boxes.push_back({static_cast<int32_t>(r.x + dx), static_cast<int32_t>(r.y + dy),
                              static_cast<int32_t>(r.x + r.width + dx), static_cast<int32_t>(r.y + r.height + dy)});
    }
    const pixman_box32_t page{static_cast<int32_t>(dx), static_cast<int32_t>(dy),
                              static_cast<int32_t>(dx + std::ceil(layout.width)),
                              static_cast<int32_t>(dy + std::ceil(layout.height))};
    Region clip_region, page_region;
    pixman_region32_init_rects(clip_region.get(), clip_boxes.data(), static_cast<int>(clip_boxes.size()));
    pixman_region32_init_rects(page_region.get(), &page, 1);
    pixman_region32_intersect(clip_region.get(), clip_region.get(), page_region.get());
    if (!pixman_region32_not_empty(clip_region.get())) return true;

    cairo_surface_flush(target);
    const PixmanPtr dst(pixman_image_create_bits(
        format == CAIRO_FORMAT_RGB24 ? PIXMAN_x8r8g8b8 : PIXMAN_a8r8g8b8,
        cairo_image_surface_get_width(target), cairo_image_surface_get_height(target),
        reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(target)),
        cairo_image_surface_get_stride(target)));
    pixman_image_set_clip_region32(dst.get(), clip_region.get());

    const auto fill = [&](Rgb colour, const std::vector<pixman_box32_t>& boxes) {
        const pixman_color_t c = pixman_colour(colour);
        pixman_image_fill_boxes(PIXMAN_OP_SRC, dst.get(), &c, static_cast<int>(boxes.size()), boxes.data());
    };
    fill(layout.background, {page});
    // Boxes of a layer do not overlap: fill them colour by colour.
    std::vector<Rgb> colours;
    std::vector<pixman_box32_t> boxes;
    for (const auto& layer : layout.boxes) {
        colours.clear();
        for (const Box& b : layer)
            if (std::find(colours.begin(), colours.end(), b.colour) == colours.end()) colours.push_back(b.colour);
        for (const Rgb c : colours) {
            boxes.clear();
            for (const Box& b : layer) {
                if (b.colour != c) continue;
                boxes.push_back({static_cast<int32_t>(std::lround(b.rect.x + dx)),
                                 static_cast<int32_t>(std::lround(b.rect.y + dy)),
                                 static_cast<int32_t>(std::lround(b.rect.right() + dx)),
                                 static_cast<int32_t>(std::lround(b.rect.bottom() + dy))});
            }
            fill(c, boxes);
        }
    }
    // Frames of whole pixels as four boxes each; any other with Cairo.
    std::vector<Frame> odd_frames;
    for (const Frame& f : layout.frames) {
        const Rect& r = f.rect;
        if (!whole(r.x) || !whole(r.y) || !whole(r.w) || !whole(r.h) || !whole(f.width)) {
            odd_frames.push_back(f);
            continue;
        }
        const auto x0 = static_cast<int32_t>(r.x + dx), y0 = static_cast<int32_t>(r.y + dy);
        const auto x1 = static_cast<int32_t>(r.right() + dx), y1 = static_cast<int32_t>(r.bottom() + dy);
        const auto w = static_cast<int32_t>(f.width);
        fill(f.colour, {{x0, y0, x1, y0 + w}, {x0, y1 - w, x1, y1}, {x0, y0 + w, x0 + w, y1 - w},
                        {x1 - w, y0 + w, x1, y1 - w}});
    }
    cairo_surface_mark_dirty(target);
    paint_frames(cr, odd_frames);
    cairo_surface_flush(target);

    Stamps& stamps = layout.shaper->stamps();
    for (const MoonItem& moon : layout.moons) {
        const MoonStamp& s = stamps.moon(moon);
        const auto x = static_cast<int32_t>(std::floor(moon.cx + dx)) - s.centre;
        const auto y = static_cast<int32_t>(std::floor(moon.cy + dy)) - s.centre;
        pixman_image_composite32(PIXMAN_OP_OVER, s.image.get(), nullptr, dst.get(), 0, 0, 0, 0, x, y,
                                 s.size, s.size);
    }
    std::vector<std::pair<Rgb, PixmanPtr>> solids;
    for (const TextItem& t : layout.texts) {
        if (!t.shaped) continue;
        pixman_image_t* solid = nullptr;
        for (const auto& [colour, image] : solids)
            if (colour == t.colour) solid = image.get();
        if (!solid) {
            const pixman_color_t c = pixman_colour(t.colour);
            solid = solids.emplace_back(t.colour, PixmanPtr(pixman_image_create_solid_fill(&c))).second.get();
        }
        const Stamp& s = stamps.get(*t.shaped, t.squeeze);
        const auto x = static_cast<int32_t>(std::lround(t.x + dx)) - s.left;
        const auto y = static_cast<int32_t>(std::lround(t.y + dy)) - s.baseline;
        pixman_image_composite32(PIXMAN_OP_OVER, solid, s.mask.get(), dst.get(), 0, 0, 0, 0, x, y,
                                 s.width, s.height);
    }
    cairo_surface_mark_dirty(target);
    paint_overlays(cr, layout.overlays);
    return true;
}

}  // namespace sk::view
