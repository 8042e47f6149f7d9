#include "notes/note_editing.hpp"

#include <algorithm>

#include "files/text_encoding.hpp"
#include "notes/notes_of_day.hpp"

namespace sk::notes {

namespace {

using calendar::Day;

constexpr bool is_continuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

std::optional<std::string> write(NoteStore& store, const NoteRef& note, std::string_view text) {
    switch (note.kind) {
        case NoteKind::Daily:
            return store.write_daily(note.key, text);
        case NoteKind::Periodic:
            return store.write_periodic(note.periodic, text);
        case NoteKind::Yearly:
            return store.write_yearly(note.key, text);
        case NoteKind::Weekday:
            return store.write_weekday(note.key, text);
    }
    return std::nullopt;
}

}  // namespace

std::string editor_text(std::string_view stored) {
    std::string text;
    text.reserve(stored.size());
    for (std::size_t i = 0; i < stored.size(); ++i) {
        if (stored[i] != '\r') {
            text += stored[i];
            continue;
        }
        text += '\n';
        if (i + 1 < stored.size() && stored[i + 1] == '\n') ++i;
    }
    return text;
}

std::string stored_text(std::string_view edited) {
    std::string text;
    text.reserve(edited.size() + edited.size() / 16);
    for (std::size_t i = 0; i < edited.size(); ++i) {
        if (edited[i] != '\r' && edited[i] != '\n') {
            text += edited[i];
            continue;
        }
        text += "\r\n";
        if (edited[i] == '\r' && i + 1 < edited.size() && edited[i + 1] == '\n') ++i;
    }
    return text;
}

namespace {

// Walks the characters of an edited text with their stored length; stops
// where the next character would pass `limit` and returns that byte offset
// (the text's size when everything fits) and the stored length up to it.
std::pair<std::size_t, std::size_t> stored_prefix(std::string_view edited, std::size_t limit) {
    std::size_t length = 0;
    std::size_t i = 0;
    while (i < edited.size()) {
        std::size_t bytes = 1;
        std::size_t weight = 1;
        if (edited[i] == '\r' || edited[i] == '\n') {
            weight = 2;
            if (edited[i] == '\r' && i + 1 < edited.size() && edited[i + 1] == '\n') bytes = 2;
        } else {
            while (i + bytes < edited.size() && is_continuation(edited[i + bytes]))
                ++bytes;
        }
        if (length + weight > limit) break;
        length += weight;
        i += bytes;
    }
    return {i, length};
}

}  // namespace

std::size_t stored_length(std::string_view edited) {
    return stored_prefix(edited, static_cast<std::size_t>(-1) / 2).second;
}

std::optional<std::string> cut_to_note_length(std::string_view edited) {
    const std::size_t end = stored_prefix(edited, kMaxNoteLength).first;
    if (end == edited.size()) return std::nullopt;
    return std::string(edited.substr(0, end));
}

std::string note_cut_message() {
    return "Die Länge der Notiz wurde auf " + std::to_string(kMaxNoteLength) + " Zeichen gekürzt!";
}

std::optional<std::string> refused_note_text(std::string_view edited) {
    files::EncodeError error;
    if (files::utf8_to_latin9(edited, &error)) return std::nullopt;
    return error.message +
           "\r\nDie Notiz wurde nicht gespeichert. Bitte das Zeichen löschen oder ersetzen.";
}

std::string year_placeholder(int year) {
    return "<" + std::to_string(year) + ">. Geburtstag ";
}

std::string editor_title(NoteKind kind, const Day& day) {
    switch (kind) {
        case NoteKind::Daily:
            return notes_window_title(day);
        case NoteKind::Periodic:
            return "Periodische Notizen am " + calendar::format_german_date(day);
        case NoteKind::Yearly:
            return "Jährliche Notizen für den " + calendar::format_german_date(day);
        case NoteKind::Weekday:
            return "Wochentag im Monat";
    }
    return {};
}

std::string file_name(const NoteRef& note) {
    switch (note.kind) {
        case NoteKind::Daily:
            return daily_file_name(note.key);
        case NoteKind::Periodic:
            return periodic_file_name(note.periodic);
        case NoteKind::Yearly:
            return yearly_file_name(note.key);
        case NoteKind::Weekday:
            return weekday_file_name(note.key);
    }
    return {};
}

bool note_exists(const NoteStore& store, const NoteRef& note) {
    const NoteIndex& index = store.index();
    switch (note.kind) {
        case NoteKind::Daily:
            return index.has_daily(note.key);
        case NoteKind::Periodic:
            return std::find(index.periodic.begin(), index.periodic.end(), note.periodic) !=
                   index.periodic.end();
        case NoteKind::Yearly:
            return index.has_yearly(note.key);
        case NoteKind::Weekday:
            return index.has_weekday(note.key);
    }
    return false;
}

std::string read_for_editor(const NoteStore& store, const NoteRef& note) {
    return editor_text(store.read_note(file_name(note)).value_or(std::string()));
}

std::vector<NoteRef> notes_for_editor(const NoteStore& store, NoteKind kind, const Day& day) {
    std::vector<NoteRef> notes;
    const auto add_if_stored = [&](const NoteRef& note) {
        if (note_exists(store, note) && std::find(notes.begin(), notes.end(), note) == notes.end())
            notes.push_back(note);
    };
    switch (kind) {
        case NoteKind::Daily:
            add_if_stored(NoteRef::daily(date_key(day)));
            break;
        case NoteKind::Yearly:
            add_if_stored(NoteRef::yearly(day_key(day)));
            break;
        case NoteKind::Periodic:
            // A key listed twice (two names of one key) is one note to edit.
            for (const PeriodicKey key : periodic_notes_of_day(store, day.number))
                add_if_stored(NoteRef::periodic_note(key));
            break;
        case NoteKind::Weekday: {
            const int weekday = day.weekday();
            const int ordinal = ordinal_in_month(day.mday);
            add_if_stored(NoteRef::weekday(weekday_key(day.month_index, weekday, ordinal)));
            add_if_stored(NoteRef::weekday(weekday_key(kEveryMonth, weekday, ordinal)));
            if (last_weekday_before_29th(day)) {
                add_if_stored(
                    NoteRef::weekday(weekday_key(day.month_index, weekday, kLastOrdinal)));
                add_if_stored(NoteRef::weekday(weekday_key(kEveryMonth, weekday, kLastOrdinal)));
            }
            break;
        }
    }
    return notes;
}

std::string entry_label(std::size_t index, std::size_t count) {
    if (index >= count) return "Neuer Eintrag";
    return "Eintrag " + std::to_string(index + 1) + " von insgesamt " + std::to_string(count);
}

EditorKey editor_key(const std::optional<NoteRef>& shown, const Day& day) {
    EditorKey key;
    key.ordinal = ordinal_in_month(day.mday);
    if (!shown) return key;
    if (shown->kind == NoteKind::Periodic) key.interval = shown->periodic.interval;
    if (shown->kind == NoteKind::Weekday) {
        // 10000 + M*100 + W*10 + O; the notes listed for a day always have this form.
        const std::int32_t fields = shown->key - 10000;
        key.month_code = fields / 100;
        key.ordinal = fields % 10;
    }
    return key;
}

NoteRef save_target(NoteKind kind, const Day& day, const std::optional<NoteRef>& shown,
                    const EditorKey& key) {
    switch (kind) {
        case NoteKind::Daily:
            return NoteRef::daily(date_key(day));
        case NoteKind::Yearly:
            return NoteRef::yearly(day_key(day));
        case NoteKind::Periodic: {
            PeriodicKey target{day.number, key.interval};
            if (shown && shown->kind == NoteKind::Periodic) {
                const PeriodicKey kept{shown->periodic.start, key.interval};
                if (periodic_note_applies(kept, day.number)) target = kept;
            }
            return NoteRef::periodic_note(target);
        }
        case NoteKind::Weekday:
            return NoteRef::weekday(weekday_key(key.month_code, day.weekday(), key.ordinal));
    }
    return {};
}

std::optional<NoteEdit> deletion_of(const std::optional<NoteRef>& shown) {
    if (!shown) return std::nullopt;
    return NoteEdit{shown, *shown, {}};
}

bool overwrites_other_note(const NoteStore& store, const NoteEdit& edit) {
    if (edit.text.empty()) return false;
    if (edit.original && *edit.original == edit.target) return false;
    return note_exists(store, edit.target);
}

std::string_view overwrite_question(NoteKind kind) {
    switch (kind) {
        case NoteKind::Periodic:
            return "Eine Datei mit der gewählten Periode existiert bereits!\r\n"
                   "Soll sie überschrieben werden?";
        case NoteKind::Weekday:
            return "Eine Datei mit der gewählten Wiederholung existiert bereits!\r\n"
                   "Soll sie überschrieben werden?";
        case NoteKind::Daily:
        case NoteKind::Yearly:
            break;
    }
    return "Für diesen Tag gibt es bereits eine Notiz!\r\nSoll sie überschrieben werden?";
}

std::optional<std::string> apply_note_edit(NoteStore& store, const NoteEdit& edit) {
    if (edit.text.empty()) {
        if (!edit.original) return std::nullopt;
        return write(store, *edit.original, {});
    }
    const std::string text = cut_to_note_length(edit.text).value_or(edit.text);
    if (auto refused = refused_note_text(text)) return refused;
    if (auto error = write(store, edit.target, stored_text(text))) return error;
    if (edit.original && *edit.original != edit.target) return write(store, *edit.original, {});
    return std::nullopt;
}

std::size_t entry_after_save(const std::vector<NoteRef>& entries,
                             const std::optional<NoteRef>& saved, std::size_t old_index, int step) {
    const std::size_t last = entries.size();  // the room for a new note
    if (saved) {
        const auto found = std::find(entries.begin(), entries.end(), *saved);
        if (found != entries.end()) {
            const auto at = static_cast<std::size_t>(found - entries.begin());
            if (step < 0) return at == 0 ? 0 : at - 1;
            return std::min(at + 1, last);
        }
    }
    // The saved note left the day (or went): the next entry moved into its place.
    if (step < 0) return old_index == 0 ? 0 : std::min(old_index - 1, last);
    return std::min(old_index, last);
}

}  // namespace sk::notes
