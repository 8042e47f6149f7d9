#include "gui_support.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <set>

namespace sk::app::test {

view::CellSize cell() {
    static const view::CellSize measured = view::TextShaper(view::FontSpec{}).cell();
    return measured;
}

Gtk::Window& parent_window() {
    static Gtk::Window* window = [] {
        auto* w = new Gtk::Window();  // lives as long as the test program
        w->set_title("Quorvel Schichtkalender - Benutzername: Programm");
        w->set_default_size(848, 540);
        w->show();
        return w;
    }();
    wait_until([] { return window->get_mapped(); });
    return *window;
}

bool wait_until(const std::function<bool()>& condition, double seconds) {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
    // A tick wakes the loop regularly so that a condition that no event
    // announces is still seen in time.
    sigc::connection tick = Glib::signal_timeout().connect([] { return true; }, 10);
    bool met = condition();
    while (!met && std::chrono::steady_clock::now() < limit) {
        Glib::MainContext::get_default()->iteration(true);
        met = condition();
    }
    tick.disconnect();
    return met;
}

namespace {

GdkEvent* key_event(GdkEventType type, GdkWindow* window, guint keyval, GdkModifierType state) {
    GdkEvent* event = gdk_event_new(type);
    event->key.window = GDK_WINDOW(g_object_ref(window));
    event->key.send_event = FALSE;
    event->key.time = GDK_CURRENT_TIME;
    event->key.keyval = keyval;
    event->key.state = state;
    GdkKeymapKey* keys = nullptr;
    gint count = 0;
    GdkDisplay* display = gdk_window_get_display(window);
    if (gdk_keymap_get_entries_for_keyval(gdk_keymap_get_for_display(display), keyval, &keys,
                                          &count) &&
        count > 0) {
        event->key.hardware_keycode = static_cast<guint16>(keys[0].keycode);
        event->key.group = static_cast<guint8>(keys[0].group);
    }
    g_free(keys);
    gdk_event_set_device(event, gdk_seat_get_keyboard(gdk_display_get_default_seat(display)));
    return event;
}

// Gives the window the keyboard focus as a window manager would (Xvfb runs
// none): GTK moves the focus between widgets only in a focused window.
void focus_window(Gtk::Window& window) {
    ASSERT_TRUE(window.get_window()) << "the window is not realised";
    GdkEvent* event = gdk_event_new(GDK_FOCUS_CHANGE);
    event->focus_change.window = GDK_WINDOW(g_object_ref(window.get_window()->gobj()));
    event->focus_change.send_event = TRUE;
    event->focus_change.in = TRUE;
    GdkDisplay* display = window.get_window()->get_display()->gobj();
    gdk_event_set_device(event, gdk_seat_get_keyboard(gdk_display_get_default_seat(display)));
    gtk_main_do_event(event);
    gdk_event_free(event);
}

}  // namespace

void send_key(Gtk::Widget& widget, guint keyval, GdkModifierType state) {
    Gtk::Widget* top = widget.get_toplevel();
    ASSERT_TRUE(top && top->get_window()) << "the window is not realised";
    GdkWindow* window = top->get_window()->gobj();
    for (GdkEventType type : {GDK_KEY_PRESS, GDK_KEY_RELEASE}) {
        GdkEvent* event = key_event(type, window, keyval, state);
        gtk_main_do_event(event);
        gdk_event_free(event);
    }
}

void type_text(Gtk::Widget& widget, const Glib::ustring& text) {
    for (const gunichar c : text)
        send_key(widget, gdk_unicode_to_keyval(c));
}

void retype(Gtk::Entry& entry, const Glib::ustring& text) {
    entry.grab_focus();
    entry.select_region(0, -1);
    type_text(entry, text);
}

std::string accessible_name(Gtk::Widget& widget) {
    const Glib::RefPtr<Atk::Object> accessible = widget.get_accessible();
    return accessible ? accessible->get_name().raw() : std::string();
}

std::string message_text(Gtk::Window& window) {
    auto* box = dynamic_cast<Gtk::MessageDialog*>(&window);
    return box ? box->property_text().get_value().raw() : std::string();
}

DialogAnswerer::DialogAnswerer(const Glib::ustring& title, int response, int times) {
    m_poll = Glib::signal_timeout().connect(
        [this, title, response, times] {
            for (Gtk::Window* window : Gtk::Window::list_toplevels()) {
                auto* dialog = dynamic_cast<Gtk::Dialog*>(window);
                if (!dialog || !dialog->get_mapped() || dialog->get_title() != title) continue;
                m_texts.push_back(message_text(*dialog));
                dialog->response(response);
                break;
            }
            return count() < times;
        },
        5);
}

namespace {

class DialogScript {
  public:
    explicit DialogScript(std::vector<ScriptStep> steps)
        : m_steps(std::move(steps)), m_progress(std::chrono::steady_clock::now()) {
        m_poll = Glib::signal_timeout().connect(sigc::mem_fun(*this, &DialogScript::poll), 5);
    }
    ~DialogScript() {
        m_poll.disconnect();
        m_unmapped.disconnect();
    }

