// The computed geometry of pages: rows per month, week numbers, page sizes,
// the font check, and what each day row carries.
#include <gtest/gtest.h>

#include <algorithm>

#include "calendar/holidays.hpp"
#include "calendar/vacation.hpp"
#include "test_support.hpp"
#include "view/page_geometry.hpp"
#include "view/page_layout.hpp"
#include "view_fixture.hpp"

namespace sk::view {
namespace {

using test::date;

class PageLayoutTest : public ::testing::Test {
protected:
    PageLayout layout(const PageRequest& r, const PageExtras& e = {}) { return m_renderer.layout(r, e); }
    CellSize cell() { return m_renderer.cell(); }

    static const DayCell& cell_of(const PageLayout& l, const calendar::Day& d) {
        const auto it = std::find_if(l.days.begin(), l.days.end(),
                                     [&](const DayCell& c) { return c.day == d; });
        if (it == l.days.end()) throw std::runtime_error("day not on the page");
        return *it;
    }
    // Texts whose baseline lies in the row.
    static std::vector<const TextItem*> texts_in(const PageLayout& l, const Rect& row) {
        std::vector<const TextItem*> found;
        for (const TextItem& t : l.texts)
            if (t.y > row.y && t.y < row.bottom() && t.x >= row.x && t.x < row.right()) found.push_back(&t);
        return found;
    }
    static int count_boxes(const PageLayout& l, Layer layer, const Rect& within) {
        return static_cast<int>(std::count_if(l.layer(layer).begin(), l.layer(layer).end(), [&](const Box& b) {
            return b.rect.x >= within.x && b.rect.right() <= within.right() && b.rect.y >= within.y &&
                   b.rect.bottom() <= within.bottom();
        }));
    }

