// The desktop program: what `schichtkalender` runs when no headless command
// is named.
#pragma once

namespace sk::app {

// Runs the window until it is closed; returns the exit status.
int run(int argc, char** argv);

}  // namespace sk::app
