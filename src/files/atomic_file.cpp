#include "files/atomic_file.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>
#include <vector>

#include "files/file_descriptor.hpp"

namespace sk::files {

namespace {

void set_error(std::string* error, const std::filesystem::path& file, const char* what, int err) {
    if (error)
        *error = "Die Datei \"" + file.string() + "\" konnte nicht " + what + " werden: " +
                 std::strerror(err);
}

}  // namespace

std::optional<std::string> read_file(const std::filesystem::path& file, std::size_t max_bytes) {
    FileDescriptor fd(::open(file.c_str(), O_RDONLY | O_CLOEXEC));
    if (fd.get() < 0) return std::nullopt;
    std::string bytes;
    char buffer[65536];
    while (bytes.size() < max_bytes) {
        const std::size_t want = std::min(sizeof buffer, max_bytes - bytes.size());
        const ssize_t n = ::read(fd.get(), buffer, want);
        if (n < 0) {
            if (errno == EINTR) continue;
            return std::nullopt;
        }
        if (n == 0) break;
        bytes.append(buffer, static_cast<std::size_t>(n));
    }
    return bytes;
}

bool write_file_atomic(const std::filesystem::path& file, std::string_view bytes,
                       std::string* error) {
    const std::filesystem::path dir = file.has_parent_path() ? file.parent_path() : ".";
    std::string pattern = (dir / ("." + file.filename().string() + ".XXXXXX")).string();
    std::vector<char> name(pattern.begin(), pattern.end());
    name.push_back('\0');
    FileDescriptor fd(::mkostemp(name.data(), O_CLOEXEC));
    if (fd.get() < 0) {
        set_error(error, file, "angelegt", errno);
        return false;
    }
    const char* p = bytes.data();
    std::size_t left = bytes.size();
    while (left > 0) {
        const ssize_t n = ::write(fd.get(), p, left);
        if (n < 0) {
            if (errno == EINTR) continue;
            const int err = errno;
            ::unlink(name.data());
            set_error(error, file, "geschrieben", err);
            return false;
        }
        p += n;
        left -= static_cast<std::size_t>(n);
    }
    if (::fsync(fd.get()) != 0 || ::close(fd.release()) != 0) {
        const int err = errno;
        ::unlink(name.data());
        set_error(error, file, "geschrieben", err);
        return false;
    }
    if (::rename(name.data(), file.c_str()) != 0) {
        const int err = errno;
        ::unlink(name.data());
        set_error(error, file, "ersetzt", err);
        return false;
    }
    return true;
}

bool remove_file(const std::filesystem::path& file) {
    return ::unlink(file.c_str()) == 0 || errno == ENOENT;
}

}  // namespace sk::files
