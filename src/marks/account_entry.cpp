#include "marks/account_entry.hpp"

#include <charconv>
#include <cmath>
#include <system_error>

#include "marks/accounts.hpp"

namespace sk::marks {

namespace {

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

bool all_digits(std::string_view text) {
    if (text.empty()) return false;
    for (const char c : text)
        if (c < '0' || c > '9') return false;
    return true;
}

// "7:30" as 7.30 (hours.minutes); nullopt unless hours, a separator and two
// digits of minutes below 60. `minutes_too_large` tells the one case apart.
std::optional<double> parse_hours_and_minutes(std::string_view text, bool& minutes_too_large) {
    bool negative = false;
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
        negative = text.front() == '-';
        text.remove_prefix(1);
    }
    const auto separator = text.find_first_of(":,.");
    const std::string_view whole = text.substr(0, separator);
    const std::string_view minutes =
        separator == std::string_view::npos ? std::string_view("00") : text.substr(separator + 1);
    if (!all_digits(whole) || whole.size() > 15 || !all_digits(minutes) || minutes.size() != 2)
        return std::nullopt;
    long long hours = 0;
    int mins = 0;
    std::from_chars(whole.data(), whole.data() + whole.size(), hours);
    std::from_chars(minutes.data(), minutes.data() + minutes.size(), mins);
    if (mins >= 60) {
        minutes_too_large = true;
        return std::nullopt;
    }
    const double value = static_cast<double>(hours) + mins / 100.0;
    return negative ? -value : value;
}

std::string clamp_hint(double value, double limit, const char* unit) {
    const auto bound = static_cast<long long>(limit);
    if (value > limit)
        return "Höchstens " + std::to_string(bound) + " " + unit + ": gespeichert wird " +
               std::to_string(bound) + ".";
    if (value < -limit)
        return "Mindestens -" + std::to_string(bound) + " " + unit + ": gespeichert wird -" +
               std::to_string(bound) + ".";
    return {};
}

}  // namespace

HoursEntry check_hours_entry(std::string_view text, int mode) {
    text = trimmed(text);
    std::optional<double> value;
    if (mode == hours_mode::kHoursMinutes) {
        bool minutes_too_large = false;
        value = parse_hours_and_minutes(text, minutes_too_large);
        if (minutes_too_large) return {std::nullopt, "Die Minuten liegen zwischen 00 und 59."};
        if (!value)
            return {std::nullopt,
                    "Stunden und Minuten eingeben, z. B. 7:30 oder -12:05 (Minuten zweistellig)."};
    } else {
        value = parse_hours_input(text);
        // "inf" and "nan" read as numbers, but nobody means them.
        if (!value || !std::isfinite(*value))
            return {std::nullopt, "Die Stunden als Zahl eingeben, z. B. 7,5 oder -12,25."};
    }
    return {clamp_hours_value(*value), clamp_hint(*value, kMaxHours, "Stunden")};
}

std::string hours_entry_text(const HoursAccount& hours) {
    return hours_text(start_value_in_hours(hours), hours.mode);
}

VacationDaysEntry check_vacation_days_entry(std::string_view text) {
    text = trimmed(text);
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    const bool negative = !text.empty() && text.front() == '-';
    const std::string_view digits = negative ? text.substr(1) : text;
    if (!all_digits(digits))
        return {std::nullopt, "Die Urlaubstage als ganze Zahl eingeben, z. B. 30."};
    // Beyond 18 digits the number is clamped anyway.
    const std::string_view kept =
        digits.size() > 18 ? std::string_view("999999999999999999") : digits;
    long long days = 0;
    std::from_chars(kept.data(), kept.data() + kept.size(), days);
    if (negative) days = -days;
    return {clamp_vacation_days(days),
            clamp_hint(static_cast<double>(days), kMaxVacationDays, "Tage")};
}

}  // namespace sk::marks
