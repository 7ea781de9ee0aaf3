#include "cli/import.h"
#include "cli/options.h"
#include "cli/scan.h"

int main(int argc, char** argv)
{
    const tessaview::ParsedOptions parsed = tessaview::parseOptions(argc, argv);
    if (!parsed.options)
        return parsed.exitStatus;
    const tessaview::Options& options = *parsed.options;
    if (!options.scanTables.empty()) {
        const int status = tessaview::importScanTables(options);
        if (status != tessaview::kExitStored || !options.asksForStreams())
            return status;
    }
    return tessaview::scan(options);
}
