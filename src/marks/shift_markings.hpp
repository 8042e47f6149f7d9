// Shift markings ("Schichtmarkierung"): for single days, how the user's own
// duty actually went (worked, off, vacation, course, sick, paid absence, or
// in the four-crew models which shift was worked). The list lives for the
// whole run, is shown on the page, counted by the accounts and kept in
// "Schichtmarkierung.dat". This header holds the list, the rules of the
// marking dialog as plain functions, and the file.
//
// The column of a marking is the number of the main window's key 1..4 that
// opened the dialog. In models 0 to 5 (kind A) it stands for a shift:
// 1 Frühschicht, 2 Spätschicht, 3 Nachtschicht, 4 Verfügung. In models 6
// and 7 (kind B) it is the page column "Schicht A" to "Schicht D". Whatever
// value a file holds is kept and written back unchanged.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "calendar/dates.hpp"

namespace sk::marks {

using calendar::Day;
using calendar::DayNumber;

struct ShiftMarking {
    DayNumber day = 0;
    std::int8_t column = 0;  // see above; never 0 when made by the dialog
    std::int8_t code = 0;    // of the model's kind, see below
    friend bool operator==(const ShiftMarking&, const ShiftMarking&) = default;
};

struct ShiftMarkings {
    // Sorted by day. Only a file written by something else can hold a day
    // twice; the first of them is the one that counts and is written back.
    std::vector<ShiftMarking> items;
    bool changed = false;  // must be written when the program ends
};

// Models 0..5 mark what happened on the day (kind A), models 6 and 7 also
// which shift was worked (kind B).
enum class MarkingKind { A, B };
constexpr MarkingKind marking_kind(int model) { return model >= 6 ? MarkingKind::B : MarkingKind::A; }

namespace kind_a {
inline constexpr int kWorked = 0;       // "Arbeitseinsatz (X)"
inline constexpr int kFree = 1;         // "Freizeit"
inline constexpr int kVacation = 2;     // "Urlaub"
inline constexpr int kCourse = 3;       // "Lehrgang"
inline constexpr int kSick = 4;         // "Krank"
inline constexpr int kPaidAbsence = 5;  // "Ausfallbezahlung, kurzer Wechsel"
inline constexpr int kRemove = 6;       // removes the marking, never stored
}  // namespace kind_a

namespace kind_b {
inline constexpr int kEarly = 0;
inline constexpr int kLate = 1;
inline constexpr int kNight = 2;
inline constexpr int kFree = 3;
inline constexpr int kVacation = 4;
inline constexpr int kCourse = 5;
inline constexpr int kSick = 6;
inline constexpr int kPaidAbsence = 7;
inline constexpr int kRemove = 8;
}  // namespace kind_b

// The dialog's radio buttons in code order, the last one removing.
std::span<const std::string_view> code_labels(MarkingKind kind);
constexpr int remove_code(MarkingKind kind) {
    return kind == MarkingKind::A ? kind_a::kRemove : kind_b::kRemove;
}

// Short text for a marked day on the page: X F U L K A in kind A; Fr Sp Na
// for the worked shift and F U L K A for the rest in kind B. "?" for a code
// the kind does not have (only a foreign file holds such).
std::string_view code_letter(MarkingKind kind, int code);

inline constexpr std::string_view kDialogTitle = "Schichtmarkierung eingeben";

// The shift label of the dialog's heading: kind A by column mod 4
// (" Verfügung", " Frühschicht", " Spätschicht", " Nachtschicht"), kind B
// " Schicht A" to " Schicht D" for columns 1 to 4. Empty for a column that
// cannot be marked.
std::string_view heading_label(int model, int column);
// The heading line: the label, " am " and the date as dd.mm.yyyy.
std::string dialog_heading(int model, int column, const Day& day);

// The dialog's keys X F U L K A and Delete select the codes 0..6 by
// position, in both kinds, so in kind B "F" gives "Spät" and Delete gives
// "Krank". Letters count in either case. Key values are characters, with
// kDeleteKey for the Delete key.
inline constexpr char32_t kDeleteKey = U'\x7F';
std::optional<int> dialog_key_code(char32_t key);

// The shift s the model gives a column on a day: in kind A the shift the
// column stands for (1..3, column 4 gives 0), in kind B the code of that
// page column on that day. -1 when the column does not exist.
int column_shift(int model, DayNumber d, int column);

// Whether the dialog opens for the day and column. Models 0, 1, 3, 4, 5: a
// shift, but not the night shift on a Sunday. Model 2: shift 1, 2 or 3.
// Models 6, 7: any code but 0. Only days the calendar shows can be marked.
bool may_mark_day(int model, const Day& day, int column);

// Why a day cannot be marked, the one rule behind may_mark_day.
enum class MarkRefusal {
    None,             // it can
    OutsideCalendar,  // before 1 January 1970 or after 31 July 2037
    NoSuchColumn,     // a column other than 1..4
    Standby,          // kind A: column 4; kind B: the column's standby week
    SundayNight,      // kind A except model 2: the night shift of a Sunday
};
MarkRefusal mark_refusal(int model, const Day& day, int column);
// The window's message for a refused day, saying why; empty for None.
std::string refusal_message(MarkRefusal refusal, int model, const Day& day, int column);

// The column chooser "Schichtspalte eingeben" of the note menu: the labels of
// the columns 1..4, in the order and with the numbers of the main window's
// keys 1..4. Kind A "Frühschicht", "Spätschicht", "Nachtschicht",
// "Verfügung"; kind B "Schicht A" to "Schicht D".
inline constexpr std::string_view kColumnChooserTitle = "Schichtspalte eingeben";
std::span<const std::string_view> column_labels(MarkingKind kind);

// The radio button the dialog selects when it opens: the code of the day's
// marking; nullopt (nothing selected) for an unmarked day and for a code the
// kind does not have, so that Return alone never changes a day.
std::optional<int> preselected_code(MarkingKind kind, const ShiftMarking* marking);

// The marking of a day, or nullptr. Binary search: the page asks for every
// day it draws.
const ShiftMarking* shift_marking_of_day(const ShiftMarkings& markings, DayNumber day);

// Applies the dialog's result: the day's marking is overwritten or a new one
// added; the remove code of the model's kind deletes it instead (and leaves
// an unmarked day as it is). Keeps the list sorted. True when the list
// changed; `changed` is set then.
bool apply_marking(ShiftMarkings& markings, DayNumber day, int column, int code, int model);

// Removes every marking on or before `day`; returns how many went. The
// caller saves at once (see delete_shift_markings_up_to below).
std::size_t erase_shift_markings_up_to(ShiftMarkings& markings, DayNumber day);

// "Schichtmarkierung.dat": no header, records of 6 bytes: day (int32 LE),
// column (int8), code (int8). The reader ignores a truncated last record and
// reads at most kMaxShiftMarkings records (more than twice as many days as
// the calendar has). The writer skips day 0 and every record whose day equals
// the one written just before, so a day never appears twice after a save.
inline constexpr std::string_view kShiftMarkingsFile = "Schichtmarkierung.dat";
inline constexpr std::size_t kShiftMarkingRecord = 6;
inline constexpr std::size_t kMaxShiftMarkings = 65536;

ShiftMarkings parse_shift_markings(std::string_view bytes);
std::string serialize_shift_markings(const ShiftMarkings& markings);

// From the user's directory; a missing or unreadable file gives no markings.
ShiftMarkings load_shift_markings(const std::filesystem::path& user_dir);
// Writes the file atomically, or deletes it when nothing is left to write.
// Clears `changed` on success; on failure the old file stays as it was.
bool save_shift_markings(const std::filesystem::path& user_dir, ShiftMarkings& markings);
// The deletion dialog's operation: erase up to the day, then save.
bool delete_shift_markings_up_to(const std::filesystem::path& user_dir, ShiftMarkings& markings,
                                 DayNumber day);

}  // namespace sk::marks
