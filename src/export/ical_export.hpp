// A crew's plan as an iCalendar file (RFC 5545) for calendar programs and
// phones: one event per day with a duty (duties.hpp), all-day or at the
// shift's clock times in Europe/Berlin, and optionally one all-day event per
// day with notes. Built and serialised with libical (folding, escaping); the
// text is UTF-8 with CRLF line ends. Every event has a UID made of the day,
// the kind ("schicht" or "notiz") and the crew's heading, so importing a
// newer file again updates the events instead of doubling them.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "calendar/dates.hpp"
#include "export/duties.hpp"

namespace sk::exporting {

struct IcsOptions {
    int crew = 0;  // page column: 0 is heading "1" or "A"
    calendar::Day first;
    calendar::Day last;
    bool times = false;  // shifts at their hours instead of all-day
    bool notes = false;  // the notes of each day as all-day events
    // DTSTAMP of every event, seconds since 1970-01-01 00:00 UTC.
    std::int64_t stamp = 0;
};

// The file's text, or a German message (and no text) when it cannot be made.
struct ExportText {
    std::string text;
    std::optional<std::string> error;
};

ExportText ics_text(const ExportSource& source, const IcsOptions& options);

// "Schichtkalender Schicht 1 – Rodenwald PM 1": X-WR-CALNAME.
std::string calendar_name(int model, int crew);

// The UID of a crew's event on a day: "20240115-schicht-1@schichtkalender".
std::string event_uid(const calendar::Day& day, std::string_view kind, int model, int crew);

// Writes the file atomically; a German message when that fails.
std::optional<std::string> write_export(const std::filesystem::path& file, const ExportText& text);

}  // namespace sk::exporting
