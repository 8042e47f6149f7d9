// The calendar chooser ("Kalender" in the "Prog." window): the eight shift
// models with their descriptions, model 5 in third place. A click, or Return
// or Space on a button, chooses; Escape closes without a choice.
#pragma once

#include <optional>

#include "app/choice_dialog.hpp"

namespace sk::app {

class ModelChooserDialog : public ChoiceDialog {
  public:
    // The current model's button has the focus when the window opens.
    ModelChooserDialog(Gtk::Window& parent, view::CellSize cell, int current_model);
    // The model number 0..7 chosen, or nullopt.
    std::optional<int> get_model() const;
    // The chooser's position of a model (0 for model 0, 2 for model 5, ...).
    static int position_of(int model);
};

}  // namespace sk::app
