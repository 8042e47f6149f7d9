// The program as a user runs it: started as its own process on the test's
// display, driven by real key events (xdotool), ended with Escape or with
// SIGTERM; the settings must be on disk afterwards either way.
#include <gtest/gtest.h>

#include <string>

#include "marks/shift_markings.hpp"
#include "settings/settings_file.hpp"
#include "test_support.hpp"

namespace sk::app::test {
namespace {

// Starts the program, focuses its window, presses keypad + twice (the window
// grows with the eighth column: waited for), then ends it as `how` says.
std::string session_script(const std::filesystem::path& dir, const std::string& how) {
    return "set -e\n"
           "'" +
           sk::test::program() + "' --data-dir '" + dir.string() +
           "' --today 2026-11-23 & pid=$!\n"
           "id=$(timeout 20 xdotool search --sync --name 'Quorvel Schichtkalender' | head -1)\n"
           "xdotool windowfocus --sync \"$id\" 2>/dev/null\n"
           "width() { xdotool getwindowgeometry \"$id\" | sed -n 's/.*Geometry: "
           "\\([0-9]*\\)x.*/\\1/p'; }\n"
           "before=$(width)\n"
           "xdotool key KP_Add KP_Add 2>/dev/null\n"
           "for i in $(seq 200); do [ \"$(width)\" -gt \"$before\" ] && break; sleep 0.05; done\n"
           "[ \"$(width)\" -gt \"$before\" ] || { echo \"Fenster $before -> $(width)\" >&2; false; "
           "}\n" +
           how + "\nwait $pid\n";
}

struct EndCase {
    const char* name;
    std::string how;
};

TEST(ProgramProcess, SettingsAreWrittenOnEscapeAndOnSigterm) {
    const EndCase cases[] = {
        {"Escape", "xdotool key n Escape 2>/dev/null"},  // "n": model 3, then leave
        {"SIGTERM", "kill -TERM $pid"},
    };
    for (const EndCase& c : cases) {
        sk::test::TempDir dir;
        const sk::test::CommandResult r = sk::test::run_command(
            "bash -c \"$(cat <<'SCRIPT'\n" + session_script(dir.path(), c.how) + "SCRIPT\n)\"");
        ASSERT_EQ(r.status, 0) << c.name << ": " << r.err;
        const settings::Settings saved =
            settings::read_settings_file(dir.path() / "Programm" / "Einstellungen.dat",
                                         settings::default_settings(dir.path().string()));
        EXPECT_EQ(saved.columns, 8) << c.name;
        EXPECT_EQ(saved.model, c.how.find("Escape") != std::string::npos ? 3 : 0) << c.name;
    }
}

// Key 1, then X in the window "Schichtmarkierung eingeben": the marking is
// on disk while the program still runs, and after it ended by SIGTERM.
TEST(ProgramProcess, Key1ThenXWritesTheMarkingAtOnce) {
    sk::test::TempDir dir;
    const std::string script =
        "set -e\n'" + sk::test::program() + "' --data-dir '" + dir.path().string() +
        "' --today 2026-11-23 & pid=$!\n"
        "id=$(timeout 20 xdotool search --sync --name 'Quorvel Schichtkalender' | head -1)\n"
        "xdotool windowfocus --sync \"$id\" 2>/dev/null\n"
        "xdotool key 1 2>/dev/null\n"
        "dialog=$(timeout 20 xdotool search --sync --name 'Schichtmarkierung eingeben' | head -1)\n"
        "xdotool windowfocus --sync \"$dialog\" 2>/dev/null\n"
        "xdotool key x 2>/dev/null\n"
        "file='" +
        (dir.path() / "Programm" / "Schichtmarkierung.dat").string() +
        "'\n"
        "for i in $(seq 200); do [ -s \"$file\" ] && break; sleep 0.05; done\n"
        "[ -s \"$file\" ] || { echo 'keine Schichtmarkierung.dat' >&2; kill $pid; false; }\n"
        "kill -TERM $pid\nwait $pid\n";
    const sk::test::CommandResult r =
        sk::test::run_command("bash -c \"$(cat <<'SCRIPT'\n" + script + "SCRIPT\n)\"");
    ASSERT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(marks::load_shift_markings(dir.path() / "Programm").items,
              (std::vector<marks::ShiftMarking>{
                  {calendar::day_number(2026, 10, 23), 1, marks::kind_a::kWorked}}));
}

// GTK's own print dialog is titled in German although the environment asks
// for English messages (a C locale and an English LANGUAGE list); the test
// set-up makes de_DE.UTF-8 (tools/ensure-packages.sh).
TEST(ProgramProcess, GtkOwnWindowsSpeakGerman) {
    sk::test::TempDir dir;
    const std::string script =
        "set -e\nexport LC_ALL=C.UTF-8 LANGUAGE=en_GB:en\n'" + sk::test::program() +
        "' --data-dir '" + dir.path().string() + "' --today 2026-11-23 & pid=$!\n" +
        R"SH(id=$(timeout 20 xdotool search --sync --name 'Quorvel Schichtkalender' | head -1)
xdotool windowfocus --sync "$id" 2>/dev/null
xdotool key ctrl+p 2>/dev/null
print=$(timeout 20 xdotool search --sync --name '^Drucken$' | head -1)
xdotool windowfocus --sync "$print" 2>/dev/null || true
xdotool key Escape 2>/dev/null
for i in $(seq 400); do xdotool search --name '^Drucken$' >/dev/null || break; sleep 0.05; done
xdotool windowfocus --sync "$id" 2>/dev/null
xdotool key Escape 2>/dev/null
wait $pid
)SH";
    const sk::test::CommandResult r =
        sk::test::run_command("bash -c \"$(cat <<'SCRIPT'\n" + script + "SCRIPT\n)\"");
    EXPECT_EQ(r.status, 0) << r.err;
}

}  // namespace
}  // namespace sk::app::test
