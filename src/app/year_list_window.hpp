// A window that lists one year's dates from the core under two headed
// columns, sized in character cells: the frame of the "Feiertage" and the
// "Ferientermine" windows, which differ only in their texts, rows and sizes.
#pragma once

#include <gtkmm.h>

#include <vector>

#include "app/read_only_list.hpp"
#include "calendar/holidays.hpp"
#include "view/page_text.hpp"

namespace sk::app {

struct YearListLayout {
    Glib::ustring title;      // the window's title and accessible name
    Glib::ustring list_name;  // the list's accessible name
    std::vector<ListColumn> columns;
    double width = 50, height = 33;  // the window, in cells
};

class YearListWindow : public Gtk::Dialog {
  public:
    ReadOnlyList& get_list() { return m_list; }

  protected:
    // The list is two cells narrower and lower than the window, one cell in
    // from each edge.
    YearListWindow(Gtk::Window& parent, view::CellSize cell, const YearListLayout& layout,
                   const std::vector<calendar::ListRow>& rows);

  private:
    Gtk::ScrolledWindow m_scroller;
    ReadOnlyList m_list;
};

}  // namespace sk::app
