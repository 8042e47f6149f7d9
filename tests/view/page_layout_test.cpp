// The computed geometry of pages: rows per month, page sizes, the font
// check, and what each day row carries where the golden pages cannot tell
// (week numbers, red days, free days, today and the cursor: golden_test.cpp).
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <utility>

#include "calendar/holidays.hpp"
#include "calendar/shift_model.hpp"
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
        const auto it = std::find_if(l.days.begin(), l.days.end(), [&](const DayCell& c) { return c.day == d; });
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

TEST_F(PageLayoutTest, PageSizeInCells) {
    EXPECT_EQ(cell().width, 7);  // the fixed test font: DejaVu Sans 8 at 96 dpi
    EXPECT_EQ(cell().height, 12);
    for (const auto& [columns, width_cells] : {std::pair{3, 72}, {6, 126}, {7, 144}, {23, 432}}) {
        const PageLayout l = layout(test::request(2024, 1, columns, 0));
        EXPECT_EQ(l.width, cell().width * width_cells) << columns << " columns";
        EXPECT_EQ(l.height, cell().height * 40);
        EXPECT_EQ(static_cast<int>(l.months.size()), columns);
        for (const TextItem& t : l.texts) {  // everything drawn stays on the page
            EXPECT_GE(t.x, 0) << t.text;
            EXPECT_LE(t.x + t.shaped->width, l.width) << t.text;
            EXPECT_LE(t.y, l.height) << t.text;
        }
    }
}

// A page exactly as wide or as high as the screen does not fit (3 columns of
// 10 x 20 pixels: 720 x 800; 23 columns of 8 x 16: 3456 x 640).
TEST(FontCheck, ScreenMustBeStrictlyLarger) {
    struct Case { CellSize cell; int columns, w, h; bool fits; };
    for (const Case c : {Case{{10, 20}, 3, 721, 801, true}, Case{{10, 20}, 3, 720, 801, false},
                         Case{{10, 20}, 3, 721, 800, false}, Case{{8, 16}, 23, 3456, 641, false},
                         Case{{8, 16}, 23, 3457, 641, true}}) {
        EXPECT_EQ(geometry::page_fits_screen(c.cell, c.columns, c.w, c.h), c.fits) << c.w << " x " << c.h;
    }
}

// With their options off, no school holidays' stripe (Easter holidays from 25
// March) and no vacation cells of the block (over June 2024); the golden pages
// show them on.
TEST_F(PageLayoutTest, StripeAndVacationCellsOnlyWhenShown) {
    PageRequest r = test::request(2024, 3, 1, 0);
    r.options.school_holidays = false;
    const PageLayout hidden = layout(r);
    EXPECT_TRUE(hidden.layer(Layer::Stripe).empty());
    EXPECT_FALSE(cell_of(hidden, date(2024, 3, 25)).school_holiday);
    PageRequest block = test::request(2024, 6, 1, 1);
    block.options.vacation_block = false;
    for (const DayCell& d : layout(block).days)
        for (const ShiftCell& s : d.shifts)
            EXPECT_TRUE(s.kind != CellKind::Vacation && s.kind != CellKind::VacationOff);
}

// Models 6 and 7 mark the page column A..D, the others the crew on the
// column's shift (Früh, Spät, Nacht, Verfügung = code 0).
TEST_F(PageLayoutTest, ShiftMarkingsLandInTheMarkedColumn) {
    struct Case { int model; calendar::Day day; ShiftMark mark; const char* letter; };
    const Case cases[] = {
        {1, date(2024, 3, 5), {1, 0}, "X"}, {1, date(2024, 3, 6), {2, 4}, "K"},  {1, date(2024, 3, 7), {3, 2}, "U"},
        {1, date(2024, 3, 8), {4, 5}, "A"}, {2, date(2024, 3, 8), {2, 1}, "F"},  {7, date(2024, 3, 5), {3, 3}, "F"},
        {6, date(2024, 3, 5), {1, 0}, "Fr"}, {6, date(2024, 3, 9), {4, 2}, "Na"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "model " << c.model << " column " << c.mark.column);
        PageExtras e;
        e.shift_marking = [&](calendar::DayNumber d) { return d == c.day.number ? std::optional(c.mark) : std::nullopt; };
        const PageLayout l = layout(test::request(2024, 3, 1, c.model), e);
        int total = 0;
        for (const DayCell& any : l.days)
            for (const ShiftCell& s : any.shifts) total += s.marked;
        EXPECT_EQ(total, 1);  // one cell of that day only
        const DayCell& d = cell_of(l, c.day);
        const auto end = d.shifts.begin() + d.crews;
        const auto s = std::find_if(d.shifts.begin(), end, [](const ShiftCell& x) { return x.marked; });
        ASSERT_NE(s, end);
        if (calendar::is_four_crew_model(c.model)) { EXPECT_EQ(s - d.shifts.begin(), c.mark.column - 1); }
        else EXPECT_EQ(s->code, c.mark.column == 4 ? 0 : c.mark.column);
        const auto texts = texts_in(l, s->rect);
        ASSERT_EQ(texts.size(), 1u);
        EXPECT_EQ(texts[0]->text, c.letter);
    }
}

// Notes and markings need no option; the sky is asked for once per page
// when the moons are shown, the N/F letters of the distances need their
// own option too.
TEST_F(PageLayoutTest, ExtrasAreDrawnOnlyWithTheirOptions) {
    const PageExtras e = test::sample_extras();
    int sky_calls = 0;
    PageExtras counted = e;
    counted.sky = [&](calendar::DayNumber a, calendar::DayNumber b) { ++sky_calls; return e.sky(a, b); };
    const auto perigee_letters = [&](const PageLayout& l) {  // 7 April
        std::string found;
        const DayCell& c = cell_of(l, date(2024, 4, 7));
        for (const TextItem* t : texts_in(l, c.row))
            if (t->style == TextStyle::SmallBold && t->x < c.shifts[0].rect.x) found += t->text;
        return found;
    };
    PageRequest r = test::request(2024, 3, 3, 0);
    const PageLayout off = layout(r, counted);
    EXPECT_EQ(sky_calls, 0);
    EXPECT_TRUE(off.moons.empty());
    EXPECT_TRUE(cell_of(off, date(2024, 3, 9)).has_notes);
    EXPECT_EQ(cell_of(off, date(2024, 3, 5)).marking_colour, (Rgb{239, 194, 161}));
    r.options.moon_phases = true;
    const PageLayout moon = layout(r, counted);
    EXPECT_EQ(sky_calls, 1);
    EXPECT_FALSE(moon.moons.empty());
    EXPECT_EQ(perigee_letters(moon), "");
    r.options.distances = true;
    EXPECT_EQ(perigee_letters(layout(r, counted)), "N");
}

// The plan names the school holidays of its months, those of the school
// year that crosses the turn of the year too.
TEST_F(PageLayoutTest, PlanNamesTheHolidaysOfItsMonths) {
    std::set<std::string> texts;
    for (const TextItem& t : layout(test::request(2023, 12, 2, 5)).texts) texts.insert(t.text);
    EXPECT_TRUE(texts.contains("Weihn. 23.12. - 5.1."));
    EXPECT_FALSE(texts.contains("Fasching 12.2. - 16.2."));  // February is not on this page
}

}  // namespace
}  // namespace sk::view
