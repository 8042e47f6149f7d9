// The state of one run of the calendar: where the data lives, who is logged
// in with which password, the settings, and the user's notes, markings and
// accounts as loaded from disk. Starting a session is the start-up load;
// `save_on_exit` writes back what must survive the run.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "calendar/vacation.hpp"
#include "marks/account_files.hpp"
#include "marks/calendar_markings.hpp"
#include "marks/shift_markings.hpp"
#include "notes/note_store.hpp"
#include "settings/settings.hpp"

namespace sk::session {

struct Session {
    std::filesystem::path data_root;  // holds the users' directories (absolute)
    std::string user;
    std::filesystem::path user_dir;
    std::string password_latin9;  // held in memory only; empty: notes in plain text

    settings::Settings settings;
    // The vacation order and earliest start of this run: they start from the
    // settings, and the keys Y and F change them without saving.
    calendar::VacationOrder vacation_order = calendar::kVacationOrder;
    calendar::VacationStart vacation_start;

    notes::NoteStore notes;
    marks::ShiftMarkings shift_markings;
    marks::CalendarMarkings calendar_markings;
    marks::AccountState accounts;
};

struct StartResult {
    std::optional<Session> session;
    std::string error;                  // German, when there is no session
    std::vector<std::string> messages;  // German, to be shown but not fatal
};

// The start-up load: checks the user name and password, creates the data
// root and the user's directory (mode 0700), reads "Einstellungen.dat",
// checks the external data directory of the settings (a missing one is
// reported with "Das externe Programmverzeichnis '...' wurde nicht
// gefunden!" and reset to the data root), scans the four kinds of notes and
// loads the shift and calendar markings and the two accounts.
StartResult start_session(const std::filesystem::path& data_root, const std::string& user,
                          std::string_view password_utf8);

// The save on exit: the shift and calendar markings when they changed, the
// settings always. Every file is replaced atomically; what failed is listed
// as German messages (the other files are still written).
std::vector<std::string> save_on_exit(Session& session);

}  // namespace sk::session
