// Dates of the astronomy tests written as on a calendar: 2024-04-08 as
// date(2024, 4, 8), month 1..12.
#pragma once

#include "calendar/dates.hpp"

namespace sk::astro::test {

inline calendar::Day date(int year, int month, int mday) {
    return calendar::Day::from_date(year, month - 1, mday);
}

}  // namespace sk::astro::test
