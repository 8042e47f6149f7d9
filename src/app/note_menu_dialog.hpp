// The note menu "Notiz" (key F9, button "Notiz"): the four note editors,
// the calendar and shift marking entries, the deletion up to a date, the
// overview of the shown months and the help text on notes, each by button
// or by its letter T P J W K S L U I. It closes after one choice and returns
// it; the caller opens what was chosen.
#pragma once

#include <optional>

#include "app/choice_dialog.hpp"

namespace sk::app {

enum class NoteMenuChoice {
    DailyNote,        // "Tagesnotiz"
    PeriodicNote,     // "Periodische Notiz"
    YearlyNote,       // "Jährliche Notiz"
    WeekdayNote,      // "Wochentag im Monat"
    CalendarMarking,  // "Kalendermarkierung"
    ShiftMarking,     // "Schichtmarkierung": the column chooser first
    Delete,           // "Löschen"
    Overview,         // "Übersicht"
    Info,             // "Info": "Infos zu den Notizen und Markierungen"
};

class NoteMenuDialog : public ChoiceDialog {
  public:
    NoteMenuDialog(Gtk::Window& parent, view::CellSize cell);
    std::optional<NoteMenuChoice> get_choice() const;
};

}  // namespace sk::app
