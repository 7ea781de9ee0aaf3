#include "cli/satellites.h"

#include "cli/complain.h"
#include "platform/paths.h"
#include "satlist/list_access.h"
#include "satlist/list_storage.h"

#include <algorithm>

namespace tessaview {

namespace {

std::string listed(const std::vector<std::string>& names)
{
    std::string text;
    for (const std::string& name : names)
        text += "\n  " + name;
    return text;
}

} // namespace

std::filesystem::path satelliteListFile()
{
    return allUsersDataFolder().value_or(userDataFolder()) / kSatelliteListFile;
}

ComPtr<ISatListManager> openSatelliteList(const ClassRegistry& registry)
{
    ComPtr<ISatListManager> manager;
    std::string why;
    if (failed(registry.create(kSatListManagerClass, manager, &why))) {
        complain("the satellite list cannot be used: " + why);
        return nullptr;
    }
    const std::filesystem::path file = satelliteListFile();
    const Status loaded = loadSatelliteList(*manager.get(), file, &why);
    if (failed(loaded) && loaded != status::kNotFound)
        complain((why.empty() ? file.string() + " cannot be read" : why) +
                 "; the built-in satellite list is used");
    return manager;
}

bool checkSatellite(const Options& options, ISatListManager* satellites)
{
    if (options.satellite.empty() && options.mode != ScanMode::SingleSatellite)
        return true;
    const std::vector<std::string> names = satelliteNames(satellites, false);
    if (std::find(names.begin(), names.end(), options.satellite) != names.end())
        return true;
    complain((options.satellite.empty()
                  ? "You must select a satellite to scan: name it with --satellite"
                  : "no satellite is called '" + options.satellite + "'") +
             (names.empty() ? "; the satellite list is empty"
                            : "; the satellite list has:" + listed(names)));
    return false;
}

} // namespace tessaview
