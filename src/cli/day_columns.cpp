#include "astro/day_information.hpp"
#include "cli/days_table.hpp"
#include "notes/notes_of_day.hpp"

namespace sk::cli {

DayColumns day_columns(const session::Session& session) {
    DayColumns columns;
    columns.astro = [settings = session.settings](const calendar::Day& day) mutable {
        const astro::DayEvents events = astro::day_events(day, settings);
        // A twilight kind the program does not know is timed as civil
        // twilight and stays civil from then on.
        if (events.twilight_reset) settings.twilight = 0;
        return astro::day_information(events);
    };
    if (session.user_dir_found) {
        columns.notes = [&notes = session.notes](const calendar::Day& day) {
            return notes::notes_of_day(notes, day, notes::Separator::OneLine);
        };
    }
    return columns;
}

}  // namespace sk::cli
