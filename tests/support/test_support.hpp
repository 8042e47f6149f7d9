// Fixtures shared by the test suites: a temporary directory per test, byte
// files, golden-file comparison and readable printing of days.
#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <string_view>

#include "calendar/dates.hpp"

namespace sk::test {

// A fresh directory under the system's temporary directory, removed again
// when the object goes out of scope.
class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    const std::filesystem::path& path() const { return m_path; }
    std::filesystem::path operator/(std::string_view name) const { return m_path / name; }

private:
    std::filesystem::path m_path;
};

std::string read_bytes(const std::filesystem::path& file);
void write_bytes(const std::filesystem::path& file, std::string_view bytes);

// The names in a directory; every entry below `root` (relative path) with its
// bytes, "<dir>" for a directory, to see what a step changed on disk.
std::set<std::string> files_in(const std::filesystem::path& dir);
std::map<std::string, std::string> tree(const std::filesystem::path& root);

// A day as written on a calendar: month 1..12.
calendar::Day date(int year, int month, int mday);

// Path of a file below tests/ in the source tree.
std::filesystem::path source_path(std::string_view relative);

// Runs a shell command, returns its exit status and captures standard output.
struct CommandResult {
    int status = -1;
    std::string out;
    std::string err;
};
CommandResult run_command(const std::string& command);

// Runs `write` in a child process whose files may grow to 16 bytes only, as
// on a full disk; true when `write` reported the failure (returned false).
bool fails_on_full_disk(const std::function<bool()>& write);

// The schichtkalender program built with the tests.
std::string program();

}  // namespace sk::test

namespace sk::calendar {
// So that failing expectations print 2024-03-31 rather than a day number.
void PrintTo(const Day& day, std::ostream* os);
}  // namespace sk::calendar
