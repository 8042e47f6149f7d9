// Speed of the astronomy: the information line of one day (all rise and set
// searches, every event procedure), of every day the calendar can show, and
// the symbols of a full page of 23 months.
#include <benchmark/benchmark.h>

#include "astro/day_information.hpp"
#include "calendar/dates.hpp"
#include "settings/astro_place.hpp"

namespace {

using sk::calendar::Day;
using sk::calendar::DayNumber;

// Args: year, month, day. 1985 searches from 35 days back; 8 April 2024 has
// a new moon, a solar eclipse and a perigee.
void BM_DayInformationOneDay(benchmark::State& state) {
    const Day day =
        Day::from_date(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)) - 1,
                       static_cast<int>(state.range(2)));
    const sk::astro::Place place = sk::settings::astro_place(sk::settings::Settings{});
    for (auto _ : state)
        benchmark::DoNotOptimize(sk::astro::day_information(day, place));
}
BENCHMARK(BM_DayInformationOneDay)
    ->Args({2024, 1, 2})
    ->Args({2024, 4, 8})
    ->Args({1985, 2, 14})
    ->Unit(benchmark::kMicrosecond);

// 1970-01-01 to 2037-07-31: target below 1.5 s.
void BM_DayInformationWholeCalendar(benchmark::State& state) {
    const sk::astro::Place place = sk::settings::astro_place(sk::settings::Settings{});
    for (auto _ : state) {
        std::size_t length = 0;
        for (DayNumber d = sk::calendar::kFirstDay; d <= sk::calendar::kLastDay; ++d) {
            length += sk::astro::day_information(Day::from_number(d), place).size();
        }
        benchmark::DoNotOptimize(length);
    }
    state.counters["days"] = sk::calendar::kLastDay - sk::calendar::kFirstDay + 1;
}
BENCHMARK(BM_DayInformationWholeCalendar)->Unit(benchmark::kMillisecond);

// 700 days, about 23 months, from the first of the month given.
void BM_PageSymbols(benchmark::State& state) {
    const DayNumber first = sk::calendar::day_number(static_cast<int>(state.range(0)), 0, 1);
    const sk::astro::Place place = sk::settings::astro_place(sk::settings::Settings{});
    for (auto _ : state)
        benchmark::DoNotOptimize(sk::astro::page_symbols(first, first + 699, place));
}
BENCHMARK(BM_PageSymbols)->Arg(1985)->Arg(2024)->Unit(benchmark::kMicrosecond);

}  // namespace
