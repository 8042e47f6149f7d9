#include "app/login_dialog.hpp"

#include "app/ui_support.hpp"
#include "session/user_switch.hpp"

namespace sk::app {

LoginDialog::LoginDialog(Gtk::Window& parent, view::CellSize cell, const std::string& current_user)
    : m_user_label("_Benutzername:", true),
      m_password_label("_Passwort:", true),
      m_note(
          "Das Passwort wird nie gespeichert; ein falsches Passwort zeigt ohne Warnung "
          "falschen Notiztext an.") {
    set_title("Anmelden");
    make_modal(*this, &parent);
    close_on_escape(*this);
    set_resizable(false);

    for (Gtk::Label* label : {&m_user_label, &m_password_label})
        label->set_xalign(0);
    m_user_label.set_mnemonic_widget(m_user);
    m_password_label.set_mnemonic_widget(m_password);
    m_user.set_text(current_user);
    m_password.set_visibility(false);
    m_password.set_input_purpose(Gtk::INPUT_PURPOSE_PASSWORD);
    for (Gtk::Entry* entry : {&m_user, &m_password}) {
        entry->set_activates_default(true);
        entry->set_width_chars(30);
        entry->signal_changed().connect(sigc::mem_fun(*this, &LoginDialog::on_entry_changed));
    }
    set_accessible_name(m_user, "Benutzername");
    set_accessible_name(m_password, "Passwort");
    set_tooltip_and_description(m_user, "Der Name des Benutzers, unter dem seine Daten liegen");
    set_tooltip_and_description(m_password, "Verschlüsselt die Notizen; leer: unverschlüsselt");

    set_wrapped(m_hint, 44);
    m_hint.get_style_context()->add_class(GTK_STYLE_CLASS_ERROR);
    m_hint.set_no_show_all(true);
    set_wrapped(m_note, 44);

    m_grid.set_row_spacing(cells_high(cell, 0.3));
    m_grid.set_column_spacing(cells_wide(cell, 1));
    m_grid.attach(m_user_label, 0, 0);
    m_grid.attach(m_user, 1, 0);
    m_grid.attach(m_password_label, 0, 1);
    m_grid.attach(m_password, 1, 1);
    m_grid.attach(m_hint, 0, 2, 2, 1);
    m_grid.attach(m_note, 0, 3, 2, 1);
    Gtk::Box* box = get_content_area();
    set_margins_in_cells(*box, cell, 1);
    box->pack_start(m_grid, Gtk::PACK_SHRINK);

    Gtk::Button* cancel = add_button("_Abbruch", Gtk::RESPONSE_CANCEL);
    Gtk::Button* ok = add_button("A_nmelden", Gtk::RESPONSE_OK);
    set_tooltip_and_description(*cancel, "Der bisherige Benutzer bleibt angemeldet");
    set_tooltip_and_description(
        *ok, "Speichert die Daten des bisherigen Benutzers und liest die des neuen");
    set_default_response(Gtk::RESPONSE_OK);
    on_entry_changed();

    show_all_children();
    m_user.grab_focus();
}

std::string LoginDialog::get_user() const {
    return m_user.get_text();
}

std::string LoginDialog::get_password() const {
    return m_password.get_text();
}

void LoginDialog::on_entry_changed() {
    const auto error = session::login_error(get_user(), get_password());
    set_response_sensitive(Gtk::RESPONSE_OK, !error);
    m_hint.set_text(error.value_or(""));
    m_hint.set_visible(error.has_value());
}

}  // namespace sk::app
