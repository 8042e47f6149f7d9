// The crews' cells of a day, one procedure per kind of model: the five-crew
// models (0 and 3, 1 and 4, and the model-5 plan) with the vacation block,
// the three crews of the two-shift model 2, and the four crews of models 6
// and 7, whose columns read the pattern table directly.
#include "calendar/shift_model.hpp"
#include "view/page_builder.hpp"

namespace sk::view {

namespace {

using calendar::ShiftCode;
namespace shift = calendar::shift;

CellKind working_kind(ShiftCode code) {
    return calendar::is_working(code) ? CellKind::Work : CellKind::Off;
}

ShiftDay five_crew(int model, calendar::DayNumber d, const calendar::VacationBlock* block) {
    const calendar::CrewShifts s = calendar::crew_shifts(model, d, block);
    ShiftDay day{s.count, s.code, {}};
    // Inside the block the crew on vacation holds code 0 (a vacation day) or
    // 5 (a day off within its vacation); the standby crew works its shifts.
    const int on_vacation = block && s.regular ? block->crew_on_vacation(d) : -1;
    for (int c = 0; c < s.count; ++c) {
        const ShiftCode code = s.code[static_cast<std::size_t>(c)];
        CellKind kind = working_kind(code);
        if (code == shift::kStandby) kind = c == on_vacation ? CellKind::Vacation : CellKind::Standby;
        if (code == shift::kBlockVacation) kind = CellKind::VacationOff;
        day.kinds[static_cast<std::size_t>(c)] = kind;
    }
    return day;
}

// Model 2: code 0 is a day off, there is no standby week.
ShiftDay two_shift(calendar::DayNumber d) {
    const calendar::CrewShifts s = calendar::crew_shifts(2, d);
    ShiftDay day{s.count, s.code, {}};
    for (int c = 0; c < s.count; ++c)
        day.kinds[static_cast<std::size_t>(c)] = working_kind(s.code[static_cast<std::size_t>(c)]);
    return day;
}

ShiftDay four_crew(int model, calendar::DayNumber d) {
    const calendar::CrewShifts s = calendar::crew_shifts(model, d);
    ShiftDay day{s.count, s.code, {}};
    for (int c = 0; c < s.count; ++c) {
        const ShiftCode code = s.code[static_cast<std::size_t>(c)];
        day.kinds[static_cast<std::size_t>(c)] =
            code == shift::kStandby ? CellKind::Standby : working_kind(code);
    }
    return day;
}

}  // namespace

ShiftDay shift_day(int model, calendar::DayNumber d, const calendar::VacationBlock* block) {
    switch (model) {
        case 0:
        case 3:
        case 1:
        case 4:
        case 5: return five_crew(model, d, block);
        case 2: return two_shift(d);
        case 6:
        case 7: return four_crew(model, d);
        default: return {};
    }
}

int marked_crew(int model, const ShiftDay& day, const ShiftMark& mark) {
    if (mark.column < 1 || mark.column > 4) return -1;
    // Models 6 and 7: the column is the page column A..D.
    if (calendar::is_four_crew_model(model)) return mark.column - 1 < day.crews ? mark.column - 1 : -1;
    // Otherwise the column names the shift (Früh, Spät, Nacht, Verfügung);
    // the marking goes to the crew that has it on that day.
    const ShiftCode wanted = mark.column == 4 ? shift::kStandby : static_cast<ShiftCode>(mark.column);
    for (int c = 0; c < day.crews; ++c)
        if (day.codes[static_cast<std::size_t>(c)] == wanted) return c;
    return -1;
}

}  // namespace sk::view
