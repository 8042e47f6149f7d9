// The program's message boxes: modal, titled "Fehler", "Information" or
// "Info" with one button, and the question titled "Frage" with the buttons
// "Ja" and "Nein". All close on Escape; Escape on a question means "Nein".
// Texts may use the core's "\r\n" line ends.
#pragma once

#include <gtkmm.h>

namespace sk::app {

enum class MessageKind {
    Error,        // "Fehler"
    Information,  // "Information"
    Info,         // "Info", the note editors' length message
};

Glib::ustring message_title(MessageKind kind);

class MessageBox : public Gtk::MessageDialog {
  public:
    // `parent` may be null (a message before the main window is shown).
    MessageBox(Gtk::Window* parent, MessageKind kind, const Glib::ustring& text);
};

class QuestionBox : public Gtk::MessageDialog {
  public:
    enum class Default { Yes, No };
    QuestionBox(Gtk::Window* parent, const Glib::ustring& text, Default focus = Default::Yes);
    // After run(): true only when "Ja" was chosen.
    bool answered_yes() const { return m_yes; }

  private:
    void on_answer(int response_id);
    bool m_yes = false;
};

// Shows the box and waits until it is closed.
void show_message(Gtk::Window* parent, MessageKind kind, const Glib::ustring& text);
void show_error(Gtk::Window* parent, const Glib::ustring& text);
void show_information(Gtk::Window* parent, const Glib::ustring& text);
// Asks and waits; true for "Ja".
bool ask_yes_no(Gtk::Window* parent, const Glib::ustring& text,
                QuestionBox::Default focus = QuestionBox::Default::Yes);

}  // namespace sk::app
