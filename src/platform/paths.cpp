#include "platform/paths.h"

#include <array>
#include <cstdlib>
#include <pwd.h>
#include <system_error>
#include <unistd.h>

namespace tessaview {

namespace {

/// The environment variable when it holds an absolute path, else null. Nothing here sets any.
const char* absolutePath(const char* variable)
{
    const char* const value = std::getenv(variable); // NOLINT(concurrency-mt-unsafe): only read
    return value && *value == '/' ? value : nullptr;
}

std::filesystem::path homeFolder()
{
    if (const char* home = absolutePath("HOME"))
        return home;
    passwd entry{};
    passwd* found = nullptr;
    std::array<char, 4096> texts{};
    if (::getpwuid_r(::getuid(), &entry, texts.data(), texts.size(), &found) == 0 && found &&
        *entry.pw_dir == '/')
        return entry.pw_dir;
    return {};
}

} // namespace

std::filesystem::path userBaseFolder(const char* variable, const char* belowHome)
{
    if (const char* given = absolutePath(variable))
        return given;
    const std::filesystem::path home = homeFolder();
    return home.empty() ? home : home / belowHome;
}

std::filesystem::path userDataFolder()
{
    const std::filesystem::path base = userBaseFolder("XDG_DATA_HOME", ".local/share");
    return base.empty() ? base : base / "Tessaview 3";
}

std::optional<std::filesystem::path> allUsersDataFolder(const std::filesystem::path& folder)
{
    std::error_code failure;
    const std::filesystem::file_type type = std::filesystem::status(folder, failure).type();
    if (type == std::filesystem::file_type::not_found)
        return userDataFolder();
    if (type != std::filesystem::file_type::directory || ::access(folder.c_str(), W_OK) != 0)
        return std::nullopt;
    return folder;
}

std::filesystem::path executablePath()
{
    std::error_code failure;
    return std::filesystem::read_symlink("/proc/self/exe", failure);
}

} // namespace tessaview
