// The main window driven by key presses, clicks and the scroll wheel: each
// key reaches its command and the page, the status lines and the buttons
// follow; the screen checks with their messages; keys that must reach the
// window whatever has the focus; the save on exit.
#include <sstream>

#include "calendar/shift_model.hpp"
#include "notes/note_keys.hpp"
#include "notes/note_store.hpp"
#include "view/page_geometry.hpp"
#include "view/page_output.hpp"
#include "window_fixture.hpp"

namespace sk::app::test {
namespace {

Glib::RefPtr<Gdk::Pixbuf> pixbuf_of(cairo_surface_t* image) {
    return Glib::wrap(gdk_pixbuf_get_from_surface(image, 0, 0, cairo_image_surface_get_width(image),
                                                  cairo_image_surface_get_height(image)));
}

struct KeyCase {
    const char* keys;  // key sequences separated by commas, each giving the page
    const char* page;  // first month, cursor, columns, model
    calendar::Day today = date(2026, 11, 23);
};

// Each key sequence from a fresh start on Monday 23.11.2026 (unless the row
// says otherwise): six columns
// from November, model 0, a note on the 24th (so that cursor moves repaint
// a highlighted row too). The page, the status lines and the block button
// follow at once; cursor moves repaint two rows only, yet the image must be
// the whole page painted afresh.
TEST_F(WindowTest, KeysReachTheirCommandsAndThePageFollows) {
    const KeyCase cases[] = {
        {"F1", "2025-11 2025-11-23 6 0"},
        {"F2", "2026-10 2026-10-23 6 0"},
        {"F3", "2026-12 2026-12-23 6 0"},
        {"F4", "2027-11 2027-11-23 6 0"},
        {"F5,Page_Up,KP_Page_Up", "2026-04 2026-04-23 6 0"},
        {"F7,Page_Down,KP_Page_Down", "2027-06 2027-06-23 6 0"},
        {"F4 F6,F4 Home,F4 KP_Home", "2026-11 2026-11-23 6 0"},
        {"Down,KP_Down", "2026-11 2026-11-24 6 0"},
        {"Up,KP_Up", "2026-11 2026-11-22 6 0"},
        {"Right,KP_Right", "2026-11 2026-12-23 6 0"},
        {"Left,KP_Left", "2026-10 2026-10-23 6 0"},  // off the page: scrolls a month
        {"KP_Add,plus,KP_Add KP_Add KP_Subtract,plus plus minus", "2026-11 2026-11-23 7 0"},
        {"n,Shift+N", "2026-11 2026-11-23 6 3"},
        {"m", "2026-11 2026-11-23 6 1"},
        {"m m,Shift+M Shift+M", "2026-11 2026-11-23 6 4"},
        {"b", "2026-11 2026-11-23 6 2"},
        {"v,Shift+V", "2026-11 2026-11-23 6 6"},
        {"c", "2026-11 2026-11-23 6 7"},
        {"x", "2026-11 2026-11-23 6 5"},
        {"n n,Control+n Control+m", "2026-11 2026-11-23 6 0"},  // Ctrl: no model keys
        // Day 31 becomes the 28th on a page move; July 2037 is the last page.
        {"F3", "2027-01 2027-01-28 6 0", date(2026, 12, 31)},
        {"F4,F7,F3 F3", "2037-07 2037-07-28 6 0", date(2037, 7, 31)},
    };
    write_daily(date(2026, 11, 24), "Notiz");
    for (const KeyCase& c : cases) {
        std::istringstream sequences(c.keys);
        for (std::string keys; std::getline(sequences, keys, ',');) {
            SCOPED_TRACE(keys);
            start(c.today);
            key(keys);
            EXPECT_EQ(page(), c.page);
            const calendar::PageState& p = state().page;
            PageView& view = window().page_view();
            EXPECT_EQ(view.page()->columns, p.columns);
            EXPECT_EQ(view.page()->model, p.model);
            EXPECT_NE(field_text(StatusField::Day).find(calendar::format_german_date(p.cursor)),
                      std::string::npos);
            EXPECT_EQ(window().button(Command::BlockToggle).get_visible(),
                      calendar::offers_block_toggle(p.model));
            EXPECT_EQ(differing_pixels(pixbuf_of(view.image().get()),
                                       pixbuf_of(view::render_image(*view.page()).get())),
                      0);
            EXPECT_TRUE(m_messages.empty());
        }
    }
    // The scroll wheel turns a month, as F3.
    start(date(2026, 11, 23));
    GdkEvent* scroll = gdk_event_new(GDK_SCROLL);
    scroll->scroll.window = GDK_WINDOW(g_object_ref(window().page_view().get_window()->gobj()));
    scroll->scroll.direction = GDK_SCROLL_DOWN;
    gdk_event_set_device(
        scroll, gdk_seat_get_pointer(gdk_display_get_default_seat(gdk_display_get_default())));
    gtk_main_do_event(scroll);
    gdk_event_free(scroll);
    EXPECT_EQ(page(), "2026-12 2026-12-23 6 0");
}

// The screen is as wide as a page of `fitting` columns plus `extra` pixels
// (the check is strictly greater): keypad + refused, and at the start the
// saved columns falling back to six, with a message when even six do not fit.
TEST_F(WindowTest, ColumnsThatDoNotFitTheScreenAreRefused) {
    struct Case {
        int saved_columns;
        int fitting;
        int extra;
        const char* keys;
        const char* message;
    };
    const Case cases[] = {
        {6, 7, 0, "KP_Add", "Der gewählte Anzahl der Kolumnen war für den Bildschirm zu groß!"},
        {10, 6, 1, "", nullptr},
        {10, 6, 0, "", "Der Zeichensatz ist für den Bildschirm zu groß!"},
    };
    const view::CellSize cell = view::TextShaper(view::FontSpec{}).cell();
    std::filesystem::create_directories(user_dir());
    for (const Case& c : cases) {
        SCOPED_TRACE(c.saved_columns);
        settings::Settings s = settings::default_settings(m_dir.path().string());
        s.columns = c.saved_columns;
        ASSERT_TRUE(settings::write_settings_file(user_dir() / "Einstellungen.dat", s));
        m_messages.clear();
        const auto width = view::geometry::page_pixel_size(cell, c.fitting).width;
        start(date(2026, 11, 23), ScreenSize{static_cast<int>(width) + c.extra, 2000});
        key(c.keys);
        EXPECT_EQ(state().page.columns, 6);
        ASSERT_EQ(m_messages.size(), c.message ? 1u : 0u);
        if (!c.message) continue;
        EXPECT_EQ(m_messages[0].title, "Fehler");
        EXPECT_EQ(m_messages[0].text, c.message);
    }
}

// S: a font too large for the screen is refused with a message and the old
// one kept; a smaller one is taken, and the page and the status fields
// follow its cell.
TEST_F(WindowTest, FontFromKeySIsCheckedAgainstTheScreen) {
    start(date(2026, 11, 23), ScreenSize{1400, 900});
    std::string font = "DejaVu Sans 40";
    answer<Gtk::FontChooserDialog>([&](auto& d) {
        d.set_font(font);
        d.response(Gtk::RESPONSE_OK);
    });
    key("s");
    ASSERT_EQ(m_messages.size(), 2u);
    EXPECT_EQ(m_messages[1].title, "Fehler");
    EXPECT_EQ(m_messages[1].text, "Der gewählte Zeichensatz war für den Bildschirm zu groß!");
    EXPECT_EQ(state().renderer.font().size, 10);
    EXPECT_EQ(state().session.settings.font_size, 10);

    font = "DejaVu Sans Bold 8";
    key("s");
    EXPECT_EQ(state().session.settings.font_size, 8);
    EXPECT_EQ(state().session.settings.font_style, 1);
    const view::CellSize cell = state().renderer.cell();
    EXPECT_EQ(window().page_view().page()->cell.height, cell.height);
    EXPECT_LE(window().status_lines().field(StatusField::Hours).get_allocated_width(),
              7 * cell.width + 8);
}

// Today's notes open at the start, the overview on U; the status lines show
// the cursor day with its notes. (A click moves the cursor: the double click
// in the marking tests.)
TEST_F(WindowTest, NotesWindowsAndTheStatusLines) {
    write_daily(date(2026, 11, 23), "Zahnarzt 8 Uhr");
    write_daily(date(2026, 11, 25), "Spätdienst mit Eva");
    notes::NoteStore(user_dir(), "")
        .write_yearly(notes::day_key(date(2026, 11, 25)), "Hochzeitstag");
    start(date(2026, 11, 23));
    key("u");
    ASSERT_EQ(m_messages.size(), 2u);
    EXPECT_EQ(m_messages[0].title, "Notizen für den 23.11.2026");
    EXPECT_EQ(m_messages[1].title, "Übersicht der Notizen");
    EXPECT_EQ(field_text(StatusField::Notes), "Zahnarzt 8 Uhr");
    key("Down Down");
    EXPECT_EQ(field_text(StatusField::Notes), "Spätdienst mit Eva\u00A0|\u00A0Hochzeitstag");
    EXPECT_TRUE(field_text(StatusField::Day).starts_with("Mittwoch, 25.11.2026"));
    EXPECT_TRUE(field_text(StatusField::Astronomy).starts_with("Dämmerung:"));
    EXPECT_EQ(field_text(StatusField::Hours), "   0,00");
    EXPECT_EQ(field_text(StatusField::Vacation), "  0");
}

// Closing the window saves page and model once; later keys change nothing.
// (Escape and SIGTERM: ProgramProcess.)
TEST_F(WindowTest, ClosingTheWindowSavesTheSettings) {
    start(date(2026, 11, 23));
    key("KP_Add n");
    window().close();
    EXPECT_TRUE(wait_until([&] { return !window().get_visible(); }));
    EXPECT_EQ(saved_settings(user_dir()).columns, 7);
    EXPECT_EQ(saved_settings(user_dir()).model, 3);
    key("KP_Add");
    EXPECT_EQ(state().page.columns, 7);
}

// Each button issues its command (windows it opens are cancelled) and is
// named for screen readers by its tooltip, as the status fields are.
TEST_F(WindowTest, ButtonsIssueTheirCommandsAndHaveAccessibleNames) {
    start(date(2026, 11, 23));
    std::vector<Command> seen;
    window().signal_command().connect([&](Command c) { seen.push_back(c); });
    for (const ButtonEntry& entry : button_entries()) {
        Gtk::Button& b = window().button(entry.command);
        b.clicked();
        ASSERT_FALSE(seen.empty());
        EXPECT_EQ(seen.back(), entry.command) << entry.label;
        EXPECT_EQ(b.get_accessible()->get_name(), std::string(entry.tooltip));
        EXPECT_EQ(b.get_tooltip_text(), std::string(entry.tooltip));
    }
    // The block button switched the block display off, in the settings kept on exit.
    EXPECT_EQ(state().session.settings.vacation_block_shown, 0);
    EXPECT_NE(field_text(StatusField::Day).find("Urlaubsblock ausgeblendet"), std::string::npos);
    for (StatusField f : {StatusField::Day, StatusField::Notes, StatusField::Astronomy,
                          StatusField::Hours, StatusField::Vacation})
        EXPECT_EQ(window().status_lines().field(f).get_accessible()->get_name(),
                  StatusLines::tooltip(f));
}

}  // namespace
}  // namespace sk::app::test
