// Calendar markings ("Kalendermarkierung"): coloured bars over a run of
// days, both ends included, painted behind the days on the page. The list
// lives for the whole run and is kept in "Kalendermarkierung.dat". This
// header holds the list, the rules of the marking dialog as plain functions,
// and the file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "calendar/colour.hpp"
#include "calendar/dates.hpp"

namespace sk::marks {

using calendar::DayNumber;
using calendar::Rgb;

// Colour proposed for a new bar.
inline constexpr Rgb kDefaultMarkingColour{239, 194, 161};

struct CalendarMarking {
    DayNumber start = 0;
    DayNumber end = 0;  // not before start, unless a foreign file says so
    Rgb colour;
    // The file's fourth byte of the colour, which means nothing: 0 in the
    // files this program writes, kept as read from a foreign one.
    std::uint8_t colour_top_byte = 0;
    constexpr bool covers(DayNumber d) const { return start <= d && d <= end; }
    friend bool operator==(const CalendarMarking&, const CalendarMarking&) = default;
};

struct CalendarMarkings {
    // Sorted by start after every change of the dialog; a file is taken in
    // the order it is written. Bars may overlap: the first covering bar wins.
    std::vector<CalendarMarking> items;
    bool changed = false;  // must be written when the program ends
};

// Index of the first bar that covers the day, or nullopt.
std::optional<std::size_t> marking_at(const CalendarMarkings& markings, DayNumber day);

// Colour of the first bar that covers the day; nullopt when none does and
// also for a black bar, which cannot be told from an unmarked day (colour 0
// has always meant "no marking").
std::optional<Rgb> marking_colour_of_day(const CalendarMarkings& markings, DayNumber day);

// What the dialog shows when it opens on a day: the covering bar, or for an
// unmarked day an eight-day bar from that day on in the default colour.
CalendarMarking propose_marking(const CalendarMarkings& markings, DayNumber day);

// The dialog's two dates as entered, with the earlier one as start.
CalendarMarking ordered(DayNumber start, DayNumber end, Rgb colour);

// The bar a save of (start, end) overwrites: the first that covers the
// start, else the first that covers the end, else nullopt (a new bar is
// added). Only the two ends are tested, so a new bar that encloses an
// existing one is added beside it.
std::optional<std::size_t> bar_overwritten_by(const CalendarMarkings& markings, DayNumber start,
                                              DayNumber end);

// The dialog's "Speichern": orders the dates, overwrites or adds the bar as
// above and sorts the list by start. Returns the saved bar.
CalendarMarking save_marking(CalendarMarkings& markings, DayNumber start, DayNumber end,
                             Rgb colour);

// Deletes the first bar that covers the day; false when none does. The
// dialog's "Löschen" calls it with the (ordered) start date.
bool delete_marking_at(CalendarMarkings& markings, DayNumber day);

// Deletes every bar that starts on or before the day, whatever its end.
std::size_t delete_markings_up_to(CalendarMarkings& markings, DayNumber day);

// "Kalendermarkierung.dat": no header, records of 12 bytes: start, end and
// colour, each int32 LE, in list order. The reader ignores a truncated last
// record and reads at most kMaxCalendarMarkings records.
inline constexpr std::string_view kCalendarMarkingsFile = "Kalendermarkierung.dat";
inline constexpr std::size_t kCalendarMarkingRecord = 12;
inline constexpr std::size_t kMaxCalendarMarkings = 65536;

CalendarMarkings parse_calendar_markings(std::string_view bytes);
std::string serialize_calendar_markings(const CalendarMarkings& markings);

// From the user's directory; a missing or unreadable file gives no bars.
CalendarMarkings load_calendar_markings(const std::filesystem::path& user_dir);
// Writes the file atomically, or deletes it for an empty list. Clears
// `changed` on success; on failure the old file stays as it was.
bool save_calendar_markings(const std::filesystem::path& user_dir, CalendarMarkings& markings);

}  // namespace sk::marks
