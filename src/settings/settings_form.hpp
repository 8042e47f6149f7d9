// The settings dialog's values as the user sees and types them, and the rules
// that turn them into Settings. The dialog fills its widgets from
// `settings_form`, asks `field_error` for each field as the user types, and
// hands the form to `apply_settings_form` when it is saved; the caller writes
// the result with the settings writer. Only the settings that no other
// command changes are in the form (not the font, the columns, the model, the
// data directory or the user).
//
// Latitude and longitude are typed without a sign, in degrees.minutes; the
// boxes "Nord" and "West" give the direction. Stored, north and west are
// positive (the longitude enters the sidereal time as positive west).
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "settings/settings.hpp"

namespace sk::settings {

struct SettingsForm {
    bool school_holidays_shown = true;  // "Schulferien anzeigen"
    bool week_numbers_shown = true;     // "Wochennummer anzeigen"
    bool moon_phases_shown = false;     // "Mondphasen anzeigen"
    bool perihelion_shown = false;      // "Perihel und Aphel anzeigen"

    std::string place_name;  // UTF-8, at most 50 characters
    std::string latitude;    // degrees.minutes without sign, "49.01"
    bool north = true;
    std::string longitude;  // "12.06"
    bool west = false;
    std::string time_zone;  // hours east of Greenwich, "1", "5.5", "-3.5"
    bool auto_summer_time = true;
    int twilight = 0;  // 0 "bürgerlich", 1 "nautisch", 2 "astronomisch"

    std::string target_hours_38;  // decimal comma, "1982,76"
    std::string target_hours_40;  // "2088"
    int vacation_start_day = 25;
    int vacation_start_month = 4;
    int vacation_cycle = 0;  // 0..4 places the vacation order is shifted

    bool operator==(const SettingsForm&) const = default;
};

enum class FormField {
    PlaceName,
    Latitude,
    Longitude,
    TimeZone,
    TargetHours38,
    TargetHours40,
    VacationStart,
    VacationCycle,
};

// The form showing the settings as they are.
SettingsForm settings_form(const Settings& settings);

// Why the field's text cannot be stored, as a German sentence; nullopt when
// it can.
std::optional<std::string> field_error(FormField field, const SettingsForm& form);
// The first field that cannot be stored, if any.
std::optional<FormField> first_invalid_field(const SettingsForm& form);

// The settings with the form's values; nullopt while a field is invalid. A
// text left as `settings_form(current)` showed it keeps the current value
// exactly (a hand-edited 12.425 is not cut to 12.42 by opening and saving
// the dialog). The result is normalized as the settings file would read it
// back.
std::optional<Settings> apply_settings_form(const Settings& current, const SettingsForm& form);

// How a coordinate field is read, for the line beside it: the stored value
// of the text with its direction box, as degrees and minutes ("49°01' Nord",
// "12°06' Ost"); nullopt when the text is invalid.
std::optional<std::string> latitude_reading(std::string_view text, bool north);
std::optional<std::string> longitude_reading(std::string_view text, bool west);

// Hours as the dialog shows them: a decimal comma, at most two decimals,
// no trailing zeros ("1982,76", "2088").
std::string format_hours(float hours);

}  // namespace sk::settings
