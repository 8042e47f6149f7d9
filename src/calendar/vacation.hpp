// The vacation block of the five-crew models: 140 days in summer in which the
// five crews in turn take 28 days of vacation while the crew in its standby
// week covers their shifts.
#pragma once

#include <array>

#include "calendar/dates.hpp"
#include "calendar/shift_model.hpp"

namespace sk::calendar {

// Crew on vacation in each of the five 28-day sub-blocks, by year mod 5. Each
// row is the previous one rotated right by two places ("Die Schichten
// routieren jeweils um zwei Blöcke"): crew 0 goes in sub-block 1-3-5-2-4.
using VacationOrder = std::array<std::array<int, 5>, 5>;
inline constexpr VacationOrder kVacationOrder = {{
    {0, 1, 2, 3, 4},
    {3, 4, 0, 1, 2},
    {1, 2, 3, 4, 0},
    {4, 0, 1, 2, 3},
    {2, 3, 4, 0, 1},
}};

inline constexpr int kBlockDays = 140;
inline constexpr int kSubBlockDays = 28;

// Rotates every row left by one place, `times` times (nothing for times < 1).
// Five rotations give the table back.
VacationOrder rotate_order(VacationOrder order, int times);

// Earliest start of the block: "UrlaubStartTag"/"UrlaubStartMonat".
struct VacationStart {
    int month = 4;  // 1..12
    int day = 25;
};

struct VacationBlock {
    int year = 0;
    DayNumber start = 0;             // first day of the block
    std::array<int, 5> order_row{};  // crew of each sub-block this year

    constexpr bool contains(DayNumber d) const { return d >= start && d < start + kBlockDays; }
    // Crew on vacation on day d, or -1 outside the block.
    constexpr int crew_on_vacation(DayNumber d) const {
        return contains(d) ? order_row[(d - start) / kSubBlockDays] : -1;
    }
};

// The block of a year: it starts on the first day on or after the earliest
// start on which the opening crew's 35-day cycle allows it, so it moves back
// a day a year (two in leap years) and jumps five weeks when it would fall
// before the earliest start.
VacationBlock vacation_block(int year, const VacationOrder& order, VacationStart earliest);

// The exchange on one day inside the block: the crew on vacation swaps codes
// with the crew in its standby week. Codes are those of the five crews.
void apply_vacation(std::array<ShiftCode, 5>& codes, DayNumber d, const VacationBlock& block);

}  // namespace sk::calendar
