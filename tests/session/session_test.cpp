#include "session/session.hpp"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <map>
#include <tuple>

#include "session/data_directory.hpp"
#include "session/exit_signals.hpp"
#include "settings/settings_file.hpp"
#include "test_support.hpp"

namespace sk::session {
namespace {

using calendar::day_number;

constexpr OpenMode kReadOnly = OpenMode::ReadOnly;

mode_t mode_of(const std::filesystem::path& p) {
    struct stat st {};
    ::stat(p.c_str(), &st);
    return st.st_mode & 0777;
}

// A missing one is reset by the session start (below).
TEST(DataDirectory, ExternalDirectoryOnlyWhenItExists) {
    test::TempDir dir;
    EXPECT_EQ(usable_external_directory(dir.path().string()), dir.path());
    EXPECT_FALSE(usable_external_directory("").has_value());
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

// The data root and the user's directory are created private (0700).
TEST(Session, FirstStartCreatesTheUserAndUsesDefaults) {
    test::TempDir dir;
    const auto root = dir / "deep" / "SKDaten";
    OpenResult r = open_session({.data_root = root, .user = "Anna Maier"});
    ASSERT_TRUE(r.session) << r.error;
    EXPECT_TRUE(r.messages.empty());
    const Session& s = *r.session;
    EXPECT_EQ(s.user_dir, root / "Anna Maier");
    EXPECT_EQ(mode_of(root), 0700u);
    EXPECT_EQ(mode_of(s.user_dir), 0700u);
    EXPECT_EQ(s.settings, settings::default_settings(root.string()));
    EXPECT_TRUE(s.shift_markings.items.empty());
    EXPECT_TRUE(s.notes.index().daily.empty());
}

TEST(Session, RefusesBadNamesPasswordsAndDirectories) {
    test::TempDir dir;
    for (const char* user : {"", "..", "a/b", "tab\there"})
        EXPECT_FALSE(open_session({.data_root = dir / "SKDaten", .user = user}).session) << user;
    const OpenResult r =
        open_session({.data_root = dir / "SKDaten", .user = "Anna", .password_utf8 = "Schnee☃"});
    EXPECT_FALSE(r.session);
    EXPECT_NE(r.error.find("U+2603"), std::string::npos) << r.error;
    EXPECT_FALSE(std::filesystem::exists(dir / "SKDaten" / "a"));
    // A file in the place of the data directory.
    test::write_bytes(dir / "Datei", "");
    const OpenResult file = open_session({.data_root = dir / "Datei", .user = "Anna"});
    EXPECT_NE(file.error.find("kein Verzeichnis"), std::string::npos) << file.error;
}

TEST(Session, LoadsWhatTheUserKeeps) {
    test::TempDir dir;
    const auto user_dir = dir / "SKDaten" / "Anna";
    std::filesystem::create_directories(user_dir);
    test::write_bytes(user_dir / "Einstellungen.dat",
                      "[Programmeinstellungen]\nSchichtart = 4\nUrlaubZyklus = 1\n"
                      "UrlaubStartMonat = 5\n");
    test::write_bytes(user_dir / "20240215.txt", "Zahnarzt");
    test::write_bytes(user_dir / "Kalendermarkierung.dat",
                      std::string("\x10\x4d\x00\x00\x17\x4d\x00\x00\xff\x00\x00\x00", 12));
    OpenResult r = open_session({.data_root = dir / "SKDaten", .user = "Anna"});
    ASSERT_TRUE(r.session) << r.error;
    const Session& s = *r.session;
    EXPECT_EQ(s.settings.model, 4);
    EXPECT_EQ(s.vacation_order[0], (std::array<int, 5>{1, 2, 3, 4, 0}));
    EXPECT_EQ(s.vacation_start.month, 5);
    EXPECT_EQ(s.notes.index().daily, (std::vector<std::int32_t>{20240215}));
    ASSERT_EQ(s.calendar_markings.items.size(), 1u);
    EXPECT_EQ(s.calendar_markings.items[0].colour, (calendar::Rgb{255, 0, 0}));
}

// Every entry of a directory tree with its bytes, to see that nothing changed.
std::map<std::string, std::string> tree(const std::filesystem::path& root) {
    std::map<std::string, std::string> files;
    for (const auto& e : std::filesystem::recursive_directory_iterator(root))
        files[e.path().string()] = e.is_directory() ? "<dir>" : test::read_bytes(e.path());
    return files;
}

// A command opens the user's data read-only: it reads what the window reads
// and leaves the disk as it was, even when asked to save; a user without a
// directory gets the defaults, and nothing is created for it.
TEST(Session, ReadOnlyReadsLikeTheWindowAndWritesNothing) {
    test::TempDir dir;
    const auto user_dir = dir / "SKDaten" / "Anna";
    std::filesystem::create_directories(user_dir);
    test::write_bytes(
        user_dir / "Einstellungen.dat",
        "[Programmeinstellungen]\nUrlaubZyklus = 2\nAnwenderverzeichnis = /media/x\n");
    test::write_bytes(user_dir / "20240215.txt", "Zahnarzt");
    test::write_bytes(user_dir / "Urlaubstage.dat", std::string("\x10\x4d\0\0\x05\0\0\0", 8));
    const auto before = tree(dir.path());

    OpenResult window = open_session({.data_root = dir / "SKDaten", .user = "Anna"});
    OpenResult command =
        open_session({.data_root = dir / "SKDaten", .user = "Anna", .mode = kReadOnly});
    ASSERT_TRUE(window.session && command.session) << window.error << command.error;
    Session& c = *command.session;
    const Session& w = *window.session;
    EXPECT_EQ(command.messages, window.messages);  // the missing external directory
    EXPECT_EQ(std::tie(c.settings, c.vacation_order, c.accounts),
              std::tie(w.settings, w.vacation_order, w.accounts));
    EXPECT_EQ(c.vacation_order[0], (std::array<int, 5>{2, 3, 4, 0, 1}));
    EXPECT_EQ(c.accounts.vacation.days, 5);
    EXPECT_EQ(c.notes.index().daily, (std::vector<std::int32_t>{20240215}));
    c.shift_markings.changed = true;
    EXPECT_TRUE(save_on_exit(c).empty());

    OpenRequest unread{.data_root = dir / "SKDaten", .user = "Anna", .mode = kReadOnly};
    unread.read_settings = unread.read_user_data = false;
    const OpenResult bare = open_session(unread);
    EXPECT_EQ(bare.session->settings, settings::default_settings((dir / "SKDaten").string()));
    EXPECT_TRUE(bare.session->notes.index().daily.empty());

    const OpenResult missing = open_session({.data_root = dir / "Neu", .mode = kReadOnly});
    EXPECT_FALSE(missing.session->user_dir_found);
    EXPECT_EQ(missing.session->settings, settings::default_settings((dir / "Neu").string()));
    EXPECT_EQ(tree(dir.path()), before);
}

TEST(Session, MissingExternalDirectoryIsReportedAndReset) {
    test::TempDir dir;
    const auto settings_file = dir / "SKDaten" / "Programm" / "Einstellungen.dat";
    std::filesystem::create_directories(settings_file.parent_path());
    test::write_bytes(settings_file,
                      "[Programmeinstellungen]\nAnwenderverzeichnis = /media/stick/SKDaten\n");
    OpenResult r = open_session({.data_root = dir / "SKDaten"});
    ASSERT_TRUE(r.session);
    EXPECT_EQ(r.messages, std::vector<std::string>{"Das externe Programmverzeichnis "
                                                   "'/media/stick/SKDaten' wurde nicht gefunden!"});
    EXPECT_EQ(r.session->settings.user_directory, (dir / "SKDaten").string());
    // The repair is written with the settings on exit.
    EXPECT_TRUE(save_on_exit(*r.session).empty());
    EXPECT_NE(test::read_bytes(settings_file)
                  .find("Anwenderverzeichnis = " + (dir / "SKDaten").string() + "\n"),
              std::string::npos);
}

TEST(Session, SaveOnExitWritesChangedMarkingsAndAlwaysTheSettings) {
    test::TempDir dir;
    OpenResult r = open_session({.data_root = dir / "SKDaten"});
    ASSERT_TRUE(r.session);
    Session& s = *r.session;
    const auto marking_file = s.user_dir / "Schichtmarkierung.dat";
    EXPECT_TRUE(save_on_exit(s).empty());
    EXPECT_TRUE(std::filesystem::exists(s.user_dir / "Einstellungen.dat"));
    EXPECT_FALSE(std::filesystem::exists(marking_file));

    const calendar::DayNumber d = day_number(2024, 4, 6);  // a Monday
    ASSERT_TRUE(marks::apply_marking(s.shift_markings, d, 1, marks::kind_a::kWorked, 0));
    EXPECT_TRUE(save_on_exit(s).empty());
    EXPECT_EQ(std::filesystem::file_size(marking_file), 6u);
    // Removing the last marking leaves no file behind.
    const auto remove = marks::remove_code(marks::MarkingKind::A);
    ASSERT_TRUE(marks::apply_marking(s.shift_markings, d, 1, remove, 0));
    EXPECT_TRUE(save_on_exit(s).empty());
    EXPECT_FALSE(std::filesystem::exists(marking_file));
}

// A desktop logging out sends SIGTERM: the program saves and ends normally.
TEST(Session, TerminationSignalStillSavesTheMarkings) {
    test::TempDir dir;
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        ExitSignalWatch watch;
        OpenResult r = open_session({.data_root = dir / "SKDaten"});
        if (!r.session || watch.fd() < 0) _exit(3);
        marks::apply_marking(r.session->shift_markings, day_number(2024, 4, 6), 2,
                             marks::kind_a::kVacation, 0);
        for (;;) {  // the main loop: wait for events
            pollfd p{watch.fd(), POLLIN, 0};
            if (::poll(&p, 1, 5000) <= 0) _exit(4);
            if (watch.take_signal() == SIGTERM) _exit(save_on_exit(*r.session).empty() ? 0 : 5);
        }
    }
    // Give the child time to load, then end it as a session manager would.
    for (int i = 0; i < 100 && !std::filesystem::exists(dir / "SKDaten" / "Programm"); ++i)
        ::usleep(10000);
    ::usleep(100000);
    ::kill(child, SIGTERM);
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(std::filesystem::file_size(dir / "SKDaten" / "Programm" / "Schichtmarkierung.dat"), 6u);
}

}  // namespace
}  // namespace sk::session
