#include "settings/settings_file.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <map>

#include "calendar/ranges.hpp"
#include "files/atomic_file.hpp"

namespace sk::settings {

namespace {

enum class Kind { kString, kInt, kByte, kFloat, kDouble };

struct Key {
    std::string_view group;
    std::string_view name;  // UTF-8; written in ISO-8859-15
    Kind kind;
    std::string Settings::*text = nullptr;
    int Settings::*integer = nullptr;
    float Settings::*single = nullptr;
    double Settings::*real = nullptr;
};

constexpr std::string_view kProgram = "Programmeinstellungen";
constexpr std::string_view kAstronomy = "Astronomie";

constexpr Key text_key(std::string_view g, std::string_view n, std::string Settings::*m) {
    return Key{g, n, Kind::kString, m};
}
constexpr Key int_key(std::string_view g, std::string_view n, int Settings::*m, bool byte) {
    return Key{g, n, byte ? Kind::kByte : Kind::kInt, nullptr, m};
}
constexpr Key float_key(std::string_view g, std::string_view n, float Settings::*m) {
    return Key{g, n, Kind::kFloat, nullptr, nullptr, m};
}
constexpr Key double_key(std::string_view g, std::string_view n, double Settings::*m) {
    return Key{g, n, Kind::kDouble, nullptr, nullptr, nullptr, m};
}

// In the order in which the file is written.
constexpr std::array kKeys = {
    text_key(kProgram, "Fontname", &Settings::font_name),
    int_key(kProgram, "Fontgröße", &Settings::font_size, false),
    int_key(kProgram, "Fontstil", &Settings::font_style, false),
    int_key(kProgram, "Schichtspalten", &Settings::columns, true),
    int_key(kProgram, "Schulferien anzeigen", &Settings::school_holidays_shown, true),
    int_key(kProgram, "Wochennummer anzeigen", &Settings::week_numbers_shown, true),
    text_key(kProgram, "Anwenderverzeichnis", &Settings::user_directory),
    text_key(kProgram, "Anwendername", &Settings::user_name),
    int_key(kProgram, "Schichtart", &Settings::model, true),
    int_key(kProgram, "UrlaubBlockAnzeige", &Settings::vacation_block_shown, true),
    float_key(kProgram, "Sollstunden_38", &Settings::target_hours_38),
    float_key(kProgram, "Sollstunden_40", &Settings::target_hours_40),
    int_key(kProgram, "UrlaubStartMonat", &Settings::vacation_start_month, false),
    int_key(kProgram, "UrlaubStartTag", &Settings::vacation_start_day, false),
    int_key(kProgram, "UrlaubZyklus", &Settings::vacation_cycle, false),
    double_key(kAstronomy, "Breite", &Settings::latitude),
    double_key(kAstronomy, "Länge", &Settings::longitude),
    double_key(kAstronomy, "Zeitzone", &Settings::time_zone),
    int_key(kAstronomy, "Sommerzeit automatisch", &Settings::auto_summer_time, true),
    text_key(kAstronomy, "Ortsname", &Settings::place_name),
    int_key(kAstronomy, "Dämmerung", &Settings::twilight, true),
    int_key(kAstronomy, "Mondphasen anzeigen", &Settings::moon_phases_shown, true),
    int_key(kAstronomy, "Perihel und Aphel anzeigen", &Settings::perihelion_shown, true),
};

// Case folding for key names: ASCII and the letters of ISO-8859-15.
char32_t fold(char32_t c) {
    if (c >= U'A' && c <= U'Z') return c + 32;
    if (c >= 0xC0 && c <= 0xDE && c != 0xD7) return c + 32;
    switch (c) {
        case U'\u0160': return U'\u0161';
        case U'\u017D': return U'\u017E';
        case U'\u0152': return U'\u0153';
        case U'\u0178': return U'\u00FF';
        default: return c;
    }
}

std::u32string folded(std::string_view utf8) {
    std::u32string out = files::decode_utf8(utf8).value_or(std::u32string());
    for (auto& c : out) c = fold(c);
    return out;
}

std::string_view trim(std::string_view s) {
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t' || s.back() == '\r'))
        s.remove_suffix(1);
    return s;
}

// Values by folded group and key name, UTF-8; a later line wins.
using Values = std::map<std::pair<std::u32string, std::u32string>, std::string>;

// A line of the file as UTF-8. A line saved by a UTF-8 editor is taken as
// such; a line of the file's own character set is almost never valid UTF-8.
std::string line_text(std::string_view raw) {
    for (const char b : raw) {
        if (static_cast<unsigned char>(b) >= 0x80) {
            if (files::decode_utf8(raw) && files::utf8_to_latin9(raw)) return std::string(raw);
            break;
        }
    }
    return files::latin9_to_utf8(raw);
}

Values parse_lines(std::string_view bytes) {
    Values values;
    std::u32string group;
    while (!bytes.empty()) {
        const auto end = bytes.find('\n');
        std::string_view raw = bytes.substr(0, end);
        bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
        const std::string line = line_text(raw);
        const std::string_view text = trim(line);
        if (text.empty() || text.front() == ';' || text.front() == '#') continue;
        if (text.front() == '[') {
            const auto close = text.find(']');
            group = folded(trim(text.substr(1, close == std::string_view::npos ? text.size() - 1
                                                                               : close - 1)));
            continue;
        }
        const auto eq = text.find('=');
        if (eq == std::string_view::npos) continue;
        values[{group, folded(trim(text.substr(0, eq)))}] = std::string(trim(text.substr(eq + 1)));
    }
    return values;
}

std::optional<long long> to_integer(std::string_view text) {
    if (text.empty()) return std::nullopt;
    if (text.front() == '+') text.remove_prefix(1);
    long long value = 0;
    const auto [ptr, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (ec != std::errc() || ptr != text.data() + text.size()) return std::nullopt;
    if (value < INT32_MIN || value > INT32_MAX) return std::nullopt;
    return value;
}

std::optional<double> to_real(std::string_view text) {
    if (text.empty()) return std::nullopt;
    if (text.front() == '+') text.remove_prefix(1);
    double value = 0;
    const auto [ptr, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (ec != std::errc() || ptr != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::string truncate_characters(const std::string& utf8, std::size_t max) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        if ((static_cast<unsigned char>(utf8[i]) & 0xC0) != 0x80 && count++ == max)
            return utf8.substr(0, i);
    }
    return utf8;
}

// A text value as a reading of the written file gives it back. It ends at a
// NUL byte (no file name, font or place can hold one) or a line feed, is cut
// to `max_characters` and loses the blanks around it, which reading trims.
// Its ISO-8859-15 bytes can happen to form UTF-8 ("ÃŒ" is stored as C3 BC),
// which the line rule then reads as UTF-8 ("ü"); the text is taken as that
// reading gives it. Each such step shortens it, so this ends.
std::string settled_text(const std::string& text, std::size_t max_characters) {
    const std::string line = text.substr(0, text.find_first_of(std::string_view("\0\n", 2)));
    std::string settled(trim(truncate_characters(line, max_characters)));
    while (const auto stored = files::utf8_to_latin9(settled)) {
        std::string again = line_text(*stored);
        if (again == settled) break;
        settled = std::move(again);
    }
    return settled;
}

}  // namespace

Settings default_settings(const std::string& data_root) {
    Settings s;
    s.user_directory = data_root;
    return s;
}

std::string format_full_precision(double value) {
    char buffer[128];
    const auto [ptr, ec] =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 64);
    return ec == std::errc() ? std::string(buffer, ptr) : std::string("0");
}

void normalize_settings(Settings& s, const Settings& defaults) {
    using namespace calendar;
    if (!kModels.contains(s.model)) s.model = 0;
    if (!kColumns.contains(s.columns)) s.columns = kColumns.min;
    if (!kTwilightKinds.contains(s.twilight)) s.twilight = 0;
    if (!kFontSizes.contains(s.font_size)) s.font_size = 10;
    s.time_zone = kTimeZones.clamp(s.time_zone);
    for (int Settings::*flag :
         {&Settings::school_holidays_shown, &Settings::week_numbers_shown,
          &Settings::vacation_block_shown, &Settings::auto_summer_time,
          &Settings::moon_phases_shown, &Settings::perihelion_shown})
        s.*flag = s.*flag != 0 ? 1 : 0;
    if (!kVacationStartMonths.contains(s.vacation_start_month))
        s.vacation_start_month = defaults.vacation_start_month;
    if (!kVacationStartDays.contains(s.vacation_start_day))
        s.vacation_start_day = defaults.vacation_start_day;
    if (!kLatitudes.contains(s.latitude)) s.latitude = defaults.latitude;
    if (!kLongitudes.contains(s.longitude)) s.longitude = defaults.longitude;
    for (const Key& key : kKeys) {
        if (key.kind != Kind::kString) continue;
        const std::size_t max =
            key.text == &Settings::place_name ? kMaxPlaceNameLength : std::string::npos;
        s.*key.text = settled_text(s.*key.text, max);
    }
}

Settings parse_settings(std::string_view bytes, const Settings& defaults) {
    const Values values = parse_lines(bytes);
    Settings s = defaults;
    for (const Key& key : kKeys) {
        const auto it = values.find({folded(key.group), folded(key.name)});
        if (it == values.end()) continue;
        const std::string& v = it->second;
        switch (key.kind) {
            case Kind::kString:
                s.*key.text = v;
                break;
            case Kind::kInt:
                if (const auto n = to_integer(v)) s.*key.integer = static_cast<int>(*n);
                break;
            case Kind::kByte:
                // Stored in one signed byte, as the program always did.
                if (const auto n = to_integer(v))
                    s.*key.integer = static_cast<std::int8_t>(static_cast<std::uint8_t>(*n & 0xFF));
                break;
            case Kind::kFloat:
                if (const auto r = to_real(v); r && std::fabs(*r) < 3.0e38)
                    s.*key.single = static_cast<float>(*r);
                break;
            case Kind::kDouble:
                if (const auto r = to_real(v)) s.*key.real = *r;
                break;
        }
    }
    normalize_settings(s, defaults);
    return s;
}

std::optional<std::string> serialize_settings(const Settings& s, files::EncodeError* error) {
    std::string text;
    std::string_view group;
    for (const Key& key : kKeys) {
        if (key.group != group) {
            if (!group.empty()) text += "; \n";
            group = key.group;
            text += "[" + std::string(group) + "]\n";
        }
        text += key.name;
        text += " = ";
        switch (key.kind) {
            case Kind::kString: text += s.*key.text; break;
            case Kind::kInt:
            case Kind::kByte: text += std::to_string(s.*key.integer); break;
            case Kind::kFloat: text += format_full_precision(s.*key.single); break;
            case Kind::kDouble: text += format_full_precision(s.*key.real); break;
        }
        text += '\n';
    }
    return files::utf8_to_latin9(text, error);
}

Settings read_settings_file(const std::filesystem::path& file, const Settings& defaults) {
    const auto bytes = files::read_file(file, 1024 * 1024);
    if (!bytes) return defaults;
    return parse_settings(*bytes, defaults);
}

bool write_settings_file(const std::filesystem::path& file, const Settings& settings,
                         std::string* error) {
    files::EncodeError encode_error;
    const auto bytes = serialize_settings(settings, &encode_error);
    if (!bytes) {
        if (error) *error = encode_error.message;
        return false;
    }
    return files::write_file_atomic(file, *bytes, error);
}

}  // namespace sk::settings
