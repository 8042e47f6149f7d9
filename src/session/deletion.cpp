#include "session/deletion.hpp"

#include "marks/calendar_markings.hpp"
#include "marks/shift_markings.hpp"
#include "notes/note_keys.hpp"

namespace sk::session {

std::vector<std::string> delete_up_to(Session& session, const DeletionChoice& choice) {
    std::vector<std::string> errors;
    if (choice.daily_notes)
        session.notes.delete_daily_notes_up_to(
            notes::date_key(calendar::Day::from_number(choice.up_to)));
    if (choice.calendar_markings &&
        marks::delete_markings_up_to(session.calendar_markings, choice.up_to) > 0 &&
        !marks::save_calendar_markings(session.user_dir, session.calendar_markings))
        errors.emplace_back(kCalendarMarkingsNotSaved);
    if (choice.shift_markings &&
        !marks::delete_shift_markings_up_to(session.user_dir, session.shift_markings, choice.up_to))
        errors.emplace_back(kShiftMarkingsNotSaved);
    if (choice.periodic_notes) session.notes.delete_all_periodic_notes();
    if (choice.yearly_notes) session.notes.delete_all_yearly_notes();
    if (choice.weekday_notes) session.notes.delete_all_weekday_notes();
    return errors;
}

}  // namespace sk::session
