#include "app/note_menu_dialog.hpp"

#include <array>

namespace sk::app {

namespace {

struct NoteMenuEntry {
    NoteMenuChoice choice;
    ChoiceEntry entry;
};

// In the order of the window. The tooltips are kept as they always read,
// "eingaben" in lower case included.
const std::array<NoteMenuEntry, 9>& note_menu_entries() {
    static const std::array<NoteMenuEntry, 9> entries = {{
        {NoteMenuChoice::DailyNote, {"_Tagesnotiz", "Eingabe einer Notiz für einen Tag", "", 't'}},
        {NoteMenuChoice::PeriodicNote,
         {"_Periodische Notiz", "Eingabe einer sich in Tagesabständen wiederholenden Notiz", "",
          'p'}},
        {NoteMenuChoice::YearlyNote,
         {"_Jährliche Notiz", "Eingabe einer sich in jährlich wiederholenden Notiz", "", 'j'}},
        {NoteMenuChoice::WeekdayNote,
         {"_Wochentag im Monat",
          "Eingabe sich an einen bestimmten Wochentag im Monat wiederholenden Notiz", "", 'w'}},
        {NoteMenuChoice::CalendarMarking,
         {"_Kalendermarkierung", "Eingabe einer Markierung zwischen zwei Tagen in wählbarer Farbe",
          "", 'k'}},
        {NoteMenuChoice::ShiftMarking,
         {"_Schichtmarkierung", "Eingabe eines abweichenden Arbeitseinsatzes", "", 's'}},
        {NoteMenuChoice::Delete,
         {"_Löschen", "Löscht die ausgewählten eingaben bis zum gewählten Datum", "", 'l'}},
        {NoteMenuChoice::Overview,
         {"_Übersicht", "Übersicht der Notizen für die angezeigten Monate", "", 'u'}},
        {NoteMenuChoice::Info, {"_Info", "Informationen zu den Notizeingaben", "", 'i'}},
    }};
    return entries;
}

std::vector<ChoiceEntry> choice_entries() {
    std::vector<ChoiceEntry> entries;
    for (const NoteMenuEntry& e : note_menu_entries())
        entries.push_back(e.entry);
    return entries;
}

}  // namespace

NoteMenuDialog::NoteMenuDialog(Gtk::Window& parent, view::CellSize cell)
    : ChoiceDialog(parent, cell, "Notiz", choice_entries(), 24) {}

std::optional<NoteMenuChoice> NoteMenuDialog::get_choice() const {
    const std::optional<int> index = get_choice_index();
    if (!index) return std::nullopt;
    return note_menu_entries().at(static_cast<std::size_t>(*index)).choice;
}

}  // namespace sk::app
