#include "view/page_layout.hpp"

#include <algorithm>
#include <cmath>

#include "calendar/holidays.hpp"
#include "calendar/ranges.hpp"
#include "calendar/school_holidays.hpp"
#include "marks/shift_markings.hpp"
#include "view/page_builder.hpp"

namespace sk::view {

using calendar::Day;
using calendar::DayNumber;
namespace g = geometry;

// ---------------------------------------------------------------- builder

double PageBuilder::px_x(double cells) const { return std::round(cells * m_cell.width); }
double PageBuilder::px_y(double cells) const { return std::round(cells * m_cell.height); }

Rect PageBuilder::cells(double x, double y, double w, double h) const {
    const double left = px_x(x), top = px_y(y);
    return {left, top, px_x(x + w) - left, px_y(y + h) - top};
}

void PageBuilder::box(Layer layer, const Rect& r, Rgb colour) {
    if (r.w > 0 && r.h > 0) m_layout.layer(layer).push_back({r, colour});
}

void PageBuilder::frame(const Rect& r, Rgb colour, double width) {
    m_layout.frames.push_back({r, colour, width});
}

const TextItem& PageBuilder::text(TextStyle style, std::string_view text, double x, double top,
                                  Rgb colour, Align align, double line_height, double max_width) {
    const ShapedText& shaped = m_shaper.shape(style, text);
    if (line_height <= 0) line_height = m_cell.height;
    double squeeze = 1;
    if (max_width > 0 && shaped.width > max_width) squeeze = std::max(0.55, max_width / shaped.width);
    const double width = shaped.width * squeeze;
    if (align == Align::Centre) x -= width / 2;
    if (align == Align::Right) x -= width;
    const double baseline = top + (line_height - shaped.height) / 2 + shaped.baseline;
    m_layout.texts.push_back({std::string(text), style, colour, x, baseline, &shaped, squeeze});
    return m_layout.texts.back();
}

const TextItem& PageBuilder::cell_text(TextStyle style, std::string_view text, const Rect& cell,
                                       Rgb colour) {
    // Cells are inset by a pixel from their line box.
    return this->text(style, text, cell.x + cell.w / 2, cell.y - 1, colour, Align::Centre,
                      cell.h + 2, cell.w - 1);
}

double PageBuilder::text_width(TextStyle style, std::string_view text) {
    return m_shaper.shape(style, text).width;
}

Rect note_highlight(double text_right, double text_width, const Rect& row) {
    const double pad = 2;
    const double left = std::floor(text_right - text_width - pad);
    return {left, row.y + 1, std::ceil(text_right + pad) - left, row.h - 2};
}

Rgb crew_colour(int crew) {
    return calendar::kCrewColours[static_cast<std::size_t>(std::clamp(crew, 0, 4))];
}

std::string crew_label(int model, int crew) { return calendar::crew_label(model, crew); }

// ---------------------------------------------------------------- letters

std::string_view marking_letter(int model, int code) {
    return marks::code_letter(marks::marking_kind(model), code);
}

// ---------------------------------------------------------------- page

namespace {

struct MonthOf {
    int year;
    int month_index;
};

MonthOf month_of_column(const PageRequest& r, int column) {
    const int index = r.first_month_index + column;  // [0, 34]
    return {r.first_year + index / 12, index % 12};
}

class DayRowBuilder {
public:
    DayRowBuilder(PageBuilder& b, const PageRequest& request, const PageExtras& extras)
        : m_b(b), m_request(request), m_extras(extras), m_range(page_days(request)),
          m_shifts({request.model, request.options.vacation_block, request.vacation_order,
                    request.vacation_earliest}) {
        const DisplayOptions& o = request.options;
        if (o.moon_phases && extras.sky) {
            m_sky = extras.sky(m_range.first, m_range.last);
            m_facts.sky = true;
        }
        m_free_level = calendar::kShiftModels[static_cast<std::size_t>(request.model)].free_day_level;
        for (std::size_t c = 0; c < m_crews.size(); ++c) {
            const Rgb crew = crew_colour(static_cast<int>(c));
            m_crews[c] = {crew, text_colour_on(crew), mix(crew, kBlack, 0.2), mix(crew, kWhite, 0.62),
                          mix(crew, kWhite, 0.82)};
        }
    }

