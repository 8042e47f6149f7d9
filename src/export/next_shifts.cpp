#include "export/next_shifts.hpp"

#include <cstdio>

#include "export/ical_zone.hpp"

namespace sk::exporting {

namespace {

using calendar::Day;

std::string_view weekday_short(const Day& day) {
    return calendar::kWeekdayNames[static_cast<std::size_t>(day.weekday())].substr(0, 2);
}

std::string clock(int minute) {
    char text[24];
    std::snprintf(text, sizeof text, "%d:%02d", minute / 60, minute % 60);
    return text;
}

void append_json_string(std::string& out, std::string_view text) {
    out += '"';
    for (const char c : text) {
        switch (c) {
            case '"':
                out += "\\\"";
                break;
            case '\\':
                out += "\\\\";
                break;
            case '\n':
                out += "\\n";
                break;
            case '\r':
                out += "\\r";
                break;
            case '\t':
                out += "\\t";
                break;
            default:
                if (static_cast<unsigned char>(c) < 0x20) {
                    char escaped[8];
                    std::snprintf(escaped, sizeof escaped, "\\u%04x", static_cast<unsigned>(c));
                    out += escaped;
                } else {
                    out += c;
                }
        }
    }
    out += '"';
}

// "2024-03-30T22:00:00+01:00"
std::optional<std::string> iso_time(const Day& day, int minute) {
    const std::optional<int> offset = berlin_utc_offset(day, minute);
    if (!offset) return std::nullopt;
    const int zone = *offset / 60;
    const int zone_abs = zone < 0 ? -zone : zone;
    char text[80];
    std::snprintf(text, sizeof text, "%sT%02d:%02d:00%c%02d:%02d",
                  calendar::format_iso_date(day).c_str(), minute / 60, minute % 60,
                  zone < 0 ? '-' : '+', zone_abs / 60, zone_abs % 60);
    return text;
}

}  // namespace

std::string hours_text(const Duty& duty) {
    const std::optional<ShiftHours> hours = shift_hours(duty.shift);
    if (!hours) return "";
    return clock(hours->start) + "\u2013" + clock(hours->end);
}

std::string next_text(const std::vector<Duty>& duties) {
    std::string out;
    char date[40];
    for (const Duty& duty : duties) {
        std::snprintf(date, sizeof date, "%02d.%02d.", duty.day.mday, duty.day.month_index + 1);
        out += weekday_short(duty.day);
        out += ' ';
        out += date;
        out += ' ';
        out += duty.summary;
        if (const std::string hours = hours_text(duty); !hours.empty()) out += ' ' + hours;
        out += '\n';
    }
    return out;
}

ExportText next_json(const std::vector<Duty>& duties) {
    std::string out = "[";
    for (std::size_t i = 0; i < duties.size(); ++i) {
        const Duty& duty = duties[i];
        out += i == 0 ? "\n  {" : ",\n  {";
        out += "\"date\": ";
        append_json_string(out, calendar::format_iso_date(duty.day));
        out += ", \"weekday\": ";
        append_json_string(out, weekday_short(duty.day));
        out += ", \"summary\": ";
        append_json_string(out, duty.summary);
        out += ", \"letter\": ";
        append_json_string(out, duty.letter);
        out += duty.kind == DutyKind::Marking ? ", \"marked\": true" : ", \"marked\": false";
        const std::optional<ShiftHours> hours = shift_hours(duty.shift);
        if (!hours) {
            out += ", \"allDay\": true, \"start\": null, \"end\": null}";
            continue;
        }
        const Day end_day =
            hours->end > hours->start ? duty.day : Day::from_number(duty.day.number + 1);
        const auto start = iso_time(duty.day, hours->start);
        const auto end = iso_time(end_day, hours->end);
        if (!start || !end) return {{}, std::string(kNoZoneMessage)};
        out += ", \"allDay\": false, \"start\": ";
        append_json_string(out, *start);
        out += ", \"end\": ";
        append_json_string(out, *end);
        out += '}';
    }
    out += duties.empty() ? "]\n" : "\n]\n";
    return {std::move(out), std::nullopt};
}

}  // namespace sk::exporting
