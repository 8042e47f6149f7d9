// A note written as a user writes it: the program runs as its own process,
// real key events (xdotool) press T, type the text and save it with Ctrl+S,
// and the daily note file is on disk in the notes library's format.
#include <gtest/gtest.h>

#include <string>

#include "notes/note_store.hpp"
#include "test_support.hpp"

namespace sk::app::test {
namespace {

TEST(ProgramProcess, DailyNoteWrittenWithTAndCtrlS) {
    sk::test::TempDir dir;
    const std::string script =
        "set -e\n'" + sk::test::program() + "' --data-dir '" + dir.path().string() +
        "' --today 2026-11-23 & pid=$!\n"
        "id=$(timeout 20 xdotool search --sync --name 'Quorvel Schichtkalender' | head -1)\n"
        "xdotool windowfocus --sync \"$id\" 2>/dev/null\n"
        "xdotool key t 2>/dev/null\n"
        "editor=$(timeout 20 xdotool search --sync --name 'Notizen f.*r den 23.11.2026' | head -1)\n"
        "xdotool windowfocus --sync \"$editor\" 2>/dev/null\n"
        "xdotool type --delay 5 'Zahnarzt 10 Uhr' 2>/dev/null\n"
        "xdotool key Return 2>/dev/null\n"
        "xdotool type --delay 5 'Rezept holen' 2>/dev/null\n"
        "xdotool key ctrl+s 2>/dev/null\n"
        "for i in $(seq 200); do xdotool search --name 'Notizen f.*r den' >/dev/null || break; "
        "sleep 0.05; done\n"
        "xdotool windowfocus --sync \"$id\" 2>/dev/null\n"
        "xdotool key Escape 2>/dev/null\n"
        "wait $pid\n";
    const sk::test::CommandResult r =
        sk::test::run_command("bash -c \"$(cat <<'SCRIPT'\n" + script + "SCRIPT\n)\"");
    ASSERT_EQ(r.status, 0) << r.err;
    // 23 November 2026: month index 10.
    EXPECT_EQ(sk::test::read_bytes(dir.path() / "Programm" / "20261023.txt"),
              "Zahnarzt 10 Uhr\r\nRezept holen");
    EXPECT_EQ(notes::NoteStore(dir.path() / "Programm", "").read_daily(20261023),
              "Zahnarzt 10 Uhr\r\nRezept holen");
}

}  // namespace
}  // namespace sk::app::test
