// The read-only list windows show the core's rows under their headings.
#include <gtest/gtest.h>

#include <algorithm>

#include "app/holiday_list_window.hpp"
#include "app/school_holiday_window.hpp"
#include "app/yearly_hours_window.hpp"
#include "gui_support.hpp"

namespace sk::app {
namespace {

using Rows = std::vector<std::vector<std::string>>;
using test::cell;
using test::parent_window;

bool has_row(const Rows& rows, const std::vector<std::string>& row) {
    return std::find(rows.begin(), rows.end(), row) != rows.end();
}

std::vector<std::string> headings(Gtk::TreeView& list) {
    std::vector<std::string> texts;
    for (Gtk::TreeViewColumn* column : list.get_columns())
        texts.push_back(column->get_title());
    return texts;
}

// All 27 rows (8 + blank + 10 + blank + 7) show without scrolling: the rows
// are one character cell high.
TEST(HolidayList, Year2024) {
    HolidayListWindow window(parent_window(), cell(), 2024);
    ReadOnlyList& list = window.get_list();
    const Rows rows = list.get_rows();
    EXPECT_EQ(headings(list), (std::vector<std::string>{"2024", "Feiertag"}));
    EXPECT_EQ(rows.size(), 27u);
    EXPECT_TRUE(has_row(rows, {"31. März", "Ostersonntag"}));
    EXPECT_EQ(rows[8], (std::vector<std::string>{"", ""}));
    EXPECT_EQ(test::accessible_name(list), "Feiertage 2024");
    window.show();
    const Glib::RefPtr<Gtk::Adjustment> scroll = list.get_vadjustment();
    ASSERT_TRUE(test::wait_until([&] { return window.get_mapped() && scroll->get_upper() > 0; }));
    EXPECT_LE(scroll->get_upper(), scroll->get_page_size());
    Gdk::Rectangle area;
    list.get_background_area(Gtk::TreePath("0"), *list.get_column(0), area);
    EXPECT_EQ(area.get_height(), cell().height);
}

TEST(SchoolHolidayList, Years) {
    struct Case {
        int year;
        std::size_t rows;
        std::vector<std::string> row;
    };
    for (const auto& c : {Case{2020, 6, {"Weihnachten", "23. Dezember - 9. Januar"}},
                          Case{2011, 6, {"Frühjahr", "7. März - 11. März"}}, Case{2031, 0, {}}}) {
        SchoolHolidayWindow window(parent_window(), cell(), c.year);
        ReadOnlyList& list = window.get_list();
        EXPECT_EQ(headings(list),
                  (std::vector<std::string>{std::to_string(c.year), "Bayerische Schulferien"}));
        const Rows rows = list.get_rows();
        EXPECT_EQ(rows.size(), c.rows) << c.year;
        if (!c.row.empty()) {
            EXPECT_TRUE(has_row(rows, c.row)) << c.year;
        }
    }
}

TEST(YearlyHoursWindow, FiveAndThreeCrewsAndNone) {
    struct Case {
        int model;
        std::size_t columns;
        std::vector<std::string> first_row;
    };
    for (const auto& c :
         {Case{1, 6, {"Januar", "168,00"}}, Case{2, 4, {"Januar", "178,50"}}, Case{7, 0, {}}}) {
        const marks::YearlyHours table =
            marks::yearly_hours(marks::PlanContext{.model = c.model}, 2024);
        YearlyHoursWindow window(parent_window(), cell(), table);
        ReadOnlyList* list = window.get_list();
        if (c.columns == 0) {
            EXPECT_EQ(list, nullptr);
            continue;
        }
        ASSERT_NE(list, nullptr);
        EXPECT_EQ(headings(*list).front(), "Monat");
        EXPECT_EQ(headings(*list).size(), c.columns);
        const Rows rows = list->get_rows();
        ASSERT_EQ(rows.size(), 14u);
        EXPECT_EQ(std::vector<std::string>(rows[0].begin(), rows[0].begin() + 2), c.first_row);
        EXPECT_EQ(rows[12][0], "Summe");
        EXPECT_EQ(rows[13][0], "Soll");
    }
}

}  // namespace
}  // namespace sk::app
