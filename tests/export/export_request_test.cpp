// The program's export window in the core: its first choices for a page and
// the file names it suggests.
#include "export/export_request.hpp"

#include <gtest/gtest.h>

#include "test_support.hpp"

namespace sk::exporting {
namespace {

using test::date;

TEST(ExportRequest, DefaultsFollowThePageAndTheHomeCrew) {
    struct Case {
        int model, year, month, columns, home_crew, crew;
        calendar::Day first, last;
    };
    const Case cases[] = {
        {1, 2026, 3, 6, 4, 4, date(2026, 3, 1), date(2026, 8, 31)},
        {5, 2024, 12, 6, 1, 1, date(2024, 12, 1), date(2025, 5, 31)},  // over a year's end
        {2, 2024, 2, 6, 3, 0, date(2024, 2, 1), date(2024, 7, 31)},    // no fourth crew
        {6, 2024, 2, 7, 3, 0, date(2024, 2, 1), date(2024, 8, 31)},    // no home crew in A..D
        {7, 2037, 7, 6, 0, 0, date(2037, 7, 1), date(2037, 7, 31)},    // the calendar's end
    };
    for (const Case& c : cases) {
        const calendar::PageState page{c.year, c.month - 1, date(c.year, c.month, 1), c.columns,
                                       c.model};
        EXPECT_EQ(default_export_request(page, c.home_crew),
                  (ExportRequest{ExportFormat::ICalendar, c.crew, c.first, c.last, false, false}))
            << "model " << c.model;
    }
}

TEST(ExportRequest, SuggestedFileNames) {
    const std::tuple<int, ExportFormat, int, calendar::Day, calendar::Day, const char*> cases[] = {
        {1, ExportFormat::ICalendar, 0, date(2026, 1, 1), date(2026, 12, 31), "Schicht-1-2026.ics"},
        {6, ExportFormat::ICalendar, 3, date(2025, 11, 1), date(2026, 4, 30),
         "Schicht-D-2025-2026.ics"},
        {7, ExportFormat::Csv, 3, date(2026, 3, 1), date(2026, 8, 31), "Schichtplan-2026.csv"},
        {0, ExportFormat::Csv, 0, date(2036, 9, 1), date(2037, 7, 31), "Schichtplan-2036-2037.csv"},
    };
    for (const auto& [model, format, crew, first, last, name] : cases)
        EXPECT_EQ(export_file_name(model, {format, crew, first, last}), name);
}

}  // namespace
}  // namespace sk::exporting
