// "schichtkalender holidays" and "school-holidays": the rows of the
// "Feiertage" and "Ferientermine" windows for one year.
#include <ostream>

#include "calendar/holidays.hpp"
#include "calendar/school_holidays.hpp"
#include "cli/commands.hpp"

namespace sk::cli {

namespace {

int year_argument(const Args& args) {
    const Options options(args, {});
    if (options.positional().size() != 1)
        throw UsageError(options.positional().empty() ? "es fehlt das Jahr"
                                                       : "nur ein Jahr angeben");
    const auto year = parse_integer(options.positional().front());
    if (!year || *year < 1970 || *year > 2037)
        throw UsageError("\"" + options.positional().front() +
                         "\" ist kein Jahr des Kalenders (1970 bis 2037)");
    return static_cast<int>(*year);
}

void print_rows(std::ostream& out, const std::vector<calendar::ListRow>& rows) {
    for (const auto& row : rows) out << row.first << '\t' << row.second << '\n';
}

int run_holidays(const Args& args, std::ostream& out, std::ostream&) {
    print_rows(out, calendar::holiday_list(year_argument(args)));
    return out ? 0 : 1;
}

int run_school_holidays(const Args& args, std::ostream& out, std::ostream&) {
    print_rows(out, calendar::school_holiday_list(year_argument(args)));
    return out ? 0 : 1;
}

}  // namespace

Command holidays_command() {
    return {"holidays", "die Feiertage eines Jahres (Liste \"Feiertage\")",
            "Aufruf: schichtkalender holidays JAHR\n"
            "\n"
            "Gibt die Zeilen der Liste \"Feiertage\" aus: Datum und Name, durch einen\n"
            "Tabulator getrennt; Leerzeilen trennen die drei Gruppen.\n",
            run_holidays};
}

Command school_holidays_command() {
    return {"school-holidays", "die bayerischen Schulferien eines Jahres (\"Ferientermine\")",
            "Aufruf: schichtkalender school-holidays JAHR\n"
            "\n"
            "Gibt die Zeilen der Liste \"Ferientermine\" aus: Ferien und Zeitraum, durch\n"
            "einen Tabulator getrennt. Jahre ohne Eintrag ergeben eine leere Liste.\n",
            run_school_holidays};
}

}  // namespace sk::cli
