// "schichtkalender render": the calendar page as a PNG image or a PDF page,
// without a window.
#include <algorithm>
#include <cctype>
#include <ostream>
#include <sstream>
#include <string>

#include "calendar/shift_model.hpp"
#include "cli/commands.hpp"
#include "view/page_output.hpp"
#include "view/page_sources.hpp"

// Under LeakSanitizer: fontconfig keeps what it allocates while it builds
// its cache for the life of the process, on purpose. (Unused otherwise.)
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig.so\n"; }

namespace sk::cli {

namespace {

using calendar::Day;

constexpr std::string_view kUsage =
    "Aufruf: schichtkalender render --out DATEI.png|DATEI.pdf [--month JJJJ-MM]\n"
    "                               [--columns N] [--model N] [--cursor JJJJ-MM-TT]\n"
    "                               [--font \"FAMILIE GRÖSSE\"] [--paper A4|A3]\n"
    "                               [--data-dir VERZ] [--user NAME] [--password PW]\n"
    "                               [--today JJJJ-MM-TT]\n"
    "\n"
    "Zeichnet die Kalenderseite: Monate nebeneinander, je Tag eine Zeile mit den\n"
    "Schichten. Eine .png-Datei wird ein Bild, eine .pdf-Datei eine Druckseite im\n"
    "Querformat.\n"
    "\n"
    "  --out DATEI     Ausgabedatei, Endung .png oder .pdf\n"
    "  --month         erster Monat der Seite (Vorgabe: der laufende Monat)\n"
    "  --columns N     Anzahl der Monatsspalten, 1 bis 23 (Vorgabe: \"Schichtspalten\")\n"
    "  --model N       Schichtkalender 0 bis 7 statt der Einstellung \"Schichtart\"\n"
    "  --cursor        der Tag, auf dem der Cursor steht (muss auf der Seite liegen)\n"
    "  --font          Schrift der Seite, z. B. \"DejaVu Sans 10\" oder \"FreeSans Bold 9\"\n"
    "  --paper         Papiergröße der PDF-Seite (Vorgabe: A4)\n"
    "  --data-dir      Datenverzeichnis; Einstellungen, Notizen und Markierungen\n"
    "                  kommen dann aus VERZ/NAME/\n"
    "  --user NAME     Benutzer (Vorgabe: Programm)\n"
    "  --password PW   Passwort, mit dem die Notizen verschlüsselt sind\n"
    "  --today         der Tag, der als heute gilt\n";

std::string lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

bool ends_with(const std::string& text, std::string_view suffix) {
    return text.size() >= suffix.size() &&
           text.compare(text.size() - suffix.size(), suffix.size(), suffix) == 0;
}

// "JJJJ-MM" within the calendar (January 1970 to July 2037).
Day parse_month(const std::string& text) {
    const auto fail = [&]() -> Day {
        throw UsageError("\"" + text + "\" ist kein gültiger Monat für --month (erwartet JJJJ-MM, "
                         "1970-01 bis 2037-07)");
    };
    if (text.size() != 7 || text[4] != '-') return fail();
    const auto year = parse_integer(std::string_view(text).substr(0, 4));
    const auto month = parse_integer(std::string_view(text).substr(5, 2));
    if (!year || !month || *month < 1 || *month > 12) return fail();
    const Day first = Day::from_date(static_cast<int>(*year), static_cast<int>(*month) - 1, 1);
    if (first.number < calendar::kFirstDay || first.number > calendar::kLastMonthStart) return fail();
    return first;
}

// "FAMILIE GRÖSSE", the family possibly ending in "Bold"/"Fett" or
// "Italic"/"Kursiv".
view::FontSpec parse_font(const std::string& text) {
    std::istringstream in(text);
    std::vector<std::string> words;
    for (std::string w; in >> w;) words.push_back(w);
    const auto size = words.empty() ? std::nullopt : parse_integer(words.back());
    if (words.size() < 2 || !size || *size < 4 || *size > 96)
        throw UsageError("\"" + text + "\" ist keine gültige Schrift für --font (erwartet \"FAMILIE "
                         "GRÖSSE\", Größe 4 bis 96)");
    words.pop_back();
    view::FontSpec font;
    font.size = static_cast<int>(*size);
    font.style = 0;
    while (words.size() > 1) {
        const std::string w = lower(words.back());
        if (w == "bold" || w == "fett") font.style |= 1;
        else if (w == "italic" || w == "kursiv" || w == "oblique") font.style |= 2;
        else break;
        words.pop_back();
    }
    font.family.clear();
    for (const std::string& w : words) font.family += (font.family.empty() ? "" : " ") + w;
    return font;
}

int run_render(const Args& args, std::ostream& out, std::ostream& err) {
    const Options options(args, {"out", "month", "columns", "model", "cursor", "font", "paper",
                                 "data-dir", "user", "password", "today"});
    if (!options.positional().empty())
        throw UsageError("unerwartetes Argument \"" + options.positional().front() + "\"");
    const auto path = options.value("out");
    if (!path || path->empty()) throw UsageError("die Ausgabedatei fehlt (--out DATEI.png oder DATEI.pdf)");
    const std::string extension = lower(*path);
    const bool pdf = ends_with(extension, ".pdf");
    if (!pdf && !ends_with(extension, ".png"))
        throw UsageError("die Ausgabedatei \"" + *path + "\" muss auf .png oder .pdf enden");

    view::Paper paper = view::Paper::A4;
    if (const auto p = options.value("paper")) {
        const std::string name = lower(*p);
        if (name == "a3") paper = view::Paper::A3;
        else if (name != "a4")
            throw UsageError("\"" + *p + "\" ist kein gültiges Papierformat für --paper (A4 oder A3)");
        if (!pdf) throw UsageError("--paper gilt nur für PDF-Dateien");
    }

    const Day now = today(options);
    const Day first_month = options.value("month") ? parse_month(*options.value("month"))
                                                   : Day::from_date(now.year, now.month_index, 1);
    const auto columns = options.integer("columns", calendar::kRenderColumns);
    const auto model = options.integer("model", calendar::kModels);
    const auto cursor = options.date("cursor");
    std::optional<view::FontSpec> font;
    if (const auto f = options.value("font")) font = parse_font(*f);
    // The page draws the user's notes and markings only when pointed at a
    // data directory.
    const session::Session session = open_user_session(options, err, UserData::OnlyWithDataDir);

    view::PageRequest request = view::page_request(session, first_month, cursor, now);
    if (columns) request.columns = *columns;
    if (model) request.model = *model;
    if (cursor && !view::page_days(request).contains(cursor->number))
        throw UsageError("der Cursor " + calendar::format_iso_date(*cursor) +
                         " liegt nicht auf der Seite");

    const view::PageExtras extras = view::page_extras(session);
    view::PageRenderer renderer(font.value_or(view::font_spec(session.settings)));
    const view::PageLayout layout = renderer.layout(request, extras);
    const bool written = pdf ? view::write_pdf(layout, *path, paper) : view::write_png(layout, *path);
    if (!written) {
        err << "schichtkalender render: die Datei \"" << *path << "\" kann nicht geschrieben werden\n";
        return 1;
    }
    (void)out;
    return 0;
}

}  // namespace

Command render_command() {
    return {"render", "die Kalenderseite als PNG-Bild oder PDF-Seite", kUsage, run_render};
}

}  // namespace sk::cli
