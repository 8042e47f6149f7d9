// The four kinds of note and how a note is named: every note is one file in
// the user's directory whose base name is a numeric key and whose extension
// tells the kind. This header holds the keys of a day, the file names built
// from keys, the reading of keys back out of directory entries, and the
// in-memory index of the keys present on disk. Month indexes in every key are
// zero-based (January = 0): 15 March 2024 is 20240215.txt.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "calendar/dates.hpp"

namespace sk::notes {

enum class NoteKind { Daily, Periodic, Yearly, Weekday };

inline constexpr std::array<NoteKind, 4> kNoteKinds = {NoteKind::Daily, NoteKind::Periodic,
                                                       NoteKind::Yearly, NoteKind::Weekday};

constexpr std::string_view extension(NoteKind kind) {
    switch (kind) {
        case NoteKind::Daily:
            return ".txt";
        case NoteKind::Periodic:
            return ".tnt";
        case NoteKind::Yearly:
            return ".jnt";
        case NoteKind::Weekday:
            return ".wmt";
    }
    return {};
}

// Keys the scan admits; anything outside is some other file.
inline constexpr std::int32_t kFirstDailyKey = 19700001;  // 1 January 1970
inline constexpr std::int32_t kLastDailyKey = 20381131;   // 31 December 2038
inline constexpr std::int32_t kFirstYearlyKey = 1;        // 1 January
inline constexpr std::int32_t kLastYearlyKey = 1131;      // 31 December

// Stored bytes taken from a note file; the rest of a longer file is ignored.
// The cut applies to the bytes on disk, so an enciphered note (three digits
// per character) comes back cut after 2730 characters and a two-digit group.
inline constexpr std::size_t kMaxStoredBytes = 8192;
// Longest text the editors keep, in characters.
inline constexpr std::size_t kMaxNoteLength = 8191;

// Weekday-in-month codes: month code 12 is "every month", ordinal 4 "last".
inline constexpr int kEveryMonth = 12;
inline constexpr int kLastOrdinal = 4;

// year*10000 + month index*100 + day: the daily note key.
constexpr std::int32_t date_key(const calendar::Day& day) {
    return day.year * 10000 + day.month_index * 100 + day.mday;
}

// month index*100 + day: the yearly note key (1 for 1 January, 1124 for 24 December).
constexpr std::int32_t day_key(const calendar::Day& day) {
    return day.month_index * 100 + day.mday;
}

// Which occurrence of its weekday a day of the month is: 0 for days 1-7, 1
// for 8-14, 2 for 15-21, 3 for 22-28, 4 for 29-31. Defined as the whole
// part of mday / 7.1 so that days 7, 14, 21 and 28 stay in the week they
// end; 10 * mday / 71 is the same value without floating point (71 is
// prime, so the quotient is never a whole number for days 1 to 31).
constexpr int ordinal_in_month(int mday) {
    return mday * 10 / 71;
}

// 10000 + M*100 + W*10 + O with M the month index or kEveryMonth, W the
// weekday (0 = Sunday) and O the ordinal (kLastOrdinal = last).
constexpr std::int32_t weekday_key(int month_code, int weekday, int ordinal) {
    return 10000 + month_code * 100 + weekday * 10 + ordinal;
}

struct PeriodicKey {
    calendar::DayNumber start = 0;  // day number the note was entered for
    std::int32_t interval = 1;      // repeat every `interval` days, at least 1
    friend constexpr bool operator==(const PeriodicKey&, const PeriodicKey&) = default;
};

// File names, all plain decimal without padding or sign.
std::string daily_file_name(std::int32_t date_key);
std::string periodic_file_name(PeriodicKey key);
std::string yearly_file_name(std::int32_t day_key);
std::string weekday_file_name(std::int32_t key);

// The value of the leading decimal digits of `text`: reading stops at the
// first other character, no digits give 0 ("215.jnt" is 215, "-5" is 0).
// nullopt when the digits exceed the 32-bit range; such names are skipped.
std::optional<std::int32_t> numeric_value(std::string_view text);

// The kind whose pattern ("*.txt", ...) a directory entry matches. Names
// starting with "." are hidden, as the shell's patterns treat them, and
// match no kind; the temporary files of atomic writes are among them.
std::optional<NoteKind> kind_of_name(std::string_view name);

// Keys read back from directory entries of the matching kind; nullopt when
// the name does not pass the kind's admission rule.
std::optional<std::int32_t> daily_key_of_name(
    std::string_view name);  // first 8 characters, in range
std::optional<std::int32_t> yearly_key_of_name(
    std::string_view name);  // first 8 characters, in range
std::optional<PeriodicKey> periodic_key_of_name(std::string_view name);  // "S.N.tnt", N > 0
std::optional<std::int32_t> weekday_key_of_name(std::string_view name);  // any "*.wmt"

// The keys of the note files present, one list per kind. Daily, yearly and
// weekday keys are ascending; the periodic notes keep the directory's
// listing order, which is the order they are joined in.
struct NoteIndex {
    std::vector<std::int32_t> daily;
    std::vector<std::int32_t> yearly;
    std::vector<std::int32_t> weekday;
    std::vector<PeriodicKey> periodic;

    bool has_daily(std::int32_t date_key) const;
    bool has_yearly(std::int32_t day_key) const;
    bool has_weekday(std::int32_t key) const;

    void clear(NoteKind kind);
    // Takes one directory entry into the list of its kind when it matches
    // `kind` (or any kind) and passes that kind's rule; false otherwise.
    bool admit(std::string_view name, std::optional<NoteKind> kind = std::nullopt);
    // Puts the sorted lists in order after a scan.
    void finish(NoteKind kind);
};

}  // namespace sk::notes
