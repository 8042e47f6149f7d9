#include "calendar/dates.hpp"

#include <charconv>
#include <cstdio>

namespace sk::calendar {

namespace {

std::optional<int> parse_digits(std::string_view text) {
    if (text.empty()) return std::nullopt;
    int value = 0;
    for (char c : text) {
        if (c < '0' || c > '9') return std::nullopt;
        value = value * 10 + (c - '0');
    }
    return value;
}

}  // namespace

std::optional<Day> parse_iso_date(std::string_view text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
    const auto year = parse_digits(text.substr(0, 4));
    const auto month = parse_digits(text.substr(5, 2));
    const auto mday = parse_digits(text.substr(8, 2));
    if (!year || !month || !mday) return std::nullopt;
    if (!is_valid_date(*year, *month - 1, *mday)) return std::nullopt;
    return Day::from_date(*year, *month - 1, *mday);
}

std::string format_iso_date(const Day& day) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%04d-%02d-%02d", day.year, day.month_index + 1, day.mday);
    return buf;
}

std::string format_german_date(const Day& day) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%02d.%02d.%04d", day.mday, day.month_index + 1, day.year);
    return buf;
}

std::string format_day_and_month(const Day& day) {
    return std::to_string(day.mday) + ". " + std::string(kMonthNames[day.month_index]);
}

}  // namespace sk::calendar
