#include "app/application.hpp"

#include <gtkmm.h>

#include <chrono>
#include <ctime>
#include <fstream>
#include <iostream>

#include "app/app_state.hpp"
#include "app/commands.hpp"
#include "app/main_window.hpp"
#include "app/message_box.hpp"
#include "app/messages_locale.hpp"
#include "session/exit_signals.hpp"
#include "settings/users.hpp"
#include "view/page_geometry.hpp"

namespace sk::app {

namespace {

constexpr const char* kApplicationId = "de.quorvel.Schichtkalender";

// The work area of the monitor that shows the window (the primary monitor
// before the window is on a screen): the screen without panels and docks.
std::optional<ScreenSize> work_area(Gtk::Window& window) {
    const Glib::RefPtr<Gdk::Display> display = Gdk::Display::get_default();
    if (!display) return std::nullopt;
    Glib::RefPtr<Gdk::Monitor> monitor;
    if (const auto gdk_window = window.get_window())
        monitor = display->get_monitor_at_window(gdk_window);
    if (!monitor) monitor = display->get_primary_monitor();
    if (!monitor && display->get_n_monitors() > 0) monitor = display->get_monitor(0);
    if (!monitor) return std::nullopt;
    Gdk::Rectangle area;
    monitor->get_workarea(area);
    return ScreenSize{area.get_width(), area.get_height()};
}

}  // namespace

calendar::Day system_today() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return calendar::Day::from_date(local.tm_year + 1900, local.tm_mon, local.tm_mday);
}

ParsedOptions parse_options(const std::vector<std::string>& args) {
    ParsedOptions parsed;
    parsed.options.data_root = std::string(settings::kDefaultDataRoot);
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        std::string name, value;
        bool has_value = false;
        for (const char* option : {"--today", "--data-dir"}) {
            const std::string o = option;
            if (arg == o) {
                name = o;
                if (i + 1 < args.size()) {
                    value = args[++i];
                    has_value = true;
                }
            } else if (arg.rfind(o + "=", 0) == 0) {
                name = o;
                value = arg.substr(o.size() + 1);
                has_value = true;
            }
        }
        if (name.empty()) {
            parsed.rest.push_back(arg);
            continue;
        }
        if (!has_value) {
            parsed.error = "zu " + name + " fehlt der Wert";
            return parsed;
        }
        if (name == "--today") {
            const auto day = calendar::parse_iso_date(value);
            if (!day) {
                parsed.error =
                    "\"" + value + "\" ist kein gültiges Datum für --today (erwartet JJJJ-MM-TT)";
                return parsed;
            }
            parsed.options.today = *day;
        } else {
            if (value.empty()) {
                parsed.error = "das Datenverzeichnis (--data-dir) ist leer";
                return parsed;
            }
            parsed.options.data_root = value;
        }
    }
    return parsed;
}

Program::Program() = default;
Program::~Program() = default;

bool Program::start(const ProgramOptions& options) {
    // The window first, then the user's data.
    m_window = std::make_unique<MainWindow>();
    m_window->set_title(start_title(settings::kDefaultUser));

    session::OpenRequest request;
    request.data_root = options.data_root;
    request.mode = session::OpenMode::Create;
    session::OpenResult opened = session::open_session(request);
    if (!opened.session) {
        show_error(nullptr, opened.error);
        return false;
    }
    const calendar::Day today = options.today.value_or(system_today());
    m_state = std::make_unique<AppState>(std::move(*opened.session), today);
    m_state->screen = options.screen;
    if (!m_state->screen) m_state->screen = [w = m_window.get()] { return work_area(*w); };
    m_window->set_title(start_title(m_state->session.user));
    m_commands = std::make_unique<CommandDispatcher>(*m_window, *m_state);

    // The page must fit the screen; seven or more columns fall back to six once.
    bool font_too_large = false;
    const view::CellSize cell = m_state->renderer.cell();
    if (!m_commands->page_fits(m_state->page.columns, cell)) {
        if (m_state->page.columns >= 7) {
            calendar::PageState six = m_state->page;
            six.columns = calendar::kMinColumns;
            m_state->page = calendar::normalized(six);
        }
        font_too_large = !m_commands->page_fits(m_state->page.columns, cell);
    }

    MainWindow& w = *m_window;
    CommandDispatcher& c = *m_commands;
    w.signal_command().connect([&c](Command command) { c.run(command); });
    w.page_view().signal_page_clicked().connect([&c](double x, double y) { c.click(x, y); });
    w.page_view().signal_page_double_clicked().connect(
        [&c](double x, double y) { c.double_click(x, y); });
    w.page_view().signal_page_scrolled().connect([&c](int direction) { c.scroll(direction); });
    w.status_lines().signal_hours_clicked().connect([&c] { c.open_hours(); });

    m_state->page = calendar::go_to_today(m_state->page, today);
    c.changed(CommandDispatcher::kControls | CommandDispatcher::kPage | CommandDispatcher::kStatus |
              CommandDispatcher::kSize);
    w.show();
    for (const std::string& message : opened.messages)
        show_error(&w, message);
    c.show_todays_notes();
    if (font_too_large) show_error(&w, std::string(CommandDispatcher::kStartFontTooLarge));
    return true;
}

