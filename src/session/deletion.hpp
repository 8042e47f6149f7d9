// Deleting notes and markings up to a day ("Lösche Notizen und
// Markierungen"): the window's dialog says what to delete, this carries it
// out on the session's notes and markings in the one order that is kept.
#pragma once

#include <string>
#include <vector>

#include "calendar/dates.hpp"
#include "session/session.hpp"

namespace sk::session {

struct DeletionChoice {
    calendar::DayNumber up_to = 0;   // the last day whose daily notes and markings go
    bool daily_notes = false;        // "Tagesnotizen": date key at or before up_to
    bool shift_markings = false;     // "Schichtmarkierungen": on or before up_to
    bool calendar_markings = false;  // "Kalendermarkierungen": starting on or before up_to
    bool periodic_notes = false;     // "Periodische Notizen": all, whatever the date
    bool yearly_notes = false;       // "Jährliche Notizen": all
    bool weekday_notes = false;      // "Wochentag im Monat": all
    friend bool operator==(const DeletionChoice&, const DeletionChoice&) = default;

    bool any() const {
        return daily_notes || shift_markings || calendar_markings || periodic_notes ||
               yearly_notes || weekday_notes;
    }
};

// In this order: the daily notes up to the day, the calendar markings, the
// shift markings, then every periodic, yearly and weekday-in-month note.
// Both markings files are written at once, so that what was deleted stays
// deleted whatever happens to the program afterwards. Returns German
// messages for the files that could not be written; the rest is done.
std::vector<std::string> delete_up_to(Session& session, const DeletionChoice& choice);

}  // namespace sk::session