    const PageFacts& facts() const { return m_facts; }

    void column(int index) {
        const MonthOf m = month_of_column(m_request, index);
        const double left = g::column_left(index);
        PageLayout& layout = m_b.layout();

        MonthColumn month;
        month.year = m.year;
        month.month_index = m.month_index;
        month.header = std::string(calendar::kMonthNames[static_cast<std::size_t>(m.month_index)]);
        // The year goes with January and with the first column.
        if (m.month_index == 0 || index == 0) month.header += " " + std::to_string(m.year);
        month.first_day = static_cast<int>(layout.days.size());
        month.day_count = calendar::month_length(m.year, m.month_index);
        month.area = m_b.cells(left, g::kMonthRow, g::kRowEnd,
                               g::kFirstDayRow + month.day_count - g::kMonthRow);
        m_b.text(TextStyle::Bold, month.header, m_b.px_x(left + 0.5), m_b.px_y(g::kMonthRow),
                 palette::kText);
        headings(left);

        for (int mday = 1; mday <= month.day_count; ++mday)
            day(index, left, Day::from_date(m.year, m.month_index, mday));
        if (m_request.model == 5) add_plan_school_holidays(m_b, left, m.year, m.month_index);
        layout.months.push_back(std::move(month));
    }

private:
    void headings(double left) {
        const ShiftDay sample = shift_day(m_request.model, m_range.first, nullptr);
        const Rect top = m_b.cells(left, g::kHeadingRow, g::kRowEnd, 1);
        if (m_request.options.week_numbers)
            m_b.text(TextStyle::SmallBold, "KW", m_b.px_x(left + g::kWeekX + 0.85), top.y,
                     palette::kWeekNumber, Align::Centre);
        for (int c = 0; c < sample.crews; ++c) {
            Rect r = crew_rect(left, c, sample.crews, top);
            r.y += 1;
            r.h -= 2;
            const Rgb colour = crew_colour(c);
            m_b.box(Layer::Cell, r, colour);
            m_b.cell_text(TextStyle::SmallBold, crew_label(m_request.model, c), r, text_colour_on(colour));
        }
        // A dark rule between the headings and the first day.
        m_b.box(Layer::Rule, {top.x, top.bottom() - 1, top.w, 1}, palette::kHeaderRule);
    }

    // Cell of crew c among n in the shift area of a row, 1 pixel apart.
    Rect crew_rect(double left, int c, int n, const Rect& row) const {
        const double x0 = (left + g::kShiftX) * m_b.cell().width;
        const double w = (g::kShiftEnd - g::kShiftX) * m_b.cell().width / n;
        const double a = std::round(x0 + c * w);
        const double b = std::round(x0 + (c + 1) * w);
        return {a + 1, row.y + 1, b - a - 1, row.h - 2};
    }

    // The pixels from x to x + w (cells) of a row.
    Rect part(double x, double w, const Rect& row) const {
        const double a = m_b.px_x(x);
        return {a, row.y, m_b.px_x(x + w) - a, row.h};
    }

