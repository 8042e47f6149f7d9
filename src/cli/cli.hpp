// The headless commands of schichtkalender (days, holidays, render, ...):
// for scripting, tests and machines without a display. All texts German.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace sk::cli {

// True when the arguments name a command (or ask for help), so that no
// window is opened.
bool wants_command_line(int argc, char** argv);

// Runs the command named by argv[1] and returns the exit status: 0 done,
// 1 failure while working, 2 bad arguments.
int run(int argc, char** argv);
int run(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

}  // namespace sk::cli
