// Which notes apply to a calendar day, and their texts joined into one: for
// the status line, the day panel, the window of today's notes and the
// overview of the shown months. Whether a day has notes at all (the page's
// highlight) is answered from the indexes alone; the joined text reads the
// files afresh on every call, so an edit shows at once. All text is UTF-8.
//
// The joining order is fixed: the daily note, the periodic notes in index
// order, the yearly note (with its year placeholder filled in), then the
// weekday-in-month notes for the day's own ordinal and, when the day is the
// last of its weekday in days 22 to 28, those for "last".
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "calendar/dates.hpp"
#include "notes/note_store.hpp"

namespace sk::notes {

enum class Separator {
    MultiLine,  // "\r\n\r\n", for windows
    OneLine,    // no-break space, "|", no-break space, for the status line
};

inline constexpr std::string_view kMultiLineSeparator = "\r\n\r\n";
inline constexpr std::string_view kOneLineSeparator = "\u00A0|\u00A0";

constexpr std::string_view separator_text(Separator separator) {
    return separator == Separator::MultiLine ? kMultiLineSeparator : kOneLineSeparator;
}

// Placed between the earlier and the later notes of the overview, where today lies.
inline constexpr std::string_view kOverviewDivider =
    "\r\n________________________________________________________\r\n";

// Messages for an empty result, titled "Information".
inline constexpr std::string_view kNoNotesForDay =
    "Für den gewählten Tag sind keine Notizen vorhanden!";
inline constexpr std::string_view kNoNotesInRange =
    "Im angezeigten Zeitraum sind keine Notizen vorhanden!";

// Title of a window showing one day's notes: "Notizen für den 15.03.2024".
std::string notes_window_title(const calendar::Day& day);

// A periodic note applies to a day when its start lies on the day's place
// in the repeat. There is no test against the start day, so a note also
// appears on the matching days before it.
bool periodic_note_applies(PeriodicKey key, calendar::DayNumber day);

// The day is the last of its weekday in the month but still has ordinal 3
// (days 22 to 28): the "last" weekday-in-month notes apply to it too.
bool last_weekday_before_29th(const calendar::Day& day);

// The periodic notes that apply to a day, in index order.
std::vector<PeriodicKey> periodic_notes_of_day(const NoteStore& store, calendar::DayNumber day);
int periodic_note_count(const NoteStore& store, calendar::DayNumber day);

// Bit 1: a weekday-in-month note for the day's own ordinal (this month or
// every month) exists. Bit 2: the day lies in days 22 to 28 but is the last
// of its weekday in the month, and a "last" note for it exists.
inline constexpr int kOwnOrdinalNote = 1;
inline constexpr int kLastWeekNote = 2;
int weekday_note_flags(const NoteStore& store, const calendar::Day& day);

// The page's highlight: any note of any kind applies. Index lookups only.
bool day_has_notes(const NoteStore& store, const calendar::Day& day);

// The notes of the day joined with the separator, empty when none applies.
// An indexed daily, periodic or yearly note whose file cannot be read still
// adds its (empty) entry; only one trailing separator is removed.
std::string notes_of_day(const NoteStore& store, const calendar::Day& day, Separator separator);

// The notes of many days in one go, for a page or the overview: each note
// file is read at most once while the pass lives, so a note repeating every
// week is not read a hundred times for one page. Keep a pass only as long as
// the one computation; a new pass reads the files afresh.
class NotesPass {
  public:
    explicit NotesPass(const NoteStore& store) : m_store(store) {}
    std::string notes_of_day(const calendar::Day& day, Separator separator);

  private:
    const std::optional<std::string>& file_text(const std::string& file_name);
    std::string note(const std::string& file_name);
    std::optional<std::string> weekday_note(std::int32_t key);
    std::string weekday_note_or_every_month(int month_code, int weekday, int ordinal);
    void append_weekday_notes(const calendar::Day& day, int ordinal, std::string_view separator,
                              std::string& text);

    const NoteStore& m_store;
    std::unordered_map<std::string, std::optional<std::string>> m_texts;  // by file name
};

// Yearly notes count years: "<1980>. Geburtstag" shown in 2024 reads
// "44. Geburtstag". Looks at the first "<" and the first ">" after it; one to
// four characters between them whose leading digits give a number other than
// 0 have every "<number>" in the text replaced by year - number, and the
// search starts again. Anything else stops it, as does a replacement that
// finds nothing to replace ("<0198>" names 198, but "<198>" is not there).
std::string apply_year_placeholder(std::string text, int year);

// The overview of every note in the shown months, walked month by month and
// day by day from the month of `first_shown` to the month of `last_shown`:
// each day with notes as its date, "\r\n" and its notes, the days apart by a
// line holding one space, the divider where today lies, and every run of
// blank lines closed up. Empty when no day has notes.
std::string notes_overview(const NoteStore& store, calendar::DayNumber first_shown,
                           calendar::DayNumber last_shown, const calendar::Day& today);

}  // namespace sk::notes
