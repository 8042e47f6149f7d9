// What the export commands (ics, csv, next) read: the user's settings,
// shift markings and, when asked for, notes, without creating or writing
// anything; and the arguments they share (crew, date range, output file).
// The user's data come from the session opened read-only, as for every
// command.
#pragma once

#include <optional>
#include <ostream>
#include <string>

#include "calendar/dates.hpp"
#include "cli/commands.hpp"
#include "export/duties.hpp"
#include "export/export_request.hpp"
#include "export/ical_export.hpp"
#include "session/session.hpp"

namespace sk::cli {

struct ExportInput {
    session::Session session;
    bool with_notes = false;
    int model = 0;

    // The session's plan and data as the program's export reads them
    // (exporting::export_source). Points into this value: keep it alive
    // while the source is used.
    exporting::ExportSource source() const;
};

// The session with the user's shift markings and, when `with_notes` is set,
// the notes (with --password); the model of --model or else "Schichtart".
ExportInput read_export_input(const Options& options, std::ostream& err, bool with_notes);

// --crew as the page heads the column ("1".."5", "1".."3" in model 2, "A".."D"
// in models 6 and 7); a missing or unknown crew is a UsageError.
int crew_option(const Options& options, int model);

// --from and --to, both required, within the calendar, in order.
struct DateRange {
    calendar::Day first;
    calendar::Day last;
};
DateRange date_range_option(const Options& options);

// Writes the text to --out (atomically) or to `out`. Returns the exit status;
// a failure is reported on `err` as "schichtkalender COMMAND: ...".
int emit(const exporting::ExportText& text, const Options& options, std::string_view command,
         std::ostream& out, std::ostream& err);

}  // namespace sk::cli
