// Readable failure output for the marking records: dates, not day numbers.
#pragma once

#include <ostream>

#include "marks/calendar_markings.hpp"
#include "marks/shift_markings.hpp"

namespace sk::marks {

inline void print_day(DayNumber d, std::ostream* os) {
    if (d >= calendar::kFirstDay && d <= calendar::kLastDay)
        *os << calendar::format_iso_date(calendar::Day::from_number(d));
    else
        *os << "day " << d;
}

inline void PrintTo(const ShiftMarking& m, std::ostream* os) {
    *os << '{';
    print_day(m.day, os);
    *os << " column " << int(m.column) << " code " << int(m.code) << '}';
}

inline void PrintTo(const CalendarMarking& m, std::ostream* os) {
    *os << '{';
    print_day(m.start, os);
    *os << " .. ";
    print_day(m.end, os);
    *os << " colour " << m.colour << '}';
}

}  // namespace sk::marks
