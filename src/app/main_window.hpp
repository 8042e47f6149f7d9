// The main window: the page, the button row and the five status fields, and
// nothing else. Keys are looked up in the command table before any child
// sees them (so the status fields never swallow a letter), buttons issue
// their commands, and both are reported upward as Command ids; clicks on
// the page and on the hours field are reported as they come.
#pragma once

#include <gtkmm.h>

#include <map>
#include <memory>
#include <vector>

#include "app/commands.hpp"
#include "app/page_view.hpp"
#include "app/status_lines.hpp"

namespace sk::app {

class MainWindow : public Gtk::ApplicationWindow {
  public:
    MainWindow();

    PageView& page_view() { return m_page; }
    StatusLines& status_lines() { return m_status; }
    Gtk::Button& button(Command command) { return *m_buttons.at(command); }

    void set_block_toggle_visible(bool visible);
    // The window as large as page, buttons and status lines need, at most
    // as large as the screen (the page scrolls beyond that).
    void fit_to_page(std::optional<ScreenSize> screen);

    // A key press, a button, or closing the window (Command::Quit).
    sigc::signal<void(Command)>& signal_command() { return m_command; }

  protected:
    bool on_key_press_event(GdkEventKey* event) override;
    bool on_delete_event(GdkEventAny* event) override;

  private:
    Gtk::Box m_column{Gtk::ORIENTATION_VERTICAL};
    Gtk::ScrolledWindow m_scroller;
    PageView m_page;
    Gtk::Box m_button_row{Gtk::ORIENTATION_HORIZONTAL};
    std::map<Command, std::unique_ptr<Gtk::Button>> m_buttons;
    StatusLines m_status;
    sigc::signal<void(Command)> m_command;
};

}  // namespace sk::app
