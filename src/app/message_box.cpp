#include "app/message_box.hpp"

#include "app/ui_support.hpp"

namespace sk::app {

namespace {

Gtk::MessageType message_type(MessageKind kind) {
    return kind == MessageKind::Error ? Gtk::MESSAGE_ERROR : Gtk::MESSAGE_INFO;
}

void prepare(Gtk::MessageDialog& box, Gtk::Window* parent, const Glib::ustring& title) {
    box.set_title(title);
    make_modal(box, parent);
    close_on_escape(box);
    set_accessible_name(box, title);
}

}  // namespace

Glib::ustring message_title(MessageKind kind) {
    switch (kind) {
        case MessageKind::Error:
            return "Fehler";
        case MessageKind::Information:
            return "Information";
        case MessageKind::Info:
            return "Info";
    }
    return "Info";
}

MessageBox::MessageBox(Gtk::Window* parent, MessageKind kind, const Glib::ustring& text)
    : Gtk::MessageDialog(display_text(text.raw()), false, message_type(kind), Gtk::BUTTONS_OK,
                         true) {
    prepare(*this, parent, message_title(kind));
    set_default_response(Gtk::RESPONSE_OK);
}

QuestionBox::QuestionBox(Gtk::Window* parent, const Glib::ustring& text, Default focus)
    : Gtk::MessageDialog(display_text(text.raw()), false, Gtk::MESSAGE_QUESTION, Gtk::BUTTONS_NONE,
                         true) {
    prepare(*this, parent, "Frage");
    Gtk::Button* yes = add_button("_Ja", Gtk::RESPONSE_YES);
    Gtk::Button* no = add_button("_Nein", Gtk::RESPONSE_NO);
    const int default_response = focus == Default::Yes ? Gtk::RESPONSE_YES : Gtk::RESPONSE_NO;
    set_default_response(default_response);
    (focus == Default::Yes ? yes : no)->grab_focus();
    signal_response().connect(sigc::mem_fun(*this, &QuestionBox::on_answer));
}

void QuestionBox::on_answer(int response_id) {
    m_yes = response_id == Gtk::RESPONSE_YES;
}

void show_message(Gtk::Window* parent, MessageKind kind, const Glib::ustring& text) {
    MessageBox box(parent, kind, text);
    box.run();
}

void show_error(Gtk::Window* parent, const Glib::ustring& text) {
    show_message(parent, MessageKind::Error, text);
}

void show_information(Gtk::Window* parent, const Glib::ustring& text) {
    show_message(parent, MessageKind::Information, text);
}

bool ask_yes_no(Gtk::Window* parent, const Glib::ustring& text, QuestionBox::Default focus) {
    QuestionBox box(parent, text, focus);
    box.run();
    return box.answered_yes();
}

}  // namespace sk::app
