// Any bytes as "Kalendermarkierung.dat": the reader must not crash, a save
// must give back the bytes of every complete record read, and the dialog's
// rules must work on whatever bars were read (reversed or overlapping).
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "marks/calendar_markings.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace sk::marks;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    CalendarMarkings m = parse_calendar_markings(bytes);
    const std::size_t whole = std::min(size / kCalendarMarkingRecord, kMaxCalendarMarkings);
    if (m.items.size() != whole) std::abort();
    if (serialize_calendar_markings(m) != bytes.substr(0, whole * kCalendarMarkingRecord)) std::abort();
    if (m.items.empty()) return 0;

    // Dates within the calendar, taken from the first bar.
    constexpr std::uint32_t kDays = sk::calendar::kLastDay + 1;
    const DayNumber a = static_cast<DayNumber>(static_cast<std::uint32_t>(m.items[0].start) % kDays);
    const DayNumber b = static_cast<DayNumber>(static_cast<std::uint32_t>(m.items[0].end) % kDays);
    const auto at = marking_at(m, a);
    if (at && !m.items[*at].covers(a)) std::abort();
    // A black bar is drawn like no bar.
    std::optional<Rgb> drawn;
    if (at && m.items[*at].colour != sk::calendar::kBlack) drawn = m.items[*at].colour;
    if (marking_colour_of_day(m, a) != drawn) std::abort();
    const CalendarMarking proposal = propose_marking(m, a);
    if (!at && (proposal.start != a || proposal.end != a + 7)) std::abort();

    const std::size_t before = m.items.size();
    const CalendarMarking saved = save_marking(m, a, b, m.items[0].colour);
    if (saved.start > saved.end) std::abort();
    if (m.items.size() < before || m.items.size() > before + 1) std::abort();
    if (!std::is_sorted(m.items.begin(), m.items.end(),
                        [](const CalendarMarking& x, const CalendarMarking& y) { return x.start < y.start; }))
        std::abort();
    if (std::find(m.items.begin(), m.items.end(), saved) == m.items.end()) std::abort();
    delete_marking_at(m, saved.start);
    delete_markings_up_to(m, b);
    for (const CalendarMarking& bar : m.items)
        if (bar.start <= b) std::abort();
    return 0;
}
