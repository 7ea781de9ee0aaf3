#include "app/application_places.h"

#include "component/class_registry.h"
#include "log/log_file.h"
#include "platform/paths.h"
#include "platform/settings.h"

#include <charconv>
#include <cstdlib>
#include <string_view>

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
            .componentFolders = componentSearchPath()};
}

DriverPatience DriverPatience::ofThisUser()
{
    DriverPatience patience;
    // NOLINTNEXTLINE(concurrency-mt-unsafe): only read
    if (const char* const given = std::getenv("TESSAVIEW_DRIVER_PATIENCE")) {
        const std::string_view text(given);
        int seconds = 0;
        const auto [end, error] = std::from_chars(text.begin(), text.end(), seconds);
        if (error == std::errc() && end == text.end() && seconds > 0)
            patience.start = patience.exit = std::chrono::seconds(seconds);
    }
    return patience;
}

} // namespace tessaview