    void day(int column, double left, const Day& day) {
        PageLayout& layout = m_b.layout();
        const DisplayOptions& o = m_request.options;
        DayCell cell;
        cell.day = day;
        cell.column = column;
        cell.row = m_b.cells(left, g::kFirstDayRow + day.mday - 1, g::kRowEnd, 1);
        const Rect& row = cell.row;
        const double top = row.y;
        cell.red = day.is_sunday() || calendar::is_public_holiday(day);
        cell.free_day = calendar::is_free_day(day, m_free_level);
        cell.school_holiday = o.school_holidays && calendar::is_school_holiday(day);
        cell.has_notes = m_extras.has_notes && m_extras.has_notes(day);
        if (m_extras.marking_colour) cell.marking_colour = m_extras.marking_colour(day.number);
        m_facts.notes |= cell.has_notes;
        m_facts.markings |= cell.marking_colour.has_value();

        // Bands across the row for Saturdays, Sundays and holidays; a rule below.
        if (cell.red) m_b.box(Layer::Band, row, palette::kSundayBand);
        else if (day.weekday() == 6) m_b.box(Layer::Band, row, palette::kSaturdayBand);
        m_b.box(Layer::Rule, {row.x, row.bottom() - 1, row.w, 1}, palette::kRule);

        if (cell.school_holiday)
            m_b.box(Layer::Stripe, part(left + g::kStripeX, g::kStripeW, row), palette::kSchoolStripe);
        if (cell.marking_colour)
            m_b.box(Layer::Marking, part(left + g::kMarkingX, g::kMarkingW, row),
                    *cell.marking_colour);
        const std::string_view number = kNumbers[static_cast<std::size_t>(day.mday)];
        const double number_right = m_b.px_x(left + g::kNumberRight);
        if (cell.has_notes)
            m_b.box(Layer::Note, note_highlight(number_right, m_b.text_width(TextStyle::Regular, number), row),
                    palette::kNoteHighlight);

        const Rgb ink = cell.red ? palette::kHolidayRed : palette::kText;
        m_b.text(TextStyle::Regular, number, number_right, top, ink, Align::Right);
        m_b.text(TextStyle::Regular, calendar::kWeekdayNames[static_cast<std::size_t>(day.weekday())].substr(0, 2),
                 m_b.px_x(left + g::kWeekdayX), top, ink);

        if (o.week_numbers && (day.weekday() == 1 || day.mday == 1)) {
            const int week = calendar::week_number(day);
            cell.week_number = week;
            // A one-digit week stands half a cell further right, under the
            // middle of the two-digit ones.
            const double x = left + g::kWeekX + (week < 10 ? 0.5 : 0.0);
            m_b.text(TextStyle::Small, kNumbers[static_cast<std::size_t>(week)], m_b.px_x(x), top,
                     palette::kWeekNumber);
        }

        if (!m_sky.empty()) sky(left, row, m_sky[static_cast<std::size_t>(day.number - m_range.first)]);

        shifts(left, cell);
        overlays(row, day);
        layout.days.push_back(cell);
    }

    void sky(double left, const Rect& row, const DaySymbols& s) {
        if (s.phase != MoonPhase::None) {
            const double r = std::min(0.3 * row.h, 0.6 * m_b.cell().width);
            const bool eclipse = (s.phase == MoonPhase::NewMoon && s.solar_eclipse) ||
                                 (s.phase == MoonPhase::FullMoon && s.lunar_eclipse);
            m_b.layout().moons.push_back(
                {(left + g::kMoonX) * m_b.cell().width, row.y + row.h / 2, r, s.phase, eclipse});
        }
        if (!m_request.options.distances) return;
        const char* letter = nullptr;
        Rgb colour = palette::kMoonDistance;
        if (s.perigee) letter = "N";
        else if (s.apogee) letter = "F";
        else if (s.perihelion || s.aphelion) {
            letter = s.perihelion ? "N" : "F";
            colour = palette::kSunDistance;
        }
        if (letter)
            m_b.text(TextStyle::SmallBold, letter, m_b.px_x(left + g::kDistanceX), row.y, colour);
    }

