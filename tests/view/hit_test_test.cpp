// Clicks on real pages: which day or crew cell lies under a pixel, that every
// edge belongs to one cell only, and the marking column of a crew's cell.
#include "view/hit_test.hpp"

#include <gtest/gtest.h>

#include <set>

#include "calendar/shift_model.hpp"
#include "calendar/vacation.hpp"
#include "test_support.hpp"
#include "view/page_output.hpp"
#include "view_fixture.hpp"

namespace sk::view {
namespace {

class HitTest : public ::testing::Test {
protected:
    PageRenderer renderer{test::test_font()};
};

// The day under a pixel as text, "-" for no day.
std::string day_under(const PageLayout& l, double x, double y) {
    const PageHit hit = hit_test(l, x, y);
    return hit.kind == HitKind::Nothing ? "-" : calendar::format_iso_date(hit.day);
}

// Just inside every edge of a row is its day; just outside it the day above
// or below in the same month, and nothing left or right (the gaps between
// month columns). A crew cell holds its corners; the pixels just outside it
// belong to no crew. Title, month header, legend and outside: nothing.
TEST_F(HitTest, EveryEdgeBelongsToOneCell) {
    for (const int model : {0, 2, 5, 6}) {
        const PageLayout l = renderer.layout(test::request(2024, 1, 3, model), {});
        for (const DayCell& d : l.days) {
            const Rect& r = d.row;
            const auto iso = [](calendar::DayNumber n) {
                return calendar::format_iso_date(calendar::Day::from_number(n));
            };
            const calendar::DayNumber n = d.day.number;
            SCOPED_TRACE(iso(n) + " model " + std::to_string(model));
            EXPECT_EQ(day_under(l, r.x, r.y) + day_under(l, r.right() - 1, r.bottom() - 1),
                      iso(n) + iso(n));
            EXPECT_EQ(day_under(l, r.x - 1, r.y) + day_under(l, r.right(), r.y), "--");
            EXPECT_EQ(day_under(l, r.x, r.y - 1), d.day.mday > 1 ? iso(n - 1) : "-");
            EXPECT_EQ(day_under(l, r.x, r.bottom()),
                      calendar::Day::from_number(n + 1).mday > 1 ? iso(n + 1) : "-");
            EXPECT_EQ(hit_test(l, r.x, r.y).month_column, d.column);
            for (int c = 0; c < d.crews; ++c) {
                const Rect& s = d.shifts[static_cast<std::size_t>(c)].rect;
                for (const auto& [x, y] : {std::pair{s.x, s.y}, {s.right() - 1, s.bottom() - 1}}) {
                    const PageHit hit = hit_test(l, x, y);
                    EXPECT_TRUE(hit.kind == HitKind::Shift && hit.crew == c && hit.day == d.day);
                    EXPECT_EQ(hit.shift.code, d.shifts[static_cast<std::size_t>(c)].code);
                }
                for (const auto& [x, y] :
                     {std::pair{s.x - 1, s.y}, {s.right(), s.y}, {s.x, s.y - 1}, {s.x, s.bottom()}})
                    EXPECT_EQ(hit_test(l, x, y).kind,
                              x < r.right() ? HitKind::Day : HitKind::Nothing);
            }
        }
        const Rect first = l.days.front().row;
        for (const auto& [x, y] : {std::pair{1.0, 1.0},
                                   {first.x, first.y - 2 * first.h},
                                   {l.width - 5, l.height / 2},
                                   {-1.0, first.y},
                                   {l.width, l.height},
                                   {first.x, l.height}})
            EXPECT_EQ(hit_test(l, x, y).kind, HitKind::Nothing)
                << x << ", " << y << " model " << model;
    }
}

// The columns a day offers, from the core's plan without the vacation block:
// the shifts worked that day, and the standby week's column 4 in the
// five-crew models outside the block (inside it the standby crew covers for
// the crew on vacation, who holds the standby code). Models 6, 7: A to D.
std::set<int> offered(int model, calendar::DayNumber d, bool in_block) {
    if (calendar::is_four_crew_model(model)) return {1, 2, 3, 4};
    std::set<int> columns;
    for (const calendar::ShiftCode code : calendar::crew_shifts(model, d).code) {
        if (calendar::is_working(code)) columns.insert(code);
        if (code == calendar::shift::kStandby && model != 2 && !in_block) columns.insert(4);
    }
    return columns;
}

// Each day offers its columns once each; a marking of column k (not the
// standby column 4 of models 0 to 5, which cannot be marked) is drawn in the
// one cell whose marking column is k.
TEST_F(HitTest, MarkingColumns) {
    const calendar::VacationBlock block =
        calendar::vacation_block(2024, calendar::kVacationOrder, {});
    for (const int model : {0, 2, 5, 6}) {
        for (int k = 1; k <= (model == 6 ? 4 : 3); ++k) {
            PageExtras e;
            e.shift_marking = [k](calendar::DayNumber) { return std::optional(ShiftMark{k, 1}); };
            for (const DayCell& d : renderer.layout(test::request(2024, 4, 7, model), e).days) {
                std::multiset<int> columns, marked;
                for (int crew = 0; crew < d.crews; ++crew) {
                    const ShiftCell& cell = d.shifts[static_cast<std::size_t>(crew)];
                    const std::optional<int> column = marking_column(model, crew, cell);
                    if (column) columns.insert(*column);
                    if (cell.marked) marked.insert(column.value_or(0));
                }
                const std::set<int> expected =
                    offered(model, d.day.number, block.contains(d.day.number));
                EXPECT_EQ(columns, std::multiset<int>(expected.begin(), expected.end()))
                    << calendar::format_iso_date(d.day) << " model " << model;
                EXPECT_EQ(marked, offered(model, d.day.number, false).contains(k)
                                      ? std::multiset{k}
                                      : std::multiset<int>{})
                    << calendar::format_iso_date(d.day) << " model " << model << " column " << k;
            }
        }
    }
}

}  // namespace
}  // namespace sk::view
