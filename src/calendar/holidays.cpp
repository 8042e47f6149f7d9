#include "calendar/holidays.hpp"

#include <cstddef>
#include <span>

#include "calendar/name_day_table.hpp"

namespace sk::calendar {

namespace {

struct NamedKey {
    int key;  // date key (calendar month × 100 + day) or a distance in days
    std::string_view name;
};

// Keys are (month + 1) × 100 + day of month, 1225 for 25 December.
constexpr NamedKey kStatutoryFixed[] = {
    {101, "Neujahr"},           {106, "Erscheinung des Herrn"},      {501, "Maifeiertag"},
    {815, "Mariä Himmelfahrt"}, {1003, "Tag der Deutschen Einheit"}, {1101, "Allerheiligen"},
    {1225, "Weihnachten"},      {1226, "Märtyrer Stephanus"},
};

constexpr NamedKey kNamedFixed[] = {
    {202, "Lichtmeß"},          {430, "Walpurgisnacht"},   {627, "Siebenschläfer"},
    {629, "Peter und Paul"},    {1031, "Reformationstag"}, {1102, "Allerseelen"},
    {1208, "Mariä Empfängnis"}, {1224, "Heiliger Abend"},  {1231, "Silvester"},
};

// Keys are days from Easter Sunday.
constexpr NamedKey kStatutoryEaster[] = {
    {-2, "Karfreitag"},          {0, "Ostersonntag"},    {1, "Ostermontag"},
    {39, "Christi Himmelfahrt"}, {49, "Pfingstsonntag"}, {50, "Pfingstmontag"},
    {60, "Fronleichnam"},
};

constexpr NamedKey kNamedEaster[] = {
    {-48, "Rosenmontag"},         {-47, "Faschingsdienstag"}, {-46, "Aschermittwoch"},
    {-7, "Palmsonntag"},          {-3, "Gründonnerstag"},     {-1, "Karsamstag"},
    {7, "Weißer Sonntag"},        {48, "Pfingstabend"},       {56, "Dreifaltigkeitssonntag"},
    {68, "Heiligstes Herz Jesu"},
};

// Keys are days from the First Sunday of Advent.
constexpr NamedKey kAdvent[] = {
    {-14, "Volkstrauertag"}, {-11, "Buß- und Bettag"}, {-7, "Christkönigsfest"}, {0, "1. Advent"},
    {7, "2. Advent"},        {14, "3. Advent"},        {21, "4. Advent"},
};

// Free-day rules: a day is free from `level` upwards.
struct FreeRule {
    int key;  // date key or days from Easter Sunday
    int level;
};

constexpr FreeRule kFreeDates[] = {
    {101, 1}, {501, 1}, {1225, 1}, {1226, 1}, {1224, 2}, {1231, 2}, {430, 3},
};

constexpr FreeRule kFreeEasterDays[] = {
    {0, 1}, {1, 1}, {49, 1}, {50, 1}, {-1, 2}, {48, 3},
};

constexpr std::string_view find_name(std::span<const NamedKey> table, int key) {
    for (const auto& row : table) {
        if (row.key == key) return row.name;
    }
    return "";
}

constexpr int date_key(const Day& day) {
    return (day.month_index + 1) * 100 + day.mday;
}

// Days from Easter Sunday of the day's own year; a day of another year's
// Easter season can never match, since both count from the same 1 January.
int days_from_easter(const Day& day) {
    return day.day_of_year() - easter_day_of_year(day.year);
}

// Week of a day counted from 1 January of `year`, before the year-end fixes:
// 0 when the day still belongs to the previous year's last week, 53 also for
// a last week that is really week 1 of the next year.
int raw_week(int year, DayNumber number) {
    const DayNumber january_first = day_number(year, 0, 1);
    const int w = weekday_monday0(january_first);  // [0, 6], 0 = Monday
    // 1 January on Friday to Sunday: those days still belong to the old year.
    return (number - january_first + w) / 7 + (w > 3 ? 0 : 1);
}

}  // namespace

int easter_day_of_year(int year) {
    // Gauss's rule with the secular corrections; all divisions truncate.
    const int k = year / 100;
    const int m = 15 + (3 * k + 3) / 4 - (8 * k + 13) / 25;
    const int s = 2 - (3 * k + 3) / 4;
    const int a = year % 19;                                   // [0, 18]
    const int d = (19 * a + m) % 30;                           // [0, 29]
    const int r = d / 29 + (d / 28 - d / 29) * (a / 11);       // [0, 1]
    const int full_moon = 21 + d - r;                          // March date, [21, 49]
    const int first_sunday = 7 - (year + year / 4 + s) % 7;    // March date, [1, 7]
    const int to_sunday = 7 - (full_moon - first_sunday) % 7;  // [1, 7]
    // full_moon + to_sunday is Easter as a March date; before it lie the 31
    // days of January and February's length, and 30 makes it zero-based.
    return february_length(year) + full_moon + to_sunday + 30;
}

std::string_view statutory_fixed_holiday(const Day& day) {
    return find_name(kStatutoryFixed, date_key(day));
}

std::string_view named_fixed_day(const Day& day) {
    return find_name(kNamedFixed, date_key(day));
}

std::string_view statutory_easter_holiday(const Day& day) {
    return find_name(kStatutoryEaster, days_from_easter(day));
}

std::string_view named_easter_day(const Day& day) {
    return find_name(kNamedEaster, days_from_easter(day));
}

std::string_view advent_day(const Day& day) {
    // 3 December is day 308 + February's length of the year (zero-based); the
    // First Sunday of Advent lies its weekday (0 = Sunday) days before it.
    const int december_third_weekday = weekday_sunday0(day_number(day.year, 11, 3));
    const int key = day.day_of_year() - february_length(day.year) - 308 + december_third_weekday;
    return find_name(kAdvent, key);
}

bool is_public_holiday(const Day& day) {
    return !statutory_fixed_holiday(day).empty() || !statutory_easter_holiday(day).empty();
}

bool is_free_day(const Day& day, int level) {
    const int key = date_key(day);
    for (const auto& rule : kFreeDates) {
        if (rule.key == key && level >= rule.level) return true;
    }
    const int from_easter = days_from_easter(day);
    for (const auto& rule : kFreeEasterDays) {
        if (rule.key == from_easter && level >= rule.level) return true;
    }
    return false;
}

int week_number(const Day& day) {
    const int week = raw_week(day.year, day.number);
    if (week == 0) return raw_week(day.year - 1, day_number(day.year - 1, 11, 31));
    if (week == 53 && weekday_monday0(day_number(day.year + 1, 0, 1)) < 4) return 1;
    return week;
}

std::string_view name_days(const Day& day) {
    int index = day.day_of_year();  // [0, 365]
    // The table is laid out for a leap year; common years skip 29 February.
    if (index > 58 && day.february_length() == 28) ++index;
    return kNameDayTexts[static_cast<std::size_t>(index)];
}

std::vector<ListRow> holiday_list(int year) {
    std::vector<ListRow> rows;
    for (const auto& row : kStatutoryFixed) {
        const Day day = Day::from_date(year, row.key / 100 - 1, row.key % 100);
        rows.push_back({format_day_and_month(day), std::string(row.name)});
    }
    const DayNumber easter = day_number(year, 0, 1) + easter_day_of_year(year);
    const auto add_easter_group = [&](std::span<const NamedKey> table) {
        rows.push_back({});  // a blank row before each group
        for (const auto& row : table) {
            const Day day = Day::from_number(easter + row.key);
            rows.push_back({format_day_and_month(day), std::string(row.name)});
        }
    };
    add_easter_group(kNamedEaster);
    add_easter_group(kStatutoryEaster);
    return rows;
}

}  // namespace sk::calendar
