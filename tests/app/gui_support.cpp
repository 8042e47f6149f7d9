#include "gui_support.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>

namespace sk::app::test {

view::CellSize cell() {
    static const view::CellSize measured = view::TextShaper(view::FontSpec{}).cell();
    return measured;
}

view::CellSize large_cell() {
    return {cell().width * 2, cell().height * 2};
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

}  // namespace

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

int run_dialog(Gtk::Dialog& dialog, const std::function<void()>& action) {
    bool timed_out = false;
    bool done = false;
    sigc::connection guard = Glib::signal_timeout().connect(
        [&] {
            timed_out = true;
            dialog.response(kTimedOut);
            return false;
        },
        10000);
    // The action runs once the dialog is mapped, from the dialog's own loop.
    sigc::connection starter = Glib::signal_timeout().connect(
        [&] {
            if (done || !dialog.get_mapped()) return !done;
            done = true;
            focus_window(dialog);
            action();
            return false;
        },
        5);
    const int response = dialog.run();
    guard.disconnect();
    starter.disconnect();
    dialog.hide();
    EXPECT_FALSE(timed_out) << "the dialog \"" << dialog.get_title() << "\" stayed open";
    return response;
}

std::string accessible_name(Gtk::Widget& widget) {
    const Glib::RefPtr<Atk::Object> accessible = widget.get_accessible();
    return accessible ? accessible->get_name().raw() : std::string();
}

}  // namespace sk::app::test

namespace sk::app::test {

Gtk::Window* shown_window(const Glib::ustring& title) {
    for (Gtk::Window* window : Gtk::Window::list_toplevels())
        if (window->get_mapped() && window->get_title() == title) return window;
    return nullptr;
}

DialogAnswerer::DialogAnswerer(const Glib::ustring& title, int response, int times)
    : m_title(title), m_response(response), m_times(times) {
    m_poll = Glib::signal_timeout().connect(
        [this] {
            auto* dialog = dynamic_cast<Gtk::Dialog*>(shown_window(m_title));
            if (!dialog) return true;
            auto* message = dynamic_cast<Gtk::MessageDialog*>(dialog);
            m_texts.push_back(message ? message->property_text().get_value().raw() : "");
            dialog->response(m_response);
            return count() < m_times;
        },
        5);
}

DialogAnswerer::~DialogAnswerer() {
    m_poll.disconnect();
}

void run_with(const Glib::ustring& title, const std::function<void()>& call,
              const std::function<void(Gtk::Window&)>& action) {
    bool acted = false;
    bool timed_out = false;
    sigc::connection starter = Glib::signal_timeout().connect(
        [&] {
            Gtk::Window* window = shown_window(title);
            if (!window) return true;
            acted = true;
            focus_window(*window);
            action(*window);
            return false;
        },
        5);
    sigc::connection guard = Glib::signal_timeout().connect(
        [&] {
            timed_out = true;
            for (Gtk::Window* window : Gtk::Window::list_toplevels())
                if (auto* dialog = dynamic_cast<Gtk::Dialog*>(window);
                    dialog && dialog->get_mapped())
                    dialog->response(kTimedOut);
            return true;
        },
        10000);
    call();
    starter.disconnect();
    guard.disconnect();
    EXPECT_TRUE(acted) << "\"" << title << "\" was not shown";
    EXPECT_FALSE(timed_out) << "\"" << title << "\" stayed open";
}

}  // namespace sk::app::test
