#include "astro/day_information.hpp"
#include "cli/days_table.hpp"
#include "notes/notes_of_day.hpp"
#include "settings/astro_place.hpp"

namespace sk::cli {

DayColumns day_columns(const session::Session& session) {
    DayColumns columns;
    columns.astro = [place = settings::astro_place(session.settings)](const calendar::Day& day) {
        return astro::day_information(day, place);
    };
    if (session.user_dir_found) {
        columns.notes = [&notes = session.notes](const calendar::Day& day) {
            return notes::notes_of_day(notes, day, notes::Separator::OneLine);
        };
    }
    return columns;
}

}  // namespace sk::cli
