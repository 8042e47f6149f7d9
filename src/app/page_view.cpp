#include "app/page_view.hpp"

#include <cmath>

#include "view/page_output.hpp"

namespace sk::app {

PageView::PageView() {
    set_can_focus(true);
    add_events(Gdk::BUTTON_PRESS_MASK | Gdk::SCROLL_MASK | Gdk::SMOOTH_SCROLL_MASK);
    property_scale_factor().signal_changed().connect([this] {
        if (m_layout) paint_image();
    });
}

void PageView::show_page(view::PageLayout layout) {
    const bool resized =
        !m_layout || m_layout->width != layout.width || m_layout->height != layout.height;
    m_layout = std::move(layout);
    if (resized)
        set_size_request(static_cast<int>(std::ceil(m_layout->width)),
                         static_cast<int>(std::ceil(m_layout->height)));
    paint_image();
}

// At scale 1 the painter takes its fast path onto the image; at a higher
// scale factor it paints the same layout scaled, so text and lines are
// drawn at the screen's resolution instead of being enlarged afterwards.
void PageView::paint_image() {
    m_image_scale = std::max(1, get_scale_factor());
    m_image = view::render_image(*m_layout, m_image_scale);
    if (m_image) cairo_surface_set_device_scale(m_image.get(), m_image_scale, m_image_scale);
    queue_draw();
}

bool PageView::on_draw(const Cairo::RefPtr<Cairo::Context>& cr) {
    if (!m_image) return true;
    cairo_t* c = cr->cobj();
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
