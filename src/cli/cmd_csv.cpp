// "schichtkalender csv": the plan of every crew as a table for spreadsheets.
#include <ostream>

#include "cli/commands.hpp"
#include "cli/export_input.hpp"
#include "export/csv_export.hpp"

namespace sk::cli {

namespace {

constexpr std::string_view kUsage =
    "Aufruf: schichtkalender csv --from JJJJ-MM-TT --to JJJJ-MM-TT [--model N]\n"
    "                            [--out DATEI] [--data-dir VERZ] [--user NAME]\n"
    "\n"
    "Schreibt eine Tabelle für Tabellenkalkulationen (CSV, durch \";\" getrennt,\n"
    "UTF-8 mit BOM, Zeilenende CRLF): eine Kopfzeile, dann je Tag Datum,\n"
    "Wochentag, Kalenderwoche, Feiertag, Betriebsruhe, die Buchstaben aller\n"
    "Schichten wie auf der Kalenderseite (F, S, N, V, U, US) und die\n"
    "Schichtmarkierung mit der Schicht, bei der sie steht.\n"
    "\n"
    "  --from, --to   Zeitraum, 1970-01-01 bis 2037-07-31\n"
    "  --model N      Schichtkalender 0 bis 7 statt der Einstellung \"Schichtart\"\n"
    "  --out DATEI    Ausgabedatei (Vorgabe: Standardausgabe)\n"
    "  --data-dir     Datenverzeichnis; Einstellungen und Markierungen kommen\n"
    "                 dann aus VERZ/NAME/\n"
    "  --user NAME    Benutzer (Vorgabe: Programm)\n";

int run_csv(const Args& args, std::ostream& out, std::ostream& err) {
    const Options options(args, {"from", "to", "model", "out", "data-dir", "user"});
    if (!options.positional().empty())
        throw UsageError("unerwartetes Argument \"" + options.positional().front() + "\"");
    const DateRange range = date_range_option(options);
    const ExportInput input = read_export_input(options, err, false);
    return emit(exporting::csv_text(input.source(), {range.first, range.last}), options, "csv", out,
                err);
}

}  // namespace

Command csv_command() {
    return {"csv", "der Schichtplan aller Schichten als Tabelle (CSV)", kUsage, run_csv};
}

}  // namespace sk::cli
