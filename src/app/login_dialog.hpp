// The login window (key F11 or A, button "Name"): the user name first, then
// the password with hidden characters. Return logs in, Escape or "Abbruch"
// leaves. While the name or the password cannot be used, the reason stands
// under the fields and "Anmelden" is insensitive. The caller logs in
// through the session (session::log_in); the window only asks.
//
//     LoginDialog dialog(window, cell, session.user);
//     if (dialog.run() == Gtk::RESPONSE_OK) log_in(session, dialog.get_user(),
//     dialog.get_password());
#pragma once

#include <gtkmm.h>

#include <string>

#include "view/page_text.hpp"

namespace sk::app {

class LoginDialog : public Gtk::Dialog {
  public:
    LoginDialog(Gtk::Window& parent, view::CellSize cell, const std::string& current_user);

    // UTF-8 as typed; meaningful after run() returned Gtk::RESPONSE_OK.
    std::string get_user() const;
    std::string get_password() const;

    Gtk::Entry& get_user_entry() { return m_user; }
    Gtk::Entry& get_password_entry() { return m_password; }
    // The reason the entries cannot be used; empty when they can.
    Glib::ustring get_hint() const { return m_hint.get_text(); }

  private:
    void on_entry_changed();

    Gtk::Grid m_grid;
    Gtk::Label m_user_label;
    Gtk::Entry m_user;
    Gtk::Label m_password_label;
    Gtk::Entry m_password;
    Gtk::Label m_hint;
    Gtk::Label m_note;
};

}  // namespace sk::app
