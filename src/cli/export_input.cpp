#include "cli/export_input.hpp"

#include "calendar/page_shifts.hpp"
#include "calendar/shift_model.hpp"

namespace sk::cli {

exporting::ExportSource ExportInput::source() const {
    return exporting::export_source(session, model, with_notes);
}

ExportInput read_export_input(const Options& options, std::ostream& err, bool with_notes) {
    const auto model = options.integer("model", calendar::kModels);
    ExportInput input{open_user_session(options, err), with_notes, 0};
    const int setting = input.session.settings.model;
    input.model = model.value_or(calendar::is_valid_model(setting) ? setting : 0);
    return input;
}

int crew_option(const Options& options, int model) {
    const auto text = options.value("crew");
    if (!text) throw UsageError("die Schicht fehlt (--crew, wie sie über ihrer Spalte steht)");
    if (const auto crew = calendar::crew_of_label(model, *text)) return *crew;
    const int crews = calendar::kShiftModels[static_cast<std::size_t>(model)].crews;
    throw UsageError("die Schicht \"" + *text + "\" gibt es im Schichtkalender " +
                     std::to_string(model) + " nicht (erlaubt: " + calendar::crew_label(model, 0) +
                     " bis " + calendar::crew_label(model, crews - 1) + ")");
}

DateRange date_range_option(const Options& options) {
    const auto first = options.date("from");
    const auto last = options.date("to");
    if (!first) throw UsageError("der Beginn fehlt (--from JJJJ-MM-TT)");
    if (!last) throw UsageError("das Ende fehlt (--to JJJJ-MM-TT)");
    for (const calendar::Day& d : {*first, *last}) {
        if (d.number < calendar::kFirstDay || d.number > calendar::kLastDay)
            throw UsageError("der Kalender reicht vom 1970-01-01 bis zum 2037-07-31, nicht " +
                             calendar::format_iso_date(d));
    }
    if (first->number > last->number)
        throw UsageError("--from " + calendar::format_iso_date(*first) + " liegt nach --to " +
                         calendar::format_iso_date(*last));
    return {*first, *last};
}

int emit(const exporting::ExportText& text, const Options& options, std::string_view command,
         std::ostream& out, std::ostream& err) {
    const auto file = options.value("out");
    if (file && file->empty()) throw UsageError("der Name der Ausgabedatei (--out) ist leer");
    if (text.error) {
        err << "schichtkalender " << command << ": " << *text.error << '\n';
        return 1;
    }
    if (!file) {
        out << text.text;
        out.flush();
        return out ? 0 : 1;
    }
    if (const auto error = exporting::write_export(*file, text)) {
        err << "schichtkalender " << command << ": die Datei \"" << *file
            << "\" kann nicht geschrieben werden: " << *error << '\n';
        return 1;
    }
    return 0;
}

}  // namespace sk::cli
