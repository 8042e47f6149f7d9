// Login, settings and a second start as a user does them: the program runs
// as its own process on the test's display and is driven by real key events
// (xdotool).
#include <string>

#include "window_fixture.hpp"

namespace sk::app::test {
namespace {

namespace fs = std::filesystem;

// More shell functions: log in, change settings by their keys, wait for a
// line in a file, wait until the window shows the page the render command
// draws for a user.
const std::string kLogin = R"SH(
login() {
  focus '^Quorvel Schichtkalender'; xdotool key a; focus '^Anmelden$'
  xdotool type --delay 10 "$1"; xdotool key Tab; xdotool type --delay 10 "$2"; xdotool key Return
  until_ok "Anmeldung von $1" shown "^Quorvel Schichtkalender  - Benutzername: $1\$"
}
settings() {
  focus '^Quorvel Schichtkalender'; xdotool key e; focus '^Einstellungen$'
  xdotool key "$@"; gone '^Einstellungen$'
}
has_line() { until_ok "\"$2\" in $1" grep -qx "$2" "$1"; }
page_is() {
  import -window "$id" "$dir/shot.png"
  convert "$dir/shot.png" -crop "$size+0+0" +repage "$dir/page.png"
  [ "$(compare -metric AE "$dir/page.png" "$dir/render.png" null: 2>&1)" = 0 ]
}
page_of() {
  "$prog" render --data-dir "$dir/SKDaten" --user "$1" --month 2026-11 --cursor 2026-11-23 \
    --today 2026-11-23 --out "$dir/render.png"
  size=$(identify -format '%wx%h' "$dir/render.png")
  until_ok "die Seite von $1" page_is
}
)SH";

// A new user who writes nothing gets a private directory with the settings
// file; a refused name changes nothing; each user's settings survive the
// other's, the page is drawn anew with them, and the password is written
// nowhere, in neither character set.
TEST(LoginProcess, EachUserKeepsTheSettingsAndThePageFollows) {
    sk::test::TempDir dir;
    const auto r = run_session(dir.path(), kLogin + R"SH(start
login Cleo 'Geh€im'
focus '^Quorvel Schichtkalender'; xdotool key a; focus '^Anmelden$'
xdotool key ctrl+a; xdotool type --delay 10 'a/b'; xdotool key Return
shown '^Anmelden$' || fail 'Der Name a/b wurde angenommen'
xdotool key Escape; gone '^Anmelden$'
shown '^Quorvel Schichtkalender  - Benutzername: Cleo$' || fail 'Titel nach a/b'
login Anna 'Geh€im'
settings alt+m Return  # "Mondphasen anzeigen"
has_line "$dir/SKDaten/Anna/Einstellungen.dat" 'Mondphasen anzeigen = 1'
page_of Anna
login Bernd ''
settings alt+w Return  # "Wochennummer anzeigen"
has_line "$dir/SKDaten/Bernd/Einstellungen.dat" 'Wochennummer anzeigen = 0'
page_of Bernd
login Anna 'Geh€im'
page_of Anna
quit
)SH");
    ASSERT_EQ(r.status, 0) << r.err;
    const settings::Settings anna = saved_settings(dir / "SKDaten" / "Anna");
    const settings::Settings bernd = saved_settings(dir / "SKDaten" / "Bernd");
    EXPECT_EQ(anna.moon_phases_shown, 1);
    EXPECT_EQ(anna.week_numbers_shown, 1);
    EXPECT_EQ(bernd.moon_phases_shown, 0);
    EXPECT_EQ(bernd.week_numbers_shown, 0);
    EXPECT_TRUE(fs::is_regular_file(dir / "SKDaten" / "Cleo" / "Einstellungen.dat"));
    EXPECT_EQ(fs::status(dir / "SKDaten" / "Cleo").permissions(), fs::perms::owner_all);
    EXPECT_FALSE(fs::exists(dir / "SKDaten" / "a"));
    for (const auto& e : fs::recursive_directory_iterator(dir / "SKDaten"))
        if (e.is_regular_file()) {
            EXPECT_EQ(sk::test::read_bytes(e.path()).find("Geh"), std::string::npos) << e.path();
        }
}

// A second start on the same desktop session only brings the first window
// to the front; the headless commands run beside it as always.
TEST(LoginProcess, SecondStartUsesTheOpenWindow) {
    sk::test::TempDir dir;
    const auto r = run_session(dir.path(), R"SH(start
timeout 20 "$prog" --data-dir "$dir/Zweit"
[ "$(xdotool search --name 'Quorvel Schichtkalender' | wc -l)" = 1 ]
"$prog" holidays 2024 >"$dir/feiertage.txt"; grep -q Neujahr "$dir/feiertage.txt"
quit
)SH",
                               "dbus-run-session -- bash");
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_FALSE(fs::exists(dir / "Zweit"));
}

}  // namespace
}  // namespace sk::app::test
