// The table of headless commands and the pieces they share: the option
// parser and the read-only opening of a user's data.
#pragma once

#include <map>
#include <optional>
#include <ostream>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "calendar/dates.hpp"
#include "calendar/ranges.hpp"
#include "session/session.hpp"

namespace sk::cli {

inline constexpr std::string_view kVersion = "0.1.0";

// A mistake in the arguments; reported as one German line, exit status 2.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

using Args = std::vector<std::string>;

struct Command {
    std::string_view name;
    std::string_view summary;
    std::string_view usage;  // whole help text of the command, ends with a newline
    int (*run)(const Args& args, std::ostream& out, std::ostream& err);
};

const std::vector<Command>& commands();
Command days_command();
Command holidays_command();
Command school_holidays_command();
Command accounts_command();
Command render_command();
Command ics_command();
Command csv_command();
Command next_command();
const Command* find_command(std::string_view name);

// "--name value" or "--name=value" options and positional arguments. Every
// option must be one the command declared; a repeated option keeps its last
// value.
class Options {
public:
    Options(const Args& args, std::set<std::string, std::less<>> valued,
            std::set<std::string, std::less<>> flags = {});

    std::optional<std::string> value(std::string_view name) const;
    bool flag(std::string_view name) const;
    const std::vector<std::string>& positional() const { return m_positional; }

    // Typed readers: throw UsageError with a German message on bad values.
    std::optional<calendar::Day> date(std::string_view name) const;
    std::optional<int> integer(std::string_view name, calendar::Range<int> allowed) const;

private:
    std::map<std::string, std::string, std::less<>> m_values;
    std::set<std::string, std::less<>> m_flags;
    std::vector<std::string> m_positional;
};

// The day a command treats as today: --today or the system clock (local time).
calendar::Day today(const Options& options);

// The user's data as a command sees them: the session opened read-only, so
// nothing is created and nothing written. The data root is --data-dir, else
// "SKDaten" in the current directory; the user --user, else "Programm"; the
// password --password (as typed, used as its ISO-8859-15 bytes) for the
// commands that take it. The settings come from DIR/NAME/Einstellungen.dat
// only when --data-dir is given, otherwise they are the defaults, so that a
// stray "SKDaten" in the current directory does not change the calendar;
// with --data-dir naming no user directory a note goes to `err`. Notes,
// markings and accounts are read from DIR/NAME whenever it exists, or, with
// UserData::OnlyWithDataDir, only when --data-dir is given. A bad user name
// or password is a UsageError.
enum class UserData { WhereFound, OnlyWithDataDir };
session::Session open_user_session(const Options& options, std::ostream& err,
                                   UserData user_data = UserData::WhereFound);

// Parses a whole number; nullopt unless the whole text is one.
std::optional<long long> parse_integer(std::string_view text);

}  // namespace sk::cli
