// Interim: the message boxes until the program's own message_box lands.
#pragma once

#include <gtkmm.h>

namespace sk::app {

void show_error(Gtk::Window* parent, const Glib::ustring& text);
void show_information(Gtk::Window* parent, const Glib::ustring& text);

}  // namespace sk::app
