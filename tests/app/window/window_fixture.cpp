#include "window_fixture.hpp"

#include <chrono>
#include <cstdio>

namespace sk::app::test {

bool wait_until(const std::function<bool()>& condition, double seconds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
    auto context = Glib::MainContext::get_default();
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) return false;
        context->iteration(false);
        if (!context->pending()) g_usleep(1000);
    }
    return true;
}

void send_key(Gtk::Window& window, guint keyval, GdkModifierType state) {
    GdkWindow* target = window.get_window()->gobj();
    guint16 keycode = 0;
    GdkKeymapKey* keys = nullptr;
    gint count = 0;
    if (gdk_keymap_get_entries_for_keyval(
            gdk_keymap_get_for_display(gdk_window_get_display(target)), keyval, &keys, &count) &&
        count > 0)
        keycode = static_cast<guint16>(keys[0].keycode);
    g_free(keys);
    for (GdkEventType type : {GDK_KEY_PRESS, GDK_KEY_RELEASE}) {
        GdkEvent* event = gdk_event_new(type);
        event->key.window = GDK_WINDOW(g_object_ref(target));
        event->key.send_event = TRUE;
        event->key.time = GDK_CURRENT_TIME;
        event->key.keyval = keyval;
        event->key.state = state;
        event->key.hardware_keycode = keycode;
        gdk_event_set_device(
            event,
            gdk_seat_get_keyboard(gdk_display_get_default_seat(gdk_window_get_display(target))));
        gtk_main_do_event(event);
        gdk_event_free(event);
    }
}

void click(Gtk::Widget& widget, double x, double y, bool twice) {
    GdkWindow* target = widget.get_window()->gobj();
    std::vector<GdkEventType> types = {GDK_BUTTON_PRESS, GDK_BUTTON_RELEASE};
    if (twice)
        types = {GDK_BUTTON_PRESS, GDK_BUTTON_RELEASE, GDK_BUTTON_PRESS, GDK_2BUTTON_PRESS,
                 GDK_BUTTON_RELEASE};
    // The drawing area has no window of its own: its events come in the
    // coordinates of the parent window.
    const Gtk::Allocation a = widget.get_allocation();
    const double ox = widget.get_has_window() ? 0 : a.get_x();
    const double oy = widget.get_has_window() ? 0 : a.get_y();
    for (GdkEventType type : types) {
        GdkEvent* event = gdk_event_new(type);
        event->button.window = GDK_WINDOW(g_object_ref(target));
        event->button.send_event = TRUE;
        event->button.time = GDK_CURRENT_TIME;
        event->button.x = x + ox;
        event->button.y = y + oy;
        event->button.button = GDK_BUTTON_PRIMARY;
        gdk_event_set_device(
            event, gdk_seat_get_pointer(gdk_display_get_default_seat(gdk_display_get_default())));
        gtk_main_do_event(event);
        gdk_event_free(event);
    }
}

WindowTest::WindowTest() {
    // Answers every window as it opens, keeping title and text.
    m_catcher = Glib::signal_timeout().connect(
        [this] {
            for (Gtk::Window* w : Gtk::Window::list_toplevels()) {
                auto* dialog = dynamic_cast<Gtk::Dialog*>(w);
                if (!dialog || !dialog->get_visible()) continue;
                auto* box = dynamic_cast<Gtk::MessageDialog*>(dialog);
                m_messages.push_back(
                    {dialog->get_title(), box ? box->property_text().get_value() : ""});
                if (m_answer && m_answer(*dialog)) continue;
                dialog->response(box ? Gtk::RESPONSE_OK : Gtk::RESPONSE_CANCEL);
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
    ProgramOptions options;
    options.today = today;
    options.data_root = m_dir.path();
    options.screen = [screen] { return screen; };
    m_program = std::make_unique<Program>();
    ASSERT_TRUE(m_program->start(options));
    ASSERT_TRUE(
        wait_until([this] { return window().get_mapped() && window().page_view().image(); }));
}

void WindowTest::key(guint keyval, GdkModifierType state) {
    send_key(window(), keyval, state);
}

std::string WindowTest::field_text(StatusField field) {
    return window().status_lines().field(field).get_text();
}

std::string WindowTest::first_month() const {
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d", m_program->state().page.year,
                  m_program->state().page.month_index + 1);
    return text;
}

}  // namespace sk::app::test
