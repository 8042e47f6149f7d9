#include "cli/cli.hpp"

#include <iostream>

#include "cli/commands.hpp"

namespace sk::cli {

namespace {

void print_program_help(std::ostream& out) {
    out << "Quorvel Schichtkalender - Schichtkalender für den vollkontinuierlichen Schichtbetrieb\n"
           "\n"
           "Aufruf:\n"
           "  schichtkalender                 öffnet das Kalenderfenster\n"
           "  schichtkalender BEFEHL [OPTIONEN]\n"
           "\n"
           "Befehle:\n";
    for (const Command& c : commands()) {
        out << "  " << c.name;
        for (std::size_t i = c.name.size(); i < 16; ++i) out << ' ';
        out << c.summary << '\n';
    }
    out << "\n\"schichtkalender BEFEHL --help\" zeigt die Optionen eines Befehls.\n";
}

}  // namespace

bool wants_command_line(int argc, char** argv) {
    if (argc < 2) return false;
    const std::string first = argv[1];
    if (first == "--help" || first == "-h" || first == "--version") return true;
    if (find_command(first)) return true;
    // Anything else that is not a GTK option is a mistyped command.
    return first.rfind("--", 0) != 0 && first.rfind("-", 0) != 0;
}

int run(int argc, char** argv) {
    std::vector<std::string> args(argv + 1, argv + argc);
    return run(args, std::cout, std::cerr);
}

int run(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    if (args.empty() || args[0] == "--help" || args[0] == "-h") {
        print_program_help(out);
        return args.empty() ? 2 : 0;
    }
    if (args[0] == "--version") {
        out << "schichtkalender " << kVersion << '\n';
        return 0;
    }
    const Command* command = find_command(args[0]);
    if (!command) {
        err << "schichtkalender: unbekannter Befehl \"" << args[0]
            << "\" (\"schichtkalender --help\" zeigt alle Befehle)\n";
        return 2;
    }
    const std::vector<std::string> rest(args.begin() + 1, args.end());
    try {
        for (const auto& a : rest) {
            if (a == "--help" || a == "-h") {
                out << command->usage;
                return 0;
            }
        }
        return command->run(rest, out, err);
    } catch (const UsageError& e) {
        err << "schichtkalender " << command->name << ": " << e.what() << '\n';
        return 2;
    }
}

}  // namespace sk::cli
