// Bavarian school holidays: a fixed table of date ranges built into the
// program (2011 to summer 2030), the check whether a day lies in one, and the
// rows of the "Ferientermine" window. Nothing is computed from rules; a year
// the table does not list has no school holidays.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "calendar/dates.hpp"
#include "calendar/holidays.hpp"

namespace sk::calendar {

// True when the day lies in any range of the table (both ends inclusive).
bool is_school_holiday(const Day& day);

// The six rows of a year, labelled "Frühjahr", "Ostern", "Pfingsten",
// "Sommer", "Allerheiligen", "Weihnachten", each reading for example
// "7. März - 11. März" (no year); an empty range reads " - ". A year the
// table does not list gives no rows.
std::vector<ListRow> school_holiday_list(int year);

// The raw table: (start, end) pairs of year × 10000 + month × 100 + day,
// six a year from 2011 on; (0, 0) marks a range not yet known.
std::span<const std::int32_t> school_holiday_table();

}  // namespace sk::calendar
