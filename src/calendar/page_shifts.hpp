// What the calendar page shows in the crews' cells of a day, without the
// drawing: the code and the kind of cell of every crew (with the vacation
// exchange as the page applies it), the crew column in which a shift marking
// appears, the crews' headings and letters. The page, the exports and the
// "next shifts" list share these rules, so a crew's letter is the same
// everywhere.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "calendar/dates.hpp"
#include "calendar/shift_model.hpp"
#include "calendar/vacation.hpp"

namespace sk::calendar {

// How a crew's cell of a day looks.
enum class CellKind : std::uint8_t {
    Off,          // no shift: empty
    Work,         // early, late or night shift: crew colour, F / S / N
    Standby,      // standby week: framed in the crew colour, V
    Vacation,     // block vacation: pale crew colour, U
    VacationOff,  // day off within the block vacation: pale crew colour, US
};

// The crews' cells of one day, in page-column order.
struct ShiftDay {
    int crews = 0;
    std::array<ShiftCode, 5> codes{};
    std::array<CellKind, 5> kinds{};
};

// One procedure per kind of model: the five-crew models with the vacation
// exchange of `block` (when given), the three crews of model 2 (code 0 is a
// day off there), the four page columns of models 6 and 7.
ShiftDay shift_day(int model, DayNumber d, const VacationBlock* block);

// The crew column in which a shift marking of `column` (1..4) appears, or -1
// when no crew of the day has the marked shift. Models 6 and 7: the page
// column. Otherwise the column names a shift (1 Früh, 2 Spät, 3 Nacht,
// 4 Verfügung = code 0) and the marking goes to the crew that has it that day.
int marked_crew(int model, const ShiftDay& day, int column);

// "F", "S", "N", "V", "U", "US"; "" for a day off.
std::string_view shift_letter(CellKind kind, ShiftCode code);

// Heading of a crew column: "1".."5" ("1".."3" in model 2), "A".."D" in
// models 6 and 7.
std::string crew_label(int model, int crew);
// The crew column of a heading, letters in either case; nullopt for a crew
// the model does not have.
std::optional<int> crew_of_label(int model, std::string_view label);

// Whether the plant stands still on the day in a model (the page leaves the
// shift cells without colour then; "Betriebsruhe").
bool is_plant_free_day(int model, const Day& day);

// The page's view of the plan, day after day: the vacation exchange of each
// day's own year when the block is shown, as the page computes the block
// afresh for every year it draws. Keeps the last year's block.
struct PlanView {
    int model = 0;
    bool vacation_block = true;  // "UrlaubBlockAnzeige": apply the exchange
    VacationOrder order = kVacationOrder;
    VacationStart earliest;
};

class PageShifts {
  public:
    explicit PageShifts(const PlanView& view);
    ShiftDay day(DayNumber d);
    const PlanView& view() const { return m_view; }

  private:
    PlanView m_view;
    bool m_with_block = false;
    VacationBlock m_block{};
    bool m_have_block = false;
};

}  // namespace sk::calendar
