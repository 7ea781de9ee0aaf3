#include "app/command_line.h"

#include "log/log_line.h"
#include "platform/build_info.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <sstream>

namespace tessaview {

ParsedCommandLine parseCommandLine(int argc, const char* const* argv)
{
    CommandLine options;
    CLI::App app("Explorer for DVB service information: shows what a multiplex signals.",
                 "tessaview3");
    app.set_version_flag("--version", std::string("tessaview3 ") + kVersionText);
    app.failure_message(CLI::FailureMessage::help);
    app.add_option("CAPTURE", options.captures,
                   "Captured transport streams, or folders of them: the first is read at once, "
                   "through the driver for captures. The chosen driver stays chosen.")
        ->option_text(" ");
    app.add_option("--log", options.log, "Write the log to this file instead of the usual one")
        ->option_text("FILE");
    app.footer("\nTessaview 3 shows a window. tessaview3-scan does the same work in a shell.");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& problem) {
        const bool isAnswer = problem.get_exit_code() == 0;
        std::ostringstream complaint; // it repeats what it does not know
        app.exit(problem, std::cout, complaint);
        std::cerr << asLines(complaint.str());
        return {.options = std::nullopt, .exitStatus = isAnswer ? 0 : kExitWrongUsage};
    }
    return {.options = options};
}

} // namespace tessaview
