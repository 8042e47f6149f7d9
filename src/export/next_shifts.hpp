// A crew's next duties at a glance, for a panel, a status bar or a phone
// shortcut: short German lines ("Mo 24.11. Frühschicht 6:00–14:00") or the
// same as a JSON array with ISO dates and times (with their offset from UTC
// in Berlin).
#pragma once

#include <string>
#include <vector>

#include "export/duties.hpp"
#include "export/ical_export.hpp"

namespace sk::exporting {

// One line per duty, each ending with "\n".
std::string next_text(const std::vector<Duty>& duties);
// "[" ... "]\n", one object per line: date, weekday, summary, letter,
// marked, allDay, and start and end ("2024-03-30T22:00:00+01:00", null for
// a whole day).
ExportText next_json(const std::vector<Duty>& duties);

// "6:00–14:00" for a shift, "" for a duty of the whole day.
std::string hours_text(const Duty& duty);

}  // namespace sk::exporting
