// A small window that offers a column of buttons and closes after one
// choice: the base of the "Prog." menu, the "Info" window, the model chooser
// and the note menu. Each button carries a label with a mnemonic, a tooltip
// (also its accessible description), optionally a second line of
// description, and optionally a plain letter key that chooses it at once.
// Escape closes without a choice.
#pragma once

#include <gtkmm.h>

#include <memory>
#include <optional>
#include <vector>

#include "view/page_text.hpp"

namespace sk::app {

struct ChoiceEntry {
    Glib::ustring label;        // with "_" before the mnemonic letter
    Glib::ustring tooltip;      // may be empty
    Glib::ustring description;  // second line under the label, may be empty
    guint key = 0;              // lower-case letter that chooses the entry, 0 for none
};

class ChoiceDialog : public Gtk::Dialog {
  public:
    // `width` in character cells; `focused` is the entry that has the focus
    // when the window opens.
    ChoiceDialog(Gtk::Window& parent, view::CellSize cell, const Glib::ustring& title,
                 const std::vector<ChoiceEntry>& entries, double width, int focused = 0);

    // Index of the chosen entry; nullopt when the window was closed without
    // a choice. run() returns Gtk::RESPONSE_OK after a choice.
    std::optional<int> get_choice_index() const { return m_choice; }

    int get_entry_count() const { return static_cast<int>(m_buttons.size()); }
    Gtk::Button& get_button(int index) { return *m_buttons.at(static_cast<std::size_t>(index)); }

    // Chooses an entry as a click on its button does.
    void choose(int index);

  protected:
    bool on_key_press_event(GdkEventKey* event) override;

  private:
    std::vector<ChoiceEntry> m_entries;
    std::vector<std::unique_ptr<Gtk::Button>> m_buttons;
    std::vector<std::unique_ptr<Gtk::Widget>> m_parts;  // labels and boxes inside the buttons
    Gtk::Box m_column{Gtk::ORIENTATION_VERTICAL};
    std::optional<int> m_choice;
};

}  // namespace sk::app
