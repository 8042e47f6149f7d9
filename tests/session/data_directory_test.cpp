#include <gtest/gtest.h>

#include <sys/stat.h>

#include <csignal>

#include "session/data_directory.hpp"
#include "session/exit_signals.hpp"
#include "test_support.hpp"

namespace sk::session {
namespace {

mode_t mode_of(const std::filesystem::path& p) {
    struct stat st {};
    ::stat(p.c_str(), &st);
    return st.st_mode & 0777;
}

TEST(DataDirectory, CreatesPrivateRootAndUserDirectory) {
    test::TempDir dir;
    const auto result = ensure_user_directory(dir / "deep" / "SKDaten", "Anna Maier");
    ASSERT_TRUE(result.ok()) << result.error;
    EXPECT_EQ(result.path, dir / "deep" / "SKDaten" / "Anna Maier");
    EXPECT_EQ(mode_of(dir / "deep" / "SKDaten"), 0700u);
    EXPECT_EQ(mode_of(result.path), 0700u);
    // A second start uses what is there.
    test::write_bytes(result.path / "20240215.txt", "Notiz");
    ASSERT_TRUE(ensure_user_directory(dir / "deep" / "SKDaten", "Anna Maier").ok());
    EXPECT_EQ(test::read_bytes(result.path / "20240215.txt"), "Notiz");
}

TEST(DataDirectory, RefusesAFileInThePlaceOfADirectory) {
    test::TempDir dir;
    test::write_bytes(dir / "SKDaten", "");
    const auto result = ensure_user_directory(dir / "SKDaten", "Programm");
    EXPECT_FALSE(result.ok());
    EXPECT_NE(result.error.find("kein Verzeichnis"), std::string::npos) << result.error;
}

TEST(DataDirectory, ExternalDirectoryOnlyWhenItExists) {
    test::TempDir dir;
    EXPECT_EQ(usable_external_directory(dir.path().string()), dir.path());
    EXPECT_FALSE(usable_external_directory("").has_value());
    EXPECT_FALSE(usable_external_directory((dir / "gone").string()).has_value());
    test::write_bytes(dir / "file", "");
    EXPECT_FALSE(usable_external_directory((dir / "file").string()).has_value());
}

TEST(ExitSignals, TerminationArrivesAsAnEvent) {
    ExitSignalWatch watch;
    ASSERT_GE(watch.fd(), 0);
    EXPECT_EQ(watch.take_signal(), 0);
    std::raise(SIGTERM);  // blocked: waits on the descriptor instead of ending the test
    EXPECT_EQ(watch.take_signal(), SIGTERM);
    std::raise(SIGINT);
    EXPECT_EQ(watch.take_signal(), SIGINT);
    EXPECT_EQ(watch.take_signal(), 0);
}

}  // namespace
}  // namespace sk::session
