#include "app/info_dialog.hpp"

#include <array>

namespace sk::app {

namespace {

struct InfoEntry {
    InfoChoice choice;
    ChoiceEntry entry;
};

// In the order of the window; the tooltips are the program's own wording,
// the "ür" of "Schulferien" included.
const std::array<InfoEntry, 11>& info_entries() {
    static const std::array<InfoEntry, 11> entries = {{
        {InfoChoice::YearlyHours,
         {"_Jahresstunden", "Die Minusstunden für das Jahr der Spalte der Cursorposition", "",
          'j'}},
        {InfoChoice::SchoolHolidays,
         {"_Schulferien", "Die bayerischen Schulferien ür das in der ersten Spalte angezeigte Jahr",
          "", 's'}},
        {InfoChoice::Holidays,
         {"_Feiertage", "Die staatlichen Feiertage für das in der ersten Spalte angezeigte Jahr",
          "", 'f'}},
        {InfoChoice::Program, {"_Programm", "Allgemeine Infos zur Programmbedienung", "", 'p'}},
        {InfoChoice::Keys,
         {"_Tastaturbelegung", "Infos zur Programmbedienung mit der Tastatur", "", 't'}},
        {InfoChoice::ShiftMarking,
         {"Sc_hichtmarkierung", "Infos zur Eingabe und Verwaltung von Schichtmarkierungen", "",
          'h'}},
        {InfoChoice::CalendarMarking,
         {"_Kalendermarkierung", "Infos zur Eingabe und Verwaltung von Kalendermarkierungen", "",
          'k'}},
        {InfoChoice::Notes, {"_Notizen", "Infos zur Eingabe und Verwaltung von Notizen", "", 'n'}},
        {InfoChoice::ProgMenu,
         {"Prog. _Menü", "Infos zu den unter 'Prog.' wählbaren Dingen", "", 'm'}},
        {InfoChoice::Name, {"N_ame", "Infos zum Anmelden unter einen Benutzernamen", "", 'a'}},
        {InfoChoice::Settings, {"_Einstellungen", "Infos zu den Programmeinstellungen", "", 'e'}},
    }};
    return entries;
}

std::vector<ChoiceEntry> choice_entries() {
    std::vector<ChoiceEntry> entries;
    for (const InfoEntry& e : info_entries())
        entries.push_back(e.entry);
    return entries;
}

}  // namespace

std::optional<HelpTopic> help_topic(InfoChoice choice) {
    switch (choice) {
        case InfoChoice::YearlyHours:
        case InfoChoice::SchoolHolidays:
        case InfoChoice::Holidays:
            return std::nullopt;
        // "Programm" is about using the program in general; the text titled
        // "Programm" walks through the "Prog." entries, so "Prog. Menü" opens it.
        case InfoChoice::Program:
            return HelpTopic::ProgramInfo;
        case InfoChoice::ProgMenu:
            return HelpTopic::Program;
        case InfoChoice::Keys:
            return HelpTopic::Keys;
        case InfoChoice::ShiftMarking:
            return HelpTopic::ShiftMarking;
        case InfoChoice::CalendarMarking:
            return HelpTopic::CalendarMarking;
        case InfoChoice::Notes:
            return HelpTopic::Notes;
        case InfoChoice::Name:
            return HelpTopic::Login;
        case InfoChoice::Settings:
            return HelpTopic::Settings;
    }
    return std::nullopt;
}

InfoDialog::InfoDialog(Gtk::Window& parent, view::CellSize cell)
    : ChoiceDialog(parent, cell, "Info", choice_entries(), 24) {}

std::optional<InfoChoice> InfoDialog::get_choice() const {
    const std::optional<int> index = get_choice_index();
    if (!index) return std::nullopt;
    return info_entries().at(static_cast<std::size_t>(*index)).choice;
}

}  // namespace sk::app
