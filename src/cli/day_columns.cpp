#include "cli/days_table.hpp"

namespace sk::cli {

DayColumns day_columns(const UserContext&, const Options&, const calendar::Day&) {
    return {};
}

}  // namespace sk::cli
