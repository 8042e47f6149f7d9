// The language of the texts the program does not write itself: GTK's own
// windows (font, colour and file chooser, the print dialog) and the
// system's error texts that end some of the program's messages follow the
// locale's messages category. The program speaks German, so these should
// too, whatever language the desktop is set to.
#pragma once

#include <string_view>

namespace sk::app {

// The locale of the window process, before GTK initialises: the user's
// environment for every category, as GTK would set it, then German
// messages (prefer_german_messages). The numbers of the files do not
// depend on the locale, so LC_NUMERIC stays as the environment has it.
void set_up_window_locale();

// German messages when they are not German yet and de_DE.UTF-8 exists;
// otherwise nothing changes. A LANGUAGE list that names another language
// first would take precedence over LC_MESSAGES, so it becomes "de".
// True when the messages are German afterwards.
bool prefer_german_messages();

// "de", "de_DE.UTF-8", "de_AT@euro", ...; not "C", "en_US.UTF-8" or "dsb_DE".
bool is_german_locale_name(std::string_view name);

}  // namespace sk::app
