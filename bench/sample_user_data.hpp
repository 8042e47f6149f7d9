// The user data the page and window benchmarks draw: 1,000 notes of the
// four kinds (900 daily, 50 yearly, 40 periodic, 10 weekday-in-month) and
// 500 markings of each kind on random days of [first, last]. The seed is
// fixed, so every run measures the same data.
#pragma once

#include <algorithm>
#include <random>

#include "marks/calendar_markings.hpp"
#include "marks/shift_markings.hpp"
#include "notes/note_keys.hpp"
#include "notes/note_store.hpp"

namespace sk::bench {

struct SampleMarkings {
    marks::CalendarMarkings bars;
    marks::ShiftMarkings shifts;
};

// Writes the notes into `notes` and returns the markings (not saved).
inline SampleMarkings write_sample_notes(notes::NoteStore& notes, calendar::DayNumber first,
                                         calendar::DayNumber last) {
    using calendar::Day;
    using calendar::DayNumber;
    std::mt19937 random(7);
    std::uniform_int_distribution<DayNumber> day(first, last);
    for (int i = 0; i < 900; ++i)
        notes.write_daily(notes::date_key(Day::from_number(day(random))), "Notiz");
    for (int i = 0; i < 50; ++i)
        notes.write_yearly(notes::day_key(Day::from_number(day(random))), "Jahrestag");
    for (int i = 0; i < 40; ++i)
        notes.write_periodic({day(random), static_cast<std::int32_t>(14 + random() % 60)},
                             "Termin");
    for (int i = 0; i < 10; ++i)
        notes.write_weekday(
            notes::weekday_key(static_cast<int>(random() % 13), static_cast<int>(random() % 7),
                               static_cast<int>(random() % 5)),
            "Monatlich");
    SampleMarkings m;
    for (int i = 0; i < 500; ++i) {
        const DayNumber start = day(random);
        marks::save_marking(m.bars, start, start + static_cast<DayNumber>(random() % 10),
                            marks::kDefaultMarkingColour);
        m.shifts.items.push_back({day(random), static_cast<std::int8_t>(random() % 4 + 1),
                                  static_cast<std::int8_t>(random() % 6)});
    }
    std::sort(m.shifts.items.begin(), m.shifts.items.end(),
              [](const auto& a, const auto& b) { return a.day < b.day; });
    return m;
}

}  // namespace sk::bench