int run(int argc, char** argv) {
    std::vector<std::string> args(argv + 1, argv + argc);
    ParsedOptions parsed = parse_options(args);
    if (!parsed.error.empty()) {
        std::cerr << "schichtkalender: " << parsed.error << '\n';
        return 2;
    }
    // Blocked before GTK starts its threads, so that every thread leaves the
    // two signals to the watch.
    session::ExitSignalWatch signals;
    set_up_window_locale();

    std::vector<char*> gtk_args{argv[0]};
    for (std::string& a : parsed.rest)
        gtk_args.push_back(a.data());
    int gtk_argc = static_cast<int>(gtk_args.size());
    char** gtk_argv = gtk_args.data();
    if (!gtk_init_check(&gtk_argc, &gtk_argv)) {
        std::cerr << "schichtkalender: keine grafische Anzeige gefunden; "
                     "\"schichtkalender --help\" nennt die Befehle ohne Fenster.\n";
        return 1;
    }
    if (gtk_argc > 1) {
        std::cerr << "schichtkalender: unbekannte Option \"" << gtk_argv[1]
                  << "\" (das Fenster kennt --today JJJJ-MM-TT und --data-dir VERZ)\n";
        return 2;
    }

    // One window per user session: a second start only brings the open window
    // to the front (it reaches the first over D-Bus; without a session bus
    // every start has a window of its own). The headless commands never get
    // here.
    auto app = Gtk::Application::create(kApplicationId);
    Program program;
    int status = 0;
    bool started = false;
    const bool timing = std::getenv("SK_TIMING_FIRST_PAGE") != nullptr;
    app->signal_activate().connect([&] {
        if (started) {
            if (status == 0) program.window().present();
            return;
        }
        started = true;
        if (!program.start(parsed.options)) {
            status = 1;
            return;
        }
        app->add_window(program.window());
        if (timing) {
            // Timing harness: the moment the first page is on the screen, then leave.
            program.window().page_view().signal_page_drawn().connect([&] {
                const auto now = std::chrono::system_clock::now().time_since_epoch();
                std::ifstream status_file("/proc/self/status");
                std::string line, rss;
                while (std::getline(status_file, line))
                    if (line.rfind("VmRSS:", 0) == 0) rss = line;
                std::cerr << "erste Seite "
                          << std::chrono::duration_cast<std::chrono::microseconds>(now).count()
                          << " us; " << rss << '\n';
                Glib::signal_idle().connect_once([&] { program.commands().run(Command::Quit); });
            });
        }
    });
    if (signals.fd() >= 0) {
        Glib::signal_io().connect(
            [&](Glib::IOCondition) {
                if (signals.take_signal() == 0) return true;
                if (started && status == 0) {
                    // Closes any dialog first, without its result, then saves.
                    for (Gtk::Window* window : Gtk::Window::list_toplevels())
                        if (auto* dialog = dynamic_cast<Gtk::Dialog*>(window);
                            dialog && dialog->get_visible())
                            dialog->response(Gtk::RESPONSE_DELETE_EVENT);
                    program.commands().quit(false);
                }
                app->quit();
                return false;
            },
            signals.fd(), Glib::IO_IN);
    }
    char* app_argv[] = {argv[0], nullptr};
    const int app_status = app->run(1, app_argv);
    return status != 0 ? status : app_status;
}

}  // namespace sk::app
