#include "settings/settings_form.hpp"

#include <charconv>
#include <cmath>

#include "astro/coordinate_entry.hpp"
#include "calendar/dates.hpp"
#include "calendar/ranges.hpp"
#include "files/text_encoding.hpp"
#include "settings/settings_file.hpp"

namespace sk::settings {

namespace {

std::string_view trimmed(std::string_view s) {
    const auto first = s.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return s.substr(first, s.find_last_not_of(" \t") - first + 1);
}

std::string quoted(std::string_view text) {
    return "\u201E" + std::string(text) + "\u201C";
}

// Degrees.minutes with two decimals, as typed: 49.01.
std::string format_coordinate(double value) {
    char buffer[32];
    const auto end =
        std::to_chars(buffer, buffer + sizeof buffer, std::fabs(value), std::chars_format::fixed, 2)
            .ptr;
    return std::string(buffer, end);
}

std::string format_time_zone(double hours) {
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, hours).ptr;
    return std::string(buffer, end);
}

// Latitude and longitude fields: no sign (the box gives the direction).
std::optional<std::string> coordinate_error(std::string_view text, bool latitude) {
    const char* name = latitude ? "Breite" : "Länge";
    const std::string_view t = trimmed(text);
    if (t.empty())
        return std::string("Bitte die ") + name + " in Grad und Minuten eingeben, zum Beispiel " +
               (latitude ? "49.01." : "12.06.");
    if (t.front() == '-' || t.front() == '+')
        return std::string("Die ") + name + " bitte ohne Vorzeichen eingeben; die Richtung gibt " +
               "das Häkchen " + (latitude ? "\u201ENord\u201C." : "\u201EWest\u201C.");
    const auto value = latitude ? astro::parse_latitude(t) : astro::parse_longitude(t);
    if (!value)
        return quoted(t) + " ist keine gültige " + name +
               ": erwartet werden Grad und Minuten, getrennt durch einen Punkt, ein Komma, "
               "ein Leerzeichen oder einen Apostroph (49.01 ist 49 Grad 1 Minute).";
    return std::nullopt;
}

// The stored coordinate of a valid field: positive north (west).
double coordinate_value(std::string_view text, bool latitude, bool positive) {
    const auto value =
        latitude ? astro::parse_latitude(trimmed(text)) : astro::parse_longitude(trimmed(text));
    const double v = value.value_or(0.0);
    if (v == 0.0) return 0.0;  // never "-0" in the file
    return positive ? v : -v;
}

std::string reading(double stored, const char* positive, const char* negative) {
    const long long hundredths = std::llround(std::fabs(stored) * 100.0);
    const long long minutes = hundredths % 100;
    return std::to_string(hundredths / 100) + "°" + (minutes < 10 ? "0" : "") +
           std::to_string(minutes) + "' " + (stored < 0 ? negative : positive);
}

// Hours with a decimal comma or point, no sign.
std::optional<double> parse_hours(std::string_view text) {
    std::string t(trimmed(text));
    for (char& c : t)
        if (c == ',') c = '.';
    if (t.empty() || t.front() == '.' || t.front() == '+' || t.front() == '-') return std::nullopt;
    double value = 0;
    const auto [ptr, ec] =
        std::from_chars(t.data(), t.data() + t.size(), value, std::chars_format::fixed);
    if (ec != std::errc() || ptr != t.data() + t.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::optional<std::string> hours_error(std::string_view text, int week) {
    const auto hours = parse_hours(text);
    if (hours && calendar::kTargetHours.contains(*hours)) return std::nullopt;
    return "Die Sollstunden der " + std::to_string(week) +
           "-Stunden-Woche müssen eine Zahl von 1 bis 8784 sein (Komma für die Nachkommastellen, "
           "zum Beispiel " +
           (week == 38 ? "1982,76)." : "2088).");
}

std::optional<std::string> place_name_error(std::string_view name) {
    const auto characters = files::decode_utf8(name);
    if (!characters) return "Der Ortsname ist kein gültiger Text.";
    if (characters->size() > kMaxPlaceNameLength)
        return "Der Ortsname darf höchstens 50 Zeichen lang sein.";
    for (const char32_t c : *characters)
        if (c < 0x20 || (c >= 0x7F && c < 0xA0))
            return "Der Ortsname darf keine Steuerzeichen enthalten.";
    files::EncodeError error;
    if (!files::utf8_to_latin9(name, &error)) return "Ortsname: " + error.message;
    return std::nullopt;
}

}  // namespace

std::string format_hours(float hours) {
    // Half away from zero, as every hours text of the program.
    const long long hundredths = std::llround(static_cast<double>(hours) * 100.0);
    std::string text = std::to_string(hundredths / 100);
    if (const long long rest = std::llabs(hundredths % 100); rest != 0) {
        text += ',';
        text += static_cast<char>('0' + rest / 10);
        if (rest % 10 != 0) text += static_cast<char>('0' + rest % 10);
    }
    return text;
}

SettingsForm settings_form(const Settings& s) {
    SettingsForm f;
    f.school_holidays_shown = s.school_holidays_shown != 0;
    f.week_numbers_shown = s.week_numbers_shown != 0;
    f.moon_phases_shown = s.moon_phases_shown != 0;
    f.perihelion_shown = s.perihelion_shown != 0;
    f.place_name = s.place_name;
    f.latitude = format_coordinate(s.latitude);
    f.north = !(s.latitude < 0);
    f.longitude = format_coordinate(s.longitude);
    f.west = !(s.longitude < 0);
    f.time_zone = format_time_zone(s.time_zone);
    f.auto_summer_time = s.auto_summer_time != 0;
    f.twilight = calendar::kTwilightKinds.contains(s.twilight) ? s.twilight : 0;
    f.target_hours_38 = format_hours(s.target_hours_38);
    f.target_hours_40 = format_hours(s.target_hours_40);
    f.vacation_start_day = s.vacation_start_day;
    f.vacation_start_month = s.vacation_start_month;
    f.vacation_cycle = calendar::floor_mod(s.vacation_cycle, 5);
    return f;
}

std::optional<std::string> field_error(FormField field, const SettingsForm& f) {
    switch (field) {
        case FormField::PlaceName:
            return place_name_error(f.place_name);
        case FormField::Latitude:
            return coordinate_error(f.latitude, true);
        case FormField::Longitude:
            return coordinate_error(f.longitude, false);
        case FormField::TimeZone:
            if (astro::parse_time_zone(f.time_zone)) return std::nullopt;
            return quoted(trimmed(f.time_zone)) +
                   " ist keine Zeitzone: erwartet wird der Abstand zur Weltzeit in Stunden, "
                   "östlich positiv, zum Beispiel 1 oder 5.5.";
        case FormField::TargetHours38:
            return hours_error(f.target_hours_38, 38);
        case FormField::TargetHours40:
            return hours_error(f.target_hours_40, 40);
        case FormField::VacationStart:
            // February counts with 29 days: the start is a day and month of any year.
            if (calendar::kVacationStartMonths.contains(f.vacation_start_month) &&
                f.vacation_start_day >= 1 &&
                f.vacation_start_day <= calendar::month_length(2000, f.vacation_start_month - 1))
                return std::nullopt;
            return "Den " + std::to_string(f.vacation_start_day) + "." +
                   std::to_string(f.vacation_start_month) + ". gibt es nicht.";
        case FormField::VacationCycle:
            if (calendar::kVacationCycles.contains(f.vacation_cycle)) return std::nullopt;
            return "Die Reihenfolge der Schichten im Blockurlaub wird um 0 bis 4 Stellen "
                   "verschoben.";
    }
    return std::nullopt;
}

std::optional<FormField> first_invalid_field(const SettingsForm& form) {
    for (const FormField field :
         {FormField::PlaceName, FormField::Latitude, FormField::Longitude, FormField::TimeZone,
          FormField::TargetHours38, FormField::TargetHours40, FormField::VacationStart,
          FormField::VacationCycle})
        if (field_error(field, form)) return field;
    return std::nullopt;
}

std::optional<Settings> apply_settings_form(const Settings& current, const SettingsForm& f) {
    if (first_invalid_field(f)) return std::nullopt;
    const SettingsForm shown = settings_form(current);
    Settings s = current;
    s.school_holidays_shown = f.school_holidays_shown ? 1 : 0;
    s.week_numbers_shown = f.week_numbers_shown ? 1 : 0;
    s.moon_phases_shown = f.moon_phases_shown ? 1 : 0;
    s.perihelion_shown = f.perihelion_shown ? 1 : 0;
    s.place_name = f.place_name;
    if (f.latitude != shown.latitude || f.north != shown.north)
        s.latitude = coordinate_value(f.latitude, true, f.north);
    if (f.longitude != shown.longitude || f.west != shown.west)
        s.longitude = coordinate_value(f.longitude, false, f.west);
    if (f.time_zone != shown.time_zone) s.time_zone = *astro::parse_time_zone(f.time_zone);
    s.auto_summer_time = f.auto_summer_time ? 1 : 0;
    s.twilight = f.twilight;
    if (f.target_hours_38 != shown.target_hours_38)
        s.target_hours_38 = static_cast<float>(*parse_hours(f.target_hours_38));
    if (f.target_hours_40 != shown.target_hours_40)
        s.target_hours_40 = static_cast<float>(*parse_hours(f.target_hours_40));
    s.vacation_start_day = f.vacation_start_day;
    s.vacation_start_month = f.vacation_start_month;
    if (f.vacation_cycle != shown.vacation_cycle) s.vacation_cycle = f.vacation_cycle;
    normalize_settings(s, current);
    return s;
}

std::optional<std::string> latitude_reading(std::string_view text, bool north) {
    if (coordinate_error(text, true)) return std::nullopt;
    return reading(coordinate_value(text, true, north), "Nord", "Süd");
}

std::optional<std::string> longitude_reading(std::string_view text, bool west) {
    if (coordinate_error(text, false)) return std::nullopt;
    return reading(coordinate_value(text, false, west), "West", "Ost");
}

}  // namespace sk::settings
