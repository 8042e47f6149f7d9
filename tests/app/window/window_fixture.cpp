#include "window_fixture.hpp"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <sstream>

#include "notes/note_keys.hpp"
#include "notes/note_store.hpp"

namespace sk::app::test {
namespace {

using Clock = std::chrono::steady_clock;
constexpr auto kDialogLimit = std::chrono::seconds(30);
// Object data of a window the catcher has seen: when it was first seen.
constexpr char kSeenKey[] = "sk-test-seen";

}  // namespace

void send_key(Gtk::Window& window, const std::string& names) {
    std::istringstream in(names);
    for (std::string name; in >> name;) {
        GdkModifierType state = GdkModifierType(0);
        for (const auto& [prefix, mask] :
             {std::pair{"Shift+", GDK_SHIFT_MASK}, std::pair{"Control+", GDK_CONTROL_MASK}})
            if (name.starts_with(prefix)) {
                state = mask;
                name.erase(0, std::string_view(prefix).size());
            }
        const guint keyval = gdk_keyval_from_name(name.c_str());
        ASSERT_NE(keyval, guint(GDK_KEY_VoidSymbol)) << name;
        send_key(static_cast<Gtk::Widget&>(window), keyval, state);
    }
}

void click(Gtk::Widget& widget, double x, double y, bool twice) {
    GdkWindow* target = widget.get_window()->gobj();
    if (dynamic_cast<Gtk::Entry*>(&widget)) {
        // An entry takes clicks in its own text window, a child of the parent's.
        for (GList* at = gdk_window_peek_children(target); at; at = at->next) {
            gpointer owner = nullptr;
            gdk_window_get_user_data(GDK_WINDOW(at->data), &owner);
            if (owner == widget.gobj() && gdk_window_is_visible(GDK_WINDOW(at->data)))
                target = GDK_WINDOW(at->data);
        }
    } else if (!widget.get_has_window()) {
        // The drawing area has no window of its own: its events come in the
        // coordinates of the parent window.
        x += widget.get_allocation().get_x();
        y += widget.get_allocation().get_y();
    }
    std::vector<GdkEventType> types = {GDK_BUTTON_PRESS, GDK_BUTTON_RELEASE};
    if (twice)
        types = {GDK_BUTTON_PRESS, GDK_BUTTON_RELEASE, GDK_BUTTON_PRESS, GDK_2BUTTON_PRESS,
                 GDK_BUTTON_RELEASE};
    for (GdkEventType type : types) {
        GdkEvent* event = gdk_event_new(type);
        event->button.time = GDK_CURRENT_TIME;
        event->button.x = x;
        event->button.y = y;
        event->button.button = GDK_BUTTON_PRIMARY;
        event->button.window = GDK_WINDOW(g_object_ref(target));
        event->button.send_event = TRUE;
        gdk_event_set_device(
            event, gdk_seat_get_pointer(gdk_display_get_default_seat(gdk_display_get_default())));
        gtk_main_do_event(event);
        gdk_event_free(event);
    }
}

const view::DayCell* day_cell(const view::PageLayout& page, const calendar::Day& day) {
    for (const view::DayCell& cell : page.days)
        if (cell.day == day) return &cell;
    return nullptr;
}

WindowTest::WindowTest() {
    const auto begin = Clock::now();
    m_catcher = Glib::signal_timeout().connect(
        [this, begin] {
            const auto now = Clock::now();
            for (Gtk::Window* w : Gtk::Window::list_toplevels()) {
                auto* dialog = dynamic_cast<Gtk::Dialog*>(w);
                if (!dialog || !dialog->get_visible()) continue;
                GObject* object = G_OBJECT(dialog->gobj());
                const auto seen = std::chrono::milliseconds(
                    GPOINTER_TO_SIZE(g_object_get_data(object, kSeenKey)));
                if (seen.count() > 0) {
                    if (now - begin - seen < kDialogLimit) continue;
                    ADD_FAILURE() << "Das Fenster \"" << dialog->get_title()
                                  << "\" blieb nach seiner Antwort offen";
                    dialog->hide();  // ends its run()
                    continue;
                }
                const auto at = std::chrono::duration_cast<std::chrono::milliseconds>(now - begin);
                g_object_set_data(object, kSeenKey, GSIZE_TO_POINTER(at.count() + 1));
                g_signal_connect(object, "hide", G_CALLBACK(+[](GObject* hidden, gpointer) {
                                     g_object_set_data(hidden, kSeenKey, nullptr);
                                 }),
                                 nullptr);
                const bool box = dynamic_cast<Gtk::MessageDialog*>(dialog);
                m_messages.push_back({dialog->get_title(), message_text(*dialog)});
                // Answered from the main loop, not from here, so that an
                // answer may open another window, which is caught in turn.
                g_object_ref(object);
                Glib::signal_idle().connect_once([this, dialog, object, box] {
                    if (g_object_get_data(object, kSeenKey) &&
                        std::ranges::none_of(m_answers, [&](auto& a) { return a(*dialog); }))
                        dialog->response(box ? Gtk::RESPONSE_OK : Gtk::RESPONSE_CANCEL);
                    g_object_unref(object);
                });
            }
            return true;
        },
        20);
}

WindowTest::~WindowTest() {
    m_catcher.disconnect();
    if (m_program) m_program->window().hide();
    m_program.reset();
    wait_until([] { return !Glib::MainContext::get_default()->pending(); }, 1);
}

void WindowTest::start(const calendar::Day& today, std::optional<ScreenSize> screen) {
    if (m_program) m_program->window().hide();
    ProgramOptions options;
    options.today = today;
    options.data_root = m_dir.path();
    options.screen = [screen] { return screen; };
    m_program = std::make_unique<Program>();
    ASSERT_TRUE(m_program->start(options));
    ASSERT_TRUE(wait_until([this] {
        return window().get_mapped() && window().page_view().image();
    })) << "Das Fenster erschien nicht mit seiner Seite";
}

void WindowTest::write_daily(const calendar::Day& day, const std::string& text) {
    std::filesystem::create_directories(user_dir());
    ASSERT_EQ(notes::NoteStore(user_dir(), "").write_daily(notes::date_key(day), text),
              std::nullopt);
}

std::string WindowTest::field_text(StatusField field) {
    return window().status_lines().field(field).get_text();
}

std::string WindowTest::page() const {
    const calendar::PageState& p = m_program->state().page;
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d %s %d %d", p.year, p.month_index + 1,
                  calendar::format_iso_date(p.cursor).c_str(), p.columns, p.model);
    return text;
}

