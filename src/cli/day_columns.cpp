#include "astro/day_information.hpp"
#include "cli/days_table.hpp"
#include "cli/notes_column.hpp"

namespace sk::cli {

DayColumns day_columns(const UserContext& context, const Options& options, const calendar::Day&) {
    DayColumns columns;
    columns.astro = [settings = context.settings](const calendar::Day& day) mutable {
        const astro::DayEvents events = astro::day_events(day, settings);
        // A twilight kind the program does not know is timed as civil
        // twilight and stays civil from then on.
        if (events.twilight_reset) settings.twilight = 0;
        return astro::day_information(events);
    };
    columns.notes = notes_column(context, options);
    return columns;
}

}  // namespace sk::cli
