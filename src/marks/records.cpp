#include "marks/records.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <bit>
#include <cerrno>
#include <utility>

#include "files/atomic_file.hpp"
#include "files/file_descriptor.hpp"

namespace sk::marks {

namespace {

std::uint32_t get_u32(std::string_view bytes, std::size_t offset) {
    std::uint32_t v = 0;
    for (std::size_t i = 0; i < 4; ++i)
        v |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[offset + i])) << (8 * i);
    return v;
}

void put_u32(std::string& out, std::uint32_t v) {
    for (int i = 0; i < 4; ++i) out += static_cast<char>((v >> (8 * i)) & 0xFFu);
}

}  // namespace

void put_i32(std::string& out, std::int32_t value) { put_u32(out, static_cast<std::uint32_t>(value)); }
void put_i8(std::string& out, std::int8_t value) { out += static_cast<char>(value); }
void put_f32(std::string& out, float value) { put_u32(out, std::bit_cast<std::uint32_t>(value)); }

std::int32_t get_i32(std::string_view bytes, std::size_t offset) {
    return static_cast<std::int32_t>(get_u32(bytes, offset));
}
std::int8_t get_i8(std::string_view bytes, std::size_t offset) {
    return static_cast<std::int8_t>(bytes[offset]);
}
float get_f32(std::string_view bytes, std::size_t offset) {
    return std::bit_cast<float>(get_u32(bytes, offset));
}

std::optional<std::string_view> last_record(std::string_view bytes, std::size_t record_size) {
    const std::size_t count = bytes.size() / record_size;
    if (count == 0) return std::nullopt;
    return bytes.substr((count - 1) * record_size, record_size);
}

std::optional<std::string> read_last_record(const std::filesystem::path& file,
                                            std::size_t record_size) {
    files::FileDescriptor fd(::open(file.c_str(), O_RDONLY | O_CLOEXEC));
    if (fd.get() < 0) return std::nullopt;
    struct stat info {};
    if (::fstat(fd.get(), &info) != 0 || !S_ISREG(info.st_mode)) return std::nullopt;
    const auto size = static_cast<std::size_t>(info.st_size);
    const std::size_t count = size / record_size;
    if (count == 0) return std::nullopt;
    std::string record(record_size, '\0');
    std::size_t done = 0;
    const auto offset = static_cast<off_t>((count - 1) * record_size);
    while (done < record_size) {
        const ssize_t n = ::pread(fd.get(), record.data() + done, record_size - done,
                                  offset + static_cast<off_t>(done));
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return std::nullopt;  // shrunk meanwhile, or unreadable
        done += static_cast<std::size_t>(n);
    }
    return record;
}

bool write_or_remove(const std::filesystem::path& file, std::string_view bytes) {
    if (bytes.empty()) return files::remove_file(file);
    return files::write_file_atomic(file, bytes);
}

}  // namespace sk::marks