    PageRenderer m_renderer{test::test_font()};
};

TEST_F(PageLayoutTest, TestFontIsTheFixedOne) {
    // DejaVu Sans 8 at 96 dpi: digits of 6.8 px, lines of 12.4 px.
    EXPECT_EQ(cell().width, 7);
    EXPECT_EQ(cell().height, 12);
}

TEST_F(PageLayoutTest, PageSizeInCells) {
    struct Case { int columns; int width_cells; };
    for (const Case c : {Case{3, 72}, Case{6, 126}, Case{7, 144}, Case{23, 432}}) {
        EXPECT_EQ(geometry::page_width_cells(c.columns), c.width_cells);
        const PageLayout l = layout(test::request(2024, 1, c.columns, 0));
        EXPECT_EQ(l.width, cell().width * c.width_cells) << c.columns << " columns";
        EXPECT_EQ(l.height, cell().height * 40);
        EXPECT_EQ(static_cast<int>(l.months.size()), c.columns);
        // Everything drawn stays on the page.
        for (const TextItem& t : l.texts) {
            EXPECT_GE(t.x, 0) << t.text;
            EXPECT_LE(t.x + t.shaped->width, l.width) << t.text;
            EXPECT_LE(t.y, l.height) << t.text;
        }
    }
}

// The font check compares strictly: a page exactly as wide or as high as
// the screen does not fit.
TEST(FontCheck, ScreenMustBeStrictlyLarger) {
    const CellSize cell{10, 20};  // 3 columns: 720 x 800 pixels
    struct Case { int w, h; bool fits; };
    for (const Case c : {Case{721, 801, true}, Case{720, 801, false}, Case{721, 800, false},
                         Case{720, 800, false}, Case{1920, 1080, true}}) {
        EXPECT_EQ(geometry::page_fits_screen(cell, 3, c.w, c.h), c.fits) << c.w << " x " << c.h;
    }
    EXPECT_FALSE(geometry::page_fits_screen({8, 16}, 23, 3455, 2000));  // 432 * 8 = 3456
    EXPECT_TRUE(geometry::page_fits_screen({8, 16}, 23, 3457, 641));
}

TEST_F(PageLayoutTest, OneRowPerDayOfEachMonth) {
    // Feb 2023 (28), Feb 2024 (29), Apr 2024 (30), May 2024 (31) side by side
    // with their neighbours.
    struct Case { int year, month, rows; };
    for (const Case c : {Case{2023, 2, 28}, Case{2024, 2, 29}, Case{2024, 4, 30}, Case{2024, 5, 31},
                         Case{2100, 2, 28}, Case{2000, 2, 29}}) {
        const PageLayout l = layout(test::request(c.year, c.month, 1, 0));
        ASSERT_EQ(l.months.size(), 1u);
        EXPECT_EQ(l.months[0].day_count, c.rows) << c.year << "-" << c.month;
        ASSERT_EQ(static_cast<int>(l.days.size()), c.rows);
        for (int i = 0; i < c.rows; ++i) {
            const DayCell& d = l.days[static_cast<std::size_t>(i)];
            EXPECT_EQ(d.day, date(c.year, c.month, i + 1));
            EXPECT_EQ(d.row.h, cell().height);
            if (i > 0) { EXPECT_EQ(d.row.y, l.days[static_cast<std::size_t>(i - 1)].row.bottom()); }
        }
        // The rows below the last day stay empty: nothing of the day rows
        // reaches below the last row (up to the plan's footnotes).
        const double last = l.days.back().row.bottom();
        for (const Box& b : l.layer(Layer::Band)) EXPECT_LE(b.rect.bottom(), last);
        for (const Box& b : l.layer(Layer::Cell))
            if (b.rect.x < l.months[0].area.right()) { EXPECT_LE(b.rect.bottom(), last); }
    }
}

TEST_F(PageLayoutTest, MonthHeadersCarryTheYearInJanuaryAndTheFirstColumn) {
    const PageLayout l = layout(test::request(2024, 11, 4, 0));
    std::vector<std::string> headers;
    for (const MonthColumn& m : l.months) headers.push_back(m.header);
    EXPECT_EQ(headers, (std::vector<std::string>{"November 2024", "Dezember", "Januar 2025", "Februar"}));
    for (std::size_t i = 1; i < l.months.size(); ++i)
        EXPECT_EQ(l.months[i].area.x - l.months[i - 1].area.x, 18 * cell().width);
    EXPECT_EQ(l.months[0].area.x, cell().width);  // one cell from the page edge
}

TEST_F(PageLayoutTest, WeekNumbersOnMondaysAndFirstsOnly) {
    // April 2024 begins on a Monday (week 14, shown once); May 2024 on a
    // Wednesday (week 18); 1 January 2021 is a Friday in week 53.
    PageRequest r = test::request(2024, 4, 2, 0);
    const PageLayout l = layout(r);
    for (const DayCell& d : l.days) {
        const bool expected = d.day.weekday() == 1 || d.day.mday == 1;
        EXPECT_EQ(d.week_number.has_value(), expected) << calendar::format_iso_date(d.day);
        if (expected) { EXPECT_EQ(*d.week_number, calendar::week_number(d.day)); }
    }
    const auto week_texts = [&](const PageLayout& page, const calendar::Day& day) {
        std::vector<const TextItem*> found;
        for (const TextItem* t : texts_in(page, cell_of(page, day).row))
            if (t->colour == Rgb{40, 80, 150}) found.push_back(t);
        return found;
    };
    ASSERT_EQ(week_texts(l, date(2024, 4, 1)).size(), 1u);
    EXPECT_EQ(week_texts(l, date(2024, 4, 1))[0]->text, "14");
    EXPECT_EQ(week_texts(l, date(2024, 5, 1))[0]->text, "18");
    EXPECT_TRUE(week_texts(l, date(2024, 4, 2)).empty());

    // A one-digit week stands half a cell right of where two digits start.
    const PageLayout jan = layout(test::request(2024, 1, 1, 0));
    const TextItem* one = week_texts(jan, date(2024, 1, 1))[0];    // week 1
    const TextItem* two = week_texts(jan, date(2024, 1, 8))[0];    // week 2
    const PageLayout mar = layout(test::request(2024, 3, 1, 0));
    const TextItem* ten = week_texts(mar, date(2024, 3, 4))[0];    // week 10
    EXPECT_EQ(one->x, two->x);
    EXPECT_NEAR(one->x - ten->x, cell().width / 2, 0.51);

    const PageLayout y2021 = layout(test::request(2021, 1, 1, 0));
    EXPECT_EQ(week_texts(y2021, date(2021, 1, 1))[0]->text, "53");

    r.options.week_numbers = false;
    for (const DayCell& d : layout(r).days) EXPECT_FALSE(d.week_number) << calendar::format_iso_date(d.day);
}

TEST_F(PageLayoutTest, RedDaysAndBands) {
    const PageLayout l = layout(test::request(2024, 12, 2, 0));
    struct Case { calendar::Day day; bool red; const char* why; };
    const Case cases[] = {
        {date(2024, 12, 1), true, "Sunday"},
        {date(2024, 12, 25), true, "Christmas, a Wednesday"},
        {date(2024, 12, 26), true, "statutory holiday on a Thursday"},
        {date(2024, 12, 24), false, "Christmas Eve is no statutory holiday"},
        {date(2025, 1, 6), true, "Epiphany, a Monday"},
        {date(2024, 12, 7), false, "Saturday"},
        {date(2024, 12, 9), false, "Monday"},
    };
    for (const Case& c : cases) {
        const DayCell& d = cell_of(l, c.day);
        EXPECT_EQ(d.red, c.red) << c.why;
        const auto texts = texts_in(l, d.row);
        ASSERT_GE(texts.size(), 2u);
        // Day number and weekday in red, once each.
        EXPECT_EQ(texts[0]->text, std::to_string(c.day.mday));
        EXPECT_EQ(texts[1]->text, std::string(calendar::weekday_name(c.day.number).substr(0, 2)));
        const Rgb ink = c.red ? Rgb{255, 0, 0} : Rgb{0, 0, 0};
        EXPECT_EQ(texts[0]->colour, ink) << c.why;
        EXPECT_EQ(texts[1]->colour, ink) << c.why;
        EXPECT_EQ(count_boxes(l, Layer::Band, d.row), c.red || c.day.weekday() == 6 ? 1 : 0) << c.why;
    }
    // Easter Sunday is a Sunday and a statutory holiday: red, drawn once.
    const PageLayout march = layout(test::request(2024, 3, 1, 0));
    const DayCell& easter = cell_of(march, date(2024, 3, 31));
    EXPECT_TRUE(easter.red);
    const auto texts = texts_in(march, easter.row);
    EXPECT_EQ(std::count_if(texts.begin(), texts.end(), [](const TextItem* t) { return t->text == "31"; }), 1);
    EXPECT_EQ(count_boxes(march, Layer::Band, easter.row), 1);
}

TEST_F(PageLayoutTest, SchoolHolidayStripeOnlyWhenShown) {
    PageRequest r = test::request(2024, 3, 1, 0);  // Easter holidays from 25 March
    r.options.school_holidays = true;
    const PageLayout shown = layout(r);
    EXPECT_EQ(count_boxes(shown, Layer::Stripe, shown.months[0].area), 7);  // 25..31 March
    EXPECT_EQ(count_boxes(shown, Layer::Stripe, cell_of(shown, date(2024, 3, 25)).row), 1);
    EXPECT_EQ(count_boxes(shown, Layer::Stripe, cell_of(shown, date(2024, 3, 24)).row), 0);
    const Box& stripe = shown.layer(Layer::Stripe).front();
    EXPECT_EQ(stripe.colour, (Rgb{219, 214, 181}));
    EXPECT_EQ(stripe.rect.w, 2 * cell().width);
    EXPECT_EQ(stripe.rect.h, cell().height);

    r.options.school_holidays = false;
    const PageLayout hidden = layout(r);
    EXPECT_TRUE(hidden.layer(Layer::Stripe).empty());
    EXPECT_FALSE(cell_of(hidden, date(2024, 3, 25)).school_holiday);
}

TEST_F(PageLayoutTest, CrewColumnsPerModel) {
    struct Case { int model; int crews; };
    for (const Case c : {Case{0, 5}, Case{1, 5}, Case{2, 3}, Case{3, 5}, Case{4, 5}, Case{5, 5},
                         Case{6, 4}, Case{7, 4}}) {
        const PageLayout l = layout(test::request(2024, 6, 1, c.model));
        for (const DayCell& d : l.days) {
            ASSERT_EQ(d.crews, c.crews) << "model " << c.model;
            // The cells lie side by side within the row, left to right.
            for (int i = 0; i < d.crews; ++i) {
                const Rect& r = d.shifts[static_cast<std::size_t>(i)].rect;
                EXPECT_GE(r.x, d.row.x);
                EXPECT_LE(r.right(), d.row.right());
                if (i > 0) { EXPECT_GT(r.x, d.shifts[static_cast<std::size_t>(i - 1)].rect.right() - 0.5); }
            }
            // Exactly one crew on each working shift, except the unmanned
            // late shift of the Sundays of row 13.
            int working = 0;
            for (int i = 0; i < d.crews; ++i) working += d.shifts[static_cast<std::size_t>(i)].kind == CellKind::Work;
            EXPECT_GE(working, c.model == 2 ? 1 : 2) << "model " << c.model;
        }
    }
}

TEST_F(PageLayoutTest, VacationBlockCells) {
    // Model 1, 2024: the block runs 140 days from its start; inside it one
    // crew is on vacation (U or US) and nobody is on standby.
    PageRequest r = test::request(2024, 1, 12, 1);
    r.columns = 12;
    r.options.vacation_block = true;
    const calendar::VacationBlock block =
        calendar::vacation_block(2024, calendar::kVacationOrder, calendar::VacationStart{});
    const PageLayout l = layout(r);
    for (const DayCell& d : l.days) {
        int vacation = 0, standby = 0;
        for (int i = 0; i < d.crews; ++i) {
            const CellKind k = d.shifts[static_cast<std::size_t>(i)].kind;
            vacation += k == CellKind::Vacation || k == CellKind::VacationOff;
            standby += k == CellKind::Standby;
            if (k == CellKind::Vacation || k == CellKind::VacationOff) {
                EXPECT_EQ(i, block.crew_on_vacation(d.day.number)) << calendar::format_iso_date(d.day);
            }
        }
        const bool inside = block.contains(d.day.number);
        EXPECT_EQ(vacation, inside ? 1 : 0) << calendar::format_iso_date(d.day);
        EXPECT_EQ(standby, inside ? 0 : 1) << calendar::format_iso_date(d.day);
    }
    r.options.vacation_block = false;
    for (const DayCell& d : layout(r).days)
        for (const ShiftCell& s : d.shifts)
            EXPECT_TRUE(s.kind != CellKind::Vacation && s.kind != CellKind::VacationOff);
}

TEST_F(PageLayoutTest, FreeDaysLeaveTheShiftCellsWithoutColour) {
    const PageLayout l = layout(test::request(2024, 12, 1, 0));
    for (const auto& [mday, free] : {std::pair{25, true}, {26, true}, {24, false}, {27, false}}) {
        const DayCell& d = cell_of(l, date(2024, 12, mday));
        EXPECT_EQ(d.free_day, free) << mday;
        Rect shifts = d.shifts[0].rect;
        shifts.w = d.shifts[static_cast<std::size_t>(d.crews - 1)].rect.right() - shifts.x;
        EXPECT_EQ(count_boxes(l, Layer::Cell, shifts) == 0, free) << mday;
    }
}

TEST_F(PageLayoutTest, ShiftMarkingsLandInTheMarkedColumn) {
    struct Case {
        int model;
        calendar::Day day;
        ShiftMark mark;
        const char* letter;
    };
    const Case cases[] = {
        {1, date(2024, 3, 5), {1, 0}, "X"},   // Früh: the crew with code 1
        {1, date(2024, 3, 6), {2, 4}, "K"},   // Spät: code 2
        {1, date(2024, 3, 7), {3, 2}, "U"},   // Nacht: code 3
        {1, date(2024, 3, 8), {4, 5}, "A"},   // Verfügung: code 0
        {2, date(2024, 3, 8), {2, 1}, "F"},
        {7, date(2024, 3, 5), {3, 3}, "F"},   // page column C, "Freizeit"
        {6, date(2024, 3, 5), {1, 0}, "Fr"},  // page column A, "Früh"
        {6, date(2024, 3, 9), {4, 2}, "Na"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "model " << c.model << " column " << c.mark.column);
        PageExtras e;
        e.shift_marking = [&](calendar::DayNumber d) -> std::optional<ShiftMark> {
            if (d == c.day.number) return c.mark;
            return std::nullopt;
        };
        const PageLayout l = layout(test::request(2024, 3, 1, c.model), e);
        const DayCell& d = cell_of(l, c.day);
        int marked = -1;
        for (int i = 0; i < d.crews; ++i)
            if (d.shifts[static_cast<std::size_t>(i)].marked) marked = i;
        ASSERT_GE(marked, 0);
        const ShiftCell& s = d.shifts[static_cast<std::size_t>(marked)];
        if (calendar::is_four_crew_model(c.model)) { EXPECT_EQ(marked, c.mark.column - 1); }
        else EXPECT_EQ(s.code, c.mark.column == 4 ? 0 : c.mark.column);
        const auto texts = texts_in(l, s.rect);
        ASSERT_EQ(texts.size(), 1u) << s.rect.x << " " << s.rect.w << " " << (l.texts.size());
        EXPECT_EQ(texts[0]->text, c.letter);
        // Only that day is marked.
        int total = 0;
        for (const DayCell& any : l.days)
            for (const ShiftCell& sc : any.shifts) total += sc.marked;
        EXPECT_EQ(total, 1);
    }
}

TEST_F(PageLayoutTest, ExtrasAreDrawnOnlyWithTheirOptions) {
    const PageExtras e = test::sample_extras();
    int sky_calls = 0;
    PageExtras counted = e;
    counted.sky = [&](calendar::DayNumber a, calendar::DayNumber b) {
        ++sky_calls;
        return e.sky(a, b);
    };
    PageRequest r = test::request(2024, 3, 3, 0);

    const PageLayout off = layout(r, counted);
    EXPECT_EQ(sky_calls, 0);
    EXPECT_TRUE(off.moons.empty());
    EXPECT_TRUE(cell_of(off, date(2024, 3, 9)).has_notes);  // notes and markings need no option
    EXPECT_EQ(cell_of(off, date(2024, 3, 5)).marking_colour, 0xA1C2EFu);
    EXPECT_EQ(off.layer(Layer::Marking).size(), 7u + 12u + 1u);  // two bars and the legend's sample

    r.options.moon_phases = true;
    const PageLayout moon = layout(r, counted);
    EXPECT_EQ(sky_calls, 1);  // once per page, not per day
    const auto moon_at = [&](const PageLayout& l, const calendar::Day& d) -> const MoonItem* {
        const Rect& row = cell_of(l, d).row;
        for (const MoonItem& m : l.moons)
            if (row.contains(m.cx, m.cy)) return &m;
        return nullptr;
    };
    ASSERT_TRUE(moon_at(moon, date(2024, 3, 25)));
    EXPECT_TRUE(moon_at(moon, date(2024, 3, 25))->eclipse);
    EXPECT_EQ(moon_at(moon, date(2024, 4, 8))->phase, MoonPhase::NewMoon);
    EXPECT_TRUE(moon_at(moon, date(2024, 4, 8))->eclipse);
    EXPECT_FALSE(moon_at(moon, date(2024, 4, 23))->eclipse);
    EXPECT_FALSE(moon_at(moon, date(2024, 4, 24)));
    // Without the distance option no N/F letter on the perigee day.
    const auto letters = [&](const PageLayout& l, const calendar::Day& d) {
        std::string found;
        const DayCell& c = cell_of(l, d);
        for (const TextItem* t : texts_in(l, c.row))
            if (t->style == TextStyle::SmallBold && t->x < c.shifts[0].rect.x) found += t->text;
        return found;
    };
    EXPECT_EQ(letters(moon, date(2024, 4, 7)), "");

    r.options.distances = true;
    const PageLayout all = layout(r, counted);
    EXPECT_EQ(letters(all, date(2024, 4, 7)), "N");   // perigee
    EXPECT_EQ(letters(all, date(2024, 4, 20)), "F");  // apogee
    EXPECT_EQ(letters(all, date(2024, 5, 30)), "F");  // aphelion
}

TEST_F(PageLayoutTest, TodayAndCursor) {
    PageRequest r = test::request(2024, 3, 2, 0);
    r.today = date(2024, 4, 9);
    r.cursor = date(2024, 3, 20);
    const PageLayout l = layout(r);
    // Two overlays on the page rows, plus the legend's two samples.
    std::vector<const Overlay*> on_rows;
    for (const Overlay& o : l.overlays)
        if (o.rect.x < l.months.back().area.right()) on_rows.push_back(&o);
    ASSERT_EQ(on_rows.size(), 2u);
    EXPECT_EQ(on_rows[0]->rect.y, cell_of(l, date(2024, 3, 20)).row.y);
    EXPECT_GT(on_rows[0]->fill_alpha, 0);
    EXPECT_EQ(on_rows[1]->rect.y, cell_of(l, date(2024, 4, 9)).row.y);
    EXPECT_EQ(on_rows[1]->fill_alpha, 0);

    r.today = date(2024, 6, 1);
    r.cursor = date(2024, 6, 2);
    EXPECT_TRUE(layout(r).overlays.size() == 1u);  // only the legend's "heute"
}

TEST_F(PageLayoutTest, DayAtFindsTheRowUnderThePoint) {
    const PageLayout l = layout(test::request(2024, 2, 6, 3));
    for (const DayCell& d : l.days) {
        const auto hit = day_at(l, d.row.x + d.row.w / 2, d.row.y + d.row.h / 2);
        ASSERT_TRUE(hit);
        EXPECT_EQ(*hit, d.day);
    }
    EXPECT_FALSE(day_at(l, 1, 1));
    EXPECT_FALSE(day_at(l, l.width - 2, l.height - 2));
}

TEST_F(PageLayoutTest, PlanPageTexts) {
    PageRequest r = test::request(2024, 3, 3, 5);
    r.options.vacation_block = true;
    const PageLayout plan = layout(r);
    std::vector<std::string> texts;
    for (const TextItem& t : plan.texts) texts.push_back(t.text);
    const auto has = [&](const std::string& s) { return std::find(texts.begin(), texts.end(), s) != texts.end(); };
    for (const char* expected :
         {"Schicht       01", "Schicht       05", "6.00 -", "14.00 -", "22.00 -", "6.00 Uhr",
          "14.00 Uhr", "22.00 Uhr", "Sollstunden:", "1982,76", "U/US = Urlaub", "Nachtchicht",
          "Bayerische Schulferien", "Ostern 25.3. - 6.4.", "Pfingsten 21.5. - 1.6.", "Schichtplan 2024"})
        EXPECT_TRUE(has(expected)) << expected;
    EXPECT_EQ(plan.cell.width, 6);  // FreeSans 8

    const PageLayout dec = layout(test::request(2023, 12, 2, 5));
    texts.clear();
    for (const TextItem& t : dec.texts) texts.push_back(t.text);
    EXPECT_TRUE(has("Weihn. 23.12. - 5.1."));
    EXPECT_TRUE(has("Fasching 12.2. - 16.2.") == false);  // February is not on this page

    const PageLayout other = layout(test::request(2024, 3, 3, 1));
    texts.clear();
    for (const TextItem& t : other.texts) texts.push_back(t.text);
    EXPECT_FALSE(has("Nachtchicht"));
    EXPECT_FALSE(has("Ostern 25.3. - 6.4."));
    EXPECT_TRUE(has("Schichtkalender 2024"));
}

}  // namespace
}  // namespace sk::view
