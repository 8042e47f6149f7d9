// The chooser "Schichtspalte eingeben": the note menu's way to the shift
// marking, which first asks for the column the main window's keys 1..4
// would give. Kind A offers "Frühschicht", "Spätschicht", "Nachtschicht" and
// "Verfügung", kind B "Schicht A" to "Schicht D"; the digits 1..4 (also on
// the keypad) choose at once, as do the underlined letters with Alt.
#pragma once

#include "app/choice_dialog.hpp"

namespace sk::app {

class ShiftColumnDialog : public ChoiceDialog {
  public:
    ShiftColumnDialog(Gtk::Window& parent, view::CellSize cell, int model);

    // The column 1..4; 0 when the window was closed without a choice.
    int get_column() const;

  protected:
    bool on_key_press_event(GdkEventKey* event) override;
};

}  // namespace sk::app
