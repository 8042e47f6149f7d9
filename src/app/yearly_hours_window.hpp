// The window "Jahresstunden": the hours of every crew per month of one year,
// their sum and the target hours, as the core computes and formats them
// (marks::yearly_hours, marks::yearly_hours_text). The models without such a
// table (6 and 7) get a one-line note instead.
#pragma once

#include <gtkmm.h>

#include <memory>

#include "app/read_only_list.hpp"
#include "marks/accounts.hpp"
#include "view/page_text.hpp"

namespace sk::app {

class YearlyHoursWindow : public Gtk::Dialog {
  public:
    YearlyHoursWindow(Gtk::Window& parent, view::CellSize cell, const marks::YearlyHours& table);
    // Null for a model without a table.
    ReadOnlyList* get_list() { return m_list.get(); }

  private:
    Gtk::Label m_heading;
    std::unique_ptr<ReadOnlyList> m_list;
};

}  // namespace sk::app
