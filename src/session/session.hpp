// The state of one run of the calendar: where the data lives, who is logged
// in with which password, the settings, and the user's notes, markings and
// accounts as loaded from disk. Opening a session is the start-up load, for
// the window and for every headless command alike; `save_on_exit` writes
// back what must survive the window's run.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "calendar/vacation.hpp"
#include "marks/account_files.hpp"
#include "marks/accounts.hpp"
#include "marks/calendar_markings.hpp"
#include "marks/shift_markings.hpp"
#include "notes/note_store.hpp"
#include "settings/settings.hpp"
#include "settings/users.hpp"

namespace sk::session {

struct Session {
    std::filesystem::path data_root;  // holds the users' directories (absolute)
    std::string user;
    std::filesystem::path user_dir;  // absolute
    // False only for a read-only session whose user has no directory yet:
    // then everything below is at its defaults.
    bool user_dir_found = true;
    bool read_only = false;       // opened by a command: save_on_exit writes nothing
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

enum class OpenMode {
    Create,    // the window: the data root and the user's directory are made
    ReadOnly,  // headless commands: nothing is created and nothing written
};

// Whose data to open and what to read of them. The window reads everything;
// a command may keep the settings at their defaults or leave the user's data
// unread (see cli::open_user_session).
struct OpenRequest {
    std::filesystem::path data_root{};  // relative to the current directory or absolute
    std::string user{settings::kDefaultUser};
    std::string password_utf8{};  // as typed; empty: the notes are plain text
    OpenMode mode = OpenMode::Create;
    bool read_settings = true;   // "Einstellungen.dat"; else the default settings
    bool read_user_data = true;  // notes, markings and accounts; else none
};

struct OpenResult {
    std::optional<Session> session;
    std::string error;                  // German, when there is no session
    std::vector<std::string> messages;  // German, to be shown but not fatal
};

// The start-up load: checks the user name and the password (a character
// ISO-8859-15 cannot hold is refused by name), creates the data root and the
// user's directory (mode 0700) in the mode Create, reads "Einstellungen.dat",
// checks the external data directory of the settings (a missing one is
// reported with "Das externe Programmverzeichnis '...' wurde nicht
// gefunden!" and reset to the data root in memory), sets the run's vacation
// order ("UrlaubZyklus" rotations) and earliest start, scans the four kinds
// of notes and loads the shift and calendar markings and the two accounts.
// In the mode ReadOnly a missing user directory is no error: the session
// then holds the defaults and `user_dir_found` is false.
OpenResult open_session(const OpenRequest& request);

// Key Y: this run's vacation order rotated once more; not saved.
void rotate_vacation_order(Session& session);

// The plan the accounts are computed against: the model of the settings and
// this run's vacation order and earliest start, so that Y and F reach the
// accounts as they reach the page.
marks::PlanContext plan_context(const Session& session);

// What a failed save of a markings file says.
inline constexpr std::string_view kShiftMarkingsNotSaved =
    "Die Schichtmarkierungen konnten nicht gespeichert werden.";
inline constexpr std::string_view kCalendarMarkingsNotSaved =
    "Die Kalendermarkierungen konnten nicht gespeichert werden.";

// The save on exit: the shift and calendar markings when they changed, the
// settings always. Every file is replaced atomically; what failed is listed
// as German messages (the other files are still written). A read-only
// session writes nothing.
std::vector<std::string> save_on_exit(Session& session);

}  // namespace sk::session
