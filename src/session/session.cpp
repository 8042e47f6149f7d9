#include "session/session.hpp"

#include "session/data_directory.hpp"
#include "settings/settings_file.hpp"
#include "files/text_encoding.hpp"
#include "settings/users.hpp"

namespace sk::session {

StartResult start_session(const std::filesystem::path& data_root, const std::string& user,
                          std::string_view password_utf8) {
    StartResult result;
    if (const auto error = settings::user_name_error(user)) {
        result.error = *error;
        return result;
    }
    files::EncodeError encode_error;
    const auto password = files::utf8_to_latin9(password_utf8, &encode_error);
    if (!password) {
        result.error = "Das Passwort ist nicht verwendbar: " + encode_error.message;
        return result;
    }
    const DirectoryResult dir = ensure_user_directory(data_root, user);
    if (!dir.ok()) {
        result.error = dir.error;
        return result;
    }

    Session s;
    s.data_root = dir.path.parent_path();
    s.user = user;
    s.user_dir = dir.path;
    s.password_latin9 = *password;
    s.settings = settings::read_settings_file(s.user_dir / settings::kSettingsFileName,
                                              settings::default_settings(s.data_root.string()));
    if (!usable_external_directory(s.settings.user_directory)) {
        if (!s.settings.user_directory.empty() && s.settings.user_directory != s.data_root.string())
            result.messages.push_back("Das externe Programmverzeichnis '" +
                                      s.settings.user_directory + "' wurde nicht gefunden!");
        s.settings.user_directory = s.data_root.string();
    }
    s.vacation_order = calendar::rotate_order(calendar::kVacationOrder, s.settings.vacation_cycle);
    s.vacation_start = {s.settings.vacation_start_month, s.settings.vacation_start_day};

    s.notes = notes::NoteStore(s.user_dir, s.password_latin9);
    s.notes.scan_all();
    s.shift_markings = marks::load_shift_markings(s.user_dir);
    s.calendar_markings = marks::load_calendar_markings(s.user_dir);
    s.accounts = marks::load_accounts(s.user_dir);
    result.session = std::move(s);
    return result;
}

std::vector<std::string> save_on_exit(Session& s) {
    std::vector<std::string> errors;
    if (s.shift_markings.changed && !marks::save_shift_markings(s.user_dir, s.shift_markings))
        errors.push_back("Die Schichtmarkierungen konnten nicht gespeichert werden.");
    if (s.calendar_markings.changed &&
        !marks::save_calendar_markings(s.user_dir, s.calendar_markings))
        errors.push_back("Die Kalendermarkierungen konnten nicht gespeichert werden.");
    std::string error;
    if (!settings::write_settings_file(s.user_dir / settings::kSettingsFileName, s.settings, &error))
        errors.push_back("Die Einstellungen konnten nicht gespeichert werden: " + error);
    return errors;
}

}  // namespace sk::session
