#include "session/session.hpp"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <tuple>

#include "session/data_directory.hpp"
#include "session/exit_signals.hpp"
#include "settings/settings_file.hpp"
#include "test_support.hpp"

namespace sk::session {
namespace {

namespace fs = std::filesystem;
using calendar::day_number;

TEST(DataDirectory, ExternalDirectoryOnlyWhenItExists) {
    test::TempDir dir;
    test::write_bytes(dir / "file", "");
    EXPECT_EQ(usable_external_directory(dir.path().string()), dir.path());
    for (const std::string& bad : {std::string(), (dir / "file").string()})
        EXPECT_FALSE(usable_external_directory(bad)) << bad;
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
    EXPECT_EQ(r.session->user_dir, root / "Anna Maier");
    for (const fs::path& made : {root, r.session->user_dir})
        EXPECT_EQ(fs::status(made).permissions(), fs::perms::owner_all) << made;
    EXPECT_EQ(r.session->settings, settings::default_settings(root.string()));
}

TEST(Session, RefusesBadNamesPasswordsAndDirectories) {
    test::TempDir dir;
    EXPECT_FALSE(open_session({.data_root = dir / "SKDaten", .user = "a/b"}).session);
    const OpenResult r =
        open_session({.data_root = dir / "SKDaten", .user = "Anna", .password_utf8 = "Schnee☃"});
    EXPECT_NE(r.error.find("U+2603"), std::string::npos) << r.error;
    test::write_bytes(dir / "Datei", "");  // a file in the place of the data directory
    const OpenResult file = open_session({.data_root = dir / "Datei", .user = "Anna"});
    EXPECT_NE(file.error.find("kein Verzeichnis"), std::string::npos) << file.error;
    EXPECT_EQ(test::files_in(dir.path()), std::set<std::string>{"Datei"});
}

// The window and a command read the same; a command (read-only) leaves the
// disk as it was, even when asked to save, and creates nothing for a user
// without a directory.
TEST(Session, LoadsWhatTheUserKeepsAndReadOnlyWritesNothing) {
    test::TempDir dir;
    const auto user_dir = dir / "SKDaten" / "Anna";
    fs::create_directories(user_dir);
    test::write_bytes(user_dir / "Einstellungen.dat",
                      "[Programmeinstellungen]\nSchichtart = 4\nUrlaubZyklus = 2\n"
                      "UrlaubStartMonat = 5\nAnwenderverzeichnis = /media/x\n");
    test::write_bytes(user_dir / "20240215.txt", "Zahnarzt");
    test::write_bytes(user_dir / "Urlaubstage.dat", std::string("\x10\x4d\0\0\x05\0\0\0", 8));
    test::write_bytes(user_dir / "Kalendermarkierung.dat",
                      std::string("\x10\x4d\x00\x00\x17\x4d\x00\x00\xff\x00\x00\x00", 12));
    const auto before = test::tree(dir.path());

    const OpenResult window = open_session({.data_root = dir / "SKDaten", .user = "Anna"});
    const OpenRequest read_only{
        .data_root = dir / "SKDaten", .user = "Anna", .mode = OpenMode::ReadOnly};
    OpenResult command = open_session(read_only);
    ASSERT_TRUE(window.session && command.session) << window.error << command.error;
    Session& c = *command.session;
    const Session& w = *window.session;
    EXPECT_EQ(command.messages, window.messages);  // the missing external directory
    EXPECT_EQ(std::tie(c.settings, c.vacation_order, c.accounts, c.calendar_markings.items),
              std::tie(w.settings, w.vacation_order, w.accounts, w.calendar_markings.items));
    EXPECT_EQ(std::tuple(c.settings.model, c.vacation_start.month, c.accounts.vacation.days),
              std::tuple(4, 5, 5));
    EXPECT_EQ(c.vacation_order[0], (std::array<int, 5>{2, 3, 4, 0, 1}));
    EXPECT_EQ(c.notes.index().daily, (std::vector<std::int32_t>{20240215}));
    ASSERT_EQ(c.calendar_markings.items.size(), 1u);
    EXPECT_EQ(c.calendar_markings.items[0].colour, (calendar::Rgb{255, 0, 0}));
    c.shift_markings.changed = true;
    EXPECT_TRUE(save_on_exit(c).empty());

    OpenRequest unread = read_only;
    unread.read_settings = unread.read_user_data = false;
    const OpenResult bare = open_session(unread);
    EXPECT_EQ(bare.session->settings, settings::default_settings((dir / "SKDaten").string()));
    EXPECT_TRUE(bare.session->notes.index().daily.empty());
    const OpenResult missing = open_session({.data_root = dir / "Neu", .mode = OpenMode::ReadOnly});
    EXPECT_FALSE(missing.session->user_dir_found);
    EXPECT_EQ(missing.session->settings, settings::default_settings((dir / "Neu").string()));
    EXPECT_EQ(test::tree(dir.path()), before);
}

// The repair of a missing external directory is written with the settings on exit.
TEST(Session, MissingExternalDirectoryIsReportedAndReset) {
    test::TempDir dir;
    const auto settings_file = dir / "SKDaten" / "Programm" / "Einstellungen.dat";
    fs::create_directories(settings_file.parent_path());
    test::write_bytes(settings_file,
                      "[Programmeinstellungen]\nAnwenderverzeichnis = /media/stick/SKDaten\n");
    OpenResult r = open_session({.data_root = dir / "SKDaten"});
    ASSERT_TRUE(r.session);
    EXPECT_EQ(r.messages, std::vector<std::string>{"Das externe Programmverzeichnis "
                                                   "'/media/stick/SKDaten' wurde nicht gefunden!"});
    EXPECT_TRUE(save_on_exit(*r.session).empty());
    EXPECT_NE(test::read_bytes(settings_file)
                  .find("Anwenderverzeichnis = " + (dir / "SKDaten").string() + "\n"),
              std::string::npos);
}

// Unchanged markings are not written (changed ones: the signal test below).
TEST(Session, SaveOnExitWritesTheSettingsAlways) {
    test::TempDir dir;
    OpenResult r = open_session({.data_root = dir / "SKDaten"});
    ASSERT_TRUE(r.session);
    EXPECT_TRUE(save_on_exit(*r.session).empty());
    EXPECT_EQ(test::files_in(r.session->user_dir), std::set<std::string>{"Einstellungen.dat"});
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
    for (int i = 0; i < 100 && !fs::exists(dir / "SKDaten" / "Programm"); ++i) ::usleep(10000);
    ::usleep(100000);
    ::kill(child, SIGTERM);
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(fs::file_size(dir / "SKDaten" / "Programm" / "Schichtmarkierung.dat"), 6u);
}

}  // namespace
}  // namespace sk::session
