#include "marks/calendar_markings.hpp"

#include <algorithm>
#include <utility>

#include "files/atomic_file.hpp"
#include "marks/records.hpp"

namespace sk::marks {

namespace {

// Eight days: the day itself and the seven following.
constexpr int kProposedExtraDays = 7;

}  // namespace

std::optional<std::size_t> marking_at(const CalendarMarkings& markings, DayNumber day) {
    const auto& items = markings.items;
    const auto it = std::find_if(items.begin(), items.end(),
                                 [day](const CalendarMarking& m) { return m.covers(day); });
    if (it == items.end()) return std::nullopt;
    return static_cast<std::size_t>(it - items.begin());
}

std::optional<Rgb> marking_colour_of_day(const CalendarMarkings& markings, DayNumber day) {
    const auto at = marking_at(markings, day);
    if (!at || markings.items[*at].colour == calendar::kBlack) return std::nullopt;
    return markings.items[*at].colour;
}

CalendarMarking propose_marking(const CalendarMarkings& markings, DayNumber day) {
    if (const auto at = marking_at(markings, day)) return markings.items[*at];
    return {day, day + kProposedExtraDays, kDefaultMarkingColour};
}

CalendarMarking ordered(DayNumber start, DayNumber end, Rgb colour) {
    if (end < start) std::swap(start, end);
    return {start, end, colour};
}

std::optional<std::size_t> bar_overwritten_by(const CalendarMarkings& markings, DayNumber start,
                                              DayNumber end) {
    if (const auto at = marking_at(markings, start)) return at;
    return marking_at(markings, end);
}

CalendarMarking save_marking(CalendarMarkings& markings, DayNumber start, DayNumber end,
                             Rgb colour) {
    const CalendarMarking bar = ordered(start, end, colour);
    if (const auto at = bar_overwritten_by(markings, bar.start, bar.end))
        markings.items[*at] = bar;
    else
        markings.items.push_back(bar);
    std::stable_sort(markings.items.begin(), markings.items.end(),
                     [](const CalendarMarking& a, const CalendarMarking& b) { return a.start < b.start; });
    markings.changed = true;
    return bar;
}

bool delete_marking_at(CalendarMarkings& markings, DayNumber day) {
    const auto at = marking_at(markings, day);
    if (!at) return false;
    markings.items.erase(markings.items.begin() + static_cast<std::ptrdiff_t>(*at));
    markings.changed = true;
    return true;
}

std::size_t delete_markings_up_to(CalendarMarkings& markings, DayNumber day) {
    const auto removed = std::erase_if(markings.items,
                                       [day](const CalendarMarking& m) { return m.start <= day; });
    if (removed > 0) markings.changed = true;
    return removed;
}

CalendarMarkings parse_calendar_markings(std::string_view bytes) {
    CalendarMarkings markings;
    const std::size_t count = std::min(bytes.size() / kCalendarMarkingRecord, kMaxCalendarMarkings);
    markings.items.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t at = i * kCalendarMarkingRecord;
        const auto colour = static_cast<std::uint32_t>(get_i32(bytes, at + 8));
        markings.items.push_back({get_i32(bytes, at), get_i32(bytes, at + 4),
                                  Rgb::from_value(colour),
                                  static_cast<std::uint8_t>(colour >> 24)});
    }
    return markings;
}

std::string serialize_calendar_markings(const CalendarMarkings& markings) {
    std::string bytes;
    bytes.reserve(markings.items.size() * kCalendarMarkingRecord);
    for (const CalendarMarking& m : markings.items) {
        put_i32(bytes, m.start);
        put_i32(bytes, m.end);
        const std::uint32_t colour = m.colour.value() | std::uint32_t{m.colour_top_byte} << 24;
        put_i32(bytes, static_cast<std::int32_t>(colour));
    }
    return bytes;
}

CalendarMarkings load_calendar_markings(const std::filesystem::path& user_dir) {
    const auto bytes = files::read_file(user_dir / kCalendarMarkingsFile,
                                           kMaxCalendarMarkings * kCalendarMarkingRecord);
    if (!bytes) return {};
    return parse_calendar_markings(*bytes);
}

bool save_calendar_markings(const std::filesystem::path& user_dir, CalendarMarkings& markings) {
    if (!write_or_remove(user_dir / kCalendarMarkingsFile, serialize_calendar_markings(markings)))
        return false;
    markings.changed = false;
    return true;
}

}  // namespace sk::marks
