// The calendar page in the window: a drawing area that shows the laid-out
// page as one image, painted by the page painter at the widget's scale
// factor so that it stays sharp on HiDPI screens. Clicks, double clicks and
// the scroll wheel are reported upward in pixels of the page.
#pragma once

#include <gtkmm.h>

#include <optional>
#include <vector>

#include "view/cairo_handles.hpp"
#include "view/page_layout.hpp"

namespace sk::app {

class PageView : public Gtk::DrawingArea {
  public:
    PageView();
    ~PageView() override;

    // Shows a new page: paints it into the page image and queues the redraw.
    // With `cursor_only` the caller promises that the new page differs from
    // the shown one in its cursor alone (same months, model, font and data):
    // then only the rows of the old and the new cursor are painted again.
    void show_page(view::PageLayout layout, bool cursor_only = false);
    // The page shown (the clipboard copies exactly this).
    const view::PageLayout* page() const { return m_layout ? &*m_layout : nullptr; }
    // The page image at the scale of the screen it is shown on.
    const view::SurfacePtr& image() const { return m_image; }
    int image_scale() const { return m_image_scale; }

    // (x, y) in pixels of the page.
    sigc::signal<void(double, double)>& signal_page_clicked() { return m_clicked; }
    sigc::signal<void(double, double)>& signal_page_double_clicked() { return m_double_clicked; }
    // -1 for up (back), +1 for down (forward).
    sigc::signal<void(int)>& signal_page_scrolled() { return m_scrolled; }
    // After the page image was painted onto the screen.
    sigc::signal<void()>& signal_page_drawn() { return m_drawn; }

  protected:
    bool on_draw(const Cairo::RefPtr<Cairo::Context>& cr) override;
    bool on_button_press_event(GdkEventButton* event) override;
    bool on_scroll_event(GdkEventScroll* event) override;

  private:
    void paint_image();
    void paint_rows(const std::vector<view::Rect>& rows);

    std::optional<view::PageLayout> m_layout;
    view::SurfacePtr m_image;
    bool m_rows_queued = false;  // the next draw shows repainted rows only
    sigc::connection m_whole_redraw;
    int m_image_scale = 1;
    double m_scroll_sum = 0;  // smooth scrolling: a month per whole step
    sigc::signal<void(double, double)> m_clicked;
    sigc::signal<void(double, double)> m_double_clicked;
    sigc::signal<void(int)> m_scrolled;
    sigc::signal<void()> m_drawn;
};

}  // namespace sk::app
