#include "component/class_registry.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <system_error>

namespace tessaview {

namespace {

void appendPathList(std::vector<std::filesystem::path>& folders, std::string_view list)
{
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(':'), list.size());
        // An empty entry would mean whatever folder the program was started in.
        if (end > 0)
            folders.emplace_back(list.substr(0, end));
        list.remove_prefix(std::min(end + 1, list.size()));
    }
}

/// The environment variable when it holds an absolute path, else null. Nothing here sets any.
const char* absolutePath(const char* variable)
{
    const char* const value = std::getenv(variable); // NOLINT(concurrency-mt-unsafe): only read
    return value && *value == '/' ? value : nullptr;
}

} // namespace

std::vector<std::filesystem::path> componentSearchPath()
{
    std::vector<std::filesystem::path> folders;
    // NOLINTNEXTLINE(concurrency-mt-unsafe): only read
    if (const char* list = std::getenv("TESSAVIEW_COMPONENT_PATH"))
        appendPathList(folders, list);

    const std::filesystem::path below = "Tessaview 3/components";
    if (const char* data = absolutePath("XDG_DATA_HOME"))
        folders.push_back(data / below);
    else if (const char* home = absolutePath("HOME"))
        folders.push_back(std::filesystem::path(home) / ".local/share" / below);

    std::error_code failure;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", failure);
    if (!failure)
        folders.push_back(program.parent_path().parent_path() / "lib/tessaview3/components");
    return folders;
}

} // namespace tessaview
