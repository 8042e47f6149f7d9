#include "astro/day_information.hpp"
#include "cli/days_table.hpp"
#include "cli/notes_column.hpp"
#include "settings/astro_place.hpp"

namespace sk::cli {

DayColumns day_columns(const UserContext& context, const Options& options, const calendar::Day&) {
    DayColumns columns;
    columns.astro = [place = settings::astro_place(context.settings)](const calendar::Day& day) {
        return astro::day_information(day, place);
    };
    columns.notes = notes_column(context, options);
    return columns;
}

}  // namespace sk::cli
