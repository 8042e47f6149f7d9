// The parts of the page around the month columns: the title, the legend in
// the free column at the right (what the letters, colours and symbols mean),
// and for the model-5 shift plan its crew headings, shift times, target
// hours and the school holidays below each month.
#include <algorithm>
#include <cmath>
#include <string>

#include "calendar/school_holidays.hpp"
#include "calendar/shift_model.hpp"
#include "marks/accounts.hpp"
#include "marks/calendar_markings.hpp"
#include "view/page_builder.hpp"

namespace sk::view {

namespace g = geometry;

namespace {

constexpr double kLegendWidth = 15.8;  // cells
constexpr double kSwatchWidth = 2.2;
constexpr double kLabelX = 2.8;

class Legend {
public:
    Legend(PageBuilder& b, double left, double top) : m_b(b), m_left(left), m_y(top) {}

    void heading(std::string_view text) {
        m_b.text(TextStyle::Bold, text, m_b.px_x(m_left), m_b.px_y(m_y), palette::kText, Align::Left, 0,
                 room(0));
        m_y += 1.15;
    }
    void gap() { m_y += 0.45; }
    double y() const { return m_y; }

    // A row with a swatch of a shift cell and its meaning.
    void filled(std::string_view letter, Rgb fill, std::string_view label,
                TextStyle style = TextStyle::Bold) {
        const Rect r = swatch();
        m_b.box(Layer::Cell, r, fill);
        m_b.cell_text(style, letter, r, text_colour_on(fill));
        next(label);
    }
    void framed(std::string_view letter, Rgb frame, std::string_view label) {
        const Rect r = swatch();
        m_b.frame(r, frame, stroke());
        m_b.cell_text(TextStyle::Bold, letter, r, palette::kStandbyText);
        next(label);
    }
    void letter(std::string_view letter, Rgb colour, TextStyle style, std::string_view label) {
        const Rect r = swatch();
        m_b.cell_text(style, letter, r, colour);
        next(label);
    }
    // A day-number sample on a background (band, stripe or note highlight).
    void day_sample(std::string_view text, Rgb ink, Layer layer, Rgb background, std::string_view label) {
        const Rect r = row_swatch();
        const double right = r.x + r.w - 2;
        if (layer == Layer::Note)
            m_b.box(layer, note_highlight(right, m_b.text_width(TextStyle::Regular, text), r), background);
        else m_b.box(layer, r, background);
        m_b.text(TextStyle::Regular, text, right, r.y, ink, Align::Right);
        next(label);
    }
    void bar(Rgb colour, std::string_view label) {
        const Rect r = row_swatch();
        m_b.box(Layer::Marking, {r.x, r.y, std::round(g::kMarkingW * m_b.cell().width), r.h}, colour);
        next(label);
    }
    void outline(const Overlay& look, std::string_view label) {
        Overlay o = look;
        o.rect = row_swatch();
        m_b.layout().overlays.push_back(o);
        next(label);
    }
    // Moon circles side by side.
    void moons(std::initializer_list<MoonItem> items, std::string_view label) {
        const Rect r = row_swatch();
        const double radius = std::min(0.3 * r.h, 0.6 * m_b.cell().width);
        double cx = r.x + radius + 1;
        for (MoonItem m : items) {
            m.cx = cx;
            m.cy = r.y + r.h / 2;
            m.r = radius;
            m_b.layout().moons.push_back(m);
            cx += 2 * radius + 3;
        }
        next(label, std::max(kLabelX, (cx - m_b.px_x(m_left)) / m_b.cell().width + 0.3));
    }
    void text_row(std::string_view text, Rgb colour = palette::kText, double indent = 0,
                  TextStyle style = TextStyle::Small) {
        m_b.text(style, text, m_b.px_x(m_left + indent), m_b.px_y(m_y), colour, Align::Left, 0,
                 room(indent));
        m_y += 1;
    }

    // Pixels from x (cells into the legend) to its right end.
    double room(double x) const { return m_b.px_x(m_left + kLegendWidth) - m_b.px_x(m_left + x); }

    PageBuilder& builder() { return m_b; }
    double left() const { return m_left; }
    void advance(double rows) { m_y += rows; }

private:
    Rect swatch() const {
        const Rect r = m_b.cells(m_left, m_y, kSwatchWidth, 1);
        return {r.x + 1, r.y + 1, r.w - 2, r.h - 2};
    }
    Rect row_swatch() const { return m_b.cells(m_left, m_y, kSwatchWidth, 1); }
    double stroke() const { return std::max(1.0, std::round(m_b.cell().width / 6)); }
    void next(std::string_view label, double label_x = kLabelX) {
        m_b.text(TextStyle::Small, label, m_b.px_x(m_left + label_x), m_b.px_y(m_y), palette::kText,
                 Align::Left, 0, room(label_x));
        m_y += 1;
    }

