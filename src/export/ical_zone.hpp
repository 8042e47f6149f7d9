// The plan's time zone, Europe/Berlin, as libical knows it from the system's
// zoneinfo: the VTIMEZONE block of an iCalendar file and the offset from UTC
// of a local clock time. Shift times are wall-clock times in this zone, so a
// night across a clock change is an hour shorter or longer.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "calendar/dates.hpp"

struct icalcomponent_impl;

namespace sk::exporting {

inline constexpr std::string_view kZoneName = "Europe/Berlin";
inline constexpr std::string_view kNoZoneMessage =
    "die Zeitzone Europe/Berlin ist auf diesem System nicht verfügbar (Paket tzdata)";

struct ComponentDeleter {
    void operator()(icalcomponent_impl* component) const;
};
using Component = std::unique_ptr<icalcomponent_impl, ComponentDeleter>;

// The VTIMEZONE with TZID "Europe/Berlin" covering every day from 1970 on;
// null when the system has no zone data.
Component berlin_vtimezone();

// Seconds east of UTC of the local time `minute` after midnight of `day` in
// Berlin: 3600 or 7200. nullopt when the system has no zone data.
std::optional<int> berlin_utc_offset(const calendar::Day& day, int minute);

}  // namespace sk::exporting
