// The main window driven by key presses, clicks and the scroll wheel: page
// moves, the calendar's ceiling, the cursor, columns with the screen check,
// model keys and the block button, the status lines, the font check, keys
// that must reach the window whatever has the focus, the save on exit and
// the clipboard image against the render command's.
#include <gdk/gdkkeysyms.h>

#include "calendar/shift_model.hpp"
#include "notes/note_keys.hpp"
#include "notes/note_store.hpp"
#include "settings/settings_file.hpp"
#include "view/page_geometry.hpp"
#include "view/page_output.hpp"
#include "window_fixture.hpp"

namespace sk::app::test {
namespace {

using calendar::Day;

Day date(int y, int m, int d) {
    return Day::from_date(y, m - 1, d);
}

struct MoveCase {
    guint key;
    const char* name;
    const char* first_month;  // after the key, from 23 November 2026
    Day cursor;
};

TEST_F(WindowTest, PageMovesByTheirDistancesAndHomeComesBack) {
    start(date(2026, 11, 23));
    // From day 1 of November 2026: -365, -1, +31, +366, -31 * 6, +31 * 7 days.
    const MoveCase cases[] = {
        {GDK_KEY_F1, "F1", "2025-11", date(2025, 11, 23)},
        {GDK_KEY_F2, "F2", "2026-10", date(2026, 10, 23)},
        {GDK_KEY_F3, "F3", "2026-12", date(2026, 12, 23)},
        {GDK_KEY_F4, "F4", "2027-11", date(2027, 11, 23)},
        {GDK_KEY_F5, "F5", "2026-04", date(2026, 4, 23)},
        {GDK_KEY_Page_Up, "Bild auf", "2026-04", date(2026, 4, 23)},
        {GDK_KEY_F7, "F7", "2027-06", date(2027, 6, 23)},
        {GDK_KEY_Page_Down, "Bild ab", "2027-06", date(2027, 6, 23)},
    };
    for (const MoveCase& c : cases) {
        key(c.key);
        EXPECT_EQ(first_month(), c.first_month) << c.name;
        EXPECT_EQ(state().page.cursor, c.cursor) << c.name;
        key(c.key == GDK_KEY_F1 ? GDK_KEY_F6 : GDK_KEY_Home);
        EXPECT_EQ(first_month(), "2026-11") << c.name;
        EXPECT_EQ(state().page.cursor, date(2026, 11, 23)) << c.name;
    }
    // The scroll wheel turns a month, as F2 and F3.
    GdkEvent* scroll = gdk_event_new(GDK_SCROLL);
    scroll->scroll.window = GDK_WINDOW(g_object_ref(window().page_view().get_window()->gobj()));
    scroll->scroll.direction = GDK_SCROLL_DOWN;
    gdk_event_set_device(
        scroll, gdk_seat_get_pointer(gdk_display_get_default_seat(gdk_display_get_default())));
    scroll->scroll.x = 20;
    scroll->scroll.y = 200;
    gtk_main_do_event(scroll);
    gdk_event_free(scroll);
    EXPECT_EQ(first_month(), "2026-12");
}

TEST_F(WindowTest, CeilingOfJuly2037AndTheCursorDayAbove28) {
    start(date(2037, 7, 15));
    for (guint k : {GDK_KEY_F4, GDK_KEY_F3, GDK_KEY_F7, GDK_KEY_Page_Down}) {
        key(k);
        EXPECT_EQ(first_month(), "2037-07");
        EXPECT_EQ(state().page.cursor, date(2037, 7, 15));
    }
    key(GDK_KEY_F2);
    EXPECT_EQ(first_month(), "2037-06");
    EXPECT_EQ(state().page.cursor, date(2037, 6, 15));
}

TEST_F(WindowTest, CursorDay31BecomesThe28thAfterAPageMove) {
    start(date(2026, 10, 31));
    key(GDK_KEY_F3);
    EXPECT_EQ(first_month(), "2026-11");
    EXPECT_EQ(state().page.cursor, date(2026, 11, 28));
}

struct CursorCase {
    Day today;
    guint key;
    Day cursor;
    const char* first_month;
};

TEST_F(WindowTest, CursorKeysCrossMonthEnds) {
    const CursorCase cases[] = {
        {date(2026, 11, 30), GDK_KEY_Down, date(2026, 12, 1), "2026-11"},
        {date(2026, 12, 1), GDK_KEY_Up, date(2026, 11, 30),
         "2026-12"},  // off the page: scrolls a month
        {date(2026, 11, 30), GDK_KEY_Right, date(2026, 12, 30), "2026-11"},
        {date(2027, 1, 31), GDK_KEY_Right, date(2027, 2, 28), "2027-01"},
        {date(2026, 1, 31), GDK_KEY_Left, date(2025, 12, 31), "2025-12"},
        {date(2026, 11, 10), GDK_KEY_KP_Down, date(2026, 11, 11), "2026-11"},
    };
    for (const CursorCase& c : cases) {
        start(c.today);
        key(c.key);
        EXPECT_EQ(state().page.cursor, c.cursor) << calendar::format_iso_date(c.today);
        if (c.key == GDK_KEY_Up)
            EXPECT_EQ(first_month(), "2026-11");
        else
            EXPECT_EQ(first_month(), c.first_month) << calendar::format_iso_date(c.today);
    }
}

TEST_F(WindowTest, KeypadPlusAndMinusWithTheirResetToSix) {
    start(date(2026, 11, 23));
    key(GDK_KEY_KP_Add);
    EXPECT_EQ(state().page.columns, 7);
    key(GDK_KEY_KP_Subtract);
    key(GDK_KEY_KP_Subtract);  // below 6: six
    EXPECT_EQ(state().page.columns, 6);
    for (int i = 0; i < 17; ++i)
        key(GDK_KEY_KP_Add);
    EXPECT_EQ(state().page.columns, 23);
    EXPECT_EQ(window().page_view().page()->columns, 23);
    key(GDK_KEY_KP_Add);  // above 23: six
    EXPECT_EQ(state().page.columns, 6);
    EXPECT_TRUE(m_messages.empty());
}

TEST_F(WindowTest, ColumnsThatDoNotFitTheScreenAreRefused) {
    // The screen exactly as wide as a page of seven columns: too small (the
    // check is strictly greater), while six columns fit.
    const view::CellSize cell = view::TextShaper(view::FontSpec{}).cell();
    const view::geometry::PixelSize seven = view::geometry::page_pixel_size(cell, 7);
    start(date(2026, 11, 23),
          ScreenSize{static_cast<int>(seven.width), static_cast<int>(seven.height) + 100});
    key(GDK_KEY_KP_Add);
    EXPECT_EQ(state().page.columns, 6);
    ASSERT_EQ(m_messages.size(), 1u);
    EXPECT_EQ(m_messages[0].title, "Fehler");
    EXPECT_EQ(m_messages[0].text,
              "Der gewählte Anzahl der Kolumnen war für den Bildschirm zu groß!");
}

TEST_F(WindowTest, StartFallsBackToSixColumnsAndSaysWhenEvenThoseAreTooLarge) {
    const view::CellSize cell = view::TextShaper(view::FontSpec{}).cell();
    const view::geometry::PixelSize six = view::geometry::page_pixel_size(cell, 6);
    for (const bool six_fit : {true, false}) {
        std::filesystem::create_directories(user_dir());
        settings::Settings s = settings::default_settings(m_dir.path().string());
        s.columns = 10;
        ASSERT_TRUE(settings::write_settings_file(user_dir() / "Einstellungen.dat", s));
        m_messages.clear();
        start(date(2026, 11, 23),
              ScreenSize{static_cast<int>(six.width) + (six_fit ? 1 : 0), 2000});
        EXPECT_EQ(state().page.columns, 6);
        if (six_fit) {
            EXPECT_TRUE(m_messages.empty());
        } else {
            ASSERT_EQ(m_messages.size(), 1u);
            EXPECT_EQ(m_messages[0].text, "Der Zeichensatz ist für den Bildschirm zu groß!");
        }
        m_program->window().hide();
    }
}

struct ModelCase {
    guint key;
    GdkModifierType state;
    int model;
};

TEST_F(WindowTest, ModelKeysWithAndWithoutShiftAndTheBlockButton) {
    start(date(2026, 11, 23));
    EXPECT_TRUE(window().button(Command::BlockToggle).get_visible());
    const ModelCase cases[] = {
        {GDK_KEY_n, GdkModifierType(0), 3},
        {GDK_KEY_N, GDK_SHIFT_MASK, 0},
        {GDK_KEY_m, GdkModifierType(0), 1},
        {GDK_KEY_M, GDK_SHIFT_MASK, 4},
        {GDK_KEY_b, GdkModifierType(0), 2},
        {GDK_KEY_V, GDK_SHIFT_MASK, 6},
        {GDK_KEY_c, GdkModifierType(0), 7},
        {GDK_KEY_x, GdkModifierType(0), 5},
        {GDK_KEY_N, GDK_SHIFT_MASK, 0},
        {GDK_KEY_n, GDK_CONTROL_MASK, 0},  // Ctrl+N is no model key
    };
    for (const ModelCase& c : cases) {
        key(c.key, c.state);
        EXPECT_EQ(state().page.model, c.model) << gdk_keyval_name(c.key);
        EXPECT_EQ(window().page_view().page()->model, c.model);
        EXPECT_EQ(window().button(Command::BlockToggle).get_visible(),
                  calendar::offers_block_toggle(c.model))
            << c.model;
    }
    // The button switches the block display, in the settings kept on exit.
    window().button(Command::BlockToggle).clicked();
    EXPECT_EQ(state().session.settings.vacation_block_shown, 0);
    EXPECT_NE(field_text(StatusField::Day).find("Urlaubsblock ausgeblendet"), std::string::npos);
    window().button(Command::BlockToggle).clicked();
    EXPECT_EQ(state().session.settings.vacation_block_shown, 1);
}

TEST_F(WindowTest, StatusLinesShowTheCursorDayWithItsNotes) {
    {
        notes::NoteStore store((std::filesystem::create_directories(user_dir()), user_dir()), "");
        store.write_daily(notes::date_key(date(2026, 11, 25)), "Spätdienst mit Eva");
        store.write_yearly(notes::day_key(date(2026, 11, 25)), "Hochzeitstag");
    }
    start(date(2026, 11, 23));
    EXPECT_EQ(field_text(StatusField::Notes), "");
    key(GDK_KEY_Down);
    key(GDK_KEY_Down);
    EXPECT_EQ(field_text(StatusField::Notes), "Spätdienst mit Eva\u00A0|\u00A0Hochzeitstag");
    EXPECT_EQ(field_text(StatusField::Day).rfind("Mittwoch, 25.11.2026", 0), 0u)
        << field_text(StatusField::Day);
    EXPECT_EQ(field_text(StatusField::Astronomy).rfind("Dämmerung:", 0), 0u)
        << field_text(StatusField::Astronomy);
    EXPECT_EQ(field_text(StatusField::Hours), "   0,00");
    EXPECT_EQ(field_text(StatusField::Vacation), "  0");
    // A click on another day moves the cursor there and the lines follow.
    const view::PageLayout& page = *window().page_view().page();
    for (const view::DayCell& cell : page.days) {
        if (!(cell.day == date(2026, 12, 10))) continue;
        click(window().page_view(), cell.row.x + 5, cell.row.y + cell.row.h / 2);
        break;
    }
    EXPECT_EQ(state().page.cursor, date(2026, 12, 10));
    EXPECT_EQ(field_text(StatusField::Notes), "");
    EXPECT_EQ(field_text(StatusField::Day).rfind("Donnerstag, 10.12.2026", 0), 0u);
}

TEST_F(WindowTest, LettersActWhileAStatusFieldHasTheFocus) {
    start(date(2026, 11, 23));
    Gtk::Entry& notes = window().status_lines().field(StatusField::Notes);
    window().present();
    notes.grab_focus();
    ASSERT_TRUE(wait_until([&] { return notes.has_focus(); }, 2) || notes.is_focus());
    key(GDK_KEY_n);
    key(GDK_KEY_Right);
    EXPECT_EQ(state().page.model, 3);
    EXPECT_EQ(state().page.cursor, date(2026, 12, 23));
    EXPECT_EQ(notes.get_text(), "");
}

TEST_F(WindowTest, F10ReachesTheProgCommandNotAMenuBar) {
    start(date(2026, 11, 23));
    std::vector<Command> seen;
    window().signal_command().connect([&](Command c) { seen.push_back(c); });
    key(GDK_KEY_F10);
    key(GDK_KEY_F12);
    key(GDK_KEY_F11);
    EXPECT_EQ(seen, (std::vector<Command>{Command::ProgMenu, Command::InfoMenu, Command::Login}));
    EXPECT_EQ(Gtk::Settings::get_default()->property_gtk_menu_bar_accel().get_value(), "");
}

TEST_F(WindowTest, FontTooLargeForTheScreenIsRefusedAndTheOldOneKept) {
    start(date(2026, 11, 23), ScreenSize{1400, 900});
    const view::FontSpec before = state().renderer.font();
    EXPECT_FALSE(commands().try_font(view::FontSpec{"DejaVu Sans", 40, 0}));
    ASSERT_EQ(m_messages.size(), 1u);
    EXPECT_EQ(m_messages[0].title, "Fehler");
    EXPECT_EQ(m_messages[0].text, "Der gewählte Zeichensatz war für den Bildschirm zu groß!");
    EXPECT_EQ(state().renderer.font(), before);
    EXPECT_EQ(state().session.settings.font_size, 10);

    EXPECT_TRUE(commands().try_font(view::FontSpec{"DejaVu Sans", 8, 1}));
    EXPECT_EQ(state().session.settings.font_name, "DejaVu Sans");
    EXPECT_EQ(state().session.settings.font_size, 8);
    EXPECT_EQ(state().session.settings.font_style, 1);
    // The page and the status fields follow the smaller cell.
    const view::CellSize cell = state().renderer.cell();
    EXPECT_EQ(window().page_view().page()->cell.height, cell.height);
    EXPECT_LE(window().status_lines().field(StatusField::Hours).get_allocated_width(),
              7 * cell.width + 8);
}

TEST_F(WindowTest, EscapeSavesPageAndModelInTheSettings) {
    start(date(2026, 11, 23));
    key(GDK_KEY_KP_Add);
    key(GDK_KEY_n);
    key(GDK_KEY_Escape);
    EXPECT_FALSE(window().get_visible());
    const settings::Settings saved = settings::read_settings_file(
        user_dir() / "Einstellungen.dat", settings::default_settings(m_dir.path().string()));
    EXPECT_EQ(saved.columns, 7);
    EXPECT_EQ(saved.model, 3);
    // Saved once: later keys change nothing.
    key(GDK_KEY_KP_Add);
    EXPECT_EQ(state().page.columns, 7);
}

TEST_F(WindowTest, EveryButtonAndFieldHasAnAccessibleName) {
    start(date(2026, 11, 23));
    for (const ButtonSpec& spec : button_specs()) {
        Gtk::Button& b = window().button(spec.command);
        EXPECT_EQ(b.get_accessible()->get_name(), std::string(spec.tooltip));
        EXPECT_EQ(b.get_tooltip_text(), std::string(spec.tooltip));
    }
    for (StatusField f : {StatusField::Day, StatusField::Notes, StatusField::Astronomy,
                          StatusField::Hours, StatusField::Vacation})
        EXPECT_EQ(window().status_lines().field(f).get_accessible()->get_name(),
                  StatusLines::tooltip(f));
}

// Cursor moves repaint two rows of the page image only; the image must be
// the whole page painted afresh all the same.
TEST_F(WindowTest, CursorRepaintLeavesThePageImageAsAFullRedraw) {
    {
        notes::NoteStore store((std::filesystem::create_directories(user_dir()), user_dir()), "");
        store.write_daily(notes::date_key(date(2026, 11, 24)), "Notiz");
    }
    start(date(2026, 11, 23));
    for (guint k : {GDK_KEY_Down, GDK_KEY_Right, GDK_KEY_Down, GDK_KEY_Left, GDK_KEY_Up}) {
        key(k);
        const view::SurfacePtr full = view::render_image(*window().page_view().page(), 1.0);
        cairo_surface_t* shown = window().page_view().image().get();
        ASSERT_EQ(cairo_image_surface_get_height(shown),
                  cairo_image_surface_get_height(full.get()));
        const int stride = cairo_image_surface_get_stride(shown);
        const int width = cairo_image_surface_get_width(shown);
        int differing = 0;
        for (int y = 0; y < cairo_image_surface_get_height(shown); ++y) {
            const auto* a = reinterpret_cast<const std::uint32_t*>(
                cairo_image_surface_get_data(shown) + y * stride);
            const auto* b = reinterpret_cast<const std::uint32_t*>(
                cairo_image_surface_get_data(full.get()) + y * stride);
            for (int x = 0; x < width; ++x)
                differing += (a[x] & 0xFFFFFF) != (b[x] & 0xFFFFFF);
        }
        EXPECT_EQ(differing, 0) << calendar::format_iso_date(state().page.cursor);
    }
}

// Key Z: the clipboard holds exactly the picture the render command draws
// for the same month, columns, model, cursor, today and user data.
TEST_F(WindowTest, ClipboardImageIsTheRenderCommandsPicture) {
    {
        notes::NoteStore store((std::filesystem::create_directories(user_dir()), user_dir()), "");
        store.write_daily(notes::date_key(date(2026, 12, 24)), "Bescherung");
    }
    start(date(2026, 11, 23));
    key(GDK_KEY_KP_Add);
    key(GDK_KEY_m);
    key(GDK_KEY_Down);
    key(GDK_KEY_z);
    ASSERT_EQ(m_messages.size(), 1u);
    EXPECT_EQ(m_messages[0].title, "Information");
    EXPECT_EQ(m_messages[0].text, "Die Kalender wurde in die Zwischenablage kopiert.");
    const Glib::RefPtr<Gdk::Pixbuf> copied = Gtk::Clipboard::get()->wait_for_image();
    ASSERT_TRUE(copied);

    const std::filesystem::path png = m_dir.path() / "render.png";
    const sk::test::CommandResult rendered = sk::test::run_command(
        sk::test::program() + " render --out " + png.string() + " --data-dir " +
        m_dir.path().string() +
        " --today 2026-11-23 --month 2026-11 --columns 7 --model 1 --cursor 2026-11-24");
    ASSERT_EQ(rendered.status, 0) << rendered.err;
    const Glib::RefPtr<Gdk::Pixbuf> expected = Gdk::Pixbuf::create_from_file(png.string());
    ASSERT_EQ(copied->get_width(), expected->get_width());
    ASSERT_EQ(copied->get_height(), expected->get_height());
    int differing = 0;
    for (int y = 0; y < expected->get_height(); ++y) {
        const guint8* a = copied->get_pixels() + y * copied->get_rowstride();
        const guint8* b = expected->get_pixels() + y * expected->get_rowstride();
        for (int x = 0; x < expected->get_width(); ++x) {
            const guint8* p = a + x * copied->get_n_channels();
            const guint8* q = b + x * expected->get_n_channels();
            if (p[0] != q[0] || p[1] != q[1] || p[2] != q[2]) ++differing;
        }
    }
    EXPECT_EQ(differing, 0);
}

}  // namespace
}  // namespace sk::app::test