    PageBuilder& m_b;
    double m_left;
    double m_y;
};

// The plan's crews, shift times, vacation letters and target hours.
void plan_part(Legend& l, const PageRequest& request) {
    PageBuilder& b = l.builder();
    for (int c = 0; c < 5; ++c) {
        const Rect r = b.cells(l.left(), l.y(), kLegendWidth, 1);
        const Rgb colour = crew_colour(c);
        b.box(Layer::Cell, {r.x, r.y + 1, r.w, r.h - 2}, colour);
        b.text(TextStyle::Bold, "Schicht       0" + std::to_string(c + 1), b.px_x(l.left() + 0.5),
               r.y, text_colour_on(colour), Align::Left, 0, l.room(0.5));
        l.advance(1);
    }
    l.gap();
    struct Times {
        const char* letter;
        const char* name;
        const char* from;
        const char* to;
    };
    // "Nachtchicht" is the plan's own spelling.
    static constexpr Times kTimes[] = {{"F", "Frühschicht", "6.00 -", "14.00 Uhr"},
                                       {"S", "Spätschicht", "14.00 -", "22.00 Uhr"},
                                       {"N", "Nachtchicht", "22.00 -", "6.00 Uhr"}};
    for (const Times& t : kTimes) {
        l.filled(t.letter, palette::kLegendSwatch, t.name);
        const double top = b.px_y(l.y());
        b.text(TextStyle::Small, t.from, b.px_x(l.left() + 7.6), top, palette::kText, Align::Right);
        b.text(TextStyle::Small, t.to, b.px_x(l.left() + 8.1), top, palette::kText);
        l.advance(1);
    }
    l.framed("V", palette::kLegendSwatch, "Verfügungswoche");
    if (request.options.vacation_block) l.text_row("U/US = Urlaub");
    l.gap();
    const double top = b.px_y(l.y());
    const TextItem& label = b.text(TextStyle::Small, "Sollstunden:", b.px_x(l.left()), top, palette::kText);
    const double x = label.x + label.width() + b.cell().width / 2;
    b.text(TextStyle::SmallBold, marks::hours_text(request.target_hours), x, top, palette::kText,
           Align::Left, 0, b.px_x(l.left() + kLegendWidth) - x);
    l.advance(1);
    l.gap();
}

void shift_part(Legend& l, const PageRequest& request) {
    l.filled("F", palette::kLegendSwatch, "Frühschicht");
    l.filled("S", palette::kLegendSwatch, "Spätschicht");
    if (request.model != 2) l.filled("N", palette::kLegendSwatch, "Nachtschicht");
    if (calendar::has_vacation_block(request.model)) {
        l.framed("V", palette::kLegendSwatch, "Verfügungswoche");
        if (request.options.vacation_block) {
            l.filled("U", mix(palette::kLegendSwatch, kWhite, 0.62), "Urlaub (Block)");
            l.filled("US", mix(palette::kLegendSwatch, kWhite, 0.82), "Urlaub, schichtfrei",
                     TextStyle::SmallBold);
        }
    }
}

void marking_part(Legend& l, int model) {
    l.heading("Schichtmarkierung");
    struct Entry {
        int code;
        const char* label;
    };
    static constexpr Entry kShiftKind[] = {{0, "Arbeitseinsatz"}, {1, "Freizeit"}, {2, "Urlaub"},
                                           {3, "Lehrgang"},       {4, "Krank"},    {5, "Ausfallbezahlung"}};
    static constexpr Entry kCrewKind[] = {{0, "Früh"},     {1, "Spät"},     {2, "Nacht"},
                                          {3, "Freizeit"}, {4, "Urlaub"},   {5, "Lehrgang"},
                                          {6, "Krank"},    {7, "Ausfallbezahlung"}};
    const bool crew_kind = calendar::is_four_crew_model(model);
    const Entry* first = crew_kind ? kCrewKind : kShiftKind;
    const std::size_t count = crew_kind ? std::size(kCrewKind) : std::size(kShiftKind);
    for (std::size_t i = 0; i < count; ++i) {
        const std::string_view letter = marking_letter(model, first[i].code);
        const Rect before = l.builder().cells(l.left(), l.y(), kSwatchWidth, 1);
        l.builder().frame({before.x + 1, before.y + 1, before.w - 2, before.h - 2},
                          palette::kMarkingFrame, std::max(1.0, std::round(l.builder().cell().width / 6)));
        l.letter(letter, palette::kText, letter.size() > 1 ? TextStyle::SmallBold : TextStyle::Bold,
                 first[i].label);
    }
}

}  // namespace

void add_title(PageBuilder& b, const PageRequest& request) {
    const DayRange days = page_days(request);
    const int first_year = calendar::Day::from_number(days.first).year;
    const int last_year = calendar::Day::from_number(days.last).year;
    std::string title = request.model == 5 ? "Schichtplan " : "Schichtkalender ";
    title += std::to_string(first_year);
    if (last_year != first_year) title += "\u2013" + std::to_string(last_year);
    const TextItem& t = b.text(TextStyle::Large, title, b.px_x(g::kLeftMargin), b.px_y(g::kTitleRow),
                               palette::kText, Align::Left, b.cell().height * 1.25);

    const calendar::ShiftModel& model = calendar::kShiftModels[static_cast<std::size_t>(request.model)];
    const double x = t.x + t.width() + b.cell().width * 1.5;
    std::string subtitle = std::string(model.chooser_entry) + " \u2013 " + std::string(model.description);
    const double room = b.layout().width - b.cell().width;
    if (x + b.text_width(TextStyle::Regular, subtitle) > room) subtitle = model.chooser_entry;
    if (x + b.text_width(TextStyle::Regular, subtitle) <= room)
        b.text(TextStyle::Regular, subtitle, x, b.px_y(g::kTitleRow), palette::kMuted, Align::Left,
               b.cell().height * 1.25);
}

void add_legend(PageBuilder& b, const PageRequest& request, const PageFacts& facts) {
    Legend l(b, g::column_left(request.columns) + 0.5, g::kMonthRow);
    const DisplayOptions& o = request.options;
    l.heading("Legende");
    if (request.model == 5) plan_part(l, request);
    else shift_part(l, request);
    l.letter("F", palette::kMuted, TextStyle::Regular, "Betriebsruhe");
    l.gap();

    l.day_sample("So", palette::kHolidayRed, Layer::Band, palette::kSundayBand, "Sonntag, Feiertag");
    l.day_sample("Sa", palette::kText, Layer::Band, palette::kSaturdayBand, "Samstag");
    if (o.school_holidays) {
        // The plan names the holidays below each month under this heading.
        if (request.model == 5) l.text_row("Bayerische Schulferien");
        l.day_sample("", palette::kText, Layer::Stripe, palette::kSchoolStripe,
                     request.model == 5 ? "Ferientage" : "Schulferien");
    }
    if (facts.notes) l.day_sample("12", palette::kText, Layer::Note, palette::kNoteHighlight, "Notiz");
    if (facts.markings) l.bar(marks::kDefaultMarkingColour, "Kalendermarkierung");
    const double w = today_frame_width(b.cell());
    l.outline({{}, {}, 0, palette::kToday, w}, "heute");
    if (request.cursor && page_days(request).contains(request.cursor->number))
        l.outline({{}, palette::kCursor, 0.28, palette::kCursor, w - 1}, "Cursor");

    if (facts.sky) {
        l.gap();
        l.moons({{0, 0, 0, MoonPhase::NewMoon, false},
                 {0, 0, 0, MoonPhase::FirstQuarter, false},
                 {0, 0, 0, MoonPhase::FullMoon, false},
                 {0, 0, 0, MoonPhase::LastQuarter, false}},
                "Mondphasen");
        l.moons({{0, 0, 0, MoonPhase::NewMoon, true}, {0, 0, 0, MoonPhase::FullMoon, true}},
                "Finsternis");
        if (o.distances) {
            l.letter("N F", palette::kMoonDistance, TextStyle::SmallBold, "Mondnähe, -ferne");
            l.letter("N F", palette::kSunDistance, TextStyle::SmallBold, "Sonnennähe, -ferne");
        }
    }
    if (facts.shift_marks) {
        l.gap();
        marking_part(l, request.model);
    }
}

void add_plan_school_holidays(PageBuilder& b, double column_left, int year, int month_index) {
    // Short names of the six ranges of a school year, in table order.
    static constexpr std::string_view kNames[] = {"Fasching", "Ostern", "Pfingsten",
                                                  "Sommer",   "Herbst", "Weihn."};
    const std::int32_t first = year * 10000 + (month_index + 1) * 100 + 1;
    const std::int32_t last = first + 30;
    const auto table = calendar::school_holiday_table();
    double y = g::kBelowDaysRow;
    for (std::size_t i = 0; i + 1 < table.size(); i += 2) {
        const std::int32_t start = table[i], end = table[i + 1];
        if (start <= 0 || end < first || start > last) continue;
        const auto short_date = [](std::int32_t v) {
            return std::to_string(v % 100) + "." + std::to_string(v / 100 % 100) + ".";
        };
        const std::string text = std::string(kNames[i / 2 % 6]) + " " + short_date(start) + " - " +
                                 short_date(end);
        b.text(TextStyle::Small, text, b.px_x(column_left + 0.5), b.px_y(y), palette::kStandbyText);
        y += 0.85;
    }
}

}  // namespace sk::view
