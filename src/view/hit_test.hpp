// What lies under a point of a laid-out page: nothing, the row of a day, or
// the cell of a crew on a day. The window selects the day under a click
// (calendar::select_day) and opens the shift marking of a day on a double
// click into a crew's cell, with the dialog's column from `marking_column`.
#pragma once

#include <cstdint>
#include <optional>

#include "view/page_layout.hpp"

namespace sk::view {

enum class HitKind : std::uint8_t {
    Nothing,  // outside every day row: title, headings, legend, gaps between months
    Day,      // a day row outside the crews' cells (day text, gaps around the cells)
    Shift,    // the cell of a crew on a day
};

struct PageHit {
    HitKind kind = HitKind::Nothing;
    calendar::Day day;      // with Day and Shift
    int month_column = -1;  // with Day and Shift, 0 = first
    int day_index = -1;     // with Day and Shift, into PageLayout::days
    int crew = -1;          // with Shift: page column of the crew, 0 = leftmost
    ShiftCell shift{};      // with Shift: the cell as laid out
};

// (x, y) in pixels of the layout. Every pixel belongs to one cell at most:
// a rectangle holds its left and top edge but not its right and bottom one.
PageHit hit_test(const PageLayout& layout, double x, double y);

// The column of the shift-marking dialog for a crew's cell (the number of
// the key 1..4 that opens it). Models 0 to 5: the shift the crew holds that
// day on the page, 1 Früh, 2 Spät, 3 Nacht, 4 for the standby week; none
// for a day off or a day of block vacation. Models 6 and 7: the page column
// 1..4. Whether the day may be marked in that column is for
// marks::may_mark_day to say.
std::optional<int> marking_column(int model, int crew, const ShiftCell& cell);

}  // namespace sk::view
