// The program as a user runs it: started as its own process on the test's
// display and driven by real key events (xdotool). What it writes must be
// on disk while it runs and after it ended by Escape or by SIGTERM; the
// clipboard's PNG, read back by another client (xclip), must be the picture
// the render command draws for the same state.
#include <string>

#include "marks/calendar_markings.hpp"
#include "marks/shift_markings.hpp"
#include "notes/note_keys.hpp"
#include "notes/note_store.hpp"
#include "window_fixture.hpp"

namespace sk::app::test {
namespace {

namespace fs = std::filesystem;

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
    const calendar::Day christmas_eve = date(2026, 12, 24);
    ASSERT_EQ(notes::NoteStore(user, "").write_daily(notes::date_key(christmas_eve), "Bescherung"),
              std::nullopt);
    marks::CalendarMarkings bars;
    marks::save_marking(bars, christmas_eve.number - 4, christmas_eve.number + 3, {90, 160, 230});
    ASSERT_TRUE(marks::save_calendar_markings(user, bars));
    marks::ShiftMarkings shifts{{{christmas_eve.number, 2, marks::kind_b::kSick}}, false};
    ASSERT_TRUE(marks::save_shift_markings(user, shifts));
}

// With messages asked in English: keypad + (the window grows with the
// seventh column), T with a note of two lines saved by Ctrl+S, 1 and X in
// "Schichtmarkierung eingeben" (on disk at once); then each case's end.
const std::string kSession = R"SH(export LANGUAGE=en_GB:en
start
width() { xdotool getwindowgeometry "$id" | sed -n 's/.*Geometry: \([0-9]*\)x.*/\1/p'; }
wider() { [ "$(width)" -gt "$before" ]; }
before=$(width)
xdotool key KP_Add
until_ok "ein breiteres Fenster als $before" wider
xdotool key t
focus 'Notizen f.*r den 23.11.2026'
xdotool type --delay 5 'Zahnarzt 10 Uhr'; xdotool key Return; xdotool type --delay 5 'Rezept holen'
xdotool key ctrl+s
gone 'Notizen f.*r den'
markings="$dir/SKDaten/Programm/Schichtmarkierung.dat"
marked() { [ "$(stat -c %s "$markings")" != "$size" ]; }
size=$(stat -c %s "$markings")
focus '^Quorvel Schichtkalender'
xdotool key 1
focus '^Schichtmarkierung eingeben$'
xdotool key x
until_ok 'die Markierung in Schichtmarkierung.dat' marked
focus '^Quorvel Schichtkalender'
)SH";

struct EndCase {
    const char* name;
    const char* end;
    int model;
};

// Escape: GTK's own print dialog speaks German as the program does; "v"
// (model 6), Right and Down (the cursor on 24.12.), Z copies, the
// "Information" box is closed with Return as a user does; the clipboard
// is read by another client. SIGTERM: with a marking window open, which
// closes without its result.
TEST(ProgramProcess, SavedOnEscapeAndOnSigtermAndTheClipboardIsTheRenderCommandsPicture) {
    const EndCase cases[] = {
        {"Escape", R"SH(xdotool key ctrl+p; focus '^Drucken$'; xdotool key Escape; gone '^Drucken$'
focus '^Quorvel Schichtkalender'; xdotool key v Right Down z
focus '^Information$'; xdotool key Return; gone '^Information$'
timeout 30 xclip -selection clipboard -t image/png -o > "$dir/clip.png"
quit
)SH",
         6},
        {"SIGTERM",
         "xdotool key 2; focus '^Schichtmarkierung eingeben$'; kill -TERM \"$pid\"; ended\n", 0},
    };
    for (const EndCase& c : cases) {
        SCOPED_TRACE(c.name);
        sk::test::TempDir dir;
        fill_user(dir / "SKDaten");
        const sk::test::CommandResult r = run_session(dir.path(), kSession + c.end);
        ASSERT_EQ(r.status, 0) << r.err;
        const fs::path user = dir / "SKDaten" / "Programm";
        EXPECT_EQ(saved_settings(user).columns, 7);
        EXPECT_EQ(saved_settings(user).model, c.model);
        EXPECT_EQ(notes::NoteStore(user, "").read_daily(20261023),
                  "Zahnarzt 10 Uhr\r\nRezept holen");
        EXPECT_EQ(marks::load_shift_markings(user).items,
                  (std::vector<marks::ShiftMarking>{
                      {date(2026, 11, 23).number, 1, marks::kind_a::kWorked},
                      {date(2026, 12, 24).number, 2, marks::kind_b::kSick}}));
        if (!fs::exists(dir / "clip.png")) continue;
        // The user's data are in the picture: without the notes and the
        // markings (same settings) the render command draws another one.
        fs::create_directories(dir / "Leer" / "Programm");
        fs::copy_file(user / "Einstellungen.dat", dir / "Leer" / "Programm" / "Einstellungen.dat");
        const auto clip = Gdk::Pixbuf::create_from_file((dir / "clip.png").string());
        for (const char* data : {"SKDaten", "Leer"}) {
            const fs::path png = dir / (std::string(data) + ".png");
            const sk::test::CommandResult rendered = sk::test::run_command(
                sk::test::program() + " render --out " + png.string() + " --data-dir " +
                (dir / data).string() +
                " --today 2026-11-23 --month 2026-11 --columns 7 --model 6 --cursor 2026-12-24");
            ASSERT_EQ(rendered.status, 0) << rendered.err;
            const int differing =
                differing_pixels(clip, Gdk::Pixbuf::create_from_file(png.string()));
            EXPECT_EQ(differing == 0, data == std::string("SKDaten"))
                << data << ": " << differing << " Bildpunkte anders";
        }
    }
}

}  // namespace
}  // namespace sk::app::test
