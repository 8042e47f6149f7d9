#include "export/ical_export.hpp"

#include <libical/ical.h>

#include <cstdio>

#include "calendar/shift_model.hpp"
#include "export/ical_zone.hpp"
#include "notes/notes_of_day.hpp"
#include "files/atomic_file.hpp"

namespace sk::exporting {

namespace {

using calendar::Day;

struct BufferDeleter {
    void operator()(char* text) const { icalmemory_free_buffer(text); }
};

icaltimetype date_value(const Day& day) {
    icaltimetype t = icaltime_null_date();
    t.year = day.year;
    t.month = day.month_index + 1;
    t.day = day.mday;
    return t;
}

// A wall-clock time in Berlin, written with TZID=Europe/Berlin and never
// converted to UTC.
icalproperty* local_time(icalproperty* property, const Day& day, int minute) {
    icaltimetype t = icaltime_null_time();
    t.year = day.year;
    t.month = day.month_index + 1;
    t.day = day.mday;
    t.hour = minute / 60;
    t.minute = minute % 60;
    icalproperty_set_value(property, icalvalue_new_datetime(t));
    icalproperty_add_parameter(property, icalparameter_new_tzid(std::string(kZoneName).c_str()));
    return property;
}

icalproperty* x_property(const char* name, const std::string& value) {
    icalproperty* p = icalproperty_new_x(value.c_str());
    icalproperty_set_x_name(p, name);
    return p;
}

// Notes keep CRLF line ends; an iCalendar text value has plain line feeds,
// which libical escapes as \n.
std::string text_value(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r') {
            out += '\n';
            if (i + 1 < text.size() && text[i + 1] == '\n') ++i;
        } else {
            out += text[i];
        }
    }
    return out;
}

std::string first_line(std::string_view text) {
    std::size_t start = 0;
    // Skip leading empty lines, so that a note starting with a blank line
    // still names itself.
    while (start < text.size() && text[start] == '\n')
        ++start;
    const std::size_t end = text.find('\n', start);
    return std::string(text.substr(start, end == std::string_view::npos ? end : end - start));
}

icalcomponent* new_event(const Day& day, std::string_view kind, const IcsOptions& options,
                         int model, const icaltimetype& stamp) {
    icalcomponent* event = icalcomponent_new_vevent();
    icalcomponent_add_property(
        event, icalproperty_new_uid(event_uid(day, kind, model, options.crew).c_str()));
    icalcomponent_add_property(event, icalproperty_new_dtstamp(stamp));
    return event;
}

void all_day(icalcomponent* event, const Day& day) {
    icalcomponent_add_property(event, icalproperty_new_dtstart(date_value(day)));
    // The end of an all-day event is the next day: DTEND is exclusive.
    icalcomponent_add_property(
        event, icalproperty_new_dtend(date_value(Day::from_number(day.number + 1))));
    icalcomponent_add_property(event, icalproperty_new_transp(ICAL_TRANSP_TRANSPARENT));
}

icalcomponent* duty_event(const Duty& duty, const IcsOptions& options, int model,
                          const icaltimetype& stamp) {
    icalcomponent* event = new_event(duty.day, "schicht", options, model, stamp);
    const std::optional<ShiftHours> hours = options.times ? shift_hours(duty.shift) : std::nullopt;
    if (hours) {
        const Day end_day =
            hours->end > hours->start ? duty.day : Day::from_number(duty.day.number + 1);
        icalcomponent_add_property(event, local_time(icalproperty_new_dtstart(icaltime_null_time()),
                                                     duty.day, hours->start));
        icalcomponent_add_property(
            event, local_time(icalproperty_new_dtend(icaltime_null_time()), end_day, hours->end));
    } else {
        all_day(event, duty.day);
    }
    icalcomponent_add_property(event, icalproperty_new_summary(duty.summary.c_str()));
    if (!duty.planned.empty() && duty.planned != duty.summary) {
        const std::string description = "Geplant: " + duty.planned;
        icalcomponent_add_property(event, icalproperty_new_description(description.c_str()));
    }
    return event;
}

icalcomponent* note_event(const Day& day, const std::string& text, const IcsOptions& options,
                          int model, const icaltimetype& stamp) {
    icalcomponent* event = new_event(day, "notiz", options, model, stamp);
    all_day(event, day);
    const std::string value = text_value(text);
    icalcomponent_add_property(event, icalproperty_new_summary(first_line(value).c_str()));
    icalcomponent_add_property(event, icalproperty_new_description(value.c_str()));
    return event;
}

}  // namespace

std::string calendar_name(int model, int crew) {
    std::string name = "Schichtkalender " + crew_title(model, crew);
    if (calendar::is_valid_model(model))
        name += " \u2013 " +
                std::string(calendar::kShiftModels[static_cast<std::size_t>(model)].chooser_entry);
    return name;
}

std::string event_uid(const Day& day, std::string_view kind, int model, int crew) {
    char date[40];
    std::snprintf(date, sizeof date, "%04d%02d%02d", day.year, day.month_index + 1, day.mday);
    return std::string(date) + "-" + std::string(kind) + "-" + calendar::crew_label(model, crew) +
           "@schichtkalender";
}

ExportText ics_text(const ExportSource& source, const IcsOptions& options) {
    const int model = source.plan.model;
    Component calendar(icalcomponent_new_vcalendar());
    icalcomponent* cal = calendar.get();
    icalcomponent_add_property(cal, icalproperty_new_prodid("-//Quorvel//Schichtkalender//DE"));
    icalcomponent_add_property(cal, icalproperty_new_version("2.0"));
    icalcomponent_add_property(cal, icalproperty_new_calscale("GREGORIAN"));
    icalcomponent_add_property(cal, icalproperty_new_method(ICAL_METHOD_PUBLISH));
    icalcomponent_add_property(cal, x_property("X-WR-CALNAME", calendar_name(model, options.crew)));
    if (options.times) {
        Component zone = berlin_vtimezone();
        if (!zone) return {{}, std::string(kNoZoneMessage)};
        icalcomponent_add_property(cal, x_property("X-WR-TIMEZONE", std::string(kZoneName)));
        icalcomponent_add_component(cal, zone.release());
    }

    const icaltimetype stamp = icaltime_from_timet_with_zone(static_cast<time_t>(options.stamp), 0,
                                                             icaltimezone_get_utc_timezone());
    const std::vector<Duty> duties =
        crew_duties(source, options.crew, options.first.number, options.last.number);
    std::optional<notes::NotesPass> notes;
    if (options.notes && source.notes) notes.emplace(*source.notes);
    auto next_duty = duties.begin();
    for (calendar::DayNumber d = options.first.number; d <= options.last.number; ++d) {
        const Day day = Day::from_number(d);
        if (next_duty != duties.end() && next_duty->day.number == d)
            icalcomponent_add_component(cal, duty_event(*next_duty++, options, model, stamp));
        if (notes) {
            const std::string text = notes->notes_of_day(day, notes::Separator::MultiLine);
            if (!text.empty())
                icalcomponent_add_component(cal, note_event(day, text, options, model, stamp));
        }
    }
    std::unique_ptr<char, BufferDeleter> text(icalcomponent_as_ical_string_r(cal));
    if (!text) return {{}, std::string("der Kalender kann nicht erstellt werden")};
    return {std::string(text.get()), std::nullopt};
}

std::optional<std::string> write_export(const std::filesystem::path& file, const ExportText& text) {
    if (text.error) return text.error;
    std::string error;
    if (!files::write_file_atomic(file, text.text, &error)) return error;
    return std::nullopt;
}

}  // namespace sk::exporting
