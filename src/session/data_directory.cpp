#include "session/data_directory.hpp"

#include <sys/stat.h>

#include <cerrno>
#include <cstring>

namespace sk::session {

namespace {

std::string make_private_directory(const std::filesystem::path& dir) {
    if (::mkdir(dir.c_str(), 0700) == 0) return {};
    if (errno == EEXIST) {
        std::error_code ec;
        if (std::filesystem::is_directory(dir, ec)) return {};
        return "\"" + dir.string() + "\" ist kein Verzeichnis.";
    }
    return "Das Verzeichnis \"" + dir.string() + "\" konnte nicht angelegt werden: " +
           std::strerror(errno);
}

}  // namespace

DirectoryResult locate_user_directory(const std::filesystem::path& data_root,
                                      const std::string& user) {
    DirectoryResult result;
    std::error_code ec;
    const auto root = std::filesystem::absolute(data_root, ec).lexically_normal();
    if (ec || data_root.empty()) {
        result.error = "Das Datenverzeichnis \"" + data_root.string() + "\" ist ungültig.";
        return result;
    }
    result.path = root / user;
    return result;
}

DirectoryResult ensure_user_directory(const std::filesystem::path& data_root,
                                      const std::string& user) {
    DirectoryResult result = locate_user_directory(data_root, user);
    if (!result.ok()) return result;
    const auto root = result.path.parent_path();
    // Parents of the root (for a --data-dir deep below) are created normally.
    std::error_code ec;
    if (root.has_parent_path()) std::filesystem::create_directories(root.parent_path(), ec);
    for (const auto& dir : {root, result.path}) {
        if (auto error = make_private_directory(dir); !error.empty()) return {{}, error};
    }
    return result;
}

std::optional<std::filesystem::path> usable_external_directory(const std::string& configured) {
    if (configured.empty()) return std::nullopt;
    std::error_code ec;
    if (!std::filesystem::is_directory(configured, ec)) return std::nullopt;
    return std::filesystem::absolute(configured, ec).lexically_normal();
}

}  // namespace sk::session
