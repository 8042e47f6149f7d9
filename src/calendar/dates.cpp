#include "calendar/dates.hpp"

#include <algorithm>
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

namespace {

// "d.m.yyyy" with one or two digits for day and month: the three numbers,
// or nullopt when the text has another shape.
struct DateParts {
    int year, month, mday;
};
std::optional<DateParts> german_date_parts(std::string_view text) {
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    const auto first = text.find('.');
    if (first == std::string_view::npos) return std::nullopt;
    const auto second = text.find('.', first + 1);
    if (second == std::string_view::npos) return std::nullopt;
    const std::string_view mday = text.substr(0, first);
    const std::string_view month = text.substr(first + 1, second - first - 1);
    const std::string_view year = text.substr(second + 1);
    if (mday.size() > 2 || month.size() > 2 || year.size() != 4) return std::nullopt;
    const auto d = parse_digits(mday), m = parse_digits(month), y = parse_digits(year);
    if (!d || !m || !y) return std::nullopt;
    return DateParts{*y, *m, *d};
}

}  // namespace

std::optional<Day> parse_german_date(std::string_view text) {
    const auto parts = german_date_parts(text);
    if (!parts || !is_valid_date(parts->year, parts->month - 1, parts->mday)) return std::nullopt;
    return Day::from_date(parts->year, parts->month - 1, parts->mday);
}

DateEntry check_date_entry(std::string_view text, DayNumber min, DayNumber max) {
    if (!german_date_parts(text)) return DateEntry::Malformed;
    const auto day = parse_german_date(text);
    if (!day) return DateEntry::NoSuchDay;
    if (day->number < min) return DateEntry::TooEarly;
    if (day->number > max) return DateEntry::TooLate;
    return DateEntry::Valid;
}

std::string date_entry_hint(DateEntry state, DayNumber min, DayNumber max) {
    switch (state) {
        case DateEntry::Valid:
            return {};
        case DateEntry::Malformed:
            return "Das Datum bitte als TT.MM.JJJJ eingeben.";
        case DateEntry::NoSuchDay:
            return "Diesen Tag gibt es nicht.";
        case DateEntry::TooEarly:
            return "Das Datum darf nicht vor dem " + format_german_date(Day::from_number(min)) +
                   " liegen.";
        case DateEntry::TooLate:
            return "Das Datum darf nicht nach dem " + format_german_date(Day::from_number(max)) +
                   " liegen.";
    }
    return {};
}

Day add_months(const Day& day, int months) {
    const int index = day.year * 12 + day.month_index + months;
    const int year = floor_div(index, 12);
    const int month_index = floor_mod(index, 12);
    const int mday = std::min(day.mday, month_length(year, month_index));
    return Day::from_date(year, month_index, mday);
}

}  // namespace sk::calendar
