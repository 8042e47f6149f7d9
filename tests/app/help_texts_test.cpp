// The help texts: their titles, the words each begins with, their line ends,
// and that they name what they are about.
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

// Every line ends with "\r\n", there is no lone "\r" or "\n", and no line
// is longer than the window shows without wrapping.
TEST(HelpTexts, LinesEndWithCrLf) {
    for (const HelpTopic topic : kHelpTopics) {
        const std::string_view text = help_text(topic).text;
        ASSERT_GE(text.size(), 2u);
        EXPECT_EQ(text.substr(text.size() - 2), "\r\n") << help_text(topic).title;
        std::size_t line_start = 0;
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (text[i] == '\r') {
                ASSERT_EQ(text.at(i + 1), '\n') << help_text(topic).title << " at " << i;
            } else if (text[i] == '\n') {
                ASSERT_EQ(text.at(i - 1), '\r') << help_text(topic).title << " at " << i;
                const std::string line(text.substr(line_start, i - 1 - line_start));
                EXPECT_LE(g_utf8_strlen(line.c_str(), -1), 104) << line;
                line_start = i + 1;
            }
        }
        EXPECT_TRUE(g_utf8_validate(text.data(), static_cast<gssize>(text.size()), nullptr));
    }
}

// What each text has to explain, by the words the program shows.
TEST(HelpTexts, NameWhatTheyExplain) {
    struct Case {
        HelpTopic topic;
        std::vector<const char*> words;
    };
    const Case cases[] = {
        {HelpTopic::Keys,
         {"F1",  "F2",  "F3",          "F4",      "F5",         "F6",  "F7",  "F8",  "F9",  "F10",
          "F11", "F12", "Bild auf",    "Bild ab", "Pos1",       "Esc", "'+'", "'-'", "'T'", "'P'",
          "'J'", "'W'", "'U'",         "'K'",     "'L'",        "'1'", "'4'", "'I'", "'S'", "'H'",
          "'E'", "'N'", "'M'",         "'B'",     "'V'",        "'C'", "'X'", "'Z'", "'Y'", "'F'",
          "'D'", "'A'", "Pfeiltasten", "Mausrad", "Doppelklick"}},
        {HelpTopic::Program,
         {"Schriftart", "Hintergrundfarbe", "Stunden", "Urlaub", "Programmverzeichnis",
          "Einstellungen", "Export", "Info",
          "Das Verzeichnis existiert bereits! Sollen bereits vorhandene Dateien gelöscht und "
          "überschrieben werden?"}},
        {HelpTopic::ShiftMarking,
         {"'X'", "'F'", "'U'", "'L'", "'K'", "'A'", "Entf", "Arbeitseinsatz (X)", "Freizeit",
          "Urlaub", "Lehrgang", "Krank", "Ausfallbezahlung, kurzer Wechsel", "Früh", "Spät",
          "Nacht", "Sonntag", "Stammschicht", "Resturlaub"}},
        {HelpTopic::CalendarMarking,
         {"Eingabe einer Kalendermarkierung", "Speichern", "Löschen", "Abbruch", "acht Tage"}},
        {HelpTopic::Notes,
         {"Ein Tag mit einer Notiz ist an der farbig unterlegten Tageszahl zu erkennen",
          "Tagesnotiz", "Periodische Notiz", "Jährliche Notiz", "Wochentag im Monat", "8191",
          "Lösche Notizen und Markierungen", "Übersicht", "'U'", "<1980>"}},
        {HelpTopic::Login, {"F11", "'A'", "Name", "nie gespeichert", "ohne Warnung", "SKDaten"}},
        {HelpTopic::Settings,
         {"Bei gesetzten Häkchen werden die bayerischen Schulferien als grauer Streifen "
          "angezeigt.",
          "Kann wahlweise angezeigt werden", "Nord", "West", "Zeitzone", "Sommerzeit", "bürgerlich",
          "nautisch", "astronomisch", "Sollstunden", "Ein Zyklus dauert 28 Jahre",
          "Die Schichten routieren jeweils um zwei Blöcke", "1-3-5-2-4",
          "wenn das Jahr modulo 5 = 0 ist", "Einstellungen.dat"}},
    };
    // Wrapped lines break quoted phrases: compare with every run of blanks
    // and line ends as one blank.
    auto single_spaced = [](std::string_view text) {
        std::string out;
        for (const char c : text) {
            const bool blank = c == ' ' || c == '\r' || c == '\n';
            if (blank && (out.empty() || out.back() == ' ')) continue;
            out += blank ? ' ' : c;
        }
        return out;
    };
    for (const Case& c : cases) {
        const std::string text = single_spaced(help_text(c.topic).text);
        for (const char* word : c.words)
            EXPECT_NE(text.find(single_spaced(word)), std::string::npos)
                << help_text(c.topic).title << ": " << word;
    }
}

}  // namespace
}  // namespace sk::app
