#include "app/messages_locale.hpp"

#include <gtk/gtk.h>

#include <clocale>
#include <cstdlib>
#include <string>

namespace sk::app {

namespace {

constexpr const char* kGermanLocale = "de_DE.UTF-8";

}  // namespace

bool is_german_locale_name(std::string_view name) {
    return name.starts_with("de") &&
           (name.size() == 2 || name[2] == '_' || name[2] == '.' || name[2] == '@');
}

bool prefer_german_messages() {
    const char* current = std::setlocale(LC_MESSAGES, nullptr);
    const std::string target =
        current != nullptr && is_german_locale_name(current) ? current : kGermanLocale;
    // gettext tries the entries of LANGUAGE ("en_GB:en") in turn, before LC_MESSAGES.
    const char* language = std::getenv("LANGUAGE");
    const std::string_view list = language == nullptr ? "" : language;
    const std::string_view first = list.substr(0, list.find(':'));
    // A failed setlocale leaves the category as it was: not installed, nothing changes.
    if (std::setlocale(LC_MESSAGES, target.c_str()) == nullptr) return false;
    if (!first.empty() && !is_german_locale_name(first)) {
        // Read by gettext at each lookup. gettext keeps what it found per
        // locale name until a setlocale changes a name (one to the same
        // name does nothing), so the name changes twice.
        setenv("LANGUAGE", "de", 1);
        std::setlocale(LC_MESSAGES, "C");
        std::setlocale(LC_MESSAGES, target.c_str());
    }
    return true;
}

void set_up_window_locale() {
    gtk_disable_setlocale();
    std::setlocale(LC_ALL, "");
    prefer_german_messages();
}

}  // namespace sk::app
