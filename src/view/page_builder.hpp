// Internal to the page layout: the builder that turns cell coordinates into
// pixels and appends boxes, frames and texts to a PageLayout, the page's
// colours, and the parts of the page laid out in their own files (the shift
// cells of a day per model, the title, the legend and the plan's extras).
#pragma once

#include <algorithm>
#include <cmath>
#include <string_view>

#include "calendar/vacation.hpp"
#include "view/page_geometry.hpp"
#include "view/page_layout.hpp"

namespace sk::view {

namespace palette {
inline constexpr Rgb kText{0, 0, 0};
inline constexpr Rgb kHolidayRed{255, 0, 0};      // Sundays and statutory holidays
inline constexpr Rgb kSchoolStripe{219, 214, 181};
inline constexpr Rgb kSaturdayBand{236, 236, 236};
inline constexpr Rgb kSundayBand{253, 226, 226};
inline constexpr Rgb kRule{222, 222, 222};
inline constexpr Rgb kHeaderRule{80, 80, 80};
inline constexpr Rgb kNoteHighlight{255, 208, 80};
inline constexpr Rgb kWeekNumber{40, 80, 150};
inline constexpr Rgb kMuted{130, 130, 130};       // letters of a free day, footnotes
inline constexpr Rgb kStandbyText{60, 60, 60};
inline constexpr Rgb kMoonDark{45, 45, 45};
inline constexpr Rgb kMoonLight{255, 244, 190};
inline constexpr Rgb kSolarEclipse{150, 150, 150};  // grey new moon
inline constexpr Rgb kLunarEclipse{210, 75, 55};    // reddish full moon
inline constexpr Rgb kMoonDistance{45, 45, 45};     // perigee / apogee letters
inline constexpr Rgb kSunDistance{205, 105, 0};     // perihelion / aphelion letters
inline constexpr Rgb kToday{0, 0, 0};
inline constexpr Rgb kCursor{30, 95, 215};
inline constexpr Rgb kMarkingFrame{0, 0, 0};
inline constexpr Rgb kLegendSwatch{110, 110, 110};
}  // namespace palette

// Width of today's frame, drawn centred on the edges of the day row.
inline double today_frame_width(CellSize cell) { return std::max(2.0, std::round(cell.height / 6)); }

// The note highlight: a box behind a right-aligned day number.
Rect note_highlight(double text_right, double text_width, const Rect& row);

// Crew colour of a page column of a model.
Rgb crew_colour(int crew);
// Heading of a crew column: "1".."5" (the plan's "Schicht       01" in
// short), "A".."D" in models 6 and 7.
std::string crew_label(int model, int crew);

enum class Align : std::uint8_t { Left, Centre, Right };

class PageBuilder {
public:
    PageBuilder(PageLayout& layout, TextShaper& shaper)
        : m_layout(layout), m_shaper(shaper), m_cell(shaper.cell()) {}

    PageLayout& layout() { return m_layout; }
    TextShaper& shaper() { return m_shaper; }
    CellSize cell() const { return m_cell; }

    // Cells to pixels, rounded to whole pixels so that edges stay sharp.
    double px_x(double cells) const;
    double px_y(double cells) const;
    Rect cells(double x, double y, double w, double h) const;

    void box(Layer layer, const Rect& r, Rgb colour);
    void frame(const Rect& r, Rgb colour, double width);
    // Places `text` in the line box starting at `top` (pixels) of the line
    // height, vertically centred; `x` is its left, centre or right end. A
    // text wider than `max_width` is squeezed to fit (to 55 % at most).
    const TextItem& text(TextStyle style, std::string_view text, double x, double top, Rgb colour,
                         Align align = Align::Left, double line_height = 0, double max_width = 0);
    // A letter centred in a cell, squeezed when it is wider than the cell.
    const TextItem& cell_text(TextStyle style, std::string_view text, const Rect& cell, Rgb colour);
    double text_width(TextStyle style, std::string_view text);

private:
    PageLayout& m_layout;
    TextShaper& m_shaper;
    CellSize m_cell;
};

// The shift cells of one day (calendar/page_shifts.hpp).
using calendar::ShiftDay;
using calendar::shift_day;
// The crew column in which a shift marking is drawn, or -1 when no crew of
// the day has the marked shift.
inline int marked_crew(int model, const ShiftDay& day, const ShiftMark& mark) {
    return calendar::marked_crew(model, day, mark.column);
}

// Parts of the page outside the month columns.
struct PageFacts {
    bool notes = false;      // some day of the page has notes
    bool markings = false;   // calendar markings on the page
    bool shift_marks = false;
    bool sky = false;        // moon symbols are drawn
    bool vacation = false;   // vacation cells on the page
};
void add_title(PageBuilder& b, const PageRequest& request);
void add_legend(PageBuilder& b, const PageRequest& request, const PageFacts& facts);
// Model-5 plan: the school holidays of a month below its column.
void add_plan_school_holidays(PageBuilder& b, double column_left, int year, int month_index);

}  // namespace sk::view
