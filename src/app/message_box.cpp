#include "app/message_box.hpp"

namespace sk::app {

namespace {
void show(Gtk::Window* parent, const char* title, const Glib::ustring& text,
          Gtk::MessageType type) {
    Gtk::MessageDialog box(text, false, type, Gtk::BUTTONS_OK, true);
    if (parent) box.set_transient_for(*parent);
    box.set_title(title);
    box.run();
}
}  // namespace

void show_error(Gtk::Window* parent, const Glib::ustring& text) {
    show(parent, "Fehler", text, Gtk::MESSAGE_ERROR);
}
void show_information(Gtk::Window* parent, const Glib::ustring& text) {
    show(parent, "Information", text, Gtk::MESSAGE_INFO);
}

}  // namespace sk::app
