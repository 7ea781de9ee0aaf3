#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tessaview {

/// Where the application finds and keeps its things.
struct ApplicationPlaces {
    std::filesystem::path executable; ///< empty when the system does not tell
    std::string logFile;
    bool isLogNamed = false; ///< by the user, who is told when it cannot be written
    std::filesystem::path settingsFile;
    std::optional<std::filesystem::path> allUsersFolder;
    std::filesystem::path userFolder;       ///< empty when there is no place for it
    std::filesystem::path stateFolder = {}; ///< likewise
    std::vector<std::filesystem::path> componentFolders;

    /// Those of this program and its user; an empty log file stands for the usual one.
    static ApplicationPlaces ofThisUser(const std::string& logFile);
};

/// How long a driver may take for its calls before it is told that it does not answer.
struct DriverPatience {
    std::chrono::milliseconds start = std::chrono::seconds(5);
    std::chrono::milliseconds exit = std::chrono::seconds(5);

    /// Both from $TESSAVIEW_DRIVER_PATIENCE, a number of seconds, where that is set.
    static DriverPatience ofThisUser();
};

} // namespace tessaview
