// The "Info" window (key F12, button "Info"): eleven buttons that open the
// yearly hours, the school holidays, the holidays and the help texts. It
// closes after one choice and returns it.
#pragma once

#include <optional>

#include "app/choice_dialog.hpp"
#include "app/help_texts.hpp"

namespace sk::app {

enum class InfoChoice {
    YearlyHours,      // "Jahresstunden"
    SchoolHolidays,   // "Schulferien": "Ferientermine"
    Holidays,         // "Feiertage"
    Program,          // "Programm"
    Keys,             // "Tastaturbelegung"
    ShiftMarking,     // "Schichtmarkierung"
    CalendarMarking,  // "Kalendermarkierung"
    Notes,            // "Notizen"
    ProgMenu,         // "Prog. Menü"
    Name,             // "Name"
    Settings,         // "Einstellungen"
};

// The help text a choice opens; nullopt for the three list windows.
std::optional<HelpTopic> help_topic(InfoChoice choice);

class InfoDialog : public ChoiceDialog {
  public:
    InfoDialog(Gtk::Window& parent, view::CellSize cell);
    std::optional<InfoChoice> get_choice() const;
};

}  // namespace sk::app
