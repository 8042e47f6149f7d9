// The "Prog." window (key F10, button "Prog."): the calendar chooser, font,
// background colour, hours, vacation, program directory, settings, export
// and the information text. It closes after one choice and returns it; the
// caller opens what was chosen.
#pragma once

#include <optional>

#include "app/choice_dialog.hpp"

namespace sk::app {

enum class ProgChoice {
    Calendar,          // "Kalender": the model chooser
    Font,              // "Schriftart"
    BackgroundColour,  // "Hintergrundfarbe"
    Hours,             // "Stunden"
    Vacation,          // "Urlaub"
    Directory,         // "Programmverzeichnis"
    Settings,          // "Einstellungen"
    Export,            // "Export"
    Info,              // "Info": the help text "Programminfo"
};

class ProgMenuDialog : public ChoiceDialog {
  public:
    ProgMenuDialog(Gtk::Window& parent, view::CellSize cell);
    std::optional<ProgChoice> get_choice() const;
};

}  // namespace sk::app
