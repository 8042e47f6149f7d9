#include "app/ui_support.hpp"

#include <algorithm>
#include <cmath>

namespace sk::app {

int cells_wide(view::CellSize cell, double n) {
    return static_cast<int>(std::ceil(std::max(1.0, cell.width) * n));
}

int cells_high(view::CellSize cell, double n) {
    return static_cast<int>(std::ceil(std::max(1.0, cell.height) * n));
}

void set_size_in_cells(Gtk::Widget& widget, view::CellSize cell, double width, double height) {
    widget.set_size_request(cells_wide(cell, width), cells_high(cell, height));
}

void set_margins_in_cells(Gtk::Widget& widget, view::CellSize cell, double margin) {
    widget.set_margin_start(cells_wide(cell, margin));
    widget.set_margin_end(cells_wide(cell, margin));
    widget.set_margin_top(cells_high(cell, margin));
    widget.set_margin_bottom(cells_high(cell, margin));
}

void set_default_size_in_cells(Gtk::Window& window, view::CellSize cell, double width,
                               double height) {
    int w = cells_wide(cell, width);
    int h = cells_high(cell, height);
    const Glib::RefPtr<Gdk::Display> display = Gdk::Display::get_default();
    if (display) {
        Glib::RefPtr<Gdk::Monitor> monitor;
        Gtk::Window* parent = window.get_transient_for();
        if (parent && parent->get_window())
            monitor = display->get_monitor_at_window(parent->get_window());
        if (!monitor) monitor = display->get_primary_monitor();
        if (!monitor && display->get_n_monitors() > 0) monitor = display->get_monitor(0);
        if (monitor) {
            Gdk::Rectangle area;
            monitor->get_workarea(area);
            if (area.get_width() > 0) w = std::min(w, area.get_width());
            if (area.get_height() > 0) h = std::min(h, area.get_height());
        }
    }
    window.set_default_size(w, h);
}

void make_modal(Gtk::Window& window, Gtk::Window* parent) {
    window.set_modal(true);
    if (parent) {
        window.set_transient_for(*parent);
        window.property_destroy_with_parent() = true;
        window.set_position(Gtk::WIN_POS_CENTER_ON_PARENT);
    } else {
        window.set_position(Gtk::WIN_POS_CENTER);
    }
}

bool has_command_modifier(const GdkEventKey* event) {
    constexpr guint kCommand = GDK_CONTROL_MASK | GDK_MOD1_MASK | GDK_SUPER_MASK | GDK_META_MASK;
    return (event->state & kCommand) != 0;
}

void close_on_escape(Gtk::Window& window) {
    window.signal_key_press_event().connect(
        [&window](GdkEventKey* event) {
            if (event->keyval != GDK_KEY_Escape || has_command_modifier(event)) return false;
            if (auto* dialog = dynamic_cast<Gtk::Dialog*>(&window))
                dialog->response(Gtk::RESPONSE_CANCEL);
            else
                window.hide();
            return true;
        },
        false);
}

void set_accessible_name(Gtk::Widget& widget, const Glib::ustring& name) {
    if (const Glib::RefPtr<Atk::Object> accessible = widget.get_accessible())
        accessible->set_name(name);
}

void set_accessible_description(Gtk::Widget& widget, const Glib::ustring& description) {
    if (const Glib::RefPtr<Atk::Object> accessible = widget.get_accessible())
        accessible->set_description(description);
}

void set_tooltip_and_description(Gtk::Widget& widget, const Glib::ustring& tooltip) {
    widget.set_tooltip_text(tooltip);
    set_accessible_description(widget, tooltip);
}

void show_as_error(Gtk::Widget& widget, bool error) {
    const Glib::RefPtr<Gtk::StyleContext> style = widget.get_style_context();
    if (error)
        style->add_class(GTK_STYLE_CLASS_ERROR);
    else
        style->remove_class(GTK_STYLE_CLASS_ERROR);
}

void set_wrapped(Gtk::Label& label, int max_chars) {
    label.set_xalign(0);
    label.set_line_wrap(true);
    label.set_max_width_chars(max_chars);
}

Glib::ustring plain_label(const Glib::ustring& label) {
    Glib::ustring name;
    bool escaped = false;
    for (const gunichar c : label) {
        if (c == '_' && !escaped) {
            escaped = true;
            continue;
        }
        escaped = false;
        name += c;
    }
    while (!name.empty() && (name[name.size() - 1] == ':' || name[name.size() - 1] == ' '))
        name.erase(name.size() - 1);
    return name;
}

std::string display_text(std::string_view text) {
    std::string lines;
    lines.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r') {
            lines += '\n';
            if (i + 1 < text.size() && text[i + 1] == '\n') ++i;
        } else {
            lines += text[i];
        }
    }
    if (g_utf8_validate(lines.data(), static_cast<gssize>(lines.size()), nullptr)) return lines;
    gchar* valid = g_utf8_make_valid(lines.data(), static_cast<gssize>(lines.size()));
    std::string result(valid);
    g_free(valid);
    return result;
}

ControlFont::ControlFont() : m_provider(Gtk::CssProvider::create()) {
    if (const Glib::RefPtr<Gdk::Screen> screen = Gdk::Screen::get_default())
        Gtk::StyleContext::add_provider_for_screen(screen, m_provider,
                                                   GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
}

ControlFont::~ControlFont() {
    if (const Glib::RefPtr<Gdk::Screen> screen = Gdk::Screen::get_default())
        Gtk::StyleContext::remove_provider_for_screen(screen, m_provider);
}

std::string ControlFont::css(const view::FontSpec& font) {
    std::string family;
    for (char c : font.family) {
        if (c == '"' || c == '\\') family += '\\';
        if (c == '\n' || c == '\r') continue;
        family += c;
    }
    return "* { font-family: \"" + family + "\"; font-size: " + std::to_string(font.size) +
           "pt; font-weight: " + ((font.style & 1) ? "bold" : "normal") +
           "; font-style: " + ((font.style & 2) ? "italic" : "normal") + "; }\n";
}

void ControlFont::apply(const view::FontSpec& font) {
    try {
        m_provider->load_from_data(css(font));
    } catch (const Glib::Error&) {
        // A family name the style parser refuses leaves the previous font.
    }
}

}  // namespace sk::app
