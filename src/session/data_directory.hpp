// The data directory on disk: the data root ("SKDaten" by default) with one
// subdirectory per user. Both are created readable by their owner only, so
// other local users can neither read the notes nor list the user names.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace sk::session {

struct DirectoryResult {
    std::filesystem::path path;  // absolute
    std::string error;           // German; empty on success
    bool ok() const { return error.empty(); }
};

// The user's directory below the data root as an absolute path, without
// touching the disk. The user name must have passed
// `settings::user_name_error`.
DirectoryResult locate_user_directory(const std::filesystem::path& data_root,
                                      const std::string& user);

// Creates the data root and the user's directory (mode 0700) when missing and
// returns the user's directory. An existing directory is used as it is. The
// user name must have passed `settings::user_name_error`.
DirectoryResult ensure_user_directory(const std::filesystem::path& data_root,
                                      const std::string& user);

// The external data directory of the settings ("Anwenderverzeichnis"): it is
// used when it names an existing directory. Otherwise (empty, missing, or not
// a directory) nullopt, and the caller resets it to the data root.
std::optional<std::filesystem::path> usable_external_directory(const std::string& configured);

}  // namespace sk::session
