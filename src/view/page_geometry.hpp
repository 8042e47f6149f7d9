// The page frame in character cells: (month columns + 1) * 18 cells wide and
// 40 high, the place of each month column and of the parts of a day row
// within it, and the check whether a page fits the screen. Positions are in
// cells relative to the left edge of a month column (x) or to the top of the
// page (y); the layout turns them into pixels with the measured cell.
#pragma once

#include <cstdint>

#include "view/page_text.hpp"

namespace sk::view::geometry {

inline constexpr int kColumnCells = 18;   // pitch of the month columns
inline constexpr int kPageRows = 40;
inline constexpr double kLeftMargin = 1;  // first month column starts one cell in

// Page width in cells, truncated to 16 bits as the window sizes are.
constexpr int page_width_cells(int columns) {
    return static_cast<std::int16_t>((columns + 1) * kColumnCells);
}

// Left edge of month column i (0-based), and of the legend beside the last.
constexpr double column_left(int i) { return kLeftMargin + i * kColumnCells; }

// Rows (y in cells from the top of the page).
inline constexpr double kTitleRow = 0.3;
inline constexpr double kMonthRow = 1.6;
inline constexpr double kHeadingRow = 2.7;
inline constexpr double kFirstDayRow = 3.8;  // day 1; day n at kFirstDayRow + n - 1
inline constexpr double kBelowDaysRow = kFirstDayRow + 31.3;  // plan's school-holiday names

// Parts of a day row, x in cells from the column's left edge.
inline constexpr double kMarkingX = 0.0, kMarkingW = 0.4;       // calendar marking bar
inline constexpr double kStripeX = 0.5, kStripeW = 2.0;         // school-holiday box
inline constexpr double kNumberRight = 2.4;                     // day number, right-aligned
inline constexpr double kWeekdayX = 2.85;
inline constexpr double kWeekX = 5.75;                          // two-digit week number
inline constexpr double kMoonX = 8.15;                          // centre of the moon circle
inline constexpr double kDistanceX = 8.9;                       // "N" / "F"
inline constexpr double kShiftX = 9.85, kShiftEnd = 17.2;       // the crews' cells
inline constexpr double kRowEnd = 17.2;                         // right end of a day row

// Size of the page in pixels.
struct PixelSize {
    double width = 0;
    double height = 0;
};
constexpr PixelSize page_pixel_size(CellSize cell, int columns) {
    return {cell.width * page_width_cells(columns), cell.height * kPageRows};
}

// The font check: a page fits when the screen is wider than the page and
// higher than 40 lines, both strictly; a page exactly as wide as the screen
// does not fit.
constexpr bool page_fits_screen(CellSize cell, int columns, int screen_width, int screen_height) {
    const PixelSize page = page_pixel_size(cell, columns);
    return screen_width > page.width && screen_height > page.height;
}

}  // namespace sk::view::geometry