settings::Settings saved_settings(const std::filesystem::path& user_dir) {
    return settings::read_settings_file(user_dir / "Einstellungen.dat",
                                        settings::default_settings("-"));
}

sk::test::CommandResult run_session(const std::filesystem::path& dir, const std::string& steps,
                                    const std::string& shell) {
    const std::string prelude = "set -euo pipefail\nprog='" + sk::test::program() + "'\ndir='" +
                                dir.string() + "'\n" + R"SH(pid=''
trap '[ -z "$pid" ] || kill -9 "$pid" 2>/dev/null || true' EXIT
trap 'exit 124' TERM
fail() { echo "$*" >&2; exit 1; }
until_ok() {
  local what=$1 end=$((SECONDS + 30))
  shift
  until "$@" >/dev/null 2>&1; do
    [ "$SECONDS" -lt "$end" ] || fail "Nach 30 s nicht erreicht: $what"
    sleep 0.05
  done
}
shown() { w=$(xdotool search --onlyvisible --name "$1" | sed -n 1p || true); [ -n "$w" ]; }
absent() { ! xdotool search --onlyvisible --name "$1"; }
focused() { [ "$(xdotool getwindowfocus)" = "$w" ]; }
focus() { until_ok "Fenster $1" shown "$1"; xdotool windowfocus "$w"; until_ok "Fokus auf $1" focused; }
gone() { until_ok "Fenster $1 geschlossen" absent "$1"; }
stopped() { case $(ps -o stat= -p "$pid") in '' | Z*) return 0 ;; esac; return 1; }
ended() {
  until_ok "Ende des Programms" stopped
  local status=0
  wait "$pid" || status=$?
  pid=''
  [ "$status" = 0 ] || fail "Das Programm endete mit Status $status"
}
start() {
  "$prog" --data-dir "$dir/SKDaten" --today 2026-11-23 "$@" & pid=$!
  focus '^Quorvel Schichtkalender'; id=$w
}
quit() { focus '^Quorvel Schichtkalender'; xdotool key Escape; ended; }
)SH";
    const std::filesystem::path script = dir / "session.sh";
    sk::test::write_bytes(script, prelude + steps);
    // The bound of the whole script, should a step hang in spite of its own.
    sk::test::CommandResult r =
        sk::test::run_command("timeout -k 5 120 " + shell + " '" + script.string() + "'");
    if (r.status == 124) r.err += "\nDas Skript lief länger als 120 s und wurde abgebrochen.";
    return r;
}

int differing_pixels(const Glib::RefPtr<Gdk::Pixbuf>& a, const Glib::RefPtr<Gdk::Pixbuf>& b) {
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

}  // namespace sk::app::test
