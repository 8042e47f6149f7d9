#include "test_support.hpp"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace sk::test {

TempDir::TempDir() {
    std::string pattern = (std::filesystem::temp_directory_path() / "sk-test-XXXXXX").string();
    if (!::mkdtemp(pattern.data())) throw std::runtime_error("cannot create a temporary directory");
    m_path = pattern;
}

TempDir::~TempDir() {
    std::error_code ec;
    std::filesystem::permissions(m_path, std::filesystem::perms::owner_all,
                                 std::filesystem::perm_options::add, ec);
    std::filesystem::remove_all(m_path, ec);
}

std::string read_bytes(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::ostringstream ss;
    ss << in.rdbuf();
    return ss.str();
}

void write_bytes(const std::filesystem::path& file, std::string_view bytes) {
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::set<std::string> files_in(const std::filesystem::path& dir) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(dir))
        names.insert(entry.path().filename());
    return names;
}

std::map<std::string, std::string> tree(const std::filesystem::path& root) {
    std::map<std::string, std::string> files;
    for (const auto& e : std::filesystem::recursive_directory_iterator(root))
        files[e.path().lexically_relative(root).string()] =
            e.is_directory() ? "<dir>" : read_bytes(e.path());
    return files;
}

calendar::Day date(int year, int month, int mday) {
    return calendar::Day::from_date(year, month - 1, mday);
}

std::filesystem::path source_path(std::string_view relative) {
    return std::filesystem::path(SK_TEST_DATA_DIR) / relative;
}

CommandResult run_command(const std::string& command) {
    TempDir dir;
    const auto out_file = dir / "out";
    const auto err_file = dir / "err";
    const std::string full =
        command + " >'" + out_file.string() + "' 2>'" + err_file.string() + "'";
    const int raw = std::system(full.c_str());
    CommandResult result;
    result.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    result.out = read_bytes(out_file);
    result.err = read_bytes(err_file);
    return result;
}

std::string program() { return SK_BINARY; }

bool fails_on_full_disk(const std::function<bool()>& write) {
    const pid_t child = fork();
    if (child < 0) return false;
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit{16, 16};
        setrlimit(RLIMIT_FSIZE, &limit);
        _exit(write() ? 1 : 0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace sk::test

namespace sk::calendar {
void PrintTo(const Day& day, std::ostream* os) { *os << format_iso_date(day); }
}  // namespace sk::calendar
