#include "cli/commands.hpp"

#include <charconv>
#include <ctime>
#include <filesystem>
#include <iostream>

#include "files/text_encoding.hpp"
#include "settings/users.hpp"

namespace sk::cli {

namespace {

std::vector<Command> build_commands() {
    return {days_command(), holidays_command(), school_holidays_command(), accounts_command(),
            render_command(), ics_command(), csv_command(), next_command()};
}

}  // namespace

const std::vector<Command>& commands() {
    static const std::vector<Command> table = build_commands();
    return table;
}

const Command* find_command(std::string_view name) {
    for (const Command& c : commands())
        if (c.name == name) return &c;
    return nullptr;
}

std::optional<long long> parse_integer(std::string_view text) {
    long long value = 0;
    if (text.empty()) return std::nullopt;
    const char* first = text.data();
    if (*first == '+') ++first;
    const auto [ptr, ec] = std::from_chars(first, text.data() + text.size(), value);
    if (ec != std::errc() || ptr != text.data() + text.size()) return std::nullopt;
    return value;
}

Options::Options(const Args& args, std::set<std::string, std::less<>> valued,
                 std::set<std::string, std::less<>> flags) {
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        if (a.size() > 2 && a.rfind("--", 0) == 0) {
            std::string name = a.substr(2);
            std::optional<std::string> inline_value;
            if (const auto eq = name.find('='); eq != std::string::npos) {
                inline_value = name.substr(eq + 1);
                name.resize(eq);
            }
            if (flags.count(name)) {
                if (inline_value) throw UsageError("die Option --" + name + " hat keinen Wert");
                m_flags.insert(name);
            } else if (valued.count(name)) {
                if (inline_value) {
                    m_values[name] = *inline_value;
                } else {
                    if (i + 1 >= args.size())
                        throw UsageError("der Option --" + name + " fehlt ein Wert");
                    m_values[name] = args[++i];
                }
            } else {
                throw UsageError("unbekannte Option --" + name);
            }
        } else {
            m_positional.push_back(a);
        }
    }
}

std::optional<std::string> Options::value(std::string_view name) const {
    const auto it = m_values.find(name);
    if (it == m_values.end()) return std::nullopt;
    return it->second;
}

bool Options::flag(std::string_view name) const { return m_flags.count(name) > 0; }

std::optional<calendar::Day> Options::date(std::string_view name) const {
    const auto text = value(name);
    if (!text) return std::nullopt;
    const auto day = calendar::parse_iso_date(*text);
    if (!day)
        throw UsageError("\"" + *text + "\" ist kein gültiges Datum für --" + std::string(name) +
                         " (erwartet JJJJ-MM-TT)");
    return day;
}

std::optional<int> Options::integer(std::string_view name, calendar::Range<int> allowed) const {
    const auto text = value(name);
    if (!text) return std::nullopt;
    const auto number = parse_integer(*text);
    if (!number || *number < allowed.min || *number > allowed.max)
        throw UsageError("\"" + *text + "\" ist kein gültiger Wert für --" + std::string(name) +
                         " (erlaubt: " + std::to_string(allowed.min) + " bis " +
                         std::to_string(allowed.max) + ")");
    return static_cast<int>(*number);
}

calendar::Day today(const Options& options) {
    if (auto day = options.date("today")) return *day;
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return calendar::Day::from_date(local.tm_year + 1900, local.tm_mon, local.tm_mday);
}

session::Session open_user_session(const Options& options, std::ostream& err, UserData user_data) {
    const auto data_dir = options.value("data-dir");
    const std::string data_root = data_dir.value_or(std::string(settings::kDefaultDataRoot));
    if (data_root.empty()) throw UsageError("das Datenverzeichnis (--data-dir) ist leer");
    const std::string user = options.value("user").value_or(std::string(settings::kDefaultUser));
    if (const auto error = settings::user_name_error(user)) throw UsageError(*error);
    const std::string password = options.value("password").value_or("");
    files::EncodeError encode_error;
    if (!files::utf8_to_latin9(password, &encode_error))
        throw UsageError("das Passwort (--password) ist nicht verwendbar: " + encode_error.message);

    session::OpenRequest request;
    request.data_root = data_root;
    request.user = user;
    request.password_utf8 = password;
    request.mode = session::OpenMode::ReadOnly;
    request.read_settings = data_dir.has_value();
    request.read_user_data = data_dir.has_value() || user_data == UserData::WhereFound;
    session::OpenResult opened = session::open_session(request);
    if (!opened.session) throw UsageError(opened.error);
    if (data_dir && !opened.session->user_dir_found)
        err << "schichtkalender: Hinweis: das Verzeichnis \""
            << (std::filesystem::path(data_root) / user).string()
            << "\" gibt es nicht; es gelten die Standardeinstellungen.\n";
    return std::move(*opened.session);
}

}  // namespace sk::cli
