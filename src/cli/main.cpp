#include "cli/import.h"
#include "cli/options.h"
#include "cli/scan.h"
#include "driver/pending_call.h"

#include <cstdlib>
#include <iostream>

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
    const int status = tessaview::scan(options);
    // A driver that never came back from a call is not waited for.
    if (tessaview::PendingCall::unfinished() > 0) {
        std::cout.flush();
        std::_Exit(status);
    }
    return status;
}
