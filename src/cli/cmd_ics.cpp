// "schichtkalender ics": a crew's plan as an iCalendar file for calendar
// programs and phones.
#include <ctime>
#include <ostream>

#include "cli/commands.hpp"
#include "cli/export_input.hpp"
#include "export/ical_export.hpp"

namespace sk::cli {

namespace {

constexpr std::string_view kUsage =
    "Aufruf: schichtkalender ics --crew S --from JJJJ-MM-TT --to JJJJ-MM-TT [--model N]\n"
    "                            [--times] [--with-notes] [--out DATEI]\n"
    "                            [--data-dir VERZ] [--user NAME] [--password PW]\n"
    "                            [--today JJJJ-MM-TT]\n"
    "\n"
    "Schreibt die Schichten einer Schicht als iCalendar-Datei (.ics) für\n"
    "Kalenderprogramme und Telefone: ein Termin je Tag mit Frühschicht,\n"
    "Spätschicht, Nachtschicht, Verfügungswoche oder Urlaub (Block), so wie die\n"
    "Kalenderseite die Spalte zeigt. Eine Schichtmarkierung ersetzt die geplante\n"
    "Schicht. Ein erneuter Import aktualisiert die Termine, statt sie zu\n"
    "verdoppeln.\n"
    "\n"
    "  --crew S       die Schicht, wie sie über ihrer Spalte steht: 1 bis 5,\n"
    "                im Schichtkalender 2 1 bis 3, in 6 und 7 A bis D\n"
    "  --from, --to   Zeitraum, 1970-01-01 bis 2037-07-31\n"
    "  --model N      Schichtkalender 0 bis 7 statt der Einstellung \"Schichtart\"\n"
    "  --times        Termine mit Uhrzeit (6:00-14:00, 14:00-22:00, 22:00-6:00,\n"
    "                 Zeitzone Europe/Berlin) statt ganztägig\n"
    "  --with-notes   die Notizen jedes Tages als ganztägige Termine dazu\n"
    "  --out DATEI    Ausgabedatei (Vorgabe: Standardausgabe)\n"
    "  --data-dir     Datenverzeichnis; Einstellungen, Markierungen und Notizen\n"
    "                 kommen dann aus VERZ/NAME/\n"
    "  --user NAME    Benutzer (Vorgabe: Programm)\n"
    "  --password PW  Passwort, mit dem die Notizen verschlüsselt sind\n"
    "  --today        der Tag, der als heute gilt; der Zeitstempel (DTSTAMP)\n"
    "                 der Termine ist dann dieser Tag um 0:00 UTC\n";

int run_ics(const Args& args, std::ostream& out, std::ostream& err) {
    const Options options(
        args, {"crew", "from", "to", "model", "out", "data-dir", "user", "password", "today"},
        {"times", "with-notes"});
    if (!options.positional().empty())
        throw UsageError("unerwartetes Argument \"" + options.positional().front() + "\"");
    const DateRange range = date_range_option(options);
    const auto today = options.date("today");
    const ExportInput input = read_export_input(options, err, options.flag("with-notes"));

    exporting::IcsOptions ics;
    ics.crew = crew_option(options, input.model);
    ics.first = range.first;
    ics.last = range.last;
    ics.times = options.flag("times");
    ics.notes = options.flag("with-notes");
    // A given day makes the file reproducible; otherwise the time of the export.
    ics.stamp = today ? static_cast<std::int64_t>(today->number) * 86400 : std::time(nullptr);
    return emit(exporting::ics_text(input.source(), ics), options, "ics", out, err);
}

}  // namespace

Command ics_command() {
    return {"ics", "die Schichten einer Schicht als iCalendar-Datei", kUsage, run_ics};
}

}  // namespace sk::cli
