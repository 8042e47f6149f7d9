#include "app/vacation_dialog.hpp"

#include <algorithm>
#include <string>

#include "app/ui_support.hpp"
#include "marks/account_entry.hpp"

namespace sk::app {

VacationDialog::VacationDialog(Gtk::Window& parent, view::CellSize cell,
                               const marks::VacationAccount& vacation, int home_crew,
                               calendar::DayNumber earliest, bool counted)
    : m_start(vacation),
      m_date_label("Resturlaub a_m:", true),
      m_date(calendar::Day::from_number(std::max(vacation.reference_date, earliest)), earliest,
             calendar::kLastDay, "Resturlaub am"),
      m_days_label("_Tage", true),
      m_crew_label("Stammschicht:"),
      m_crew(cell, home_crew),
      m_note(marks::kNoAccountsNote) {
    set_title("Urlaub eingeben");
    make_modal(*this, &parent);
    close_on_escape(*this);
    set_resizable(false);
    set_accessible_name(*this, get_title());

    m_date_label.set_xalign(0);
    m_date_label.set_mnemonic_widget(m_date);
    m_days_label.set_xalign(0);
    m_days_label.set_mnemonic_widget(m_days);
    m_days.set_width_chars(5);
    m_days.set_activates_default(true);
    m_days.set_text(std::to_string(vacation.days));
    m_days.set_halign(Gtk::ALIGN_START);
    set_accessible_name(m_days, "Tage");
    set_tooltip_and_description(m_days, "Die am Tag noch offenen Urlaubstage, von -60 bis 60");
    set_wrapped(m_hint, 40);
    m_hint.set_no_show_all(true);
    m_crew_label.set_xalign(0);
    m_crew_label.set_mnemonic_widget(m_crew.get_button(m_crew.get_crew()));
    set_wrapped(m_note, 48);

    m_grid.set_row_spacing(cells_high(cell, 0.3));
    m_grid.set_column_spacing(cells_wide(cell, 1));
    set_margins_in_cells(m_grid, cell, 1);
    m_grid.attach(m_date_label, 0, 0);
    m_grid.attach(m_date, 1, 0);
    m_grid.attach(m_days_label, 0, 1);
    m_grid.attach(m_days, 1, 1);
    m_grid.attach(m_hint, 0, 2, 2, 1);
    m_grid.attach(m_crew_label, 0, 3);
    m_grid.attach(m_crew, 1, 3);
    if (!counted) m_grid.attach(m_note, 0, 4, 2, 1);
    get_content_area()->pack_start(m_grid, Gtk::PACK_EXPAND_WIDGET);

    Gtk::Button* cancel = add_button("_Abbruch", Gtk::RESPONSE_CANCEL);
    Gtk::Button* save = add_button("_Speichern", Gtk::RESPONSE_OK);
    set_tooltip_and_description(*cancel, "Verlässt das Eingabefenster ohne Änderungen");
    set_tooltip_and_description(*save, "Speichert die Urlaubstage");
    set_default_response(Gtk::RESPONSE_OK);

    m_days.signal_changed().connect(sigc::mem_fun(*this, &VacationDialog::on_entry_changed));
    m_date.signal_validity_changed().connect([this](bool) { on_entry_changed(); });
    on_entry_changed();

    show_all_children();
    m_days.grab_focus();
}

void VacationDialog::on_entry_changed() {
    const marks::VacationDaysEntry entry =
        marks::check_vacation_days_entry(m_days.get_text().raw());
    const bool valid = entry.days.has_value() && m_date.is_valid();
    show_as_error(m_days, !entry.days);
    // Red for a text that is no value, plain for the note on a clamped one.
    show_as_error(m_hint, !valid);
    const Glib::ustring hint = !m_date.is_valid() ? m_date.get_hint() : to_ustring(entry.hint);
    m_hint.set_text(hint);
    m_hint.set_visible(!hint.empty());
    set_response_sensitive(Gtk::RESPONSE_OK, valid);
}

marks::VacationAccount VacationDialog::get_vacation() const {
    marks::VacationAccount vacation = m_start;
    if (const std::optional<calendar::Day> date = m_date.get_date())
        vacation.reference_date = date->number;
    if (const std::optional<int> days =
            marks::check_vacation_days_entry(m_days.get_text().raw()).days)
        vacation.days = *days;
    return vacation;
}

}  // namespace sk::app
