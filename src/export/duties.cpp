#include "export/duties.hpp"

#include <algorithm>

namespace sk::exporting {

namespace {

using calendar::CellKind;
using calendar::Day;
using calendar::DayNumber;
namespace shift = calendar::shift;

// The duty the page draws in the crew's cell when no marking covers it.
std::optional<Duty> planned_duty(const calendar::ShiftDay& s, int crew, const Day& day, int model) {
    const auto c = static_cast<std::size_t>(crew);
    const CellKind kind = s.kinds[c];
    const calendar::ShiftCode code = s.codes[c];
    Duty duty;
    duty.day = day;
    duty.letter = calendar::shift_letter(kind, code);
    switch (kind) {
        case CellKind::Off:
            return std::nullopt;
        case CellKind::Work:
            if (calendar::is_plant_free_day(model, day)) return std::nullopt;
            duty.kind = DutyKind::Shift;
            duty.summary = shift_name(code);
            duty.shift = code;
            return duty;
        case CellKind::Standby:
            duty.kind = DutyKind::Standby;
            duty.summary = "Verfügungswoche";
            return duty;
        case CellKind::Vacation:
        case CellKind::VacationOff:
            duty.kind = DutyKind::BlockVacation;
            duty.summary = "Urlaub (Block)";
            return duty;
    }
    return std::nullopt;
}

// The shift a marking stands for, when it has shift hours: a marked shift of
// models 6 and 7, or "Arbeitseinsatz" on the shift the crew holds.
calendar::ShiftCode marked_shift(int model, int code, calendar::ShiftCode held) {
    if (marks::marking_kind(model) == marks::MarkingKind::B) {
        if (code >= marks::kind_b::kEarly && code <= marks::kind_b::kNight)
            return static_cast<calendar::ShiftCode>(code - marks::kind_b::kEarly + shift::kEarly);
        return 0;
    }
    return code == marks::kind_a::kWorked && calendar::is_working(held) ? held : 0;
}

}  // namespace

std::optional<ShiftHours> shift_hours(calendar::ShiftCode code) {
    switch (code) {
        case shift::kEarly:
            return ShiftHours{6 * 60, 14 * 60};
        case shift::kLate:
            return ShiftHours{14 * 60, 22 * 60};
        case shift::kNight:
            return ShiftHours{22 * 60, 6 * 60};
        default:
            return std::nullopt;
    }
}

std::string_view shift_name(calendar::ShiftCode code) {
    switch (code) {
        case shift::kEarly:
            return "Frühschicht";
        case shift::kLate:
            return "Spätschicht";
        case shift::kNight:
            return "Nachtschicht";
        default:
            return "";
    }
}

std::string crew_title(int model, int crew) {
    return "Schicht " + calendar::crew_label(model, crew);
}

std::string marking_summary(int model, int code) {
    const marks::MarkingKind kind = marks::marking_kind(model);
    if (code < 0 || code >= marks::remove_code(kind)) return "Schichtmarkierung";
    const calendar::ShiftCode s = marked_shift(model, code, shift::kNone);
    if (s != 0) return std::string(shift_name(s));
    std::string_view label = marks::code_labels(kind)[static_cast<std::size_t>(code)];
    // "Arbeitseinsatz (X)": the key belongs to the dialog, not to the label.
    if (const auto key = label.rfind(" ("); key != std::string_view::npos && label.back() == ')')
        label = label.substr(0, key);
    return std::string(label);
}

std::optional<Duty> crew_duty(calendar::PageShifts& shifts, const marks::ShiftMarkings* markings,
                              int crew, const Day& day) {
    const int model = shifts.view().model;
    const calendar::ShiftDay s = shifts.day(day.number);
    if (crew < 0 || crew >= s.crews) return std::nullopt;
    std::optional<Duty> planned = planned_duty(s, crew, day, model);
    const marks::ShiftMarking* mark =
        markings ? marks::shift_marking_of_day(*markings, day.number) : nullptr;
    if (!mark || calendar::marked_crew(model, s, mark->column) != crew) return planned;

    Duty duty;
    duty.day = day;
    duty.kind = DutyKind::Marking;
    duty.summary = marking_summary(model, mark->code);
    duty.letter = marks::code_letter(marks::marking_kind(model), mark->code);
    duty.shift = marked_shift(model, mark->code, s.codes[static_cast<std::size_t>(crew)]);
    if (planned) duty.planned = planned->summary;
    return duty;
}

std::vector<Duty> crew_duties(const ExportSource& source, int crew, DayNumber first,
                              DayNumber last) {
    std::vector<Duty> duties;
    calendar::PageShifts shifts(source.plan);
    first = std::max(first, calendar::kFirstDay);
    last = std::min(last, calendar::kLastDay);
    for (DayNumber d = first; d <= last; ++d) {
        if (auto duty = crew_duty(shifts, source.markings, crew, Day::from_number(d)))
            duties.push_back(std::move(*duty));
    }
    return duties;
}

std::vector<Duty> next_duties(const ExportSource& source, int crew, DayNumber from, int count) {
    std::vector<Duty> duties;
    calendar::PageShifts shifts(source.plan);
    for (DayNumber d = std::max(from, calendar::kFirstDay);
         d <= calendar::kLastDay && static_cast<int>(duties.size()) < count; ++d) {
        if (auto duty = crew_duty(shifts, source.markings, crew, Day::from_number(d)))
            duties.push_back(std::move(*duty));
    }
    return duties;
}

}  // namespace sk::exporting
