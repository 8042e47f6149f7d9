#include "calendar/shift_model.hpp"

#include "calendar/vacation.hpp"

namespace sk::calendar {

namespace {

// Row of the pattern for day d and an offset. Before 1970 the truncating
// remainder gives a negative row; such days lie outside the calendar and
// read as no shift rather than outside the table.
ShiftCode pattern_at(int column, DayNumber d, int offset, int cycle) {
    const int row = rem(d + offset, cycle);
    if (row < 0) return shift::kNone;
    return kPattern[static_cast<std::size_t>(column)][static_cast<std::size_t>(row)];
}

}  // namespace

CrewShifts crew_shifts(int model, DayNumber d, const VacationBlock* block) {
    CrewShifts result;
    if (!is_valid_model(model)) return result;
    const ShiftModel& m = kShiftModels[static_cast<std::size_t>(model)];

    if (model == 2 || is_four_crew_model(model)) {
        result.count = m.crews;
        for (int c = 0; c < m.crews; ++c)
            result.code[static_cast<std::size_t>(c)] =
                pattern_at(m.pattern_column, d, m.offsets[static_cast<std::size_t>(c)], m.cycle);
        return result;
    }

    result.count = 5;
    if ((model == 0 || model == 3) && d >= kTransitionFirst && d <= kTransitionLast) {
        // The changeover: crew 0 on the new five-crew pattern, the others on
        // the old four-crew one (columns 0 and 3), no vacation exchange.
        constexpr int kOldOffsets[4] = {10, 17, 24, 3};
        result.code[0] = pattern_at(m.pattern_column, d, 10, 35);
        for (int c = 1; c < 5; ++c)
            result.code[static_cast<std::size_t>(c)] = pattern_at(model, d, kOldOffsets[c - 1], 28);
        result.regular = false;
        return result;
    }
    for (int c = 0; c < 5; ++c)
        result.code[static_cast<std::size_t>(c)] =
            pattern_at(m.pattern_column, d, m.offsets[static_cast<std::size_t>(c)], m.cycle);
    if (block) apply_vacation(result.code, d, *block);
    return result;
}

}  // namespace sk::calendar
