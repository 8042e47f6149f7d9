// Speed of the calendar core: one day's facts, and the whole "days" table.
#include <benchmark/benchmark.h>

#include <sstream>

#include "calendar/holidays.hpp"
#include "calendar/school_holidays.hpp"
#include "calendar/shift_model.hpp"
#include "calendar/vacation.hpp"
#include "cli/days_table.hpp"

namespace {

using namespace sk;

// Shifts with the vacation exchange, holiday names, name days, week and school
// holidays of one day, as a page cell or a table row needs them.
void BM_OneDay(benchmark::State& state) {
    const auto block = calendar::vacation_block(2024, calendar::kVacationOrder, {4, 25});
    calendar::DayNumber d = calendar::day_number(2024, 0, 1);
    for (auto _ : state) {
        const calendar::Day day = calendar::Day::from_number(d);
        auto shifts = calendar::crew_shifts(1, d, &block);
        auto fixed = calendar::statutory_fixed_holiday(day);
        auto easter = calendar::statutory_easter_holiday(day);
        auto named = calendar::named_easter_day(day);
        auto advent = calendar::advent_day(day);
        auto names = calendar::name_days(day);
        int week = calendar::week_number(day);
        bool school = calendar::is_school_holiday(day);
        benchmark::DoNotOptimize(shifts);
        benchmark::DoNotOptimize(fixed);
        benchmark::DoNotOptimize(easter);
        benchmark::DoNotOptimize(named);
        benchmark::DoNotOptimize(advent);
        benchmark::DoNotOptimize(names);
        benchmark::DoNotOptimize(week);
        benchmark::DoNotOptimize(school);
        if (++d > calendar::day_number(2024, 11, 31)) d = calendar::day_number(2024, 0, 1);
    }
}
BENCHMARK(BM_OneDay);

// The "days" table from 1970-01-01 to 2037-07-31 for one model, without the
// sky and the notes.
void BM_DaysWholeRange(benchmark::State& state) {
    cli::DaysRequest request{calendar::Day::from_number(calendar::kFirstDay),
                             calendar::Day::from_number(calendar::kLastDay),
                             static_cast<int>(state.range(0))};
    for (auto _ : state) {
        std::ostringstream out;
        cli::write_days_table(out, request, {});
        benchmark::DoNotOptimize(out.str().size());
    }
}
BENCHMARK(BM_DaysWholeRange)->Arg(1)->Arg(6)->Unit(benchmark::kMillisecond);

}  // namespace
