#include "app/application_places.h"

#include "component/class_registry.h"
#include "driver/pending_call.h"
#include "log/log_file.h"
#include "platform/paths.h"
#include "platform/settings.h"

namespace tessaview {

ApplicationPlaces ApplicationPlaces::ofThisUser(const std::string& logFile)
{
    const std::filesystem::path executable = executablePath();
    return {.executable = executable,
            .logFile = logFile.empty() ? logPathFor(executable) : logFile,
            .isLogNamed = !logFile.empty(),
            .settingsFile = defaultSettingsFile(),
            .allUsersFolder = allUsersDataFolder(),
            .userFolder = userDataFolder(),
            .stateFolder = tessaview::stateFolder(),
            .componentFolders = componentSearchPath()};
}

DriverPatience DriverPatience::ofThisUser()
{
    return {.start = driverPatience(), .exit = driverPatience()};
}

} // namespace tessaview
