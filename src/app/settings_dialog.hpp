// The settings window (key E, "Prog." - "Einstellungen"): place and
// coordinates, time zone and summer time, twilight, the display options,
// the target hours and the vacation block. Each field is checked by the
// core's rules as it is typed (settings/settings_form.hpp); while one cannot
// be stored its reason is shown and "Speichern" is insensitive. "Hilfe"
// opens the help text "Programmeinstellungen". The caller writes the result
// and redraws; the window writes nothing.
//
//     SettingsDialog dialog(window, cell, session.settings);
//     if (dialog.run() == Gtk::RESPONSE_OK) session.settings = *dialog.get_settings();
#pragma once

#include <gtkmm.h>

#include <optional>

#include "settings/settings.hpp"
#include "settings/settings_form.hpp"
#include "view/page_text.hpp"

namespace sk::app {

class SettingsDialog : public Gtk::Dialog {
  public:
    SettingsDialog(Gtk::Window& parent, view::CellSize cell, const settings::Settings& current);

    // The values as shown in the widgets.
    settings::SettingsForm get_form() const;
    // The settings to save; nullopt while a field is invalid.
    std::optional<settings::Settings> get_settings() const;

    // The reason the first invalid field cannot be stored; empty when all can.
    Glib::ustring get_hint() const { return m_hint.get_text(); }

    Gtk::Entry& get_place_entry() { return m_place; }
    Gtk::Entry& get_latitude_entry() { return m_latitude; }
    Gtk::Entry& get_longitude_entry() { return m_longitude; }
    Gtk::Entry& get_time_zone_entry() { return m_time_zone; }
    Gtk::CheckButton& get_north_box() { return m_north; }
    Gtk::CheckButton& get_west_box() { return m_west; }
    Gtk::CheckButton& get_moon_phases_box() { return m_moon_phases; }
    Gtk::ComboBoxText& get_twilight_choice() { return m_twilight; }

  private:
    void on_value_changed();
    void on_dialog_response(int response);
    void add_row(Gtk::Grid& grid, int row, Gtk::Label& label, Gtk::Widget& field,
                 Gtk::Widget* extra = nullptr, Gtk::Widget* extra2 = nullptr);

    view::CellSize m_cell;
    settings::Settings m_current;

    Gtk::Grid m_sections, m_place_grid, m_display_grid, m_hours_grid, m_vacation_grid;
    Gtk::Frame m_place_frame, m_display_frame, m_hours_frame, m_vacation_frame;

    Gtk::Label m_place_label, m_latitude_label, m_longitude_label, m_time_zone_label,
        m_twilight_label;
    Gtk::Entry m_place, m_latitude, m_longitude, m_time_zone;
    Gtk::CheckButton m_north, m_west, m_summer_time;
    Gtk::Label m_latitude_reading, m_longitude_reading, m_time_zone_unit;
    Gtk::ComboBoxText m_twilight;

    Gtk::CheckButton m_school_holidays, m_week_numbers, m_moon_phases, m_perihelion;

    Gtk::Label m_hours_38_label, m_hours_40_label;
    Gtk::Entry m_hours_38, m_hours_40;

    Gtk::Label m_start_label, m_start_point, m_cycle_label;
    Gtk::SpinButton m_start_day, m_start_month, m_cycle;

    Gtk::Label m_hint;
};

}  // namespace sk::app
