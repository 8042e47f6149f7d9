// Changing whose data the window shows: the login of another user (or the
// same user with another password), and the move of the data root ("Ein
// neues Programmverzeichnis wählen"). Both first save what the current user
// would lose (the markings when they changed, the settings always), then
// open the new place with `open_session` and write its settings. When a
// step fails, the session is left exactly as it was and the error says why.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "session/session.hpp"

namespace sk::session {

struct SwitchResult {
    std::string error;                  // German; empty on success
    std::vector<std::string> messages;  // German, to be shown but not fatal
    bool ok() const { return error.empty(); }
};

// Why the login dialog cannot accept a name and a password, as a German
// sentence; nullopt when it can. The name's rules are
// `settings::user_name_error`; the password must be storable in ISO-8859-15
// (notes are enciphered byte by byte).
std::optional<std::string> login_error(std::string_view user, std::string_view password_utf8);

// The data root a login opens the user in: the settings' "Anwenderverzeichnis"
// (which the session start left pointing at an existing directory), else the
// session's data root.
std::filesystem::path login_root(const Session& session);

// The login: checks name and password (refused: nothing happens), saves the
// current user's markings and settings (a failed save refuses the login, so
// nothing is lost), opens the user's directory below `login_root` (created
// with mode 0700 when new), reads settings, notes, markings and accounts,
// records the user as "Anwendername" and the data root as
// "Anwenderverzeichnis", and writes "Einstellungen.dat". The password stays
// in the session's memory only.
SwitchResult log_in(Session& session, const std::string& user, const std::string& password_utf8);

// What a move of the data root to `new_root` would meet.
struct DataRootTarget {
    std::filesystem::path root;      // absolute
    std::filesystem::path user_dir;  // root / user
    bool user_dir_exists = false;    // then the caller asks what to do with it
    std::string error;               // German: the move is not possible
};
DataRootTarget data_root_target(const Session& session, const std::filesystem::path& new_root);

enum class ExistingUserDir {
    Replace,   // the current user's files replace the directory's content
    TakeOver,  // the files found there are used as they are
};

// Moves the session to `new_root`: saves the current user's data, copies
// every file of the user's directory into a new directory beside the target
// and only when all copies are on disk puts it in the target's place (an
// existing target is removed after that, with `Replace`); with `TakeOver`
// an existing target is used unchanged and nothing is copied. Then opens the
// user there, sets "Anwenderverzeichnis" to the new root and writes the
// settings. The old directory is left untouched. `start_user_dir` is the
// user directory the program opens at its start; its settings learn the new
// root too, so that the next start's logins find it (a missing or unwritable
// file there is only reported).
SwitchResult change_data_root(Session& session, const std::filesystem::path& new_root,
                              ExistingUserDir existing,
                              const std::filesystem::path& start_user_dir);

// The settings dialog's result: taken into the session and written to
// "Einstellungen.dat" at once. A changed "UrlaubZyklus" sets the run's
// vacation order anew and a changed earliest start the run's start (so the
// keys Y and F of this run are kept otherwise). Returns the German message
// of a failed write; the settings stay in the session and are written again
// on exit.
std::string apply_settings(Session& session, const settings::Settings& settings);

// The question before a move onto an existing user directory.
inline constexpr std::string_view kExistingDirectoryQuestion =
    "Das Verzeichnis existiert bereits! Sollen bereits vorhandene Dateien gelöscht und "
    "überschrieben werden?";

}  // namespace sk::session
