// What the dialogs "Stunden eingeben" and "Urlaub eingeben" accept in their
// number fields, and how they show the stored values. The dialogs ask these
// rules while the user types: a text that is no value turns the field red
// with the hint and makes "Speichern" insensitive; a value beyond the range
// is taken and clamped, and the hint says so.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "marks/account_files.hpp"

namespace sk::marks {

// The hours field. In the decimal mode ("Std,dez") a decimal number with
// "," or "." as decimal point: "7,5", "-12.25". In the hours-and-minutes
// mode ("Std:Min") hours and two-digit minutes 00..59 after ":", "," or
// ".": "7:30", "-0:05"; the value is then stored as hours.minutes (7.30),
// as the file holds it. Blanks around the text are ignored.
struct HoursEntry {
    std::optional<float> value;  // clamped to -600..600; nullopt when the text is no value
    std::string hint;            // why there is no value, or that it was clamped; else empty
};
HoursEntry check_hours_entry(std::string_view text, int mode);

// The stored start value as the field shows it: "7,50" or "7:30".
std::string hours_entry_text(const HoursAccount& hours);

// The vacation days field: a whole number, clamped to -60..60.
struct VacationDaysEntry {
    std::optional<int> days;
    std::string hint;
};
VacationDaysEntry check_vacation_days_entry(std::string_view text);

// The line under both dialogs in the calendars that keep no accounts.
inline constexpr char kNoAccountsNote[] =
    "Dieser Schichtkalender führt keine Konten; die Eingabe gilt für die Kalender mit fünf und "
    "drei Schichten.";

}  // namespace sk::marks
