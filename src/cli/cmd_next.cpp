// "schichtkalender next": a crew's next shifts at a glance.
#include <ostream>

#include "cli/commands.hpp"
#include "cli/export_input.hpp"
#include "export/next_shifts.hpp"

namespace sk::cli {

namespace {

constexpr std::string_view kUsage =
    "Aufruf: schichtkalender next --crew S [--model N] [--days K] [--today JJJJ-MM-TT]\n"
    "                             [--format text|json] [--data-dir VERZ] [--user NAME]\n"
    "\n"
    "Zeigt die nächsten K Dienste einer Schicht ab heute, Schichtmarkierungen\n"
    "eingerechnet, je Zeile z. B. \"Mo 24.11. Frühschicht 6:00–14:00\"; Tage ohne\n"
    "Dienst und Tage mit Betriebsruhe werden übersprungen.\n"
    "\n"
    "  --crew S       die Schicht, wie sie über ihrer Spalte steht: 1 bis 5,\n"
    "                im Schichtkalender 2 1 bis 3, in 6 und 7 A bis D\n"
    "  --model N      Schichtkalender 0 bis 7 statt der Einstellung \"Schichtart\"\n"
    "  --days K       Anzahl der Dienste, 1 bis 1000 (Vorgabe: 7)\n"
    "  --today        der Tag, der als heute gilt\n"
    "  --format       text (Vorgabe) oder json: eine Liste von Objekten mit\n"
    "                 Datum und Uhrzeiten nach ISO 8601\n"
    "  --data-dir     Datenverzeichnis; Einstellungen und Markierungen kommen\n"
    "                 dann aus VERZ/NAME/\n"
    "  --user NAME    Benutzer (Vorgabe: Programm)\n";

int run_next(const Args& args, std::ostream& out, std::ostream& err) {
    const Options options(args, {"crew", "model", "days", "today", "format", "data-dir", "user"});
    if (!options.positional().empty())
        throw UsageError("unerwartetes Argument \"" + options.positional().front() + "\"");
    const std::string format = options.value("format").value_or("text");
    if (format != "text" && format != "json")
        throw UsageError("\"" + format +
                         "\" ist kein gültiges Format für --format (text oder json)");
    const int count = options.integer("days", calendar::Range<int>{1, 1000}).value_or(7);
    const calendar::Day now = today(options);
    if (now.number < calendar::kFirstDay || now.number > calendar::kLastDay)
        throw UsageError("der Kalender reicht vom 1970-01-01 bis zum 2037-07-31, nicht " +
                         calendar::format_iso_date(now));
    const ExportInput input = read_export_input(options, err, false);
    const int crew = crew_option(options, input.model);

    const std::vector<exporting::Duty> duties =
        exporting::next_duties(input.source(), crew, now.number, count);
    const exporting::ExportText text =
        format == "json" ? exporting::next_json(duties)
                         : exporting::ExportText{exporting::next_text(duties), {}};
    return emit(text, options, "next", out, err);
}

}  // namespace

Command next_command() {
    return {"next", "die nächsten Dienste einer Schicht auf einen Blick", kUsage, run_next};
}

}  // namespace sk::cli
