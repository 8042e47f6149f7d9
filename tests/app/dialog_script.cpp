#include "dialog_script.hpp"

#include <algorithm>

#include "gui_support.hpp"

namespace sk::app::test {

DialogScript::DialogScript(std::vector<ScriptStep> steps)
    : m_steps(std::move(steps)), m_progress(std::chrono::steady_clock::now()) {
    m_poll = Glib::signal_timeout().connect(sigc::mem_fun(*this, &DialogScript::poll), 5);
}

DialogScript::~DialogScript() {
    m_poll.disconnect();
    m_unmapped.disconnect();
}

bool DialogScript::was_shown(const std::string& title) const {
    return std::find(m_shown.begin(), m_shown.end(), title) != m_shown.end();
}

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
        for (GtkWindow* window : in_order) {
            if (window == m_handled || title_of(window) != m_steps[m_next].title.raw()) continue;
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
        m_timed_out = true;
        for (GtkWindow* window : in_order)
            if (GTK_IS_DIALOG(window)) gtk_dialog_response(GTK_DIALOG(window), GTK_RESPONSE_CANCEL);
        m_progress = now;
    }
    return true;
}

void later(std::function<void()> action) {
    Glib::signal_idle().connect_once(std::move(action));
}

std::string message_text(Gtk::Window& window) {
    auto* box = dynamic_cast<Gtk::MessageDialog*>(&window);
    return box ? box->property_text().get_value().raw() : std::string();
}

}  // namespace sk::app::test
