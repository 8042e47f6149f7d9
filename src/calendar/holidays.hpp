// Public holidays, named days of the church and civil year, name days and
// calendar weeks of a day, and the rows of the "Feiertage" window. All rules
// and names are fixed in the program (Bavarian holidays); every lookup takes
// the day it examines and keeps no state. Names are UTF-8 and returned as
// views into constant tables, "" when a day has none.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "calendar/dates.hpp"

namespace sk::calendar {

// Zero-based day of year of Easter Sunday (Gregorian), e.g. 90 for 31 March
// 2024. Valid for the years 1583 to 4099 at least.
int easter_day_of_year(int year);

// Statutory holidays on a fixed date ("Neujahr", ..., "Märtyrer Stephanus").
std::string_view statutory_fixed_holiday(const Day& day);
// Named days on a fixed date that are not holidays ("Lichtmeß", "Silvester").
std::string_view named_fixed_day(const Day& day);
// Statutory holidays counted from Easter ("Karfreitag" .. "Fronleichnam").
std::string_view statutory_easter_holiday(const Day& day);
// Named days counted from Easter ("Rosenmontag" .. "Heiligstes Herz Jesu").
std::string_view named_easter_day(const Day& day);
// Days counted from the First Sunday of Advent, the Sunday from 27 November
// to 3 December ("Volkstrauertag" .. "4. Advent").
std::string_view advent_day(const Day& day);

// Drawn as a holiday on the page: a statutory fixed or Easter holiday.
bool is_public_holiday(const Day& day);

// Whether the day counts as a day off at a shift model's level 0..3; the
// higher the level, the more days count. Level 0 frees nothing; levels 1..3
// add New Year, 1 May, Christmas, Easter and Whitsun (1), Christmas Eve,
// New Year's Eve and Holy Saturday (2), 30 April and Whit Saturday (3).
// Deliberately not the statutory list: Good Friday, Epiphany, Ascension,
// Corpus Christi, 15 August, 3 October and 1 November are never free here.
bool is_free_day(const Day& day, int level);

// Calendar week 1..53 (ISO 8601: weeks start on Monday, week 1 holds the
// first Thursday of the year).
int week_number(const Day& day);

// The saints' feasts and first names of the day, e.g. "Romanustag, Silvana".
// 29 February has its own text, which common years skip.
std::string_view name_days(const Day& day);

// One row of a two-column list window; a blank row has both texts empty.
struct ListRow {
    std::string first;
    std::string second;
    friend bool operator==(const ListRow&, const ListRow&) = default;
};

// The rows of the "Feiertage" window for a year: the 8 statutory fixed
// holidays, a blank row, the 10 named Easter days, a blank row, the 7
// statutory Easter holidays; each row the date ("6. Januar") and the name.
std::vector<ListRow> holiday_list(int year);

}  // namespace sk::calendar
