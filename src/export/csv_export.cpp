#include "export/csv_export.hpp"

#include "calendar/holidays.hpp"
#include "calendar/page_shifts.hpp"

namespace sk::exporting {

namespace {

using calendar::Day;

// Date, weekday, week, holiday, plant free day; the two marking columns.
constexpr int kFixedColumns = 7;

void append_row(std::string& out, const std::vector<std::string>& fields) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0) out += ';';
        out += csv_field(fields[i]);
    }
    out += "\r\n";
}

}  // namespace

std::string csv_field(std::string_view text) {
    const bool quote = text.find_first_of(";\"\r\n") != std::string_view::npos ||
                       (!text.empty() && (text.front() == ' ' || text.back() == ' '));
    if (!quote) return std::string(text);
    std::string out = "\"";
    for (const char c : text) {
        if (c == '"') out += '"';
        out += c;
    }
    out += '"';
    return out;
}

std::vector<std::string> csv_header(int model) {
    std::vector<std::string> header = {"Datum", "Wochentag", "KW", "Feiertag", "Betriebsruhe"};
    const int crews = calendar::is_valid_model(model)
                          ? calendar::kShiftModels[static_cast<std::size_t>(model)].crews
                          : 0;
    for (int c = 0; c < crews; ++c)
        header.push_back(crew_title(model, c));
    header.push_back("Schichtmarkierung");
    header.push_back("Markiert bei");
    return header;
}

ExportText csv_text(const ExportSource& source, const CsvOptions& options) {
    const int model = source.plan.model;
    std::string out(kByteOrderMark);
    const std::vector<std::string> header = csv_header(model);
    append_row(out, header);
    const int crews = static_cast<int>(header.size()) - kFixedColumns;
    calendar::PageShifts shifts(source.plan);
    std::vector<std::string> row;
    for (calendar::DayNumber d = options.first.number; d <= options.last.number; ++d) {
        const Day day = Day::from_number(d);
        std::string_view holiday = calendar::statutory_fixed_holiday(day);
        if (holiday.empty()) holiday = calendar::statutory_easter_holiday(day);
        const calendar::ShiftDay s = shifts.day(d);

        row.clear();
        row.push_back(calendar::format_german_date(day));
        row.emplace_back(calendar::weekday_name(d));
        row.push_back(std::to_string(calendar::week_number(day)));
        row.emplace_back(holiday);
        row.emplace_back(calendar::is_plant_free_day(model, day) ? "ja" : "");
        for (int c = 0; c < crews; ++c) {
            const auto i = static_cast<std::size_t>(c);
            row.emplace_back(c < s.crews ? calendar::shift_letter(s.kinds[i], s.codes[i]) : "");
        }
        const marks::ShiftMarking* mark =
            source.markings ? marks::shift_marking_of_day(*source.markings, d) : nullptr;
        if (mark) {
            row.push_back(marking_summary(model, mark->code));
            const int crew = calendar::marked_crew(model, s, mark->column);
            row.push_back(crew >= 0 ? crew_title(model, crew) : "");
        } else {
            row.emplace_back();
            row.emplace_back();
        }
        append_row(out, row);
    }
    return {std::move(out), std::nullopt};
}

}  // namespace sk::exporting
