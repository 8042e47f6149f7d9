// "Einstellungen.dat": the settings as an INI-style text file in the user's
// directory, ISO-8859-15, lines ended by a line feed. Two groups,
// "[Programmeinstellungen]" and "[Astronomie]", separated by a line "; ".
// Key lines read "key = value"; integers are written with "%d", floating
// point numbers with "%.64g" so that every binary digit survives.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "settings/settings.hpp"
#include "files/text_encoding.hpp"

namespace sk::settings {

inline constexpr std::string_view kSettingsFileName = "Einstellungen.dat";

// The settings of a first start; `data_root` is the default of
// "Anwenderverzeichnis".
Settings default_settings(const std::string& data_root);

// Reads the file's bytes. Missing keys and values that are not numbers take
// the value of `defaults`; keys match without regard to case. Values that
// would break the program are brought into range (see normalize_settings).
Settings parse_settings(std::string_view bytes, const Settings& defaults);

// Brings every value into the range the program can work with (the ranges of
// calendar/ranges.hpp): model 0..7, columns 6..23, twilight 0..2, time zone
// -12..14, font size 6..72, flags 0/1, vacation start month 1..12 and day
// 1..31, coordinates within +-90/+-180. Texts become what a reading of the
// written file gives back: ended at a NUL byte or a line feed, the place
// name cut to 50 characters, blanks around them removed, and ISO-8859-15
// bytes that form UTF-8 taken as UTF-8. So whatever this leaves, the file
// writes and reads back equal.
void normalize_settings(Settings& settings, const Settings& defaults);

// The file's bytes; nullopt when a text holds a character that ISO-8859-15
// cannot store (`error` names it).
std::optional<std::string> serialize_settings(const Settings& settings,
                                              files::EncodeError* error = nullptr);

// A missing or unreadable file gives `defaults`.
Settings read_settings_file(const std::filesystem::path& file, const Settings& defaults);
// Atomic; on failure the previous file stays and `error` says why.
bool write_settings_file(const std::filesystem::path& file, const Settings& settings,
                         std::string* error = nullptr);

// "%.64g" in the C locale, whatever locale the process runs in.
std::string format_full_precision(double value);

}  // namespace sk::settings
