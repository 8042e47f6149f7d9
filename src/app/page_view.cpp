#include "app/page_view.hpp"

#include <cmath>

#include "view/page_output.hpp"
#include "view/page_painter.hpp"

namespace sk::app {

PageView::PageView() {
    set_can_focus(true);
    add_events(Gdk::BUTTON_PRESS_MASK | Gdk::SCROLL_MASK | Gdk::SMOOTH_SCROLL_MASK);
    property_scale_factor().signal_changed().connect([this] {
        if (m_layout) paint_image();
    });
}

PageView::~PageView() {
    m_whole_redraw.disconnect();
}

namespace {

// The overlays (cursor and today's frame) of a page, two pixels larger on
// every side for their frames' antialiased edges.
void add_overlay_rects(const view::PageLayout& layout, std::vector<view::Rect>& rects) {
    for (const view::Overlay& o : layout.overlays)
        rects.push_back({std::floor(o.rect.x) - 2, std::floor(o.rect.y) - 2,
                         std::ceil(o.rect.w) + 4, std::ceil(o.rect.h) + 4});
}

}  // namespace

void PageView::show_page(view::PageLayout layout, bool cursor_only) {
    const bool resized =
        !m_layout || m_layout->width != layout.width || m_layout->height != layout.height;
    if (cursor_only && !resized && m_image && m_image_scale == std::max(1, get_scale_factor())) {
        std::vector<view::Rect> rows;
        add_overlay_rects(*m_layout, rows);
        add_overlay_rects(layout, rows);
        m_layout = std::move(layout);
        paint_rows(rows);
        return;
    }
    m_layout = std::move(layout);
    if (resized)
        set_size_request(static_cast<int>(std::ceil(m_layout->width)),
                         static_cast<int>(std::ceil(m_layout->height)));
    paint_image();
}

// At scale 1 the painter takes its fast path onto the image; at a higher
// scale factor it paints the same layout scaled, so text and lines are
// drawn at the screen's resolution instead of being enlarged afterwards.
// The image is kept while the page keeps its size, so that a redraw does
// not allocate (and fault in) megabytes of fresh memory each time.
void PageView::paint_image() {
    const int scale = std::max(1, get_scale_factor());
    const int width = static_cast<int>(std::ceil(m_layout->width * scale));
    const int height = static_cast<int>(std::ceil(m_layout->height * scale));
    if (!m_image || scale != m_image_scale ||
        cairo_image_surface_get_width(m_image.get()) != width ||
        cairo_image_surface_get_height(m_image.get()) != height) {
        m_image_scale = scale;
        m_image = view::render_image(*m_layout, scale);
        if (m_image) cairo_surface_set_device_scale(m_image.get(), scale, scale);
    } else {
        const view::CairoPtr cr(cairo_create(m_image.get()));
        view::paint_page(cr.get(), *m_layout);
        cairo_surface_flush(m_image.get());
    }
    queue_draw();
}

// Paints the new page within the rectangles only, and shows them.
void PageView::paint_rows(const std::vector<view::Rect>& rows) {
    {
        const view::CairoPtr cr(cairo_create(m_image.get()));
        for (const view::Rect& r : rows)
            cairo_rectangle(cr.get(), r.x, r.y, r.w, r.h);
        cairo_clip(cr.get());
        view::paint_page(cr.get(), *m_layout);
    }
    cairo_surface_flush(m_image.get());
    m_rows_queued = true;
    for (const view::Rect& r : rows)
        queue_draw_area(static_cast<int>(r.x), static_cast<int>(r.y), static_cast<int>(r.w),
                        static_cast<int>(r.h));
}

bool PageView::on_draw(const Cairo::RefPtr<Cairo::Context>& cr) {
    if (!m_image) return true;
    cairo_t* c = cr->cobj();
    // A part of the page shown again that the program did not repaint (a
    // dialog above it has closed): the whole page follows when the loop is
    // idle. On X11 the upload of a frame goes through a shared-memory pool
    // that cairo lets go when another window needed one of its own (GTK's
    // check and radio buttons do); a page-sized pool is then made ready
    // before the next key instead of during its frame.
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    cairo_clip_extents(c, &x1, &y1, &x2, &y2);
    const bool part =
        x1 > 0 || y1 > 0 || x2 < std::floor(m_layout->width) || y2 < std::floor(m_layout->height);
    if (part && !m_rows_queued && !m_whole_redraw.connected())
        m_whole_redraw = Glib::signal_idle().connect([this] {
            queue_draw();
            return false;
        });
    m_rows_queued = false;
    cairo_set_source_surface(c, m_image.get(), 0, 0);
    cairo_set_operator(c, CAIRO_OPERATOR_SOURCE);
    cairo_rectangle(c, 0, 0, m_layout->width, m_layout->height);
    cairo_fill(c);
    m_drawn.emit();
    return true;
}

bool PageView::on_button_press_event(GdkEventButton* event) {
    if (event->button != GDK_BUTTON_PRIMARY) return false;
    grab_focus();
    if (event->type == GDK_BUTTON_PRESS)
        m_clicked.emit(event->x, event->y);
    else if (event->type == GDK_2BUTTON_PRESS)
        m_double_clicked.emit(event->x, event->y);
    return true;
}

bool PageView::on_scroll_event(GdkEventScroll* event) {
    switch (event->direction) {
        case GDK_SCROLL_UP:
            m_scrolled.emit(-1);
            return true;
        case GDK_SCROLL_DOWN:
            m_scrolled.emit(1);
            return true;
        case GDK_SCROLL_SMOOTH:
            m_scroll_sum += event->delta_y;
            while (m_scroll_sum >= 1) {
                m_scroll_sum -= 1;
                m_scrolled.emit(1);
            }
            while (m_scroll_sum <= -1) {
                m_scroll_sum += 1;
                m_scrolled.emit(-1);
            }
            return true;
        default:
            return false;
    }
}

}  // namespace sk::app
