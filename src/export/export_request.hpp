// What the program's export window asks for and how its choices become a
// file: the format, the crew, the days, times and notes; the text through
// the same functions as the commands "ics" and "csv"; the suggested file
// name; and the plan of the running session (model, vacation exchange as the
// page shows it, this run's vacation order and earliest start), which the
// commands read the same way.
#pragma once

#include <cstdint>
#include <string>

#include "calendar/dates.hpp"
#include "calendar/page_state.hpp"
#include "export/duties.hpp"
#include "export/ical_export.hpp"
#include "session/session.hpp"

namespace sk::exporting {

enum class ExportFormat : std::uint8_t { ICalendar, Csv };

struct ExportRequest {
    ExportFormat format = ExportFormat::ICalendar;
    int crew = 0;  // page column; iCalendar only (the table holds every crew)
    calendar::Day first;
    calendar::Day last;
    bool times = false;  // iCalendar only
    bool notes = false;  // iCalendar only
    friend bool operator==(const ExportRequest&, const ExportRequest&) = default;
};

// The session's plan and data in `model`: the vacation exchange only when
// "UrlaubBlockAnzeige" shows it, the vacation order and earliest start of
// this run (keys Y and F count, as on the page), the shift markings, and the
// notes when `with_notes` is set. Points into the session: keep it alive
// while the source is used.
ExportSource export_source(const session::Session& session, int model, bool with_notes);

// The window's first choices for a page: iCalendar without times and notes,
// the days from the first of the page's first month to the last of its last
// month (at most to the calendar's last day), and the home crew
// ("Stammschicht", 0..4) where the model has that crew and accounts (not in
// models 6 and 7), else the first crew.
ExportRequest default_export_request(const calendar::PageState& page, int home_crew);

// The file's text; `stamp` is the DTSTAMP of an iCalendar file (seconds since
// 1970-01-01 00:00 UTC).
ExportText export_text(const ExportSource& source, const ExportRequest& request,
                       std::int64_t stamp);

// The name the file chooser suggests: "Schicht-1-2026.ics",
// "Schicht-A-2025-2026.ics" over two years, "Schichtplan-2026.csv".
std::string export_file_name(int model, const ExportRequest& request);

}  // namespace sk::exporting
