#include "app/help_texts.hpp"

namespace sk::app {

namespace {

constexpr HelpText kTexts[] = {
    {"Programm",
     "Kalender\r\nHier kann zwischen den verschiedenen Schichtkalendern umgeschaltet werden.\r\n"},
    {"Programminfo", "Kalender\r\n"},
    {"Tastaturbelegung",
     "Das Programm ist fast vollständig mit der Tastatur bedienbar. Die Tastenbelegung ist wie "
     "folgt:\r\n"},
    {"Schichtmarkierung",
     "Mit einem Doppelklick, oder mit den Tasten '1', '2', '3'  und '4' öffnet sich das "
     "Eingabefenster für\r\n"},
    {"Kalendermarkierung",
     "Die Wahl des Menüs erfolgt mit der Taste 'K' oder über das Menü 'Notiz' und "
     "'Kalendermarkierung'. Damit\r\n"},
    {"Infos zu den Notizen und Markierungen",
     "Die Notizen werden in der unteren Statuszeile angezeigt wenn der Cursor auf einen Tag mit "
     "einer\r\n"},
    {"Benutzername und Passwort", "Benutzername und Passwort\r\n"},
    {"Programmeinstellungen",
     "Um die Auf- und Untergangszeiten berechnen zu können, sind die Koordinaten des Ortes "
     "notwendig.\r\n"},
};

}  // namespace

const HelpText& help_text(HelpTopic topic) {
    return kTexts[static_cast<int>(topic)];
}

}  // namespace sk::app
