#include "app/hours_dialog.hpp"

#include "app/ui_support.hpp"
#include "marks/account_entry.hpp"

namespace sk::app {

namespace {

constexpr char kBlockHint[] =
    "Wenn im Urlaubsblock gearbeitet wird, z. B. bei Schichttausch, zählt mit diesem Häkchen "
    "jeder Urlaubstag der Stammschicht im Urlaubsblock als 8 Minusstunden, sonntags als 12, außer "
    "an bezahlten Feiertagen.";

}  // namespace

HoursDialog::HoursDialog(Gtk::Window& parent, view::CellSize cell, const marks::HoursAccount& hours,
                         bool counted)
    : m_start(hours),
      m_date_label("Stunden a_m:", true),
      m_date(calendar::Day::from_number(hours.start_date), calendar::kFirstDay, calendar::kLastDay,
             "Stunden am"),
      m_value_label("Stun_den:", true),
      m_hours_minutes(m_mode_group, "Std:M_in", true),
      m_decimal(m_mode_group, "Std,de_z", true),
      m_crew_label("Stammschicht:"),
      m_crew(cell, hours.home_crew),
      m_block("Den Urlaubsblock als Mi_nusstunden berechnen", true),
      m_block_hint(kBlockHint),
      m_note(marks::kNoAccountsNote) {
    set_title("Stunden eingeben");
    make_modal(*this, &parent);
    close_on_escape(*this);
    set_resizable(false);
    set_accessible_name(*this, get_title());

    m_date_label.set_xalign(0);
    m_date_label.set_mnemonic_widget(m_date);
    m_value_label.set_xalign(0);
    m_value_label.set_mnemonic_widget(m_value);
    m_value.set_width_chars(10);
    m_value.set_activates_default(true);
    m_value.set_text(marks::hours_entry_text(hours));
    set_accessible_name(m_value, "Stunden");
    (hours.mode == marks::hours_mode::kHoursMinutes ? m_hours_minutes : m_decimal).set_active(true);
    set_tooltip_and_description(m_hours_minutes,
                                "Stunden und Minuten: 7:30 sind 7 Stunden 30 Minuten");
    set_tooltip_and_description(m_decimal,
                                "Stunden mit Dezimalstellen: 7,5 sind 7 Stunden 30 Minuten");
    m_modes.set_spacing(cells_wide(cell, 0.5));
    m_modes.pack_start(m_hours_minutes, Gtk::PACK_SHRINK);
    m_modes.pack_start(m_decimal, Gtk::PACK_SHRINK);
    set_wrapped(m_hint, 48);
    m_hint.set_no_show_all(true);
    m_crew_label.set_xalign(0);
    m_crew_label.set_mnemonic_widget(m_crew.get_button(m_crew.get_crew()));
    m_block.set_active(hours.block_as_minus);
    set_accessible_description(m_block, kBlockHint);
    set_wrapped(m_block_hint, 56);
    m_block_hint.set_margin_start(cells_wide(cell, 2));
    set_wrapped(m_note, 56);

    m_grid.set_row_spacing(cells_high(cell, 0.3));
    m_grid.set_column_spacing(cells_wide(cell, 1));
    set_margins_in_cells(m_grid, cell, 1);
    m_grid.attach(m_date_label, 0, 0);
    m_grid.attach(m_date, 1, 0);
    m_grid.attach(m_value_label, 0, 1);
    m_grid.attach(m_value, 1, 1);
    m_grid.attach(m_modes, 2, 1);
    m_grid.attach(m_hint, 1, 2, 2, 1);
    m_grid.attach(m_crew_label, 0, 3);
    m_grid.attach(m_crew, 1, 3, 2, 1);
    m_grid.attach(m_block, 0, 4, 3, 1);
    m_grid.attach(m_block_hint, 0, 5, 3, 1);
    if (!counted) m_grid.attach(m_note, 0, 6, 3, 1);
    get_content_area()->pack_start(m_grid, Gtk::PACK_EXPAND_WIDGET);

    Gtk::Button* cancel = add_button("_Abbruch", Gtk::RESPONSE_CANCEL);
    Gtk::Button* save = add_button("_Speichern", Gtk::RESPONSE_OK);
    set_tooltip_and_description(*cancel, "Verlässt das Eingabefenster ohne Änderungen");
    set_tooltip_and_description(*save, "Speichert die Stunden");
    set_default_response(Gtk::RESPONSE_OK);

    m_value.signal_changed().connect(sigc::mem_fun(*this, &HoursDialog::on_entry_changed));
    m_hours_minutes.signal_toggled().connect(sigc::mem_fun(*this, &HoursDialog::on_entry_changed));
    m_date.signal_validity_changed().connect([this](bool) { on_entry_changed(); });
    on_entry_changed();

    show_all_children();
    m_value.grab_focus();
}

Gtk::RadioButton& HoursDialog::get_mode_button(int mode) {
    return mode == marks::hours_mode::kHoursMinutes ? m_hours_minutes : m_decimal;
}

int HoursDialog::get_mode() const {
    return m_hours_minutes.get_active() ? marks::hours_mode::kHoursMinutes
                                        : marks::hours_mode::kDecimal;
}

void HoursDialog::on_entry_changed() {
    const marks::HoursEntry entry = marks::check_hours_entry(m_value.get_text().raw(), get_mode());
    show_as_error(m_value, !entry.value);
    set_accessible_description(m_value, entry.hint);
    const Glib::ustring hint = !m_date.is_valid() ? m_date.get_hint() : to_ustring(entry.hint);
    const bool valid = entry.value.has_value() && m_date.is_valid();
    // Red for a text that is no value, plain for the note on a clamped one.
    show_as_error(m_hint, !valid);
    m_hint.set_text(hint);
    m_hint.set_visible(!hint.empty());
    set_response_sensitive(Gtk::RESPONSE_OK, valid);
}

marks::HoursAccount HoursDialog::get_hours() const {
    marks::HoursAccount hours = m_start;
    if (const std::optional<calendar::Day> date = m_date.get_date())
        hours.start_date = date->number;
    hours.mode = get_mode();
    if (const std::optional<float> value =
            marks::check_hours_entry(m_value.get_text().raw(), hours.mode).value)
        hours.start_value = *value;
    hours.home_crew = m_crew.get_crew();
    hours.block_as_minus = m_block.get_active();
    return hours;
}

}  // namespace sk::app
