#include "export/ical_zone.hpp"

#include <libical/ical.h>

namespace sk::exporting {

namespace {

// libical's zone from the system's zoneinfo; it keeps the zones it loaded
// for the life of the process.
icaltimezone* berlin() {
    return icaltimezone_get_builtin_timezone(std::string(kZoneName).c_str());
}

}  // namespace

void ComponentDeleter::operator()(icalcomponent_impl* component) const {
    icalcomponent_free(component);
}

Component berlin_vtimezone() {
    icaltimezone* zone = berlin();
    if (!zone) return nullptr;
    icalcomponent* source = icaltimezone_get_component(zone);
    if (!source) return nullptr;
    Component vtimezone(icalcomponent_new_clone(source));
    // Only the start is cut, at the calendar's first day: cut at both ends,
    // libical 3.0 turns the last rule of some ranges between 1976 and 1985
    // into an RDATE in UTC, which a VTIMEZONE must not hold. So every file
    // carries the same block, right for every day the calendar has.
    icaltimetype start = icaltime_null_time();
    start.year = 1970;
    start.month = 1;
    start.day = 1;
    start.zone = icaltimezone_get_utc_timezone();
    icaltimezone_truncate_vtimezone(vtimezone.get(), start, icaltime_null_time(), 0);
    // libical names its zones "/freeassociation.sourceforge.net/Europe/Berlin"
    // (its prefix is process-wide and cannot be empty); calendar programs
    // match the plain name.
    icalproperty* tzid = icalcomponent_get_first_property(vtimezone.get(), ICAL_TZID_PROPERTY);
    if (tzid) icalproperty_set_tzid(tzid, std::string(kZoneName).c_str());
    return vtimezone;
}

std::optional<int> berlin_utc_offset(const calendar::Day& day, int minute) {
    icaltimezone* zone = berlin();
    if (!zone) return std::nullopt;
    icaltimetype local = icaltime_null_time();
    local.year = day.year;
    local.month = day.month_index + 1;
    local.day = day.mday;
    local.hour = minute / 60;
    local.minute = minute % 60;
    int is_daylight = 0;
    return icaltimezone_get_utc_offset(zone, &local, &is_daylight);
}

}  // namespace sk::exporting
