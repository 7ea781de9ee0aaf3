#include "cli/import.h"

#include "cli/complain.h"
#include "component/class_registry.h"
#include "platform/format.h"
#include "platform/paths.h"
#include "satlist/list_storage.h"
#include "satlist/scan_table_import.h"

#include <iostream>
#include <vector>

namespace tessaview {

namespace {

std::filesystem::path satelliteListFile()
{
    return allUsersDataFolder().value_or(userDataFolder()) / kSatelliteListFile;
}

/// The list as it is saved; null, with a complaint, when there is no manager for it.
ComPtr<ISatListManager> loadedList(const std::filesystem::path& file)
{
    const ClassRegistry registry(componentSearchPath());
    ComPtr<ISatListManager> manager;
    std::string why;
    if (failed(registry.create(kSatListManagerClass, manager, &why))) {
        complain("the satellite list cannot be used: " + why);
        return nullptr;
    }
    const Status loaded = loadSatelliteList(*manager.get(), file);
    if (failed(loaded) && loaded != status::kNotFound)
        complain(file.string() +
                 " cannot be read as a satellite list; it is set aside for a new one that begins "
                 "with the built-in satellites");
    return manager;
}

} // namespace

int importScanTables(const Options& options)
{
    const std::filesystem::path file = satelliteListFile();
    const auto manager = loadedList(file);
    if (!manager)
        return kExitWrongUsage;
    const std::vector<std::filesystem::path> tables(options.scanTables.begin(),
                                                    options.scanTables.end());
    const ImportReport report = importScanTables(*manager.get(), tables);
    for (const std::string& problem : report.problems)
        complain(problem);
    if (report.filesUsed == 0)
        return kExitWrongUsage;
    const Status saved = saveSatelliteList(*manager.get(), file);
    if (failed(saved)) {
        complain(formatted("Failed to save sat list: %08X", statusCode(saved)) + " (" +
                 file.string() + ")");
        return kExitWrongUsage;
    }
    if (!options.quiet)
        std::cout << report.summary() << '\n';
    return kExitStored;
}

} // namespace tessaview
