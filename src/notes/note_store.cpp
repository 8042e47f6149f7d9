#include "notes/note_store.hpp"

#include <dirent.h>

#include <utility>

#include "notes/note_cipher.hpp"
#include "files/atomic_file.hpp"
#include "files/text_encoding.hpp"

namespace sk::notes {

namespace {

// Closes a directory stream when it goes out of scope.
class DirectoryListing {
public:
    explicit DirectoryListing(const std::filesystem::path& dir) : m_dir(::opendir(dir.c_str())) {}
    ~DirectoryListing() {
        if (m_dir) ::closedir(m_dir);
    }
    DirectoryListing(const DirectoryListing&) = delete;
    DirectoryListing& operator=(const DirectoryListing&) = delete;

    // The next entry's name, empty at the end of the listing.
    std::string_view next() {
        if (!m_dir) return {};
        const dirent* entry = ::readdir(m_dir);
        return entry ? std::string_view(entry->d_name) : std::string_view();
    }

private:
    DIR* m_dir;
};

}  // namespace

NoteStore::NoteStore(std::filesystem::path directory, std::string password_latin9)
    : m_directory(std::move(directory)), m_password(std::move(password_latin9)) {}

void NoteStore::scan_all() {
    for (const NoteKind kind : kNoteKinds)
        m_index.clear(kind);
    if (m_directory.empty()) return;
    DirectoryListing listing(m_directory);
    for (std::string_view name = listing.next(); !name.empty(); name = listing.next())
        m_index.admit(name);
    for (const NoteKind kind : kNoteKinds)
        m_index.finish(kind);
}

void NoteStore::scan(NoteKind kind) {
    m_index.clear(kind);
    if (m_directory.empty()) return;
    DirectoryListing listing(m_directory);
    for (std::string_view name = listing.next(); !name.empty(); name = listing.next())
        m_index.admit(name, kind);
    m_index.finish(kind);
}

std::optional<std::string> NoteStore::read_note(const std::string& name) const {
    if (m_directory.empty()) return std::nullopt;
    const auto stored = files::read_file(m_directory / name, kMaxStoredBytes);
    if (!stored) return std::nullopt;
    return files::latin9_to_utf8(decipher_note(*stored, m_password));
}

std::string NoteStore::read_daily(std::int32_t date_key) const {
    return read_note(daily_file_name(date_key)).value_or(std::string());
}

std::string NoteStore::read_periodic(PeriodicKey key) const {
    return read_note(periodic_file_name(key)).value_or(std::string());
}

std::string NoteStore::read_yearly(std::int32_t day_key) const {
    return read_note(yearly_file_name(day_key)).value_or(std::string());
}

std::string NoteStore::read_weekday(std::int32_t key) const {
    return read_note(weekday_file_name(key)).value_or(std::string());
}

std::optional<std::string> NoteStore::find_weekday(std::int32_t key) const {
    if (!m_index.has_weekday(key)) return std::nullopt;
    return read_note(weekday_file_name(key));
}

std::optional<std::string> NoteStore::write_note(NoteKind kind, const std::string& name,
                                                 std::string_view text) {
    if (m_directory.empty()) return "Es ist kein Verzeichnis für die Notizen gewählt.";
    std::optional<std::string> error;
    if (text.empty()) {
        remove_note(name);
    } else {
        files::EncodeError encode_error;
        const auto latin9 = files::utf8_to_latin9(text, &encode_error);
        if (!latin9) return encode_error.message;
        std::string write_error;
        if (!files::write_file_atomic(m_directory / name, encipher_note(*latin9, m_password),
                                         &write_error))
            error = write_error;
    }
    scan(kind);
    return error;
}

void NoteStore::remove_note(const std::string& name) const {
    if (!m_directory.empty()) files::remove_file(m_directory / name);
}

std::optional<std::string> NoteStore::write_daily(std::int32_t date_key, std::string_view text) {
    if (date_key < kFirstDailyKey || date_key > kLastDailyKey)
        return "Für ein Datum vor 1970 oder nach 2038 kann keine Tagesnotiz gespeichert werden.";
    return write_note(NoteKind::Daily, daily_file_name(date_key), text);
}

std::optional<std::string> NoteStore::write_periodic(PeriodicKey key, std::string_view text) {
    if (key.start < 0) return "Eine periodische Notiz kann nicht vor dem 1. Januar 1970 beginnen.";
    if (key.interval < 1)
        return "Eine periodische Notiz muss sich nach mindestens einem Tag wiederholen.";
    return write_note(NoteKind::Periodic, periodic_file_name(key), text);
}

std::optional<std::string> NoteStore::write_yearly(std::int32_t day_key, std::string_view text) {
    if (day_key < kFirstYearlyKey || day_key > kLastYearlyKey)
        return "Für diesen Tag kann keine jährliche Notiz gespeichert werden.";
    return write_note(NoteKind::Yearly, yearly_file_name(day_key), text);
}

std::optional<std::string> NoteStore::write_weekday(std::int32_t key, std::string_view text) {
    if (key < 0) return "Für diesen Wochentag kann keine Notiz gespeichert werden.";
    return write_note(NoteKind::Weekday, weekday_file_name(key), text);
}

void NoteStore::delete_daily_notes_up_to(std::int32_t date_key) {
    for (const std::int32_t key : m_index.daily)
        if (key <= date_key) remove_note(daily_file_name(key));
    scan(NoteKind::Daily);
}

void NoteStore::delete_all_periodic_notes() {
    for (const PeriodicKey key : m_index.periodic)
        remove_note(periodic_file_name(key));
    m_index.clear(NoteKind::Periodic);
}

void NoteStore::delete_all_yearly_notes() {
    for (const std::int32_t key : m_index.yearly)
        remove_note(yearly_file_name(key));
    m_index.clear(NoteKind::Yearly);
}

void NoteStore::delete_all_weekday_notes() {
    for (const std::int32_t key : m_index.weekday)
        remove_note(weekday_file_name(key));
    m_index.clear(NoteKind::Weekday);
}

}  // namespace sk::notes
