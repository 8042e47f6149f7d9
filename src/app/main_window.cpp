#include "app/main_window.hpp"

#include <algorithm>

namespace sk::app {

MainWindow::MainWindow() {
    // GTK opens a menu bar on F10; the program uses F10 for its "Prog." window.
    Gtk::Settings::get_default()->property_gtk_menu_bar_accel() = "";
    set_position(Gtk::WIN_POS_NONE);
    move(1, 1);

    m_scroller.set_policy(Gtk::POLICY_AUTOMATIC, Gtk::POLICY_AUTOMATIC);
    m_scroller.set_propagate_natural_width(true);
    m_scroller.set_propagate_natural_height(true);
    m_scroller.set_shadow_type(Gtk::SHADOW_NONE);
    m_scroller.add(m_page);
    m_scroller.set_vexpand(true);
    m_scroller.set_hexpand(true);
    m_page.set_halign(Gtk::ALIGN_START);
    m_page.set_valign(Gtk::ALIGN_START);
    m_page.get_accessible()->set_name("Kalenderseite");

    m_button_row.set_spacing(2);
    // Narrow buttons: the row of fifteen should not be wider than a page of
    // six months.
    auto compact = Gtk::CssProvider::create();
    compact->load_from_data("button { padding: 2px 5px; min-width: 0; }");
    for (const ButtonEntry& entry : button_entries()) {
        auto button = std::make_unique<Gtk::Button>(Glib::ustring(std::string(entry.label)));
        button->set_tooltip_text(Glib::ustring(std::string(entry.tooltip)));
        button->get_accessible()->set_name(Glib::ustring(std::string(entry.tooltip)));
        // Buttons do not take the focus, so the page keeps it for the keys.
        button->set_can_focus(false);
        button->get_style_context()->add_provider(compact, GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
        button->signal_clicked().connect([this, c = entry.command] { m_command.emit(c); });
        m_button_row.pack_start(*button, Gtk::PACK_SHRINK);
        m_buttons.emplace(entry.command, std::move(button));
    }

    m_column.pack_start(m_scroller, Gtk::PACK_EXPAND_WIDGET);
    m_column.pack_start(m_button_row, Gtk::PACK_SHRINK);
    m_column.pack_start(m_status, Gtk::PACK_SHRINK);
    add(m_column);
    show_all_children();
    m_page.grab_focus();
}

void MainWindow::set_block_toggle_visible(bool visible) {
    button(Command::BlockToggle).set_visible(visible);
}

void MainWindow::fit_to_page(std::optional<ScreenSize> screen) {
    int min_width = 0, width = 0, min_height = 0, height = 0;
    get_preferred_width(min_width, width);
    get_preferred_height_for_width(width, min_height, height);
    if (screen) {
        width = std::min(width, screen->width);
        height = std::min(height, screen->height);
    }
    resize(std::max(width, 1), std::max(height, 1));
}

bool MainWindow::on_key_press_event(GdkEventKey* event) {
    if (const auto command =
            command_for_key(event->keyval, static_cast<GdkModifierType>(event->state))) {
        m_command.emit(*command);
        return true;
    }
    return Gtk::ApplicationWindow::on_key_press_event(event);
}

bool MainWindow::on_delete_event(GdkEventAny*) {
    m_command.emit(Command::Quit);
    return true;  // the dispatcher saves and ends the program
}

}  // namespace sk::app
