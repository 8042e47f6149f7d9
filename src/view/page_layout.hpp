// The layout of one calendar page: every box, frame, moon symbol and text of
// the page with its place in pixels, computed once from the calendar core,
// the request and the extras. Painting (page_painter.hpp) only walks these
// lists, so the window, the clipboard image, PNG and PDF share one layout and
// one painter, and tests can inspect the geometry without pixels.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "calendar/dates.hpp"
#include "calendar/page_shifts.hpp"
#include "calendar/shift_model.hpp"
#include "view/colour.hpp"
#include "view/page_input.hpp"
#include "view/page_text.hpp"

namespace sk::view {

struct Rect {
    double x = 0, y = 0, w = 0, h = 0;
    constexpr double right() const { return x + w; }
    constexpr double bottom() const { return y + h; }
    constexpr bool contains(double px, double py) const {
        return px >= x && px < x + w && py >= y && py < y + h;
    }
};

// Filled boxes are painted layer by layer; boxes of one layer never overlap,
// so a painter may fill them grouped by colour.
enum class Layer : std::uint8_t {
    Band,     // weekend and holiday bands of the day rows
    Rule,     // thin lines between rows
    Stripe,   // school-holiday box
    Marking,  // calendar-marking bar
    Note,     // note highlight behind the day number
    Cell,     // shift cells and legend swatches
};
inline constexpr int kLayerCount = 6;

struct Box {
    Rect rect;
    Rgb colour;
};

// A rectangle outline drawn inside `rect`.
struct Frame {
    Rect rect;
    Rgb colour;
    double width = 1;
};

struct MoonItem {
    double cx = 0, cy = 0, r = 0;
    MoonPhase phase = MoonPhase::None;
    bool eclipse = false;  // grey new moon / reddish full moon
};

// A text placed with the left end of its baseline at (x, y). `shaped` points
// into the cache of the layout's TextShaper, which the layout keeps alive. A
// text too wide for its cell is squeezed horizontally by `squeeze` (1 = as
// shaped).
struct TextItem {
    std::string text;
    TextStyle style = TextStyle::Regular;
    Rgb colour;
    double x = 0, y = 0;
    const ShapedText* shaped = nullptr;
    double squeeze = 1;
    double width() const { return shaped ? shaped->width * squeeze : 0; }
};

// Drawn after the texts: today's frame and the cursor.
struct Overlay {
    Rect rect;
    Rgb fill;
    double fill_alpha = 0;  // 0 = no fill
    Rgb frame;
    double frame_width = 0;  // 0 = no frame
};

// How a crew's cell of a day looks (calendar/page_shifts.hpp).
using calendar::CellKind;

struct ShiftCell {
    Rect rect;
    calendar::ShiftCode code = calendar::shift::kNone;
    CellKind kind = CellKind::Off;
    bool marked = false;  // a shift marking is drawn in this cell
};

// One day row of a month column.
struct DayCell {
    calendar::Day day;
    int column = 0;  // month column, 0 = first
    Rect row;        // the whole row of the column
    bool red = false;       // Sunday or statutory holiday
    bool free_day = false;  // the plant stands still: shift cells without colour
    bool school_holiday = false;
    bool has_notes = false;
    std::optional<Rgb> marking_colour;
    std::optional<int> week_number;  // drawn on Mondays and on the 1st
    int crews = 0;
    std::array<ShiftCell, 5> shifts{};
};

struct MonthColumn {
    int year = 0;
    int month_index = 0;
    std::string header;  // "März" or "Januar 2025"
    Rect area;           // header to last day row
    int first_day = 0;   // index into PageLayout::days
    int day_count = 0;
};

struct PageLayout {
    // The shaper of the texts, shared: the glyphs of `texts` and the stamps
    // of the image painter live in it, so a layout stays paintable after its
    // renderer has moved on to another font.
    std::shared_ptr<TextShaper> shaper;
    CellSize cell;
    double width = 0, height = 0;  // pixels
    int columns = 0;
    int model = 0;
    Rgb background = kWhite;
    std::array<std::vector<Box>, kLayerCount> boxes;
    std::vector<Frame> frames;  // cell frames, painted over the boxes
    std::vector<MoonItem> moons;
    std::vector<TextItem> texts;
    std::vector<Overlay> overlays;
    std::vector<MonthColumn> months;
    std::vector<DayCell> days;

    std::vector<Box>& layer(Layer l) { return boxes[static_cast<std::size_t>(l)]; }
    const std::vector<Box>& layer(Layer l) const { return boxes[static_cast<std::size_t>(l)]; }
};

// Lays out a page. `shaper` (not null) must hold the page font of the
// request's model (font_for_model); the layout keeps a share of it.
PageLayout layout_page(const PageRequest& request, const PageExtras& extras,
                       std::shared_ptr<TextShaper> shaper);

// The letters of the shift cells, and of the shift markings (those of the
// marking list: X F U L K A, and Fr Sp Na for the shifts of models 6 and 7).
using calendar::shift_letter;
std::string_view marking_letter(int model, int code);

}  // namespace sk::view
