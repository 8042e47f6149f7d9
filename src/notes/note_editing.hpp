// What the note editors decide before anything is written: the text as the
// editor holds it and as the file stores it, the length limit, which notes
// an editor offers for a day and pages through, where a note is saved when
// its repeat changes, when to ask before overwriting, and the save itself.
// The editors are GTK windows; everything they decide is here, so that it
// is the same for every caller and tested without a display.
//
// Text in the editor is UTF-8 with "\n" line ends; note files end their
// lines with "\r\n", as notes have always been stored.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "calendar/dates.hpp"
#include "notes/note_keys.hpp"
#include "notes/note_store.hpp"

namespace sk::notes {

// Line ends of the editor ("\n") and of the files ("\r\n"). A lone "\r"
// counts as a line end in either direction.
std::string editor_text(std::string_view stored);
std::string stored_text(std::string_view edited);

// Length of an edited text as it will be stored, in characters: a line end
// counts two ("\r\n"). The limit of kMaxNoteLength applies to this length,
// so that a note of full length is read back whole.
std::size_t stored_length(std::string_view edited);

// The text cut to its first kMaxNoteLength stored characters (a line end
// that does not fit whole is dropped); nullopt when it fits.
std::optional<std::string> cut_to_note_length(std::string_view edited);

// Asked when an editor with changes is left or paged away from ("Frage").
inline constexpr std::string_view kSaveChangesQuestion =
    "Sollen die Änderungen gespeichert werden?";

// "Die Länge der Notiz wurde auf 8191 Zeichen gekürzt!", titled "Info".
std::string note_cut_message();

// nullopt when the text can be stored; otherwise a German message that
// names the first character ISO-8859-15 cannot hold and says that nothing
// was saved.
std::optional<std::string> refused_note_text(std::string_view edited);

// What the yearly editor's "Einsetzen" puts into the text for a year:
// "<1980>. Geburtstag " (with its trailing blank).
std::string year_placeholder(int year);

// The editor's window title for a kind and the cursor day: "Notizen für
// den 15.03.2024", "Periodische Notizen am ...", "Jährliche Notizen für den
// ...", "Wochentag im Monat".
std::string editor_title(NoteKind kind, const calendar::Day& day);

// One note file: its kind and key.
struct NoteRef {
    NoteKind kind = NoteKind::Daily;
    std::int32_t key = 0;    // date key, day key or weekday key
    PeriodicKey periodic{};  // periodic notes only
    friend bool operator==(const NoteRef&, const NoteRef&) = default;

    static NoteRef daily(std::int32_t date_key) { return {NoteKind::Daily, date_key, {}}; }
    static NoteRef periodic_note(PeriodicKey key) { return {NoteKind::Periodic, 0, key}; }
    static NoteRef yearly(std::int32_t day_key) { return {NoteKind::Yearly, day_key, {}}; }
    static NoteRef weekday(std::int32_t key) { return {NoteKind::Weekday, key, {}}; }
};

std::string file_name(const NoteRef& note);
// In the index of its kind, that is on disk as far as the program knows.
bool note_exists(const NoteStore& store, const NoteRef& note);
// The note's text with the editor's line ends; empty when there is none.
std::string read_for_editor(const NoteStore& store, const NoteRef& note);

// The notes an editor opened on a day offers, in the order it pages
// through them: the daily or yearly note of the day when there is one; the
// periodic notes that apply, in index order; the weekday-in-month notes
// that apply: for the day's own ordinal this month, then every month, and
// on the last such weekday within days 22 to 28 also "last" this month,
// then every month. Each editor has room for a new note after these.
std::vector<NoteRef> notes_for_editor(const NoteStore& store, NoteKind kind,
                                      const calendar::Day& day);

// "Eintrag k von insgesamt n" for the k-th (from 1) of n notes; "Neuer
// Eintrag" for the room for a new note after them (index == count).
std::string entry_label(std::size_t index, std::size_t count);

// The repeat the periodic and weekday-in-month editors set. Month code
// kEveryMonth is every month, ordinal kLastOrdinal the last.
struct EditorKey {
    int interval = 7;  // days; a new periodic note repeats weekly
    int ordinal = 0;
    int month_code = kEveryMonth;
    friend bool operator==(const EditorKey&, const EditorKey&) = default;
};

// What the fields show for a note, or for a new note on the day: weekly,
// the day's own ordinal, every month.
EditorKey editor_key(const std::optional<NoteRef>& shown, const calendar::Day& day);

// Where the text of the editor goes when saved. Daily and yearly notes:
// the day's note. Periodic notes: a new note starts on the day; a shown
// note keeps its start as long as the day still lies on its repeat with
// the chosen interval, and otherwise starts on the day, so that the note
// always stays on the day it was edited on. Weekday-in-month notes: the
// day's weekday with the chosen ordinal and month.
NoteRef save_target(NoteKind kind, const calendar::Day& day, const std::optional<NoteRef>& shown,
                    const EditorKey& key);

// A save asked for by an editor: the note it showed (nullopt for a new
// one), where the text goes, and the text with the editor's line ends. An
// empty text deletes the shown note and nothing else.
struct NoteEdit {
    std::optional<NoteRef> original;
    NoteRef target;
    std::string text;
    friend bool operator==(const NoteEdit&, const NoteEdit&) = default;
};

// The deletion of the shown note ("Lösche Notiz"); nullopt for a new note,
// which has nothing to delete.
std::optional<NoteEdit> deletion_of(const std::optional<NoteRef>& shown);

// True when saving would replace another note: the text is not empty, the
// target is not the shown note, and a note is stored under the target. The
// editor then asks "Eine Datei mit der gewählten Periode (Wiederholung)
// existiert bereits! Soll sie überschrieben werden?".
bool overwrites_other_note(const NoteStore& store, const NoteEdit& edit);
std::string_view overwrite_question(NoteKind kind);

// Carries out a save. Text ISO-8859-15 cannot hold is refused before any
// file is touched. The new text is written first; only when that worked is
// a shown note under another key deleted, so a moved note is never lost and
// never left behind twice. The text is cut to the length limit. Returns a
// German message when nothing or not everything could be done.
std::optional<std::string> apply_note_edit(NoteStore& store, const NoteEdit& edit);

// Which entry a paging editor shows after the shown entry was saved as
// `saved` (nullopt: deleted) and the notes of the day were listed anew as
// `entries`, when the user paged by `step` (-1 or +1) from `old_index`.
// Entries past the last note mean the room for a new note.
std::size_t entry_after_save(const std::vector<NoteRef>& entries,
                             const std::optional<NoteRef>& saved, std::size_t old_index, int step);

}  // namespace sk::notes
