#include "app/settings_dialog.hpp"

#include "app/text_window.hpp"
#include "app/ui_support.hpp"
#include "calendar/ranges.hpp"

namespace sk::app {

namespace {

constexpr const char* kTwilightNames[] = {"bürgerlich", "nautisch", "astronomisch"};

void set_up_spin(Gtk::SpinButton& spin, calendar::Range<int> range, int value) {
    spin.set_range(range.min, range.max);
    spin.set_increments(1, 5);
    spin.set_numeric(true);
    spin.set_digits(0);
    spin.set_width_chars(3);
    spin.set_value(value);
}

}  // namespace

SettingsDialog::SettingsDialog(Gtk::Window& parent, view::CellSize cell,
                               const settings::Settings& current)
    : m_cell(cell),
      m_current(current),
      m_place_label("Or_tsname:", true),
      m_latitude_label("_Breite:", true),
      m_longitude_label("_Länge:", true),
      m_time_zone_label("_Zeitzone:", true),
      m_twilight_label("_Dämmerung:", true),
      m_north("_Nord", true),
      m_west("W_est", true),
      m_summer_time("Sommerzeit a_utomatisch", true),
      m_time_zone_unit("Stunden, östlich positiv"),
      m_school_holidays("S_chulferien anzeigen", true),
      m_week_numbers("_Wochennummer anzeigen", true),
      m_moon_phases("_Mondphasen anzeigen", true),
      m_perihelion("_Perihel und Aphel anzeigen", true),
      m_hours_38_label("_38-Stunden-Woche:", true),
      m_hours_40_label("_40-Stunden-Woche:", true),
      m_start_label("_Frühester Beginn (Tag.Monat):", true),
      m_start_point("."),
      m_cycle_label("_Reihenfolge verschoben um (Stellen):", true) {
    set_title("Einstellungen");
    make_modal(*this, &parent);
    close_on_escape(*this);
    set_resizable(false);

    const settings::SettingsForm form = settings::settings_form(current);
    m_place.set_max_length(static_cast<int>(settings::kMaxPlaceNameLength));
    m_place.set_width_chars(30);
    m_place.set_text(form.place_name);
    m_latitude.set_text(form.latitude);
    m_longitude.set_text(form.longitude);
    m_time_zone.set_text(form.time_zone);
    for (Gtk::Entry* e : {&m_latitude, &m_longitude, &m_time_zone})
        e->set_width_chars(8);
    m_north.set_active(form.north);
    m_west.set_active(form.west);
    m_summer_time.set_active(form.auto_summer_time);
    for (const char* name : kTwilightNames)
        m_twilight.append(name);
    m_twilight.set_active(form.twilight);
    m_school_holidays.set_active(form.school_holidays_shown);
    m_week_numbers.set_active(form.week_numbers_shown);
    m_moon_phases.set_active(form.moon_phases_shown);
    m_perihelion.set_active(form.perihelion_shown);
    m_hours_38.set_text(form.target_hours_38);
    m_hours_40.set_text(form.target_hours_40);
    for (Gtk::Entry* e : {&m_hours_38, &m_hours_40})
        e->set_width_chars(9);
    set_up_spin(m_start_day, calendar::kVacationStartDays, form.vacation_start_day);
    set_up_spin(m_start_month, calendar::kVacationStartMonths, form.vacation_start_month);
    set_up_spin(m_cycle, calendar::kVacationCycles, form.vacation_cycle);

    set_tooltip_and_description(m_place, "Name des Ortes, höchstens 50 Zeichen");
    set_tooltip_and_description(m_latitude, "Grad.Minuten ohne Vorzeichen, z. B. 49.01");
    set_tooltip_and_description(m_longitude, "Grad.Minuten ohne Vorzeichen, z. B. 12.06");
    set_tooltip_and_description(m_north, "Mit Häkchen nördliche, ohne südliche Breite");
    set_tooltip_and_description(m_west, "Mit Häkchen westliche, ohne östliche Länge");
    set_tooltip_and_description(m_time_zone, "Abstand zur Weltzeit in Stunden, z. B. 1 oder 5.5");
    set_tooltip_and_description(m_cycle,
                                "Um wie viele Stellen die Reihenfolge der Schichten "
                                "im Blockurlaub verschoben ist");
    set_accessible_name(m_start_day, "Frühester Beginn, Tag");
    set_accessible_name(m_start_month, "Frühester Beginn, Monat");

    // Place and sky.
    m_place_label.set_xalign(0);
    m_place_label.set_mnemonic_widget(m_place);
    m_place_grid.attach(m_place_label, 0, 0);
    m_place_grid.attach(m_place, 1, 0, 3, 1);
    add_row(m_place_grid, 1, m_latitude_label, m_latitude, &m_north, &m_latitude_reading);
    add_row(m_place_grid, 2, m_longitude_label, m_longitude, &m_west, &m_longitude_reading);
    add_row(m_place_grid, 3, m_time_zone_label, m_time_zone, &m_time_zone_unit);
    m_place_grid.attach(m_summer_time, 1, 4, 3, 1);
    add_row(m_place_grid, 5, m_twilight_label, m_twilight);
    // Display options.
    int row = 0;
    for (Gtk::CheckButton* box :
         {&m_school_holidays, &m_week_numbers, &m_moon_phases, &m_perihelion})
        m_display_grid.attach(*box, 0, row++);
    // Target hours.
    add_row(m_hours_grid, 0, m_hours_38_label, m_hours_38);
    add_row(m_hours_grid, 1, m_hours_40_label, m_hours_40);
    // Vacation block.
    Gtk::Box* start = Gtk::manage(new Gtk::Box(Gtk::ORIENTATION_HORIZONTAL));
    start->pack_start(m_start_day, Gtk::PACK_SHRINK);
    start->pack_start(m_start_point, Gtk::PACK_SHRINK);
    start->pack_start(m_start_month, Gtk::PACK_SHRINK);
    add_row(m_vacation_grid, 0, m_start_label, *start);
    m_start_label.set_mnemonic_widget(m_start_day);
    add_row(m_vacation_grid, 1, m_cycle_label, m_cycle);

    m_sections.set_row_spacing(cells_high(cell, 0.5));
    m_sections.set_column_spacing(cells_wide(cell, 1));
    m_place_frame.set_label("Ort und Koordinaten");
    m_display_frame.set_label("Anzeigen im Kalender");
    m_hours_frame.set_label("Sollstunden im Jahr");
    m_vacation_frame.set_label("Urlaubsblock");
    const std::pair<Gtk::Frame*, Gtk::Grid*> frames[] = {{&m_place_frame, &m_place_grid},
                                                         {&m_display_frame, &m_display_grid},
                                                         {&m_hours_frame, &m_hours_grid},
                                                         {&m_vacation_frame, &m_vacation_grid}};
    for (const auto& [frame, grid] : frames) {
        grid->set_row_spacing(cells_high(cell, 0.25));
        grid->set_column_spacing(cells_wide(cell, 0.7));
        set_margins_in_cells(*grid, cell, 0.6);
        frame->add(*grid);
    }
    m_sections.attach(m_place_frame, 0, 0, 1, 2);
    m_sections.attach(m_display_frame, 1, 0);
    m_sections.attach(m_hours_frame, 1, 1);
    m_sections.attach(m_vacation_frame, 0, 2, 2, 1);

    set_wrapped(m_hint, 70);
    m_hint.get_style_context()->add_class(GTK_STYLE_CLASS_ERROR);
    m_hint.set_no_show_all(true);
    m_sections.attach(m_hint, 0, 3, 2, 1);

    Gtk::Box* box = get_content_area();
    set_margins_in_cells(*box, cell, 1);
    box->pack_start(m_sections, Gtk::PACK_SHRINK);

    Gtk::Button* help = add_button("_Hilfe", Gtk::RESPONSE_HELP);
    Gtk::Button* cancel = add_button("_Abbruch", Gtk::RESPONSE_CANCEL);
    Gtk::Button* save = add_button("_Speichern", Gtk::RESPONSE_OK);
    set_tooltip_and_description(*help, "Erklärt die Einstellungen");
    set_tooltip_and_description(*cancel, "Verlässt die Einstellungen ohne Änderungen");
    set_tooltip_and_description(*save,
                                "Schreibt die Einstellungen sofort in die Datei "
                                "\"Einstellungen.dat\" und zeichnet den Kalender neu");
    set_default_response(Gtk::RESPONSE_OK);
    // Before run()'s own handler, so that "Hilfe" does not end the dialog.
    signal_response().connect(sigc::mem_fun(*this, &SettingsDialog::on_dialog_response), false);

    for (Gtk::Entry* e :
         {&m_place, &m_latitude, &m_longitude, &m_time_zone, &m_hours_38, &m_hours_40}) {
        e->set_activates_default(true);
        e->signal_changed().connect(sigc::mem_fun(*this, &SettingsDialog::on_value_changed));
    }
    for (Gtk::CheckButton* c : {&m_north, &m_west})
        c->signal_toggled().connect(sigc::mem_fun(*this, &SettingsDialog::on_value_changed));
    for (Gtk::SpinButton* s : {&m_start_day, &m_start_month, &m_cycle}) {
        s->set_activates_default(true);
        s->signal_value_changed().connect(sigc::mem_fun(*this, &SettingsDialog::on_value_changed));
    }
    on_value_changed();

    show_all_children();
    m_place.grab_focus();
}

void SettingsDialog::add_row(Gtk::Grid& grid, int row, Gtk::Label& label, Gtk::Widget& field,
                             Gtk::Widget* extra, Gtk::Widget* extra2) {
    label.set_xalign(0);
    if (!label.get_mnemonic_widget()) label.set_mnemonic_widget(field);
    field.set_halign(Gtk::ALIGN_START);
    grid.attach(label, 0, row);
    grid.attach(field, 1, row);
    if (extra) grid.attach(*extra, 2, row);
    if (extra2) grid.attach(*extra2, 3, row);
}

settings::SettingsForm SettingsDialog::get_form() const {
    settings::SettingsForm f;
    f.school_holidays_shown = m_school_holidays.get_active();
    f.week_numbers_shown = m_week_numbers.get_active();
    f.moon_phases_shown = m_moon_phases.get_active();
    f.perihelion_shown = m_perihelion.get_active();
    f.place_name = m_place.get_text();
    f.latitude = m_latitude.get_text();
    f.north = m_north.get_active();
    f.longitude = m_longitude.get_text();
    f.west = m_west.get_active();
    f.time_zone = m_time_zone.get_text();
    f.auto_summer_time = m_summer_time.get_active();
    f.twilight = std::max(0, m_twilight.get_active_row_number());
    f.target_hours_38 = m_hours_38.get_text();
    f.target_hours_40 = m_hours_40.get_text();
    f.vacation_start_day = m_start_day.get_value_as_int();
    f.vacation_start_month = m_start_month.get_value_as_int();
    f.vacation_cycle = m_cycle.get_value_as_int();
    return f;
}

std::optional<settings::Settings> SettingsDialog::get_settings() const {
    return settings::apply_settings_form(m_current, get_form());
}

void SettingsDialog::on_value_changed() {
    const settings::SettingsForm form = get_form();
    m_latitude_reading.set_text(settings::latitude_reading(form.latitude, form.north).value_or(""));
    m_longitude_reading.set_text(
        settings::longitude_reading(form.longitude, form.west).value_or(""));
    const auto invalid = settings::first_invalid_field(form);
    set_response_sensitive(Gtk::RESPONSE_OK, !invalid);
    m_hint.set_text(invalid ? *settings::field_error(*invalid, form) : std::string());
    m_hint.set_visible(invalid.has_value());
}

void SettingsDialog::on_dialog_response(int response) {
    if (response != Gtk::RESPONSE_HELP) return;
    g_signal_stop_emission_by_name(gobj(), "response");
    HelpWindow help(*this, m_cell, HelpTopic::Settings);
    help.run();
}

}  // namespace sk::app
