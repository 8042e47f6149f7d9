// One user's notes on disk: the directory that holds the note files, the
// password they are enciphered with (ISO-8859-15 bytes, empty for plain
// text) and the index of the keys present, one list per kind. The store is
// the file boundary of the notes: it takes and gives UTF-8 text and keeps
// ISO-8859-15 bytes on disk. Every write replaces its file atomically and
// rescans the index of its kind, so the index mirrors the directory as far as
// this program changed it; files changed by others are seen at the next scan.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "notes/note_keys.hpp"

namespace sk::notes {

class NoteStore {
public:
    // A store that holds no notes and reads nothing.
    NoteStore() = default;
    // The indexes stay empty until the first scan.
    NoteStore(std::filesystem::path directory, std::string password_latin9);

    const std::filesystem::path& directory() const { return m_directory; }
    const std::string& password() const { return m_password; }
    const NoteIndex& index() const { return m_index; }

    // Rebuilds the indexes from the directory: all four in one listing, or
    // one kind. An unreadable directory leaves them empty.
    void scan_all();
    void scan(NoteKind kind);

    // The deciphered text as UTF-8; empty when the file cannot be read. Only
    // the first kMaxStoredBytes bytes of a file are taken.
    std::string read_daily(std::int32_t date_key) const;
    std::string read_periodic(PeriodicKey key) const;
    std::string read_yearly(std::int32_t day_key) const;
    std::string read_weekday(std::int32_t key) const;
    // nullopt when there is no such note: the key is not in the weekday index
    // or its file cannot be opened. Tells a missing note from an empty one.
    std::optional<std::string> find_weekday(std::int32_t key) const;
    // The text of the note file of that name ("20240215.txt"); nullopt when
    // it cannot be opened.
    std::optional<std::string> read_note(const std::string& file_name) const;

    // Stores a UTF-8 text under its key; an empty text deletes the note.
    // Then rescans the kind. Returns a German message and leaves the file as
    // it was when the text holds a character ISO-8859-15 cannot store, when
    // the key could never be read back by the scan, or when the file cannot
    // be written.
    std::optional<std::string> write_daily(std::int32_t date_key, std::string_view text);
    std::optional<std::string> write_periodic(PeriodicKey key, std::string_view text);
    std::optional<std::string> write_yearly(std::int32_t day_key, std::string_view text);
    std::optional<std::string> write_weekday(std::int32_t key, std::string_view text);

    // Deletes every daily note whose date key is at or before `date_key`,
    // then rescans. A missing file is not an error.
    void delete_daily_notes_up_to(std::int32_t date_key);
    // Deletes the file of every indexed note of the kind, whatever its date,
    // then empties that index.
    void delete_all_periodic_notes();
    void delete_all_yearly_notes();
    void delete_all_weekday_notes();

private:
    std::optional<std::string> write_note(NoteKind kind, const std::string& name,
                                          std::string_view text);
    void remove_note(const std::string& name) const;

    std::filesystem::path m_directory;
    std::string m_password;
    NoteIndex m_index;
};

}  // namespace sk::notes
