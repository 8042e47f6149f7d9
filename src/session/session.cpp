#include "session/session.hpp"

#include "session/data_directory.hpp"
#include "settings/settings_file.hpp"
#include "files/text_encoding.hpp"

namespace sk::session {

OpenResult open_session(const OpenRequest& request) {
    OpenResult result;
    if (const auto error = settings::user_name_error(request.user)) {
        result.error = *error;
        return result;
    }
    files::EncodeError encode_error;
    const auto password = files::utf8_to_latin9(request.password_utf8, &encode_error);
    if (!password) {
        result.error = "Das Passwort ist nicht verwendbar: " + encode_error.message;
        return result;
    }
    const bool read_only = request.mode == OpenMode::ReadOnly;
    const DirectoryResult dir = read_only ? locate_user_directory(request.data_root, request.user)
                                          : ensure_user_directory(request.data_root, request.user);
    if (!dir.ok()) {
        result.error = dir.error;
        return result;
    }

    Session s;
    s.data_root = dir.path.parent_path();
    s.user = request.user;
    s.user_dir = dir.path;
    std::error_code ec;
    s.user_dir_found = std::filesystem::is_directory(s.user_dir, ec);
    s.read_only = read_only;
    s.password_latin9 = *password;
    s.settings = settings::default_settings(s.data_root.string());
    if (request.read_settings)
        s.settings =
            settings::read_settings_file(s.user_dir / settings::kSettingsFileName, s.settings);
    if (!usable_external_directory(s.settings.user_directory)) {
        if (!s.settings.user_directory.empty() && s.settings.user_directory != s.data_root.string())
            result.messages.push_back("Das externe Programmverzeichnis '" +
                                      s.settings.user_directory + "' wurde nicht gefunden!");
        s.settings.user_directory = s.data_root.string();
    }
    s.vacation_order = calendar::rotate_order(calendar::kVacationOrder, s.settings.vacation_cycle);
    s.vacation_start = {s.settings.vacation_start_month, s.settings.vacation_start_day};

    s.notes = notes::NoteStore(s.user_dir, s.password_latin9);
    if (request.read_user_data && s.user_dir_found) {
        s.notes.scan_all();
        s.shift_markings = marks::load_shift_markings(s.user_dir);
        s.calendar_markings = marks::load_calendar_markings(s.user_dir);
        s.accounts = marks::load_accounts(s.user_dir);
    }
    result.session = std::move(s);
    return result;
}

void rotate_vacation_order(Session& s) {
    s.vacation_order = calendar::rotate_order(s.vacation_order, 1);
}

marks::PlanContext plan_context(const Session& s) {
    return {s.settings.model, s.vacation_order, s.vacation_start, s.settings.target_hours_38,
            s.settings.target_hours_40};
}

std::vector<std::string> save_on_exit(Session& s) {
    std::vector<std::string> errors;
    if (s.read_only) return errors;
    if (s.shift_markings.changed && !marks::save_shift_markings(s.user_dir, s.shift_markings))
        errors.emplace_back(kShiftMarkingsNotSaved);
    if (s.calendar_markings.changed &&
        !marks::save_calendar_markings(s.user_dir, s.calendar_markings))
        errors.emplace_back(kCalendarMarkingsNotSaved);
    std::string error;
    if (!settings::write_settings_file(s.user_dir / settings::kSettingsFileName, s.settings, &error))
        errors.push_back("Die Einstellungen konnten nicht gespeichert werden: " + error);
    return errors;
}

}  // namespace sk::session