    void shifts(double left, DayCell& cell) {
        const DayNumber d = cell.day.number;
        const ShiftDay s = m_shifts.day(d);
        cell.crews = s.crews;
        int marked = -1;
        std::string_view mark_text;
        if (m_extras.shift_marking) {
            if (const auto mark = m_extras.shift_marking(d)) {
                marked = marked_crew(m_request.model, s, *mark);
                mark_text = marking_letter(m_request.model, mark->code);
                m_facts.shift_marks |= marked >= 0;
            }
        }
        const double stroke = std::max(1.0, std::round(m_b.cell().width / 6));
        for (int c = 0; c < s.crews; ++c) {
            ShiftCell& sc = cell.shifts[static_cast<std::size_t>(c)];
            sc.rect = crew_rect(left, c, s.crews, cell.row);
            sc.code = s.codes[static_cast<std::size_t>(c)];
            sc.kind = s.kinds[static_cast<std::size_t>(c)];
            sc.marked = c == marked;
            const Rect& r = sc.rect;
            const CrewLook& crew = m_crews[static_cast<std::size_t>(c)];
            if (sc.marked) {
                m_b.box(Layer::Cell, r, kWhite);
                m_b.frame(r, palette::kMarkingFrame, stroke);
                m_b.cell_text(mark_text.size() > 1 ? TextStyle::SmallBold : TextStyle::Bold, mark_text,
                              r, palette::kText);
                continue;
            }
            const std::string_view letter = shift_letter(sc.kind, sc.code);
            switch (sc.kind) {
                case CellKind::Off: break;
                case CellKind::Work:
                    if (cell.free_day) {
                        m_b.cell_text(TextStyle::Regular, letter, r, palette::kMuted);
                    } else {
                        m_b.box(Layer::Cell, r, crew.fill);
                        m_b.cell_text(TextStyle::Bold, letter, r, crew.ink);
                    }
                    break;
                case CellKind::Standby:
                    m_b.frame(r, crew.frame, stroke);
                    m_b.cell_text(TextStyle::Bold, letter, r, palette::kStandbyText);
                    break;
                case CellKind::Vacation:
                case CellKind::VacationOff: {
                    const bool off = sc.kind == CellKind::VacationOff;
                    m_b.box(Layer::Cell, r, off ? crew.paler : crew.pale);
                    m_b.cell_text(off ? TextStyle::SmallBold : TextStyle::Bold, letter, r,
                                  off ? palette::kStandbyText : palette::kText);
                    m_facts.vacation = true;
                    break;
                }
            }
        }
    }

    // The cursor first, so that today's frame stays visible on the cursor day.
    void overlays(const Rect& row, const Day& day) {
        PageLayout& layout = m_b.layout();
        const double w = today_frame_width(m_b.cell());
        if (m_request.cursor && day == *m_request.cursor)
            layout.overlays.push_back({row, palette::kCursor, 0.28, palette::kCursor, w - 1});
        if (day == m_request.today) layout.overlays.push_back({row, {}, 0, palette::kToday, w});
    }

    // "0".."53" without building strings per day.
    static constexpr std::string_view kNumbers[] = {
        "0",  "1",  "2",  "3",  "4",  "5",  "6",  "7",  "8",  "9",  "10", "11", "12", "13",
        "14", "15", "16", "17", "18", "19", "20", "21", "22", "23", "24", "25", "26", "27",
        "28", "29", "30", "31", "32", "33", "34", "35", "36", "37", "38", "39", "40", "41",
        "42", "43", "44", "45", "46", "47", "48", "49", "50", "51", "52", "53"};

    // The colours of a crew's cells: working, its letters, standby frame,
    // vacation and vacation day off.
    struct CrewLook {
        Rgb fill, ink, frame, pale, paler;
    };

    PageBuilder& m_b;
    const PageRequest& m_request;
    std::array<CrewLook, 5> m_crews{};
    const PageExtras& m_extras;
    DayRange m_range;
    std::vector<DaySymbols> m_sky;
    int m_free_level = 0;
    // The crews' cells with the vacation exchange of each day's year.
    calendar::PageShifts m_shifts;
    PageFacts m_facts;
};

}  // namespace

PageLayout layout_page(const PageRequest& request_in, const PageExtras& extras,
                       std::shared_ptr<TextShaper> shaper_in) {
    TextShaper& shaper = *shaper_in;
    PageRequest request = request_in;
    request.columns = calendar::kRenderColumns.clamp(request.columns);
    if (!calendar::is_valid_model(request.model)) request.model = 0;

    PageLayout layout;
    layout.shaper = std::move(shaper_in);
    layout.cell = shaper.cell();
    const g::PixelSize size = g::page_pixel_size(layout.cell, request.columns);
    layout.width = size.width;
    layout.height = size.height;
    layout.columns = request.columns;
    layout.model = request.model;
    layout.days.reserve(static_cast<std::size_t>(request.columns) * 31);
    layout.texts.reserve(static_cast<std::size_t>(request.columns) * 31 * 8 + 100);

    PageBuilder b(layout, shaper);
    add_title(b, request);
    DayRowBuilder rows(b, request, extras);
    for (int c = 0; c < request.columns; ++c) rows.column(c);
    add_legend(b, request, rows.facts());
    return layout;
}

}  // namespace sk::view
