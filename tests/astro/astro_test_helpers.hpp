// Dates of the astronomy tests written as on a calendar: 2024-04-08 as
// date(2024, 4, 8), month 1..12; the place of a first start.
#pragma once

#include "astro/place.hpp"
#include "calendar/dates.hpp"

namespace sk::astro::test {

// Rodenwald, 49°01' N 12°06' E, on Central European Time with summer time.
inline constexpr Place kRodenwald{49.01, -12.06, 1.0, true, Twilight::Civil};

inline calendar::Day date(int year, int month, int mday) {
    return calendar::Day::from_date(year, month - 1, mday);
}

}  // namespace sk::astro::test
