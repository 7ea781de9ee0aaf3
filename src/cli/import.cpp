#include "cli/import.h"

#include "cli/complain.h"
#include "cli/satellites.h"
#include "component/class_registry.h"
#include "platform/format.h"
#include "satlist/list_storage.h"
#include "satlist/scan_table_import.h"

#include <iostream>
#include <vector>

namespace tessaview {

int importScanTables(const Options& options)
{
    const auto manager = openSatelliteList(ClassRegistry(componentSearchPath()));
    if (!manager)
        return kExitWrongUsage;
    const std::vector<std::filesystem::path> tables(options.scanTables.begin(),
                                                    options.scanTables.end());
    const ImportReport report = importScanTables(*manager.get(), tables);
    for (const std::string& problem : report.problems)
        complain(problem);
    if (report.filesUsed == 0)
        return kExitWrongUsage;
    const std::filesystem::path file = satelliteListFile();
    std::string why;
    const Status saved = saveSatelliteList(*manager.get(), file, &why);
    if (failed(saved)) {
        complain(formatted("Failed to save sat list: %08X", statusCode(saved)) + " (" +
                 (why.empty() ? file.string() : why) + ")");
        return kExitWrongUsage;
    }
    if (!options.quiet)
        std::cout << report.summary() << '\n';
    return kExitStored;
}

} // namespace tessaview
