// "schichtkalender days": one tab-separated row per day with everything the
// calendar knows about it.
#include <ostream>
#include <string>

#include "calendar/holidays.hpp"
#include "calendar/school_holidays.hpp"
#include "calendar/shift_model.hpp"
#include "calendar/vacation.hpp"
#include "cli/commands.hpp"
#include "cli/days_table.hpp"

namespace sk::cli {

namespace {

using calendar::Day;
using calendar::DayNumber;

std::string joined_names(const Day& day) {
    std::string text;
    for (const std::string_view name :
         {calendar::named_fixed_day(day), calendar::named_easter_day(day), calendar::advent_day(day)}) {
        if (name.empty()) continue;
        if (!text.empty()) text += ", ";
        text += name;
    }
    return text;
}

}  // namespace

// Backslash, tab, carriage return and line feed written as \\, \t, \r, \n so
// that a note stays on its row.
std::string escape_cell(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (const char c : text) {
        switch (c) {
            case '\\': out += "\\\\"; break;
            case '\t': out += "\\t"; break;
            case '\r': out += "\\r"; break;
            case '\n': out += "\\n"; break;
            default: out += c;
        }
    }
    return out;
}

std::string shift_digits(int model, DayNumber d, const calendar::VacationBlock* block) {
    const calendar::CrewShifts shifts = calendar::crew_shifts(model, d, block);
    std::string digits;
    for (int i = 0; i < shifts.count; ++i)
        digits += static_cast<char>('0' + shifts.code[static_cast<std::size_t>(i)]);
    return digits;
}

void write_days_table(std::ostream& out, const DaysRequest& request, const DayColumns& extra) {
    const bool with_block = request.vacation_block && calendar::has_vacation_block(request.model);

    out << "date\tday\tweekday\tweek\tholiday\tnamed\tnameday\tschool\tshifts\tastro\tnotes\n";
    calendar::VacationBlock block{};
    std::string row;
    for (DayNumber d = request.from.number; d <= request.to.number; ++d) {
        const Day day = Day::from_number(d);
        if (with_block && block.year != day.year)
            block = calendar::vacation_block(day.year, request.vacation_order,
                                             request.vacation_earliest);
        std::string_view holiday = calendar::statutory_fixed_holiday(day);
        if (holiday.empty()) holiday = calendar::statutory_easter_holiday(day);

        row.clear();
        row += calendar::format_iso_date(day);
        row += '\t';
        row += std::to_string(d);
        row += '\t';
        row += calendar::weekday_name(d);
        row += '\t';
        row += std::to_string(calendar::week_number(day));
        row += '\t';
        row += holiday;
        row += '\t';
        row += joined_names(day);
        row += '\t';
        row += calendar::name_days(day);
        row += '\t';
        row += calendar::is_school_holiday(day) ? '1' : '0';
        row += '\t';
        row += shift_digits(request.model, d, with_block ? &block : nullptr);
        row += '\t';
        if (extra.astro) row += escape_cell(extra.astro(day));
        row += '\t';
        if (extra.notes) row += escape_cell(extra.notes(day));
        row += '\n';
        out << row;
    }
}

namespace {

constexpr std::string_view kUsage =
    "Aufruf: schichtkalender days [--from JJJJ-MM-TT] [--to JJJJ-MM-TT] [--model N]\n"
    "                             [--data-dir VERZ] [--user NAME] [--password PW]\n"
    "                             [--today JJJJ-MM-TT]\n"
    "\n"
    "Gibt eine Zeile je Tag aus, Spalten durch Tabulatoren getrennt:\n"
    "  date     Datum JJJJ-MM-TT          day      Tagesnummer seit 1.1.1970\n"
    "  weekday  Wochentag                 week     Kalenderwoche\n"
    "  holiday  gesetzlicher Feiertag     named    benannte Tage und Advent\n"
    "  nameday  Namenstage                school   1 in den bayerischen Schulferien\n"
    "  shifts   Schichtcode je Schicht (0 Verfügung bzw. frei, 1 Früh, 2 Spät,\n"
    "           3 Nacht, 4 frei, 5 Urlaubsfrei im Blockurlaub)\n"
    "  astro    Sonne, Mond und Dämmerung  notes    Notizen des Tages\n"
    "\n"
    "  --from, --to  Zeitraum, 1970-01-01 bis 2037-07-31 (Vorgabe: der laufende Monat)\n"
    "  --model N     Schichtkalender 0 bis 7 statt der Einstellung \"Schichtart\"\n"
    "  --data-dir    Datenverzeichnis; die Einstellungen kommen dann aus\n"
    "                VERZ/NAME/Einstellungen.dat\n"
    "  --user NAME   Benutzer (Vorgabe: Programm)\n"
    "  --password PW Passwort, mit dem die Notizen verschlüsselt sind\n"
    "  --today       der Tag, der als heute gilt\n";

int run_days(const Args& args, std::ostream& out, std::ostream& err) {
    const Options options(args, {"from", "to", "model", "data-dir", "user", "password", "today"});
    if (!options.positional().empty())
        throw UsageError("unerwartetes Argument \"" + options.positional().front() + "\"");
    const Day now = today(options);
    const Day from = options.date("from").value_or(Day::from_date(now.year, now.month_index, 1));
    const Day to = options.date("to").value_or(
        Day::from_date(from.year, from.month_index, from.month_length()));
    for (const Day& d : {from, to}) {
        if (!calendar::kCalendarDays.contains(d.number))
            throw UsageError("der Kalender reicht vom 1970-01-01 bis zum 2037-07-31, nicht " +
                             calendar::format_iso_date(d));
    }
    if (from.number > to.number)
        throw UsageError("--from " + calendar::format_iso_date(from) + " liegt nach --to " +
                         calendar::format_iso_date(to));
    const auto model = options.integer("model", calendar::kModels);
    const session::Session session = open_user_session(options, err);

    const DaysRequest request{from,
                              to,
                              model.value_or(session.settings.model),
                              session.settings.vacation_block_shown != 0,
                              session.vacation_order,
                              session.vacation_start};
    write_days_table(out, request, day_columns(session));
    return out ? 0 : 1;
}

}  // namespace

Command days_command() {
    return {"days", "Tage mit Schichten, Feiertagen und Namenstagen als Tabelle", kUsage, run_days};
}

}  // namespace sk::cli
