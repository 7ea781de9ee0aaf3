#pragma once

#include <filesystem>
#include <optional>

namespace tessaview {

/// One of the user's base folders: the environment variable when it holds an absolute path, else
/// the folder of that name below the home folder. Empty when the user has no home either.
std::filesystem::path userBaseFolder(const char* variable, const char* belowHome);

/// The user's data folder of this system, which need not exist yet. Empty when there is no place
/// for it.
std::filesystem::path userDataFolder();

/// The data folder that all users share: the one that an administrator has made, or the user's
/// own where there is none. Nothing when there is one that this user cannot write.
std::optional<std::filesystem::path>
allUsersDataFolder(const std::filesystem::path& folder = "/var/lib/tessaview3");

/// The full path of the running program; empty when the system does not tell.
std::filesystem::path executablePath();

} // namespace tessaview
