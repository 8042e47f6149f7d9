#include "calendar/page_shifts.hpp"

#include "calendar/holidays.hpp"

namespace sk::calendar {

namespace {

CellKind working_kind(ShiftCode code) {
    return is_working(code) ? CellKind::Work : CellKind::Off;
}

ShiftDay five_crew(int model, DayNumber d, const VacationBlock* block) {
    const CrewShifts s = crew_shifts(model, d, block);
    ShiftDay day{s.count, s.code, {}};
    // Inside the block the crew on vacation holds code 0 (a vacation day) or
    // 5 (a day off within its vacation); the standby crew works its shifts.
    const int on_vacation = block && s.regular ? block->crew_on_vacation(d) : -1;
    for (int c = 0; c < s.count; ++c) {
        const ShiftCode code = s.code[static_cast<std::size_t>(c)];
        CellKind kind = working_kind(code);
        if (code == shift::kStandby)
            kind = c == on_vacation ? CellKind::Vacation : CellKind::Standby;
        if (code == shift::kBlockVacation) kind = CellKind::VacationOff;
        day.kinds[static_cast<std::size_t>(c)] = kind;
    }
    return day;
}

// Model 2: code 0 is a day off, there is no standby week.
ShiftDay two_shift(DayNumber d) {
    const CrewShifts s = crew_shifts(2, d);
    ShiftDay day{s.count, s.code, {}};
    for (int c = 0; c < s.count; ++c)
        day.kinds[static_cast<std::size_t>(c)] = working_kind(s.code[static_cast<std::size_t>(c)]);
    return day;
}

ShiftDay four_crew(int model, DayNumber d) {
    const CrewShifts s = crew_shifts(model, d);
    ShiftDay day{s.count, s.code, {}};
    for (int c = 0; c < s.count; ++c) {
        const ShiftCode code = s.code[static_cast<std::size_t>(c)];
        day.kinds[static_cast<std::size_t>(c)] =
            code == shift::kStandby ? CellKind::Standby : working_kind(code);
    }
    return day;
}

}  // namespace

ShiftDay shift_day(int model, DayNumber d, const VacationBlock* block) {
    switch (model) {
        case 0:
        case 3:
        case 1:
        case 4:
        case 5:
            return five_crew(model, d, block);
        case 2:
            return two_shift(d);
        case 6:
        case 7:
            return four_crew(model, d);
        default:
            return {};
    }
}

int marked_crew(int model, const ShiftDay& day, int column) {
    if (column < 1 || column > 4) return -1;
    if (is_four_crew_model(model)) return column - 1 < day.crews ? column - 1 : -1;
    const ShiftCode wanted = column == 4 ? shift::kStandby : static_cast<ShiftCode>(column);
    for (int c = 0; c < day.crews; ++c)
        if (day.codes[static_cast<std::size_t>(c)] == wanted) return c;
    return -1;
}

std::string_view shift_letter(CellKind kind, ShiftCode code) {
    switch (kind) {
        case CellKind::Work:
            return code == shift::kEarly ? "F" : code == shift::kLate ? "S" : "N";
        case CellKind::Standby:
            return "V";
        case CellKind::Vacation:
            return "U";
        case CellKind::VacationOff:
            return "US";
        case CellKind::Off:
            break;
    }
    return "";
}

std::string crew_label(int model, int crew) {
    if (is_four_crew_model(model)) return std::string(1, static_cast<char>('A' + crew));
    return std::to_string(crew + 1);
}

std::optional<int> crew_of_label(int model, std::string_view label) {
    if (!is_valid_model(model) || label.size() != 1) return std::nullopt;
    const int crews = kShiftModels[static_cast<std::size_t>(model)].crews;
    const char c = label[0];
    int crew = -1;
    if (is_four_crew_model(model)) {
        if (c >= 'A' && c <= 'Z') crew = c - 'A';
        if (c >= 'a' && c <= 'z') crew = c - 'a';
    } else if (c >= '1' && c <= '9') {
        crew = c - '1';
    }
    if (crew < 0 || crew >= crews) return std::nullopt;
    return crew;
}

bool is_plant_free_day(int model, const Day& day) {
    if (!is_valid_model(model)) return false;
    return is_free_day(day, kShiftModels[static_cast<std::size_t>(model)].free_day_level);
}

PageShifts::PageShifts(const PlanView& view)
    : m_view(view), m_with_block(view.vacation_block && has_vacation_block(view.model)) {}

ShiftDay PageShifts::day(DayNumber d) {
    if (!m_with_block) return shift_day(m_view.model, d, nullptr);
    const int year = Day::from_number(d).year;
    if (!m_have_block || m_block.year != year) {
        m_block = vacation_block(year, m_view.order, m_view.earliest);
        m_have_block = true;
    }
    return shift_day(m_view.model, d, &m_block);
}

}  // namespace sk::calendar
