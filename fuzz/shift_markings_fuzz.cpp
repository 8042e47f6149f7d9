// Any bytes as "Schichtmarkierung.dat": the reader must not crash, the list
// it gives must be sorted and findable, a save of it must read back to what
// was saved, and the dialog's rules must keep the list sorted.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "marks/shift_markings.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace sk::marks;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    ShiftMarkings m = parse_shift_markings(bytes);
    if (m.items.size() > kMaxShiftMarkings) std::abort();
    if (!std::is_sorted(m.items.begin(), m.items.end(),
                        [](const ShiftMarking& a, const ShiftMarking& b) { return a.day < b.day; }))
        std::abort();
    for (const ShiftMarking& s : m.items) {
        const ShiftMarking* found = shift_marking_of_day(m, s.day);
        if (!found || found->day != s.day) std::abort();
        (void)code_letter(marking_kind(s.column & 7), s.code);
    }

    const std::string saved = serialize_shift_markings(m);
    if (serialize_shift_markings(parse_shift_markings(saved)) != saved) std::abort();

    // The first record, if any, drives one edit through the dialog's rules.
    if (size >= 6) {
        const int model = static_cast<std::uint8_t>(bytes[4]) & 7;
        const int column = static_cast<std::uint8_t>(bytes[5]) % 6;
        const DayNumber day = static_cast<DayNumber>(m.items.front().day % 30000);
        const Day d = Day::from_number(std::max<DayNumber>(day, 0));
        if (may_mark_day(model, d, column)) {
            (void)dialog_heading(model, column, d);
            const int code = static_cast<std::uint8_t>(bytes[0]) % 9;
            apply_marking(m, d.number, column, code, model);
            if (!std::is_sorted(m.items.begin(), m.items.end(),
                                [](const ShiftMarking& a, const ShiftMarking& b) { return a.day < b.day; }))
                std::abort();
        }
        erase_shift_markings_up_to(m, day);
        if (!m.items.empty() && m.items.front().day <= day) std::abort();
    }
    return 0;
}
