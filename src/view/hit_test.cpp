#include "view/hit_test.hpp"

#include "calendar/shift_model.hpp"

namespace sk::view {

PageHit hit_test(const PageLayout& layout, double x, double y) {
    PageHit hit;
    for (std::size_t column = 0; column < layout.months.size(); ++column) {
        const MonthColumn& m = layout.months[column];
        if (!m.area.contains(x, y)) continue;
        for (int i = m.first_day; i < m.first_day + m.day_count; ++i) {
            const DayCell& cell = layout.days[static_cast<std::size_t>(i)];
            if (!cell.row.contains(x, y)) continue;
            hit.kind = HitKind::Day;
            hit.day = cell.day;
            hit.month_column = static_cast<int>(column);
            hit.day_index = i;
            for (int c = 0; c < cell.crews; ++c) {
                const ShiftCell& shift = cell.shifts[static_cast<std::size_t>(c)];
                if (!shift.rect.contains(x, y)) continue;
                hit.kind = HitKind::Shift;
                hit.crew = c;
                hit.shift = shift;
            }
            return hit;
        }
    }
    return hit;
}

std::optional<int> marking_column(int model, int crew, const ShiftCell& cell) {
    if (crew < 0 || cell.code == calendar::shift::kNone) return std::nullopt;
    if (calendar::is_four_crew_model(model))
        return crew < 4 ? std::optional(crew + 1) : std::nullopt;
    switch (cell.kind) {
        case CellKind::Work:
            return cell.code;  // 1..3
        case CellKind::Standby:
            return 4;
        case CellKind::Off:
        case CellKind::Vacation:
        case CellKind::VacationOff:
            break;
    }
    return std::nullopt;
}

}  // namespace sk::view
