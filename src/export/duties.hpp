// What one crew does on a day, as the exports and the "next shifts" list
// tell it: the shift, standby week or block vacation the page draws in the
// crew's cell, or the user's shift marking drawn there instead. A day off,
// and a shift on a day on which the plant stands still ("Betriebsruhe"),
// is no duty.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "calendar/dates.hpp"
#include "calendar/page_shifts.hpp"
#include "marks/shift_markings.hpp"
#include "notes/note_store.hpp"

namespace sk::exporting {

// Where an export reads the plan and the user's data: the plan as the page
// shows it (model, whether the vacation exchange is shown, the vacation order
// and earliest start of the run) and the user's markings and notes. Null
// pointers mean "none". The stores must outlive the export.
struct ExportSource {
    calendar::PlanView plan;
    const marks::ShiftMarkings* markings = nullptr;
    const notes::NoteStore* notes = nullptr;
};

// The plan's clock times: early 6.00 - 14.00, late 14.00 - 22.00, night
// 22.00 - 6.00 Uhr on the next morning. Minutes after local midnight.
struct ShiftHours {
    int start = 0;
    int end = 0;  // not after `start`: on the next day
};
std::optional<ShiftHours> shift_hours(calendar::ShiftCode shift);

enum class DutyKind : std::uint8_t { Shift, Standby, BlockVacation, Marking };

struct Duty {
    calendar::Day day;
    DutyKind kind = DutyKind::Shift;
    // "Frühschicht", "Verfügungswoche", "Urlaub (Block)", or the marking's
    // label: "Krank", and in models 6 and 7 the marked shift ("Spätschicht").
    std::string summary;
    // What the page draws in the cell: "F", "US", or the marking's letter.
    std::string_view letter;
    // 1..3 when the duty runs at the hours of that shift; 0: the whole day.
    calendar::ShiftCode shift = 0;
    // For a marking: the planned duty it replaces ("Frühschicht"), or "".
    std::string planned;
};

// The duty of a crew (page column) on a day, or nullopt for none. `shifts`
// carries the plan and the vacation block of the day's year.
std::optional<Duty> crew_duty(calendar::PageShifts& shifts, const marks::ShiftMarkings* markings,
                              int crew, const calendar::Day& day);

// Every duty of a crew from `first` to `last` (both included, within the
// calendar's days), in day order.
std::vector<Duty> crew_duties(const ExportSource& source, int crew, calendar::DayNumber first,
                              calendar::DayNumber last);

// The next `count` duties from `from` on (that day included), fewer when
// the calendar ends first.
std::vector<Duty> next_duties(const ExportSource& source, int crew, calendar::DayNumber from,
                              int count);

// The summary of a marking code in a model: the dialog's label without its
// key ("Arbeitseinsatz"), the shift's name for a marked shift of models 6
// and 7, "Schichtmarkierung" for a code the model's kind does not have.
std::string marking_summary(int model, int code);

// "Frühschicht", "Spätschicht", "Nachtschicht"; "" for other codes.
std::string_view shift_name(calendar::ShiftCode shift);

// The name of a crew for titles: "Schicht 1", "Schicht A".
std::string crew_title(int model, int crew);

}  // namespace sk::exporting
