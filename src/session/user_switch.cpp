#include "session/user_switch.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "files/atomic_file.hpp"
#include "files/file_descriptor.hpp"
#include "files/text_encoding.hpp"
#include "session/data_directory.hpp"
#include "settings/settings_file.hpp"

namespace sk::session {

namespace fs = std::filesystem;

namespace {

std::string quoted(const fs::path& path) {
    return "\"" + path.string() + "\"";
}

// Saves what the current user would lose; the error names the user.
std::string save_current(Session& session) {
    const std::vector<std::string> errors = save_on_exit(session);
    if (errors.empty()) return {};
    std::string error =
        "Die Daten des Benutzers \"" + session.user + "\" konnten nicht gespeichert werden:";
    for (const std::string& e : errors)
        error += "\n" + e;
    return error;
}

// Opens `user` below `root` with the session's password (or the given one),
// records the user and the root in its settings and writes them.
SwitchResult open_and_take(Session& session, const fs::path& root, const std::string& user,
                           const std::string& password_utf8) {
    SwitchResult result;
    OpenResult opened = open_session({.data_root = root,
                                      .user = user,
                                      .password_utf8 = password_utf8,
                                      .mode = OpenMode::Create});
    if (!opened.session) {
        result.error = opened.error;
        return result;
    }
    Session& s = *opened.session;
    // The root the user was found in stays the root of the following logins,
    // whatever an older file of this user named.
    s.settings.user_name = user;
    s.settings.user_directory = s.data_root.string();
    result.messages = std::move(opened.messages);
    std::string error;
    if (!settings::write_settings_file(s.user_dir / settings::kSettingsFileName, s.settings,
                                       &error))
        result.messages.push_back("Die Einstellungen konnten nicht gespeichert werden: " + error);
    session = std::move(s);
    return result;
}

// A new private directory beside `target` (".NAME.XXXXXX"), created empty.
std::optional<fs::path> make_staging_directory(const fs::path& target, std::string* error) {
    std::string pattern =
        (target.parent_path() / ("." + target.filename().string() + ".XXXXXX")).string();
    if (!::mkdtemp(pattern.data())) {
        *error = "Im Verzeichnis " + quoted(target.parent_path()) +
                 " konnte nichts angelegt werden: " + std::strerror(errno);
        return std::nullopt;
    }
    return fs::path(pattern);
}

bool sync_directory(const fs::path& dir) {
    const files::FileDescriptor fd(::open(dir.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return fd.get() >= 0 && ::fsync(fd.get()) == 0;
}

// Copies every file of `from` (not the hidden ones: temporary files of
// atomic writes) into `to`, each flushed to disk. Subdirectories are not the
// program's data and stay behind.
std::string copy_user_files(const fs::path& from, const fs::path& to) {
    std::error_code ec;
    fs::directory_iterator it(from, ec);
    if (ec)
        return "Das Verzeichnis " + quoted(from) + " konnte nicht gelesen werden: " + ec.message();
    for (const fs::directory_entry& entry : it) {
        const std::string name = entry.path().filename().string();
        if (name.empty() || name.front() == '.') continue;
        if (!entry.is_regular_file(ec)) continue;
        const auto bytes = files::read_file(entry.path());
        if (!bytes) return "Die Datei " + quoted(entry.path()) + " konnte nicht gelesen werden.";
        std::string error;
        if (!files::write_file_atomic(to / name, *bytes, &error)) return error;
    }
    if (!sync_directory(to))
        return "Das Verzeichnis " + quoted(to) + " konnte nicht gesichert werden.";
    return {};
}

// Puts the finished copy `staging` in the place of `target`. An existing
// target is first renamed aside and removed only once the copy is in place;
// if that fails, it is renamed back.
std::string install_copy(const fs::path& staging, const fs::path& target,
                         std::vector<std::string>& messages) {
    std::error_code ec;
    if (!fs::exists(fs::symlink_status(target, ec))) {
        if (::rename(staging.c_str(), target.c_str()) != 0)
            return "Das Verzeichnis " + quoted(target) +
                   " konnte nicht angelegt werden: " + std::strerror(errno);
        return {};
    }
    std::string error;
    const auto aside = make_staging_directory(target, &error);
    if (!aside) return error;
    // Onto the empty directory just made: rename replaces it.
    if (::rename(target.c_str(), aside->c_str()) != 0) {
        const int err = errno;
        fs::remove(*aside, ec);
        return "Das Verzeichnis " + quoted(target) +
               " konnte nicht ersetzt werden: " + std::strerror(err);
    }
    if (::rename(staging.c_str(), target.c_str()) != 0) {
        const int err = errno;
        ::rename(aside->c_str(), target.c_str());
        return "Das Verzeichnis " + quoted(target) +
               " konnte nicht ersetzt werden: " + std::strerror(err);
    }
    fs::remove_all(*aside, ec);
    if (ec)
        messages.push_back("Die alten Dateien in " + quoted(*aside) +
                           " konnten nicht gelöscht werden: " + ec.message());
    return {};
}

// The settings of the program's start user learn the new root.
void remember_root(const fs::path& start_user_dir, const fs::path& root,
                   std::vector<std::string>& messages) {
    std::error_code ec;
    if (start_user_dir.empty() || !fs::is_directory(start_user_dir, ec)) return;
    const fs::path file = start_user_dir / settings::kSettingsFileName;
    settings::Settings s = settings::read_settings_file(
        file, settings::default_settings(start_user_dir.parent_path().string()));
    if (s.user_directory == root.string()) return;
    s.user_directory = root.string();
    std::string error;
    if (!settings::write_settings_file(file, s, &error))
        messages.push_back(
            "Das neue Programmverzeichnis konnte nicht für den nächsten Start "
            "vermerkt werden: " +
            error);
}

}  // namespace

std::optional<std::string> login_error(std::string_view user, std::string_view password_utf8) {
    if (auto error = settings::user_name_error(user)) return error;
    files::EncodeError encode_error;
    if (!files::utf8_to_latin9(password_utf8, &encode_error))
        return "Das Passwort ist nicht verwendbar: " + encode_error.message;
    return std::nullopt;
}

fs::path login_root(const Session& session) {
    if (const auto external = usable_external_directory(session.settings.user_directory))
        return *external;
    return session.data_root;
}

SwitchResult log_in(Session& session, const std::string& user, const std::string& password_utf8) {
    SwitchResult result;
    if (auto error = login_error(user, password_utf8)) {
        result.error = *error;
        return result;
    }
    if (session.read_only) {
        result.error = "Ohne Fenster ist keine Anmeldung möglich.";
        return result;
    }
    result.error = save_current(session);
    if (!result.ok()) return result;
    return open_and_take(session, login_root(session), user, password_utf8);
}

std::string apply_settings(Session& session, const settings::Settings& s) {
    const settings::Settings old = session.settings;
    session.settings = s;
    if (s.vacation_cycle != old.vacation_cycle)
        session.vacation_order = calendar::rotate_order(calendar::kVacationOrder, s.vacation_cycle);
    if (s.vacation_start_month != old.vacation_start_month ||
        s.vacation_start_day != old.vacation_start_day)
        session.vacation_start = {s.vacation_start_month, s.vacation_start_day};
    if (session.read_only) return {};
    std::string error;
    if (!settings::write_settings_file(session.user_dir / settings::kSettingsFileName, s, &error))
        return "Die Einstellungen konnten nicht gespeichert werden: " + error;
    return {};
}

DataRootTarget data_root_target(const Session& session, const fs::path& new_root) {
    DataRootTarget target;
    std::error_code ec;
    if (new_root.empty() || !fs::is_directory(new_root, ec)) {
        target.error = "Das Verzeichnis " + quoted(new_root) + " gibt es nicht.";
        return target;
    }
    target.root = fs::canonical(new_root, ec);
    if (ec) target.root = fs::absolute(new_root, ec).lexically_normal();
    target.user_dir = target.root / session.user;
    const fs::path current = fs::weakly_canonical(session.data_root, ec);
    if (target.root == current || target.root == session.data_root) {
        target.error = "Das gewählte Verzeichnis ist bereits das Programmverzeichnis.";
        return target;
    }
    const fs::file_status status = fs::status(target.user_dir, ec);
    if (fs::exists(status)) {
        if (!fs::is_directory(status)) {
            target.error = quoted(target.user_dir) + " ist kein Verzeichnis.";
            return target;
        }
        target.user_dir_exists = true;
    }
    return target;
}

SwitchResult change_data_root(Session& session, const fs::path& new_root, ExistingUserDir existing,
                              const fs::path& start_user_dir) {
    SwitchResult result;
    const DataRootTarget target = data_root_target(session, new_root);
    if (!target.error.empty()) {
        result.error = target.error;
        return result;
    }
    if (session.read_only) {
        result.error = "Ohne Fenster kann das Programmverzeichnis nicht geändert werden.";
        return result;
    }
    result.error = save_current(session);
    if (!result.ok()) return result;

    if (!target.user_dir_exists || existing == ExistingUserDir::Replace) {
        std::string error;
        const auto staging = make_staging_directory(target.user_dir, &error);
        if (!staging) {
            result.error = error;
            return result;
        }
        error = copy_user_files(session.user_dir, *staging);
        if (error.empty()) error = install_copy(*staging, target.user_dir, result.messages);
        if (!error.empty()) {
            std::error_code ec;
            fs::remove_all(*staging, ec);
            result.error = error + "\nEs wurde nichts geändert.";
            return result;
        }
    }
    const std::string password = files::latin9_to_utf8(session.password_latin9);
    SwitchResult opened = open_and_take(session, target.root, session.user, password);
    if (!opened.ok()) return opened;
    result.messages.insert(result.messages.end(), opened.messages.begin(), opened.messages.end());
    if (start_user_dir != session.user_dir)
        remember_root(start_user_dir, target.root, result.messages);
    return result;
}

}  // namespace sk::session
