// The table of headless commands and the pieces they share: the option
// parser and the loading of a user's settings from a data directory.
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
#include "settings/settings.hpp"

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

// The user's place: the data root (--data-dir, else "SKDaten" in the current
// directory), the user (--user, else "Programm") and the settings read from
// DIR/NAME/Einstellungen.dat when --data-dir is given, else the defaults.
struct UserContext {
    std::string data_root;
    std::string user;
    std::string user_dir;
    bool data_dir_given = false;
    settings::Settings settings;
};
UserContext user_context(const Options& options, std::ostream& err);

// Parses a whole number; nullopt unless the whole text is one.
std::optional<long long> parse_integer(std::string_view text);

}  // namespace sk::cli
