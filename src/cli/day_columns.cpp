#include "cli/days_table.hpp"
#include "cli/notes_column.hpp"

namespace sk::cli {

DayColumns day_columns(const UserContext& context, const Options& options, const calendar::Day&) {
    DayColumns columns;
    columns.notes = notes_column(context, options);
    return columns;
}

}  // namespace sk::cli
