// Byte-level pieces shared by the marking and account files: fixed-size
// little-endian records without header, read from the start of a file up to
// a cap, or only the last complete record of a file whose last record wins.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace sk::marks {

// Appends the value's bytes, least significant first.
void put_i32(std::string& out, std::int32_t value);
void put_i8(std::string& out, std::int8_t value);
void put_f32(std::string& out, float value);  // IEEE 754 single precision

// Reads from bytes[offset]; the caller makes sure the bytes are there.
std::int32_t get_i32(std::string_view bytes, std::size_t offset);
std::int8_t get_i8(std::string_view bytes, std::size_t offset);
float get_f32(std::string_view bytes, std::size_t offset);

// The last complete record of a file made of `record_size`-byte records; a
// truncated tail is not a record. Reads only that record, however large the
// file. nullopt when the file is missing, unreadable or shorter than one
// record.
std::optional<std::string> read_last_record(const std::filesystem::path& file,
                                            std::size_t record_size);

// The last complete record held in `bytes`, or nullopt.
std::optional<std::string_view> last_record(std::string_view bytes, std::size_t record_size);

// Writes `bytes` atomically, or deletes the file when there is nothing to
// write: an empty collection leaves no file behind. False when the file
// could not be written or deleted; the previous file is then unchanged.
bool write_or_remove(const std::filesystem::path& file, std::string_view bytes);

}  // namespace sk::marks
