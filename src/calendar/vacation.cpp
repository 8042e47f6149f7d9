#include "calendar/vacation.hpp"

#include <algorithm>
#include <utility>

namespace sk::calendar {

VacationOrder rotate_order(VacationOrder order, int times) {
    if (times < 1) return order;
    // Five rotations are the identity, so a huge count costs nothing.
    const int effective = times % 5;
    for (auto& row : order) std::rotate(row.begin(), row.begin() + effective, row.end());
    return order;
}

VacationBlock vacation_block(int year, const VacationOrder& order, VacationStart earliest) {
    const auto& row = order[static_cast<std::size_t>(floor_mod(year, 5))];
    const int opening_crew = row[0];
    const int offset = kShiftModels[1].offsets[static_cast<std::size_t>(opening_crew)];
    const DayNumber d0 = day_number(year, earliest.month - 1, earliest.day);
    const DayNumber monday = d0 - rem(d0 - 4, 7);  // day 4, 5 January 1970, was a Monday
    DayNumber s = monday - rem(monday + offset, 35) + 7;
    if (s < d0) s += 35;
    return VacationBlock{year, s, row};
}

void apply_vacation(std::array<ShiftCode, 5>& codes, DayNumber d, const VacationBlock& block) {
    if (!block.contains(d)) return;
    const auto v = static_cast<std::size_t>(block.crew_on_vacation(d));
    const auto standby = std::find(codes.begin(), codes.end(), shift::kStandby);
    if (standby == codes.end()) return;
    const auto i = static_cast<std::size_t>(standby - codes.begin());
    std::swap(codes[v], codes[i]);
    if (codes[i] == shift::kOff) {
        codes[v] = shift::kBlockVacation;
        return;
    }
    if (codes[v] != codes[i]) return;  // v is now in standby, i works v's shift
    // The vacation crew was itself in its standby week: Tuesday to Friday
    // count as vacation days, Monday and the weekend as days off.
    const int weekday = rem(d + 3, 7);  // 0 = Monday
    codes[v] = (weekday >= 1 && weekday <= 4) ? shift::kStandby : shift::kBlockVacation;
}

}  // namespace sk::calendar
