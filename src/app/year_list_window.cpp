#include "app/year_list_window.hpp"

#include "app/ui_support.hpp"

namespace sk::app {

YearListWindow::YearListWindow(Gtk::Window& parent, view::CellSize cell,
                               const YearListLayout& layout,
                               const std::vector<calendar::ListRow>& rows)
    : m_list(cell, layout.list_name, layout.columns) {
    set_title(layout.title);
    make_modal(*this, &parent);
    close_on_escape(*this);
    set_default_size_in_cells(*this, cell, layout.width, layout.height);
    set_accessible_name(*this, layout.title);

    for (const calendar::ListRow& row : rows)
        m_list.add_row({row.first, row.second});
    m_scroller.set_policy(Gtk::POLICY_NEVER, Gtk::POLICY_AUTOMATIC);
    m_scroller.set_shadow_type(Gtk::SHADOW_IN);
    m_scroller.add(m_list);
    set_size_in_cells(m_scroller, cell, layout.width - 2, layout.height - 2);
    set_margins_in_cells(m_scroller, cell, 1);
    get_content_area()->set_border_width(0);
    get_content_area()->pack_start(m_scroller, Gtk::PACK_EXPAND_WIDGET);
    show_all_children();
    m_list.grab_focus();
}

}  // namespace sk::app
