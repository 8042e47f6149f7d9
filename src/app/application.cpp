#include "app/application.hpp"

#include <iostream>

namespace sk::app {

// Stand-in until the main window is built: says so and points to the
// headless commands.
int run(int /*argc*/, char** /*argv*/) {
    std::cerr << "schichtkalender: das Kalenderfenster ist noch nicht eingebaut; "
                 "\"schichtkalender --help\" nennt die Befehle.\n";
    return 2;
}

}  // namespace sk::app
