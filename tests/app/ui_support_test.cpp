// The helpers under the windows: text from the core made fit for a text
// view, labels as read out, the page font's style sheet, text windows and
// the help texts they show, and GTK's own windows in German whatever the
// environment's messages locale and LANGUAGE list say.
#include "app/ui_support.hpp"

#include <glib.h>
#include <gtest/gtest.h>
#include <gtkmm.h>

#include <clocale>
#include <cstdlib>
#include <optional>
#include <set>
#include <string>

#include "app/help_texts.hpp"
#include "app/messages_locale.hpp"
#include "app/text_window.hpp"
#include "gui_support.hpp"

namespace sk::app {
namespace {

TEST(UiSupport, DisplayText) {
    struct Case {
        std::string in;
        std::string out;
    };
    for (const auto& c : {Case{"a\r\nb", "a\nb"}, Case{"a\r\n\r\nb\r\n", "a\n\nb\n"},
                          Case{"a\rb\nc", "a\nb\nc"}, Case{"\r", "\n"}, Case{"", ""},
                          Case{"Grün", "Grün"}, Case{"Gr\xfcn", "Gr\xef\xbf\xbdn"}}) {
        EXPECT_EQ(display_text(c.in), c.out);
    }
}

TEST(UiSupport, PlainLabel) {
    EXPECT_EQ(plain_label("_Datum:"), "Datum");
    EXPECT_EQ(plain_label("Prog. _Menü"), "Prog. Menü");
    EXPECT_EQ(plain_label("a__b"), "a_b");
}

TEST(UiSupport, ControlFontStyleSheet) {
    EXPECT_EQ(ControlFont::css({"DejaVu Sans", 10, 0}),
              "* { font-family: \"DejaVu Sans\"; font-size: 10pt; font-weight: normal; "
              "font-style: normal; }\n");
    EXPECT_EQ(ControlFont::css({"A \"B\"", 12, 3}),
              "* { font-family: \"A \\\"B\\\"\"; font-size: 12pt; font-weight: bold; "
              "font-style: italic; }\n");
}

// Core texts with "\r\n" show as lines; the view is read-only.
TEST(TextWindow, ShowsLinesReadOnly) {
    TextWindow window(test::parent_window(), test::cell(),
                      notes_title(calendar::Day::from_date(2024, 2, 31)),
                      "Zahnarzt 8:00\r\n\r\nGeburtstag Anna", TextWindow::kNotesSize);
    EXPECT_EQ(window.get_text(), "Zahnarzt 8:00\n\nGeburtstag Anna");
    test::run_dialog(window, [&] {
        test::type_text(window.get_view(), "x");
        test::send_key(window, GDK_KEY_Escape);
    });
    EXPECT_EQ(window.get_text(), "Zahnarzt 8:00\n\nGeburtstag Anna");
}

// Every help text fits its window: no line wraps at the test font, and the
// columns of the tables start at one place.
TEST(TextWindow, HelpTextsShowWithoutWrapping) {
    for (const HelpTopic topic : kHelpTopics) {
        HelpWindow window(test::parent_window(), test::cell(), topic);
        window.show();
        ASSERT_TRUE(test::wait_until([&] { return window.get_mapped(); }));
        Gtk::TextView& view = window.get_view();
        const Glib::RefPtr<Gtk::TextBuffer> buffer = view.get_buffer();
        ASSERT_TRUE(test::wait_until([&] { return view.get_allocated_width() > 1; }));
        for (int line = 0; line < buffer->get_line_count(); ++line) {
            Gtk::TextIter iter = buffer->get_iter_at_line(line);
            if (iter.ends_line()) continue;
            const bool wraps = view.forward_display_line(iter) && iter.get_line() == line;
            EXPECT_FALSE(wraps) << help_text(topic).title << ": " << line_text(buffer, line);
        }

        // The x of the text after the first tab, line by line within a table.
        std::set<int> columns;
        for (int line = 0; line < buffer->get_line_count(); ++line) {
            const Glib::ustring text = line_text(buffer, line);
            const auto tab = text.find('\t');
            if (tab == Glib::ustring::npos || tab == 0) continue;
            Gdk::Rectangle place;
            view.get_iter_location(buffer->get_iter_at_line_offset(line, static_cast<int>(tab) + 1),
                                   place);
            columns.insert(place.get_x());
        }
        if (topic == HelpTopic::Keys) {
            EXPECT_EQ(columns.size(), 2u);  // the keys and the mouse
        }
    }
}

TEST(HelpTexts, TitlesAndOpenings) {
    const std::pair<HelpTopic, const char*> titles[] = {
        {HelpTopic::Program, "Programm"},
        {HelpTopic::ProgramInfo, "Programminfo"},
        {HelpTopic::Keys, "Tastaturbelegung"},
        {HelpTopic::ShiftMarking, "Schichtmarkierung"},
        {HelpTopic::CalendarMarking, "Kalendermarkierung"},
        {HelpTopic::Notes, "Infos zu den Notizen und Markierungen"},
        {HelpTopic::Login, "Benutzername und Passwort"},
        {HelpTopic::Settings, "Programmeinstellungen"},
    };
    for (const auto& [topic, title] : titles)
        EXPECT_EQ(help_text(topic).title, title);
    EXPECT_TRUE(help_text(HelpTopic::Program)
                    .text.starts_with("Kalender\r\nHier kann zwischen den verschiedenen "
                                      "Schichtkalendern umgeschaltet werden. "));
    EXPECT_TRUE(help_text(HelpTopic::Login).text.starts_with("Benutzername und Passwort\r\n"));
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

TEST(MessagesLocale, GermanLocaleNames) {
    for (const char* name : {"de", "de_DE.UTF-8", "de_AT@euro", "de_CH.utf8", "de.UTF-8"})
        EXPECT_TRUE(is_german_locale_name(name)) << name;
    for (const char* name :
         {"C", "C.UTF-8", "POSIX", "en_US.UTF-8", "dsb_DE.UTF-8", "dz_BT", "d", ""})
        EXPECT_FALSE(is_german_locale_name(name)) << name;
}

// The process's messages locale and LANGUAGE, put back afterwards.
class KeptMessages {
  public:
    KeptMessages() : m_messages(std::setlocale(LC_MESSAGES, nullptr)) {
        if (const char* l = std::getenv("LANGUAGE")) m_language = l;
    }
    ~KeptMessages() {
        if (m_language)
            setenv("LANGUAGE", m_language->c_str(), 1);
        else
            unsetenv("LANGUAGE");
        std::setlocale(LC_MESSAGES, m_messages.c_str());
    }

  private:
    std::string m_messages;
    std::optional<std::string> m_language;
};

std::string cancel_label() {
    Gtk::FontChooserDialog dialog("Schriftart");
    auto* button = dynamic_cast<Gtk::Button*>(dialog.get_widget_for_response(Gtk::RESPONSE_CANCEL));
    return button ? std::string(button->get_label()) : "";
}

TEST(MessagesLocale, FontChooserSaysAbbrechen) {
    const KeptMessages kept;
    // Made by tools/ensure-packages.sh; without it nothing could be checked.
    ASSERT_NE(std::setlocale(LC_MESSAGES, "de_DE.UTF-8"), nullptr)
        << "Die Locale de_DE.UTF-8 fehlt (tools/ensure-packages.sh erzeugt sie).";
    struct Case {
        const char* messages;
        const char* language;  // nullptr: not set
    };
    const Case cases[] = {
        {"C", nullptr},           {"C.UTF-8", "en_GB:en"},
        {"de_DE.UTF-8", "en"},     // LANGUAGE would win over a German locale
        {"de_DE.UTF-8", "de:en"},  // stays
        {"de_DE.UTF-8", nullptr},  // stays
    };
    for (const Case& c : cases) {
        // Through "C", so that gettext forgets the last case's translations.
        std::setlocale(LC_MESSAGES, "C");
        ASSERT_NE(std::setlocale(LC_MESSAGES, c.messages), nullptr) << c.messages;
        if (c.language)
            setenv("LANGUAGE", c.language, 1);
        else
            unsetenv("LANGUAGE");
        const std::string before = cancel_label();
        EXPECT_TRUE(prefer_german_messages()) << c.messages;
        EXPECT_TRUE(is_german_locale_name(std::setlocale(LC_MESSAGES, nullptr))) << c.messages;
        EXPECT_EQ(cancel_label(), "_Abbrechen")
            << c.messages << " " << (c.language ? c.language : "");
        if (c.language && std::string(c.language).starts_with("de")) {
            EXPECT_STREQ(std::getenv("LANGUAGE"), c.language);
        }
        if (std::string(c.messages) == "C") {
            EXPECT_EQ(before, "_Cancel");  // English before: the check can fail
        }
    }
}

}  // namespace
}  // namespace sk::app
