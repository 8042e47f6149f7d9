#include "export/export_request.hpp"

#include <algorithm>

#include "calendar/page_shifts.hpp"
#include "calendar/shift_model.hpp"
#include "export/csv_export.hpp"

namespace sk::exporting {

ExportSource export_source(const session::Session& session, int model, bool with_notes) {
    const calendar::PlanView plan{model, session.settings.vacation_block_shown != 0,
                                  session.vacation_order, session.vacation_start};
    return {plan, &session.shift_markings, with_notes ? &session.notes : nullptr};
}

ExportRequest default_export_request(const calendar::PageState& page, int home_crew) {
    ExportRequest request;
    const int crews = calendar::kShiftModels[static_cast<std::size_t>(page.model)].crews;
    if (!calendar::is_four_crew_model(page.model) && home_crew >= 0 && home_crew < crews)
        request.crew = home_crew;
    request.first = calendar::first_shown_day(page);
    // The last column of a page may reach past the calendar's end.
    request.last = calendar::Day::from_number(
        std::min(calendar::last_shown_day(page).number, calendar::kLastDay));
    return request;
}

ExportText export_text(const ExportSource& source, const ExportRequest& request,
                       std::int64_t stamp) {
    if (request.format == ExportFormat::Csv) return csv_text(source, {request.first, request.last});
    IcsOptions options;
    options.crew = request.crew;
    options.first = request.first;
    options.last = request.last;
    options.times = request.times;
    options.notes = request.notes;
    options.stamp = stamp;
    return ics_text(source, options);
}

std::string export_file_name(int model, const ExportRequest& request) {
    std::string years = std::to_string(request.first.year);
    if (request.last.year != request.first.year) years += "-" + std::to_string(request.last.year);
    if (request.format == ExportFormat::Csv) return "Schichtplan-" + years + ".csv";
    return "Schicht-" + calendar::crew_label(model, request.crew) + "-" + years + ".ics";
}

}  // namespace sk::exporting
