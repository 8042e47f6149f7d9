// File access for the user's data: whole-file reads with a size cap, and
// writes that never destroy the previous file. A write goes to a temporary
// file in the same directory, is flushed to disk and then renamed over the
// old file, so a crash or a full disk leaves either the old or the new file.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace sk::files {

// Reads at most `max_bytes` of a file; nullopt when it cannot be opened.
std::optional<std::string> read_file(const std::filesystem::path& file,
                                     std::size_t max_bytes = 64 * 1024 * 1024);

// Replaces the file's content atomically. On failure returns false, fills
// `error` (German) and leaves the old file as it was.
bool write_file_atomic(const std::filesystem::path& file, std::string_view bytes,
                       std::string* error = nullptr);

// Deletes a file; a missing file is not an error.
bool remove_file(const std::filesystem::path& file);

}  // namespace sk::files
