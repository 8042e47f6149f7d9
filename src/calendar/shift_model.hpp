// Shift models: which crew works the early, late and night shift on a day.
// Every model is one column of a fixed 35-day pattern table that each crew
// runs through with its own offset of whole weeks.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "calendar/colour.hpp"
#include "calendar/dates.hpp"
#include "calendar/ranges.hpp"

namespace sk::calendar {

struct VacationBlock;

// Shift code of one crew on one day.
using ShiftCode = std::int8_t;
namespace shift {
inline constexpr ShiftCode kStandby = 0;  // standby week ("Verfügungswoche"); off in the two-shift model
inline constexpr ShiftCode kEarly = 1;
inline constexpr ShiftCode kLate = 2;
inline constexpr ShiftCode kNight = 3;
inline constexpr ShiftCode kOff = 4;
inline constexpr ShiftCode kBlockVacation = 5;  // day off of the crew on block vacation
inline constexpr ShiftCode kNone = -1;          // crew not part of the model
}  // namespace shift

constexpr bool is_working(ShiftCode code) { return code >= shift::kEarly && code <= shift::kNight; }

// The pattern table: kPattern[column][row], 8 columns of 35 rows. Columns 0,
// 3, 6, 7 are four-crew 28-day patterns, 1, 4, 5 five-crew 35-day patterns,
// 2 the 21-day two-shift pattern. Row 13 is off in every column, so no crew
// works late on that Sunday of the cycle; the table is kept as it is.
inline constexpr std::array<std::array<ShiftCode, 35>, 8> kPattern = {{
    {1, 1, 2, 2, 3, 3, 3, 4, 4, 1, 1, 2, 2, 4, 2, 2, 4, 4, 1, 1, 1, 3, 3, 3, 3, 4, 4, 4, 0, 0, 0, 0, 0, 0, 0},
    {1, 1, 2, 2, 3, 3, 3, 4, 4, 1, 1, 2, 2, 4, 2, 2, 4, 4, 1, 1, 1, 0, 0, 0, 0, 0, 0, 0, 3, 3, 3, 3, 4, 4, 4},
    {0, 1, 1, 1, 2, 2, 2, 2, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0},
    {1, 1, 2, 2, 3, 3, 3, 4, 4, 1, 1, 2, 2, 4, 3, 3, 4, 4, 1, 1, 1, 2, 2, 3, 3, 4, 4, 4, 0, 0, 0, 0, 0, 0, 0},
    {1, 1, 2, 2, 3, 3, 3, 4, 4, 1, 1, 2, 2, 4, 3, 3, 4, 4, 1, 1, 1, 0, 0, 0, 0, 0, 0, 0, 2, 2, 3, 3, 4, 4, 4},
    {1, 1, 2, 2, 3, 3, 3, 4, 4, 1, 1, 2, 2, 4, 2, 2, 4, 4, 1, 1, 1, 0, 0, 0, 0, 0, 0, 0, 3, 3, 3, 3, 4, 4, 4},
    {1, 1, 2, 2, 3, 3, 3, 4, 4, 1, 1, 2, 2, 4, 3, 3, 4, 4, 1, 1, 1, 2, 2, 3, 3, 4, 4, 4, 0, 0, 0, 0, 0, 0, 0},
    {1, 1, 2, 2, 3, 3, 3, 4, 4, 1, 1, 2, 2, 4, 3, 3, 4, 4, 1, 1, 1, 2, 2, 3, 3, 4, 4, 4, 0, 0, 0, 0, 0, 0, 0},
}};

// Level of the free-day check (holidays.hpp, is_free_day) at which the plant
// stands still in a model: on such days the page leaves the shift cells
// without colour.
namespace free_level {
inline constexpr int kNever = 0;        // runs through every holiday
inline constexpr int kHighHolidays = 1; // New Year, 1 May, Christmas, Easter and Whitsun
inline constexpr int kWithEves = 2;     // and Christmas Eve, New Year's Eve, Holy Saturday
inline constexpr int kWithMore = 3;     // and 30 April, Whit Saturday
}  // namespace free_level

struct ShiftModel {
    int number;
    std::string_view chooser_entry;
    std::string_view description;
    char key;            // key that selects (or toggles to) the model in the main window
    int crews;           // 5, 4 or 3 columns on the page
    int pattern_column;  // column of kPattern
    int cycle;           // days until the pattern repeats
    std::array<int, 5> offsets;  // per crew (page column for the four-crew models)
    int free_day_level;
};

inline constexpr int kModelCount = kModels.max + 1;

inline constexpr std::array<ShiftModel, kModelCount> kShiftModels = {{
    {0, "Rodenwald PM 1", "Rodenwald Papier Vierschichtkalender", 'N', 5, 1, 35,
     {10, 17, 24, 31, 3}, free_level::kHighHolidays},
    {1, "Rodenwald Werk", "Rodenwald Papier Standart Schichtkalender", 'M', 5, 1, 35,
     {10, 17, 24, 31, 3}, free_level::kHighHolidays},
    {2, "Rodenwald Zweischicht", "Zweischichtsystem mit drei Schichtbesatzungen", 'B', 3, 2, 21,
     {0, 14, 7, 0, 0}, free_level::kWithMore},
    {3, "PM 1 mit 2er Block",
     "Rodenwald Vierschichtkalender mit zwei statt vier Tagen Nachtschicht", 'N', 5, 4, 35,
     {10, 17, 24, 31, 3}, free_level::kHighHolidays},
    {4, "Werk mit 2er Block",
     "Rodenwald Papier Standard Schichtkalender mit zwei statt vier Tagen Nachtschicht", 'M', 5, 4,
     35, {10, 17, 24, 31, 3}, free_level::kHighHolidays},
    {5, "Rodenwald Standard", "Rodenwald Papier Standard Schichtkalender mit fünf Kolumnen", 'X',
     5, 5, 35, {10, 17, 24, 31, 3}, free_level::kHighHolidays},
    {6, "Quorvel Veldheim", "Das Vierschichtsystem in Veldheim", 'V', 4, 6, 28,
     {3, 24, 17, 10, 0}, free_level::kHighHolidays},
    {7, "Hallner Karton", "Das Vierschichtsystem von Hallner Karton", 'C', 4, 7, 28,
     {3, 10, 17, 24, 0}, free_level::kHighHolidays},
}};

// The chooser lists model 5 in third place.
inline constexpr std::array<int, kModelCount> kChooserOrder = {0, 1, 5, 2, 3, 4, 6, 7};

// Crew colours: red, blue, yellow, green, orange.
inline constexpr std::array<Rgb, 5> kCrewColours = {
    Rgb{255, 0, 0}, Rgb{0, 0, 255}, Rgb{255, 255, 0}, Rgb{0, 255, 0}, Rgb{235, 167, 11}};

constexpr bool is_valid_model(int model) { return kModels.contains(model); }
// Models whose five crews take a vacation block.
constexpr bool has_vacation_block(int model) { return model >= 0 && model <= 5 && model != 2; }
// Models that offer the button that shows or hides the block.
constexpr bool offers_block_toggle(int model) { return has_vacation_block(model) && model != 5; }
constexpr bool is_four_crew_model(int model) { return model == 6 || model == 7; }

// First and last day of the changeover of models 0 and 3 (1 January to
// 28 February 2015), in which crew 0 already runs the five-crew pattern and
// the other four crews still run the old four-crew one.
inline constexpr DayNumber kTransitionFirst = 16436;
inline constexpr DayNumber kTransitionLast = 16494;

struct CrewShifts {
    // Codes in page-column order: crews 0..4 in the five-crew models, crews
    // 0..2 in model 2, the four page columns in models 6 and 7; the rest kNone.
    std::array<ShiftCode, 5> code{shift::kNone, shift::kNone, shift::kNone, shift::kNone,
                                  shift::kNone};
    int count = 0;
    bool regular = true;  // false inside the 2015 changeover of models 0 and 3
};

// The crews' shifts of day d in a model. When `block` is given and the model
// has a vacation block, the vacation exchange of that block is applied (not
// inside the 2015 changeover).
CrewShifts crew_shifts(int model, DayNumber d, const VacationBlock* block = nullptr);

}  // namespace sk::calendar
