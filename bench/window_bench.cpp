// Speed of the main window, from a key press to the finished redraw on the
// screen: the largest page (23 month columns, every display option on) of a
// user with 1,000 notes and 500 markings of each kind. Needs a display large
// enough for the page, e.g.
//   SK_XVFB_SCREEN=3600x1200x24 tools/with-xvfb.sh build/test/bench/window_bench
// Each iteration sends one key as GDK events and runs the main loop until
// the page view has painted the new page.
#include <benchmark/benchmark.h>
#include <gdk/gdkkeysyms.h>
#include <gtkmm.h>

#include <filesystem>
#include <memory>

#include "app/application.hpp"
#include "app/calendar_marking_dialog.hpp"
#include "app/hours_dialog.hpp"
#include "app/main_window.hpp"
#include "app/shift_column_dialog.hpp"
#include "app/shift_marking_dialog.hpp"
#include "app/vacation_dialog.hpp"
#include "marks/calendar_markings.hpp"
#include "marks/shift_markings.hpp"
#include "sample_user_data.hpp"
#include "settings/settings_file.hpp"
#include "view/status_texts.hpp"

namespace {

using namespace sk;
using calendar::Day;
using calendar::DayNumber;

void fill_user_directory(const std::filesystem::path& user_dir, DayNumber first, DayNumber last) {
    std::filesystem::create_directories(user_dir);
    settings::Settings s = settings::default_settings(user_dir.parent_path().string());
    s.columns = 23;
    s.model = 1;
    s.school_holidays_shown = s.week_numbers_shown = s.moon_phases_shown = s.perihelion_shown = 1;
    settings::write_settings_file(user_dir / "Einstellungen.dat", s);

    notes::NoteStore notes(user_dir, "");
    bench::SampleMarkings m = bench::write_sample_notes(notes, first, last);
    marks::save_calendar_markings(user_dir, m.bars);
    marks::save_shift_markings(user_dir, m.shifts);
}

struct Window {
    std::filesystem::path root = std::filesystem::temp_directory_path() / "sk-window-bench";
    std::unique_ptr<app::Program> program;
    bool drawn = false;
    double dispatch_us = 0, draw_us = 0;  // the command, then until the page is on the screen
    int presses = 0;

    Window() {
        std::filesystem::remove_all(root);
        const Day today = Day::from_date(2024, 5, 12);
        fill_user_directory(root / "Programm", today.number - 400, today.number + 1100);
        app::ProgramOptions options;
        options.today = today;
        options.data_root = root;
        options.screen = [] { return std::optional<app::ScreenSize>(app::ScreenSize{8000, 3000}); };
        // Today's notes open in a window at the start: closed as it comes.
        Glib::signal_timeout().connect(
            [] {
                for (Gtk::Window* w : Gtk::Window::list_toplevels())
                    if (auto* dialog = dynamic_cast<Gtk::Dialog*>(w);
                        dialog && dialog->get_visible())
                        dialog->response(Gtk::RESPONSE_CANCEL);
                return true;
            },
            50);
        program = std::make_unique<app::Program>();
        program->start(options);
        program->window().page_view().signal_page_drawn().connect([this] { drawn = true; });
        wait_for_page();
    }
    ~Window() {
        program->window().hide();
        program.reset();
        std::filesystem::remove_all(root);
    }
    void wait_for_page() {
        auto context = Glib::MainContext::get_default();
        while (!drawn)
            context->iteration(true);
    }
    // Keys come far apart compared with frames: GDK paints at most one
    // frame per refresh interval, so a key right after a frame would wait
    // for the next one. A tenth of a second outside the timing, as between a
    // user's key presses.
    void pause(benchmark::State& state) {
        state.PauseTiming();
        settle();
        state.ResumeTiming();
    }
    void settle() {
        auto context = Glib::MainContext::get_default();
        const gint64 end = g_get_monotonic_time() + 100000;
        while (g_get_monotonic_time() < end) {
            while (context->pending())
                context->iteration(false);
            g_usleep(2000);
        }
    }
    void press(guint keyval) {
        GdkWindow* target = program->window().get_window()->gobj();
        GdkEvent* event = gdk_event_new(GDK_KEY_PRESS);
        event->key.window = GDK_WINDOW(g_object_ref(target));
        event->key.send_event = TRUE;
        event->key.keyval = keyval;
        gdk_event_set_device(
            event, gdk_seat_get_keyboard(gdk_display_get_default_seat(gdk_display_get_default())));
        drawn = false;
        const gint64 t0 = g_get_monotonic_time();
        gtk_main_do_event(event);
        const gint64 t1 = g_get_monotonic_time();
        gdk_event_free(event);
        wait_for_page();
        dispatch_us += t1 - t0;
        draw_us += g_get_monotonic_time() - t1;
        ++presses;
    }
};

Window& window() {
    static bool ready = [] {
        if (!gtk_init_check(nullptr, nullptr)) return false;
        Gtk::Main::init_gtkmm_internals();
        return true;
    }();
    if (!ready) std::abort();
    static Window w;
    return w;
}

// How the time splits: carrying out the command (layout, page image,
// status lines) and then until the frame with the page is painted.
void report(Window& w, benchmark::State& state) {
    state.counters["command_ms"] = w.dispatch_us / w.presses / 1000;
    state.counters["to_screen_ms"] = w.draw_us / w.presses / 1000;
    w.dispatch_us = w.draw_us = 0;
    w.presses = 0;
}

// The cursor moves: the same months, the sky known.
void BM_CursorKeyToRedraw23Columns(benchmark::State& state) {
    Window& w = window();
    bool right = true;
    for (auto _ : state) {
        w.press(right ? GDK_KEY_Right : GDK_KEY_Left);
        right = !right;
        w.pause(state);
    }
    state.counters["columns"] = w.program->window().page_view().page()->columns;
    report(w, state);
}
BENCHMARK(BM_CursorKeyToRedraw23Columns)->Unit(benchmark::kMillisecond)->Iterations(60);

// The page turns a month: other months, the sky computed anew.
void BM_MonthKeyToRedraw23Columns(benchmark::State& state) {
    Window& w = window();
    bool forward = true;
    for (auto _ : state) {
        w.press(forward ? GDK_KEY_F3 : GDK_KEY_F2);
        forward = !forward;
        w.pause(state);
    }
    report(w, state);
}
BENCHMARK(BM_MonthKeyToRedraw23Columns)->Unit(benchmark::kMillisecond)->Iterations(60);

}  // namespace

