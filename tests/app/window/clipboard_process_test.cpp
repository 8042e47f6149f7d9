// Key Z as a user presses it: the program runs as its own process, real key
// events (xdotool) change the columns and the model, move the cursor and
// copy the page; the clipboard's PNG, read back by another client (xclip),
// must be the picture the render command draws for the same state.
#include <gtest/gtest.h>
#include <gtkmm.h>

#include <string>

#include "marks/calendar_markings.hpp"
#include "marks/shift_markings.hpp"
#include "notes/note_keys.hpp"
#include "notes/note_store.hpp"
#include "settings/settings_file.hpp"
#include "test_support.hpp"

namespace sk::app::test {
namespace {

namespace fs = std::filesystem;
using calendar::Day;

// A user whose page differs from a fresh one in every source the picture
// has: another font, moon phases on, a note, a calendar marking and a shift
// marking on the day the cursor will stand on (24 December 2026).
void fill_user(const fs::path& root) {
    const fs::path user = root / "Programm";
    fs::create_directories(user);
    settings::Settings s = settings::default_settings(root.string());
    s.font_name = "FreeSans";
    s.font_size = 11;
    s.moon_phases_shown = 1;
    ASSERT_TRUE(settings::write_settings_file(user / "Einstellungen.dat", s));
    const Day christmas_eve = Day::from_date(2026, 11, 24);
    ASSERT_EQ(notes::NoteStore(user, "").write_daily(notes::date_key(christmas_eve), "Bescherung"),
              std::nullopt);
    marks::CalendarMarkings bars;
    marks::save_marking(bars, christmas_eve.number - 4, christmas_eve.number + 3, {90, 160, 230});
    ASSERT_TRUE(marks::save_calendar_markings(user, bars));
    marks::ShiftMarkings shifts;
    shifts.items.push_back({christmas_eve.number, 2, marks::kind_b::kSick});
    ASSERT_TRUE(marks::save_shift_markings(user, shifts));
}

// Pixels whose colour differs; -1 when the sizes differ.
int differing_pixels(const fs::path& a_file, const fs::path& b_file) {
    const auto a = Gdk::Pixbuf::create_from_file(a_file.string());
    const auto b = Gdk::Pixbuf::create_from_file(b_file.string());
    if (a->get_width() != b->get_width() || a->get_height() != b->get_height()) return -1;
    int differing = 0;
    for (int y = 0; y < a->get_height(); ++y)
        for (int x = 0; x < a->get_width(); ++x) {
            const guint8* p = a->get_pixels() + y * a->get_rowstride() + x * a->get_n_channels();
            const guint8* q = b->get_pixels() + y * b->get_rowstride() + x * b->get_n_channels();
            differing += p[0] != q[0] || p[1] != q[1] || p[2] != q[2];
        }
    return differing;
}

TEST(ProgramProcess, ClipboardHoldsTheRenderCommandsPicture) {
    sk::test::TempDir dir;
    const fs::path data = dir / "SKDaten";
    fill_user(data);
    // Today 23.11.2026 with six columns from November: keypad + gives seven,
    // "v" model 6, Right the same day a column on (23.12.), Down the 24th.
    // Z copies; the "Information" box is closed with Return, as a user does.
    const std::string script =
        "set -e\n'" + sk::test::program() + "' --data-dir '" + data.string() +
        "' --today 2026-11-23 & pid=$!\n"
        R"SH(id=$(timeout 20 xdotool search --sync --name 'Quorvel Schichtkalender' | head -1)
xdotool windowfocus --sync "$id" 2>/dev/null
xdotool key KP_Add v Right Down z 2>/dev/null
info=$(timeout 20 xdotool search --sync --name '^Information$' | head -1)
xdotool windowfocus --sync "$info" 2>/dev/null || true
xdotool key Return 2>/dev/null
for i in $(seq 400); do xdotool search --name '^Information$' >/dev/null || break; sleep 0.05; done
! xdotool search --name '^Information$' >/dev/null
xclip -selection clipboard -t image/png -o > "$(dirname "$0")/clip.png"
xdotool windowfocus --sync "$id" 2>/dev/null
xdotool key Escape 2>/dev/null
wait $pid
)SH";
    sk::test::write_bytes(dir / "copy.sh", script);
    const sk::test::CommandResult r = sk::test::run_command("bash " + (dir / "copy.sh").string());
    ASSERT_EQ(r.status, 0) << r.err;

    const settings::Settings saved = settings::read_settings_file(
        data / "Programm" / "Einstellungen.dat", settings::default_settings("-"));
    EXPECT_EQ(saved.columns, 7);
    EXPECT_EQ(saved.model, 6);

    const std::string state =
        " --today 2026-11-23 --month 2026-11 --columns 7 --model 6 --cursor 2026-12-24";
    const sk::test::CommandResult rendered = sk::test::run_command(
        sk::test::program() + " render --out " + (dir / "render.png").string() + " --data-dir " +
        data.string() + state);
    ASSERT_EQ(rendered.status, 0) << rendered.err;
    EXPECT_EQ(differing_pixels(dir / "clip.png", dir / "render.png"), 0);

    // The user's data are in the picture: without the note and the two
    // markings (same settings) the render command draws another one.
    const fs::path bare = dir / "Leer";
    fs::create_directories(bare / "Programm");
    fs::copy_file(data / "Programm" / "Einstellungen.dat", bare / "Programm" / "Einstellungen.dat");
    const sk::test::CommandResult rendered_bare =
        sk::test::run_command(sk::test::program() + " render --out " + (dir / "bare.png").string() +
                              " --data-dir " + bare.string() + state);
    ASSERT_EQ(rendered_bare.status, 0) << rendered_bare.err;
    EXPECT_GT(differing_pixels(dir / "clip.png", dir / "bare.png"), 0);
}

}  // namespace
}  // namespace sk::app::test
