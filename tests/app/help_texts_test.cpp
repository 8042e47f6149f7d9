// The help texts: their titles, the words each begins with, their line ends,
// the keys they name.
#include "app/help_texts.hpp"

#include <glib.h>
#include <gtest/gtest.h>

#include <string>

namespace sk::app {
namespace {

TEST(HelpTexts, TitlesAndOpenings) {
    struct Case {
        HelpTopic topic;
        const char* title;
        const char* opening;
    };
    const Case cases[] = {
        {HelpTopic::Program, "Programm",
         "Kalender\r\nHier kann zwischen den verschiedenen Schichtkalendern umgeschaltet werden."},
        {HelpTopic::ProgramInfo, "Programminfo", "Kalender"},
        {HelpTopic::Keys, "Tastaturbelegung",
         "Das Programm ist fast vollständig mit der Tastatur bedienbar. Die Tastenbelegung ist wie "
         "folgt:"},
        {HelpTopic::ShiftMarking, "Schichtmarkierung",
         "Mit einem Doppelklick, oder mit den Tasten '1', '2', '3'  und '4' öffnet sich das "
         "Eingabefenster für"},
        {HelpTopic::CalendarMarking, "Kalendermarkierung",
         "Die Wahl des Menüs erfolgt mit der Taste 'K' oder über das Menü 'Notiz' und "
         "'Kalendermarkierung'. Damit"},
        {HelpTopic::Notes, "Infos zu den Notizen und Markierungen",
         "Die Notizen werden in der unteren Statuszeile angezeigt wenn der Cursor auf einen Tag "
         "mit einer"},
        {HelpTopic::Login, "Benutzername und Passwort", "Benutzername und Passwort"},
        {HelpTopic::Settings, "Programmeinstellungen",
         "Um die Auf- und Untergangszeiten berechnen zu können, sind die Koordinaten des Ortes "
         "notwendig."},
    };
    for (const Case& c : cases) {
        const HelpText& help = help_text(c.topic);
        EXPECT_EQ(help.title, c.title);
        EXPECT_EQ(help.text.substr(0, std::string_view(c.opening).size()), c.opening) << c.title;
        // The opening words end at a word's end.
        const char next = help.text.at(std::string_view(c.opening).size());
        EXPECT_TRUE(next == ' ' || next == '\r') << c.title;
    }
}

// Every line ends with "\r\n", there is no lone "\r" or "\n". (That no
// line wraps in its window is checked on the window.)
TEST(HelpTexts, LinesEndWithCrLf) {
    for (const HelpTopic topic : kHelpTopics) {
        const std::string_view text = help_text(topic).text;
        ASSERT_GE(text.size(), 2u);
        EXPECT_EQ(text.substr(text.size() - 2), "\r\n") << help_text(topic).title;
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (text[i] == '\r') {
                ASSERT_EQ(text.at(i + 1), '\n') << help_text(topic).title << " at " << i;
            } else if (text[i] == '\n') {
                ASSERT_EQ(text.at(i - 1), '\r') << help_text(topic).title << " at " << i;
            }
        }
        EXPECT_TRUE(g_utf8_validate(text.data(), static_cast<gssize>(text.size()), nullptr));
    }
}

// The key table names every key the main window answers.
TEST(HelpTexts, KeysNameEveryKey) {
    const std::string_view text = help_text(HelpTopic::Keys).text;
    for (const char* key :
         {"F1",  "F2",  "F3",  "F4",       "F5",      "F6",   "F7",          "F8",     "F9",
          "F10", "F11", "F12", "Esc",      "'+'",     "'-'",  "'T'",         "'P'",    "'J'",
          "'W'", "'U'", "'K'", "'L'",      "'1'",     "'4'",  "'I'",         "'S'",    "'H'",
          "'E'", "'N'", "'M'", "'B'",      "'V'",     "'C'",  "'X'",         "'Z'",    "'Y'",
          "'F'", "'D'", "'A'", "Bild auf", "Bild ab", "Pos1", "Pfeiltasten", "Mausrad"})
        EXPECT_NE(text.find(key), std::string::npos) << key;
}

}  // namespace
}  // namespace sk::app