namespace {
// Runs the dialog until it is on the screen, then closes it as Escape does.
void open_and_close(Gtk::Dialog& dialog) {
    sigc::connection closer = Glib::signal_timeout().connect(
        [&dialog] {
            if (dialog.get_mapped()) dialog.response(Gtk::RESPONSE_CANCEL);
            return true;
        },
        1);
    dialog.run();
    closer.disconnect();
}

// The month key again, each time after the five marking and account
// dialogs were opened and closed (outside the timing): a dialog must leave
// nothing behind that slows the redraws after it. On X11 a dialog with a
// ticked check or radio button makes cairo drop the shared-memory pool of
// the page's upload; the page view draws the whole page again when the loop
// is idle after such a window, so that this key's frame finds the pool
// ready. The frames should be as fast as without the dialogs (compare with the
// month key alone, run before and after this one).
void BM_MonthKeyAfterMarkingDialogs(benchmark::State& state) {
    Window& w = window();
    auto& s = w.program->state();
    Gtk::Window& parent = w.program->window();
    const view::CellSize cell = s.renderer.cell();
    bool forward = true;
    for (auto _ : state) {
        state.PauseTiming();
        {
            app::ShiftMarkingDialog marking(parent, cell, s.page.model, 1, s.page.cursor, 0);
            open_and_close(marking);
        }
        {
            app::ShiftColumnDialog column(parent, cell, s.page.model);
            open_and_close(column);
        }
        {
            app::CalendarMarkingDialog bar(
                parent, cell,
                marks::propose_marking(s.session.calendar_markings, s.page.cursor.number));
            open_and_close(bar);
        }
        {
            app::HoursDialog hours(parent, cell, s.session.accounts.hours, true);
            open_and_close(hours);
        }
        {
            app::VacationDialog vacation(parent, cell, s.session.accounts.vacation, 0, 0, true);
            open_and_close(vacation);
        }
        w.settle();
        state.ResumeTiming();
        w.press(forward ? GDK_KEY_F3 : GDK_KEY_F2);
        forward = !forward;
        w.pause(state);
    }
    report(w, state);
}
BENCHMARK(BM_MonthKeyAfterMarkingDialogs)->Unit(benchmark::kMillisecond)->Iterations(60);
// The month key alone once more, after those 300 dialogs.
BENCHMARK(BM_MonthKeyToRedraw23Columns)
    ->Name("BM_MonthKeyToRedraw23ColumnsAfterAllDialogs")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(60);

// The status lines alone: day line, notes, astronomy line and accounts.
void BM_StatusTexts(benchmark::State& state) {
    Window& w = window();
    auto& s = w.program->state();
    for (auto _ : state)
        benchmark::DoNotOptimize(sk::view::status_texts(s.session, s.page.cursor, s.today));
}
BENCHMARK(BM_StatusTexts)->Unit(benchmark::kMillisecond);
}  // namespace
