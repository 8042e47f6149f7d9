// Users and their data directories: the data root ("SKDaten" by default)
// holds one subdirectory per user name, readable by its owner only.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace sk::settings {

inline constexpr std::string_view kDefaultDataRoot = "SKDaten";
inline constexpr std::string_view kDefaultUser = "Programm";
inline constexpr std::size_t kMaxUserNameLength = 50;

// Why a user name cannot be used, as a German sentence; nullopt when it can.
// Refused: empty, longer than 50 characters, "/" or a control character,
// "." and "..", and characters that ISO-8859-15 cannot hold (the name is
// stored in the settings file).
std::optional<std::string> user_name_error(std::string_view name);

}  // namespace sk::settings
