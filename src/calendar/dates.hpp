// Dates and day numbers: every date computation of the calendar runs on day
// numbers, whole days since Thursday 1 January 1970 (day 0). A `Day` is the
// value passed around wherever a day is examined (year, month index, day of
// month and day number together); it replaces any notion of a shared
// "current day".
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace sk::calendar {

using DayNumber = std::int32_t;

inline constexpr DayNumber kFirstDay = 0;          // 1 January 1970
inline constexpr DayNumber kLastDay = 24683;       // 31 July 2037, the calendar's ceiling
inline constexpr DayNumber kLastMonthStart = 24653;  // 1 July 2037

// Remainder of truncating signed division: for a negative dividend the
// result is zero or negative (-11 rem 35 == -11). The shift and vacation
// rules are defined on exactly this remainder, so every place that may see a
// negative value goes through here instead of a bare `%`.
constexpr int rem(int a, int b) { return a % b; }

// Floor division and non-negative modulo, for the date conversions only.
constexpr int floor_div(int a, int b) { return a / b - ((a % b != 0) && ((a < 0) != (b < 0))); }
constexpr int floor_mod(int a, int b) { return a - floor_div(a, b) * b; }

constexpr bool is_leap_year(int year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

// Length of a month, month_index 0 = January; February by the leap-year rule.
constexpr int month_length(int year, int month_index) {
    constexpr int kCommon[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month_index == 1 && is_leap_year(year) ? 29 : kCommon[month_index];
}

constexpr int february_length(int year) { return is_leap_year(year) ? 29 : 28; }

// Day number of a calendar date (proleptic Gregorian). A day of month past
// the month's end simply runs on into the next month (31 April is 1 May), as
// a date value counted in seconds from year, month and day does; the date
// entries and the settings "UrlaubStartMonat"/"UrlaubStartTag" rely on that.
// month_index is 0..11.
constexpr DayNumber day_number(int year, int month_index, int mday) {
    // Howard Hinnant's days_from_civil, with March as the first month of the
    // computational year so that February's length only affects year ends.
    const int m = month_index + 1;                        // [1, 12]
    const int y = year - (m <= 2 ? 1 : 0);
    const int era = floor_div(y, 400);
    const int yoe = y - era * 400;                        // [0, 399]
    const int mp = (m + 9) % 12;                          // [0, 11], March = 0
    const int doy = (153 * mp + 2) / 5;                   // [0, 365] day of March-based year
    const int doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;  // [0, 146096]
    return era * 146097 + doe - 719468 + (mday - 1);
}

// Weekday with 0 = Sunday .. 6 = Saturday, as the weekday names and the
// Sunday tests use it; defined for every day number.
constexpr int weekday_sunday0(DayNumber d) { return floor_mod(d + 4, 7); }
// Weekday with 0 = Monday .. 6 = Sunday, as the calendar weeks use it.
constexpr int weekday_monday0(DayNumber d) { return floor_mod(d + 3, 7); }

struct Day {
    DayNumber number = 0;
    int year = 1970;
    int month_index = 0;  // 0 = January
    int mday = 1;         // 1..31

    static constexpr Day from_number(DayNumber d) {
        // Hinnant's civil_from_days.
        const int z = d + 719468;
        const int era = floor_div(z, 146097);
        const int doe = z - era * 146097;                                      // [0, 146096]
        const int yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;  // [0, 399]
        const int doy = doe - (365 * yoe + yoe / 4 - yoe / 100);                // [0, 365]
        const int mp = (5 * doy + 2) / 153;                                    // [0, 11]
        const int mday = doy - (153 * mp + 2) / 5 + 1;                         // [1, 31]
        const int m = mp < 10 ? mp + 3 : mp - 9;                               // [1, 12]
        const int year = yoe + era * 400 + (m <= 2 ? 1 : 0);
        return Day{d, year, m - 1, mday};
    }
    static constexpr Day from_date(int year, int month_index, int mday) {
        return from_number(day_number(year, month_index, mday));
    }

    constexpr int month_length() const { return calendar::month_length(year, month_index); }
    constexpr int february_length() const { return calendar::february_length(year); }
    // Zero-based day of the year (0 for 1 January).
    constexpr int day_of_year() const { return number - day_number(year, 0, 1); }
    constexpr int weekday() const { return weekday_sunday0(number); }
    constexpr bool is_sunday() const { return weekday() == 0; }

    friend constexpr bool operator==(const Day& a, const Day& b) { return a.number == b.number; }
};

// True when the date exists (month 1..12 given as index 0..11, day within the month).
constexpr bool is_valid_date(int year, int month_index, int mday) {
    return month_index >= 0 && month_index < 12 && mday >= 1 &&
           mday <= month_length(year, month_index);
}

inline constexpr std::string_view kWeekdayNames[7] = {
    "Sonntag", "Montag", "Dienstag", "Mittwoch", "Donnerstag", "Freitag", "Samstag"};
inline constexpr std::string_view kMonthNames[12] = {
    "Januar", "Februar", "März",      "April",   "Mai",      "Juni",
    "Juli",   "August",  "September", "Oktober", "November", "Dezember"};

inline std::string_view weekday_name(DayNumber d) { return kWeekdayNames[weekday_sunday0(d)]; }

// "YYYY-MM-DD" as used on the command line; nullopt for anything else,
// including impossible dates such as 2024-02-30.
std::optional<Day> parse_iso_date(std::string_view text);
std::string format_iso_date(const Day& day);
// "dd.mm.yyyy", the German date text of windows and note headings.
std::string format_german_date(const Day& day);
// "6. Januar": day of month, ". " and the month name.
std::string format_day_and_month(const Day& day);

// The German date text as a date field holds it: "dd.mm.yyyy", where a
// one-digit day or month may also be typed without its zero ("6.1.2024");
// blanks around the text are ignored. nullopt for anything else, including
// impossible dates such as 30.02.2024.
std::optional<Day> parse_german_date(std::string_view text);

// What a date field holds, judged against the field's range [min, max].
enum class DateEntry { Valid, Malformed, NoSuchDay, TooEarly, TooLate };
DateEntry check_date_entry(std::string_view text, DayNumber min, DayNumber max);
// The German hint a field shows for its state; empty for a valid entry.
std::string date_entry_hint(DateEntry state, DayNumber min, DayNumber max);

// The same day of month `months` months later (earlier when negative); a
// day past the end of the target month becomes its last day (31 January
// + 1 month is 28 or 29 February).
Day add_months(const Day& day, int months);

}  // namespace sk::calendar
