#include "app/holiday_list_window.hpp"

#include <string>

#include "app/ui_support.hpp"
#include "calendar/holidays.hpp"

namespace sk::app {

HolidayListWindow::HolidayListWindow(Gtk::Window& parent, view::CellSize cell, int year)
    : m_list(cell, "Feiertage " + std::to_string(year),
             {{std::to_string(year), 16}, {"Feiertag", 27}}) {
    set_title("Feiertage");
    make_modal(*this, &parent);
    close_on_escape(*this);
    set_default_size_in_cells(*this, cell, 50, 33);
    set_accessible_name(*this, "Feiertage");

    for (const calendar::ListRow& row : calendar::holiday_list(year))
        m_list.add_row({row.first, row.second});
    m_scroller.set_policy(Gtk::POLICY_NEVER, Gtk::POLICY_AUTOMATIC);
    m_scroller.set_shadow_type(Gtk::SHADOW_IN);
    m_scroller.add(m_list);
    set_size_in_cells(m_scroller, cell, 48, 31);
    set_margins_in_cells(m_scroller, cell, 1);
    get_content_area()->set_border_width(0);
    get_content_area()->pack_start(m_scroller, Gtk::PACK_EXPAND_WIDGET);
    show_all_children();
    m_list.grab_focus();
}

}  // namespace sk::app