    bool done() const { return m_next == m_steps.size(); }
    bool poll();

    std::vector<ScriptStep> m_steps;
    std::size_t m_next = 0;
    std::set<GtkWindow*> m_mapped;
    GtkWindow* m_handled = nullptr;  // acted on and not yet unmapped
    sigc::connection m_unmapped;
    std::vector<std::string> m_shown;
    std::chrono::steady_clock::time_point m_progress;
    sigc::connection m_poll;
};

bool DialogScript::poll() {
    // The C list: a window destroyed from C++ may linger in it unmapped until
    // finalised, and wrapping it again would make a second C++ object.
    std::set<GtkWindow*> mapped;
    std::vector<GtkWindow*> in_order;
    GList* windows = gtk_window_list_toplevels();
    for (GList* at = windows; at; at = at->next) {
        auto* window = static_cast<GtkWindow*>(at->data);
        if (gtk_widget_get_mapped(GTK_WIDGET(window)) && window != parent_window().gobj()) {
            mapped.insert(window);
            in_order.push_back(window);
        }
    }
    g_list_free(windows);
    const auto title_of = [](GtkWindow* window) {
        const char* title = gtk_window_get_title(window);
        return std::string(title ? title : "");
    };
    for (GtkWindow* window : in_order)
        if (!m_mapped.count(window)) m_shown.push_back(title_of(window));
    m_mapped = mapped;

    const auto now = std::chrono::steady_clock::now();
    if (!done()) {
        // Under a modal window (the one holding the grab) no window gets the
        // keys: a step waits until that one is gone.
        GtkWidget* grab = gtk_grab_get_current();
        for (GtkWindow* window : in_order) {
            const Glib::ustring& title = m_steps[m_next].title;
            if (window == m_handled || (!title.empty() && title_of(window) != title.raw()) ||
                (grab && gtk_widget_get_toplevel(grab) != GTK_WIDGET(window)))
                continue;
            Gtk::Window& shown = *Glib::wrap(window);
            // Until it is unmapped the window is not acted on again; a
            // further step of the same title waits for the next one.
            m_handled = window;
            m_unmapped.disconnect();
            m_unmapped = shown.signal_unmap().connect([this] { m_handled = nullptr; });
            m_progress = now;
            focus_window(shown);
            m_steps[m_next++].action(shown);
            return true;
        }
    }
    if (!mapped.empty() && now - m_progress > std::chrono::seconds(10)) {
        std::string open;
        for (GtkWindow* window : in_order)
            open += " \"" + title_of(window) + "\"";
        ADD_FAILURE() << "no step for 10 s; next: \"" << (done() ? "" : m_steps[m_next].title.raw())
                      << "\", open:" << open;
        for (GtkWindow* window : in_order)
            if (GTK_IS_DIALOG(window)) gtk_dialog_response(GTK_DIALOG(window), GTK_RESPONSE_CANCEL);
        m_progress = now;
    }
    return true;
}

}  // namespace

std::vector<std::string> play(std::vector<ScriptStep> steps, const std::function<void()>& call) {
    DialogScript script(std::move(steps));
    call();
    EXPECT_TRUE(script.done()) << "steps left";
    return script.m_shown;
}

int run_dialog(Gtk::Dialog& dialog, const std::function<void()>& action) {
    int response = 0;
    play({{dialog.get_title(), [&](Gtk::Window&) { action(); }}}, [&] { response = dialog.run(); });
    dialog.hide();
    return response;
}

ScriptStep press(const Glib::ustring& title, guint key, GdkModifierType state) {
    return {title, [key, state](Gtk::Window& w) { send_key(w, key, state); }};
}

void later(std::function<void()> action) {
    Glib::signal_idle().connect_once(std::move(action));
}

}  // namespace sk::app::test
