#include "app/prog_menu_dialog.hpp"

#include <array>

namespace sk::app {

namespace {

struct ProgEntry {
    ProgChoice choice;
    ChoiceEntry entry;
};

// In the order of the window. The plain letter is the mnemonic letter.
const std::array<ProgEntry, 9>& prog_entries() {
    static const std::array<ProgEntry, 9> entries = {{
        {ProgChoice::Calendar, {"_Kalender", "Einen anderen Schichtkalender wählen", "", 'k'}},
        {ProgChoice::Font, {"_Schriftart", "Neue Schriftart wählen", "", 's'}},
        {ProgChoice::BackgroundColour,
         {"_Hintergrundfarbe", "Hintergrundfarbe zum Ausdrucken einer Bilschirmkopie", "", 'h'}},
        {ProgChoice::Hours, {"S_tunden", "Eingabe der Minus- bzw. Plusstunden", "", 't'}},
        {ProgChoice::Vacation, {"_Urlaub", "Eingabe des Resturlaubs", "", 'u'}},
        {ProgChoice::Directory,
         {"Programm_verzeichnis", "Ein neues Programmverzeichnis wählen", "", 'v'}},
        {ProgChoice::Settings,
         {"_Einstellungen", "Ort, Zeitzone, Anzeigen, Sollstunden und Urlaubsblock einstellen", "",
          'e'}},
        {ProgChoice::Export,
         {"E_xport", "Schichten und Notizen als iCalendar- oder CSV-Datei speichern", "", 'x'}},
        {ProgChoice::Info, {"_Info", "Informationstext zur Programmbedienung", "", 'i'}},
    }};
    return entries;
}

std::vector<ChoiceEntry> choice_entries() {
    std::vector<ChoiceEntry> entries;
    for (const ProgEntry& e : prog_entries())
        entries.push_back(e.entry);
    return entries;
}

}  // namespace

ProgMenuDialog::ProgMenuDialog(Gtk::Window& parent, view::CellSize cell)
    : ChoiceDialog(parent, cell, "Prog.", choice_entries(), 24) {}

std::optional<ProgChoice> ProgMenuDialog::get_choice() const {
    const std::optional<int> index = get_choice_index();
    if (!index) return std::nullopt;
    return prog_entries().at(static_cast<std::size_t>(*index)).choice;
}

}  // namespace sk::app
