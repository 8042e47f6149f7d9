#include "app/text_window.hpp"

#include "app/ui_support.hpp"

namespace sk::app {

TextWindow::TextWindow(Gtk::Window& parent, view::CellSize cell, const Glib::ustring& title,
                       std::string_view text, Size size) {
    set_title(title);
    make_modal(*this, &parent);
    close_on_escape(*this);
    set_default_size_in_cells(*this, cell, size.width, size.height);
    set_accessible_name(*this, title);

    m_view.get_buffer()->set_text(display_text(text));
    m_view.set_editable(false);
    m_view.set_cursor_visible(true);
    m_view.set_wrap_mode(Gtk::WRAP_WORD_CHAR);
    m_view.set_left_margin(cells_wide(cell, 0.5));
    m_view.set_right_margin(cells_wide(cell, 0.5));
    m_view.set_top_margin(cells_high(cell, 0.25));
    m_view.set_bottom_margin(cells_high(cell, 0.25));
    m_view.get_buffer()->place_cursor(m_view.get_buffer()->begin());
    set_accessible_name(m_view, title);

    m_scroller.set_policy(Gtk::POLICY_AUTOMATIC, Gtk::POLICY_AUTOMATIC);
    m_scroller.set_shadow_type(Gtk::SHADOW_IN);
    m_scroller.add(m_view);
    Gtk::Box* box = get_content_area();
    box->set_border_width(0);
    set_margins_in_cells(m_scroller, cell, 0.5);
    box->pack_start(m_scroller, Gtk::PACK_EXPAND_WIDGET);
    show_all_children();
    m_view.grab_focus();
}

Glib::ustring TextWindow::get_text() const {
    return m_view.get_buffer()->get_text();
}

Glib::ustring notes_title(const calendar::Day& day) {
    return "Notizen für den " + calendar::format_german_date(day);
}

HelpWindow::HelpWindow(Gtk::Window& parent, view::CellSize cell, HelpTopic topic)
    : TextWindow(parent, cell, to_ustring(help_text(topic).title), help_text(topic).text,
                 kHelpSize) {}

}  // namespace sk::app
