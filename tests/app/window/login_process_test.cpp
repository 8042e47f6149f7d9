// Login, settings and a second start as a user does them: the program runs
// as its own process on the test's display and is driven by real key events
// (xdotool). The scripts wait for windows, titles and files, never for a
// fixed time.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>

#include "settings/settings_file.hpp"
#include "test_support.hpp"

namespace sk::app::test {
namespace {

namespace fs = std::filesystem;

// Shell functions for the scripts: start the program on DIR/SKDaten, log in,
// open a window by its title, wait for a line in a file, compare the page
// of the window with the page the render command draws for a user, quit.
std::string prelude(const fs::path& dir) {
    return "set -e\n"
           "prog='" +
           sk::test::program() +
           "'\n"
           "dir='" +
           dir.string() +
           "'\n"
           R"SH(focus() { xdotool windowfocus --sync "$1" 2>/dev/null || true; }
start() {
  "$prog" --data-dir "$dir/SKDaten" --today 2026-11-23 & pid=$!
  id=$(timeout 20 xdotool search --sync --name 'Quorvel Schichtkalender' | head -1)
  focus "$id"
}
window() { w=$(timeout 20 xdotool search --sync --name "^$1\$" | head -1); focus "$w"; }
gone() { for i in $(seq 400); do xdotool search --name "^$1\$" >/dev/null || return 0; sleep 0.05; done; return 1; }
login() {
  focus "$id"; xdotool key a; window Anmelden
  xdotool type --delay 10 "$1"; xdotool key Tab; xdotool type --delay 10 "$2"; xdotool key Return
  timeout 20 xdotool search --sync --name "^Quorvel Schichtkalender  - Benutzername: $1\$" >/dev/null
}
settings() { focus "$id"; xdotool key e; window Einstellungen; xdotool key "$@"; gone Einstellungen; }
has_line() {
  for i in $(seq 400); do grep -qx "$2" "$1" 2>/dev/null && return 0; sleep 0.05; done
  echo "\"$2\" fehlt in $1" >&2; return 1
}
page_of() {
  "$prog" render --data-dir "$dir/SKDaten" --user "$1" --month 2026-11 --cursor 2026-11-23 \
    --today 2026-11-23 --out "$dir/render.png"
  size=$(identify -format '%wx%h' "$dir/render.png")
  for i in $(seq 200); do
    import -window "$id" "$dir/shot.png"
    convert "$dir/shot.png" -crop "$size+0+0" +repage "$dir/page.png"
    [ "$(compare -metric AE "$dir/page.png" "$dir/render.png" null: 2>&1)" = 0 ] && return 0
    sleep 0.05
  done
  echo "Die Seite ist nicht die von $1" >&2; return 1
}
quit() { focus "$id"; xdotool key Escape; wait $pid; }
)SH";
}

sk::test::CommandResult run_script(const fs::path& dir, const std::string& steps,
                                   const std::string& shell = "bash") {
    return sk::test::run_command(shell + " -c \"$(cat <<'SCRIPT'\n" + prelude(dir) + steps +
                                 "SCRIPT\n)\"");
}

settings::Settings saved(const fs::path& user_dir) {
    return settings::read_settings_file(user_dir / "Einstellungen.dat",
                                        settings::default_settings("-"));
}

mode_t mode_of(const fs::path& p) {
    struct stat st {};
    ::stat(p.c_str(), &st);
    return st.st_mode & 0777;
}

std::vector<std::string> entries(const fs::path& dir) {
    std::vector<std::string> names;
    for (const auto& e : fs::directory_iterator(dir))
        names.push_back(e.path().filename());
    std::sort(names.begin(), names.end());
    return names;
}

TEST(LoginProcess, NewUserWithAPasswordWritesNothingButSettings) {
    sk::test::TempDir dir;
    const auto r = run_script(dir.path(), "start\nlogin 'Jürgen' 'Geh€im'\nquit\n");
    ASSERT_EQ(r.status, 0) << r.err;
    const fs::path user = dir / "SKDaten" / "Jürgen";
    EXPECT_EQ(mode_of(user), 0700u);
    // The settings, and the vacation account that starts the year with 0 days.
    EXPECT_EQ(entries(user), (std::vector<std::string>{"Einstellungen.dat", "Urlaubstage.dat"}));
    EXPECT_EQ(saved(user).user_name, "Jürgen");
    // The password was never written, in either character set.
    for (const auto& e : fs::recursive_directory_iterator(dir.path()))
        if (e.is_regular_file()) {
            EXPECT_EQ(sk::test::read_bytes(e.path()).find("Geh"), std::string::npos) << e.path();
        }
}

// Each user's settings survive the other's; the page is drawn anew with them.
TEST(LoginProcess, TwoUsersKeepTheirSettings) {
    sk::test::TempDir dir;
    const auto r = run_script(dir.path(),
                              "start\n"
                              "login Anna a\n"
                              "settings alt+m Return\n"  // "Mondphasen anzeigen"
                              "has_line \"$dir/SKDaten/Anna/Einstellungen.dat\" "
                              "'Mondphasen anzeigen = 1'\n"
                              "page_of Anna\n"
                              "login Bernd ''\n"
                              "settings alt+w Return\n"  // "Wochennummer anzeigen"
                              "has_line \"$dir/SKDaten/Bernd/Einstellungen.dat\" "
                              "'Wochennummer anzeigen = 0'\n"
                              "page_of Bernd\n"
                              "login Anna a\n"
                              "page_of Anna\n"
                              "quit\n");
    ASSERT_EQ(r.status, 0) << r.err;
    const settings::Settings anna = saved(dir / "SKDaten" / "Anna");
    const settings::Settings bernd = saved(dir / "SKDaten" / "Bernd");
    EXPECT_EQ(anna.moon_phases_shown, 1);
    EXPECT_EQ(anna.week_numbers_shown, 1);
    EXPECT_EQ(bernd.moon_phases_shown, 0);
    EXPECT_EQ(bernd.week_numbers_shown, 0);
}

TEST(LoginProcess, RefusedNameLeavesEverythingAsItWas) {
    sk::test::TempDir dir;
    const auto r = run_script(dir.path(),
                              "start\n"
                              "focus \"$id\"; xdotool key a; window Anmelden\n"
                              "xdotool type --delay 10 'a/b'; xdotool key Return\n"
                              "xdotool search --name '^Anmelden$' >/dev/null\n"  // still open
                              "xdotool key Escape; gone Anmelden\n"
                              "xdotool search --name "
                              "'^Quorvel Schichtkalender - Benutzername: Programm$' >/dev/null\n"
                              "quit\n");
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(entries(dir / "SKDaten"), std::vector<std::string>{"Programm"});
    EXPECT_EQ(saved(dir / "SKDaten" / "Programm").user_name, "Programm");
}

// A second start on the same desktop session only brings the first window
// to the front; the headless commands run beside it as always.
TEST(LoginProcess, SecondStartUsesTheOpenWindow) {
    sk::test::TempDir dir;
    const auto r =
        run_script(dir.path(),
                   "start\n"
                   "timeout 20 \"$prog\" --data-dir \"$dir/Zweit\"\n"
                   "[ \"$(xdotool search --name 'Quorvel Schichtkalender' | wc -l)\" = 1 ]\n"
                   "\"$prog\" holidays 2024 | grep -q Neujahr\n"
                   "quit\n",
                   "dbus-run-session -- bash");
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_FALSE(fs::exists(dir / "Zweit"));
}

}  // namespace
}  // namespace sk::app::test
