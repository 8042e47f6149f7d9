#include "app/yearly_hours_window.hpp"

#include <string>

#include "app/ui_support.hpp"

namespace sk::app {

namespace {

constexpr double kMonthWidth = 11;  // cells; "September" and a blank
constexpr double kCrewWidth = 9;    // "-1982,76"

}  // namespace

YearlyHoursWindow::YearlyHoursWindow(Gtk::Window& parent, view::CellSize cell,
                                     const marks::YearlyHours& table) {
    set_title("Jahresstunden");
    make_modal(*this, &parent);
    close_on_escape(*this);
    set_resizable(false);
    set_accessible_name(*this, "Jahresstunden");

    Gtk::Box* box = get_content_area();
    box->set_border_width(0);
    box->set_spacing(cells_high(cell, 0.5));
    set_margins_in_cells(*box, cell, 1);
    m_heading.set_xalign(0);
    box->pack_start(m_heading, Gtk::PACK_SHRINK);

    const marks::YearlyHoursText text = marks::yearly_hours_text(table);
    if (text.rows.empty()) {
        m_heading.set_text("Für diesen Schichtkalender gibt es keine Jahresstunden.");
    } else {
        m_heading.set_text("Stunden je Monat und Schicht im Jahr " + std::to_string(table.year));
        std::vector<ListColumn> columns;
        for (std::size_t i = 0; i < text.headings.size(); ++i)
            columns.push_back({text.headings[i], i == 0 ? kMonthWidth : kCrewWidth, i != 0});
        m_list = std::make_unique<ReadOnlyList>(cell, "Jahresstunden " + std::to_string(table.year),
                                                columns);
        for (std::size_t r = 0; r < text.rows.size(); ++r)
            m_list->add_row(text.rows[r], r >= 12);  // "Summe" and "Soll"
        m_list->get_selection()->set_mode(Gtk::SELECTION_NONE);
        box->pack_start(*m_list, Gtk::PACK_EXPAND_WIDGET);
    }
    show_all_children();
    if (m_list) m_list->grab_focus();
}

}  // namespace sk::app
