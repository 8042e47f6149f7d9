// Entry point of schichtkalender: a headless command when the first argument
// names one, otherwise the calendar window.
#include "cli/cli.hpp"

#ifdef SK_WITH_GUI
#include "app/application.hpp"
#endif

int main(int argc, char** argv) {
    if (sk::cli::wants_command_line(argc, argv)) return sk::cli::run(argc, argv);
#ifdef SK_WITH_GUI
    return sk::app::run(argc, argv);
#else
    return sk::cli::run(argc, argv);
#endif
}
