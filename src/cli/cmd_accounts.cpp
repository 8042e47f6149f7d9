// "schichtkalender accounts": the hours balance, the remaining vacation and
// the "Jahresstunden" table of the user, as the main window shows them.
#include <ostream>
#include <string>

#include "calendar/shift_model.hpp"
#include "cli/commands.hpp"
#include "marks/accounts.hpp"

namespace sk::cli {

namespace {

using calendar::Day;

constexpr std::string_view kUsage =
    "Aufruf: schichtkalender accounts [--today JJJJ-MM-TT] [--data-dir VERZ] [--user NAME]\n"
    "                                 [--model N]\n"
    "\n"
    "Gibt die Minus- und Plusstunden und den Resturlaub aus, wie sie das Hauptfenster\n"
    "anzeigt, und die Tabelle \"Jahresstunden\" des laufenden Jahres (Spalten durch\n"
    "Tabulatoren getrennt). Gelesen werden Schichtmarkierung.dat, Minusstunden.dat und\n"
    "Urlaubstage.dat aus VERZ/NAME. Liegt der Resturlaub vor dem 1. Januar des\n"
    "laufenden Jahres, wird Urlaubstage.dat sofort auf den 1. Januar mit 0 Tagen\n"
    "gesetzt, wie beim Programmstart.\n"
    "\n"
    "  --today       der Tag, der als heute gilt (1970-01-01 bis 2037-07-31)\n"
    "  --data-dir    Datenverzeichnis (Vorgabe: SKDaten im aktuellen Verzeichnis)\n"
    "  --user NAME   Benutzer (Vorgabe: Programm)\n"
    "  --model N     Schichtkalender 0 bis 7 statt der Einstellung \"Schichtart\";\n"
    "                die Kalender 6 und 7 führen keine Konten\n";

void print_yearly_hours(std::ostream& out, const marks::YearlyHours& table) {
    out << "Jahresstunden\t" << table.year << '\n';
    const marks::YearlyHoursText text = marks::yearly_hours_text(table);
    if (text.rows.empty()) return;
    for (std::size_t i = 0; i < text.headings.size(); ++i)
        out << (i ? "\t" : "") << text.headings[i];
    out << '\n';
    for (const auto& row : text.rows) {
        for (std::size_t i = 0; i < row.size(); ++i)
            out << (i ? "\t" : "") << row[i];
        out << '\n';
    }
}

int run_accounts(const Args& args, std::ostream& out, std::ostream& err) {
    const Options options(args, {"today", "data-dir", "user", "model"});
    if (!options.positional().empty())
        throw UsageError("unerwartetes Argument \"" + options.positional().front() + "\"");
    const Day now = today(options);
    if (!calendar::kCalendarDays.contains(now.number))
        throw UsageError("der Kalender reicht vom 1970-01-01 bis zum 2037-07-31, nicht " +
                         calendar::format_iso_date(now));
    const auto model = options.integer("model", calendar::kModels);
    session::Session session = open_user_session(options, err);
    marks::PlanContext plan = session::plan_context(session);
    if (model) plan.model = *model;

    // The new-year reset of the vacation account is written at once, as at
    // the window's start; nothing else is written.
    const marks::AccountTexts texts = marks::refresh_accounts(
        session.user_dir, session.shift_markings, session.accounts, plan, now);

    out << "Minus- und Plusstunden\t" << texts.hours << '\n';
    out << "Resturlaub\t" << texts.vacation << '\n';
    print_yearly_hours(out, marks::yearly_hours(plan, now.year));
    return out ? 0 : 1;
}

}  // namespace

Command accounts_command() {
    return {"accounts", "Minus- und Plusstunden, Resturlaub und Jahresstunden", kUsage,
            run_accounts};
}

}  // namespace sk::cli
