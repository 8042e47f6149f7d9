// Login and the move of the data root: the current user's data are saved
// first, the new place is opened with everything the user keeps there, and a
// refused or failed switch leaves the session and the disk as they were.
#include "session/user_switch.hpp"

#include <gtest/gtest.h>

#include "settings/settings_file.hpp"
#include "test_support.hpp"

namespace sk::session {
namespace {

namespace fs = std::filesystem;

using test::tree;

bool is_private(const fs::path& dir) {
    return fs::status(dir).permissions() == fs::perms::owner_all;
}

settings::Settings settings_on_disk(const fs::path& user_dir) {
    return settings::read_settings_file(user_dir / settings::kSettingsFileName,
                                        settings::default_settings("-"));
}

Session start(const fs::path& root) {
    OpenResult r = open_session({.data_root = root});
    EXPECT_TRUE(r.session) << r.error;
    return std::move(*r.session);
}

void mark_a_day(Session& s) {
    ASSERT_TRUE(marks::apply_marking(s.shift_markings, calendar::day_number(2024, 4, 6), 1,
                                     marks::kind_a::kWorked, 0));
}

TEST(Login, NewUserGetsAPrivateDirectoryAndTheOldUserIsSaved) {
    test::TempDir dir;
    Session s = start(dir / "SKDaten");
    s.settings.place_name = "Altdorf";
    mark_a_day(s);
    const SwitchResult r = log_in(s, "Jürgen €", "Geheim€1");
    ASSERT_TRUE(r.ok()) << r.error;
    EXPECT_TRUE(r.messages.empty());
    // The old user's markings and settings are on disk.
    EXPECT_TRUE(fs::exists(dir / "SKDaten" / "Programm" / "Schichtmarkierung.dat"));
    EXPECT_EQ(settings_on_disk(dir / "SKDaten" / "Programm").place_name, "Altdorf");
    // The new user: own private directory, default settings written at once.
    EXPECT_EQ(std::tie(s.user, s.password_latin9), std::tie("Jürgen €", "Geheim\xA4" "1"));
    EXPECT_EQ(s.user_dir, dir / "SKDaten" / "Jürgen €");
    EXPECT_TRUE(is_private(s.user_dir));
    EXPECT_TRUE(s.shift_markings.items.empty());
    EXPECT_EQ(settings_on_disk(s.user_dir), s.settings);
    EXPECT_EQ(std::tie(s.settings.user_name, s.settings.place_name),
              std::tie("Jürgen €", "Rodenwald"));
    // The password is nowhere on disk.
    for (const auto& [name, bytes] : tree(dir.path()))
        EXPECT_EQ(bytes.find("Geheim"), std::string::npos) << name;
}

TEST(Login, EachUserKeepsOwnSettingsAndNotes) {
    test::TempDir dir;
    Session s = start(dir / "SKDaten");
    ASSERT_TRUE(log_in(s, "Anna", "a").ok());
    s.settings.moon_phases_shown = 1;
    ASSERT_FALSE(s.notes.write_daily(20240215, "Zahnarzt"));
    ASSERT_TRUE(log_in(s, "Bernd", "").ok());
    EXPECT_EQ(s.settings.moon_phases_shown, 0);
    EXPECT_TRUE(s.notes.index().daily.empty());
    s.settings.twilight = 2;
    ASSERT_TRUE(log_in(s, "Anna", "a").ok());
    EXPECT_EQ(s.settings.moon_phases_shown, 1);
    EXPECT_EQ(s.notes.read_daily(20240215), "Zahnarzt");
    ASSERT_TRUE(log_in(s, "Anna", "b").ok());  // a wrong password reads wrong text, silently
    EXPECT_NE(s.notes.read_daily(20240215), "Zahnarzt");
    ASSERT_TRUE(log_in(s, "Bernd", "").ok());
    EXPECT_EQ(s.settings.twilight, 2);
    EXPECT_EQ(settings_on_disk(dir / "SKDaten" / "Anna").moon_phases_shown, 1);
}

TEST(Login, RefusedNameOrPasswordChangesNothing) {
    test::TempDir dir;
    Session s = start(dir / "SKDaten");
    mark_a_day(s);
    const auto before = tree(dir.path());
    for (const auto& [user, password] : std::initializer_list<std::pair<const char*, const char*>>{
             {"..", ""}, {"Snow☃", ""}, {"Anna", "Schnee☃"}}) {
        const SwitchResult r = log_in(s, user, password);
        EXPECT_FALSE(r.ok()) << user;
        EXPECT_FALSE(r.error.empty());
        EXPECT_EQ(login_error(user, password), r.error);
        EXPECT_EQ(s.user, "Programm");
        EXPECT_TRUE(s.shift_markings.changed);
    }
    EXPECT_EQ(tree(dir.path()), before);
    EXPECT_FALSE(login_error("Anna", "€"));
}

TEST(Login, AFailedSaveKeepsTheCurrentUser) {
    test::TempDir dir;
    Session s = start(dir / "SKDaten");
    mark_a_day(s);
    // On a full disk the save fails: the login is refused and nothing is lost.
    EXPECT_TRUE(test::fails_on_full_disk([&] {
        const SwitchResult r = log_in(s, "Anna", "");
        return r.ok() || s.user != "Programm" || r.error.find("Programm") == std::string::npos;
    }));
}

TEST(Login, UsesTheExternalDataDirectory) {
    test::TempDir dir;
    fs::create_directories(dir / "Stick");
    Session s = start(dir / "SKDaten");
    s.settings.user_directory = (dir / "Stick").string();
    ASSERT_TRUE(log_in(s, "Anna", "").ok());
    EXPECT_EQ(s.user_dir, dir / "Stick" / "Anna");
    EXPECT_EQ(s.settings.user_directory, (dir / "Stick").string());
    EXPECT_FALSE(fs::exists(dir / "SKDaten" / "Anna"));
}

struct Moved {
    test::TempDir dir;
    Session s;
    fs::path old_dir, new_root, target;
    Moved() {
        s = start(dir / "SKDaten");
        EXPECT_TRUE(log_in(s, "Anna", "pw").ok());
        EXPECT_FALSE(s.notes.write_daily(20240215, "Zahnarzt"));
        mark_a_day(s);
        s.settings.place_name = "Altdorf";
        old_dir = s.user_dir;
        new_root = dir / "Neu";
        target = new_root / "Anna";
        fs::create_directories(new_root);
    }
    void existing_target() {
        fs::create_directories(target);
        test::write_bytes(target / "Einstellungen.dat", "[Astronomie]\nOrtsname = Ziel\n");
        test::write_bytes(target / "1124.jnt", "Heiligabend");
    }
};

// Into an empty place, over an existing directory of the user, or taking
// that directory over: nothing is taken away from the old place, nothing is
// left over at the new one, and the next start's logins find the new root.
TEST(DataRoot, MoveCopiesReplacesOrTakesOver) {
    for (const auto& [existing, choice] : {std::pair{false, ExistingUserDir::Replace},
                                           {true, ExistingUserDir::Replace},
                                           {true, ExistingUserDir::TakeOver}}) {
        Moved m;
        if (existing) m.existing_target();
        EXPECT_EQ(data_root_target(m.s, m.new_root).user_dir_exists, existing);
        const auto login_dir = m.dir / "SKDaten" / "Programm";
        const SwitchResult r = change_data_root(m.s, m.new_root, choice, login_dir);
        ASSERT_TRUE(r.ok()) << r.error;
        const bool copied = choice == ExistingUserDir::Replace;
        EXPECT_EQ(m.s.user_dir, m.target);
        EXPECT_TRUE(existing || is_private(m.target));
        EXPECT_EQ(m.s.settings.place_name, copied ? "Altdorf" : "Ziel");
        EXPECT_EQ(m.s.settings.user_directory, m.new_root.string());
        EXPECT_EQ(fs::exists(m.target / "1124.jnt"), !copied);
        EXPECT_EQ(m.s.notes.index().yearly.size(), copied ? 0u : 1u);
        EXPECT_EQ(m.s.notes.read_daily(20240215), copied ? "Zahnarzt" : "");  // same password
        EXPECT_EQ(m.s.shift_markings.items.size(), copied ? 1u : 0u);
        EXPECT_TRUE(!copied || test::read_bytes(m.old_dir / "Schichtmarkierung.dat") ==
                                   test::read_bytes(m.target / "Schichtmarkierung.dat"));
        EXPECT_EQ(test::files_in(m.new_root), std::set<std::string>{"Anna"});
        EXPECT_EQ(settings_on_disk(m.target).user_directory, m.new_root.string());
        EXPECT_EQ(settings_on_disk(login_dir).user_directory, m.new_root.string());
        EXPECT_EQ(login_root(m.s), m.new_root);
    }
}

TEST(DataRoot, FailuresChangeNothing) {
    Moved m;
    m.existing_target();
    // A file of the user that cannot be read (the kernel refuses reading a
    // process's memory at address 0): the copy fails before anything is replaced.
    fs::create_symlink("/proc/self/mem", m.old_dir / "kaputt.txt");
    const auto before = tree(m.new_root);
    SwitchResult r = change_data_root(m.s, m.new_root, ExistingUserDir::Replace, {});
    EXPECT_FALSE(r.ok());
    EXPECT_NE(r.error.find("kaputt.txt"), std::string::npos) << r.error;
    EXPECT_EQ(tree(m.new_root), before);
    EXPECT_EQ(m.s.user_dir, m.old_dir);

    for (const fs::path& bad : {m.dir / "SKDaten", m.dir / "fehlt", fs::path()}) {
        r = change_data_root(m.s, bad, ExistingUserDir::Replace, {});
        EXPECT_FALSE(r.ok()) << bad;
        EXPECT_EQ(m.s.user_dir, m.old_dir);
    }
    fs::create_directories(m.dir / "Datei2");
    test::write_bytes(m.dir / "Datei2" / "Anna", "");
    EXPECT_NE(data_root_target(m.s, m.dir / "Datei2").error.find("kein Verzeichnis"),
              std::string::npos);
}

// Saved settings are on disk at once; the run's vacation order and start
// follow only what the dialog changed.
TEST(ApplySettings, WritesAndKeepsTheRunsVacationKeys) {
    test::TempDir dir;
    Session s = start(dir / "SKDaten");
    rotate_vacation_order(s);  // key Y
    const auto rotated = s.vacation_order;
    settings::Settings changed = s.settings;
    changed.moon_phases_shown = 1;
    EXPECT_EQ(apply_settings(s, changed), "");
    EXPECT_EQ(settings_on_disk(s.user_dir).moon_phases_shown, 1);
    EXPECT_EQ(s.vacation_order, rotated);
    changed.vacation_cycle = 2;
    changed.vacation_start_day = 1;
    EXPECT_EQ(apply_settings(s, changed), "");
    EXPECT_EQ(s.vacation_order, calendar::rotate_order(calendar::kVacationOrder, 2));
    EXPECT_EQ(s.vacation_start.day, 1);
    EXPECT_EQ(settings_on_disk(s.user_dir), s.settings);
}

}  // namespace
}  // namespace sk::session
