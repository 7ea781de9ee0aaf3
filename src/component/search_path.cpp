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

} // namespace

std::vector<std::filesystem::path> componentSearchPath()
{
    std::vector<std::filesystem::path> folders;
    if (const char* list = std::getenv("TESSAVIEW_COMPONENT_PATH"))
        appendPathList(folders, list);

    const char* const data = std::getenv("XDG_DATA_HOME");
    const char* const home = std::getenv("HOME");
    const std::filesystem::path below = "Tessaview 3/components";
    if (data && *data == '/')
        folders.push_back(data / below);
    else if (home && *home == '/')
        folders.push_back(std::filesystem::path(home) / ".local/share" / below);

    std::error_code failure;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", failure);
    if (!failure)
        folders.push_back(program.parent_path().parent_path() / "lib/tessaview3/components");
    return folders;
}

} // namespace tessaview
