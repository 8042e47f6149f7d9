// The eight help texts of the program, German, lines ended by "\r\n". The
// "Info" window opens them (see info_dialog.hpp), the "Prog." window's
// "Info" and the note menu's "Info" open one each.
#pragma once

#include <array>
#include <string_view>

namespace sk::app {

enum class HelpTopic {
    Program,          // "Programm": the entries of the "Prog." window
    ProgramInfo,      // "Programminfo": the program in general
    Keys,             // "Tastaturbelegung"
    ShiftMarking,     // "Schichtmarkierung"
    CalendarMarking,  // "Kalendermarkierung"
    Notes,            // "Infos zu den Notizen und Markierungen"
    Login,            // "Benutzername und Passwort"
    Settings,         // "Programmeinstellungen"
};

inline constexpr std::array<HelpTopic, 8> kHelpTopics = {
    HelpTopic::Program,         HelpTopic::ProgramInfo, HelpTopic::Keys,  HelpTopic::ShiftMarking,
    HelpTopic::CalendarMarking, HelpTopic::Notes,       HelpTopic::Login, HelpTopic::Settings};

struct HelpText {
    std::string_view title;
    std::string_view text;  // UTF-8, "\r\n" between lines
};

const HelpText& help_text(HelpTopic topic);

}  // namespace sk::app
