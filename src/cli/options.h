#pragma once

#include "acquisition/scan_mode.h"
#include "charset/charset_policy.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tessaview {

enum class OutputFormat { Tree, Values, Json, None };

/// The exit statuses of the shell tool.
constexpr int kExitStored = 0;     ///< at least one transport stream was stored
constexpr int kExitNothing = 1;    ///< none was
constexpr int kExitWrongUsage = 2; ///< an option or a capture cannot be used
constexpr int kExitExportFailed = 3;
constexpr int kExitMayLackSome = 4; ///< one was stored, but not all could be read

/// What the command line asks for.
struct Options {
    std::vector<std::string> captures;
    std::string driver; ///< a name or a class identifier; empty for none named
    bool listDrivers = false;
    std::optional<ScanMode> mode; ///< none named: every source of the captures, or the current one
    bool incomplete = false;      ///< store streams that lack PAT, NIT or SDT, too
    std::string satellite; ///< of a NIT or satellite scan, or to tune to; empty for none named
    std::string tune;      ///< the parameters to set the tuner to first; empty for none
    std::optional<std::uint32_t> tables; ///< the bits of this run; none: the stored selection
    OutputFormat format = OutputFormat::Tree;
    CharsetPolicy charsets; ///< what texts are read with
    std::string exportDb;   ///< the file of a new database; empty for none
    std::string log;
    bool quiet = false;
    std::vector<std::string> scanTables; ///< initial tuning files to import

    /// Whether there is something to do after an import.
    bool asksForStreams() const
    {
        return listDrivers || !captures.empty() || !driver.empty() || !tune.empty();
    }
};

struct ParsedOptions {
    std::optional<Options> options; ///< none: there is nothing more to do
    int exitStatus = kExitStored;
};

/// Reads the command line; what is wrong with it, and help, is printed here.
ParsedOptions parseOptions(int argc, const char* const* argv);

} // namespace tessaview
