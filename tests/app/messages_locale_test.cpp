// GTK's own windows speak German when de_DE.UTF-8 is installed, whatever
// the environment's messages locale and LANGUAGE list say.
#include "app/messages_locale.hpp"

#include <gtest/gtest.h>
#include <gtkmm.h>

#include <clocale>
#include <cstdlib>
#include <optional>
#include <string>

namespace sk::app {
namespace {

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
