#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tessaview {

/// What the program was started with.
struct CommandLine {
    std::vector<std::string> captures; ///< files or folders
    std::string log;                   ///< empty: the usual one
};

struct ParsedCommandLine {
    std::optional<CommandLine> options; ///< none: there is nothing more to do
    int exitStatus = 0;
};

/// The exit statuses of the program.
constexpr int kExitNotStarted = 1; ///< the user has been told why
constexpr int kExitWrongUsage = 2;

/// Reads the command line; help and the version are printed here, and what is wrong with it on
/// standard error.
ParsedCommandLine parseCommandLine(int argc, const char* const* argv);

} // namespace tessaview
