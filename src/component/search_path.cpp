#include "component/class_registry.h"
#include "platform/paths.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

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
    // NOLINTNEXTLINE(concurrency-mt-unsafe): only read
    if (const char* list = std::getenv("TESSAVIEW_COMPONENT_PATH"))
        appendPathList(folders, list);

    if (const std::filesystem::path own = userDataFolder(); !own.empty())
        folders.push_back(own / "components");
    if (const std::filesystem::path program = executablePath(); !program.empty())
        folders.push_back(program.parent_path().parent_path() / "lib/tessaview3/components");
    return folders;
}

} // namespace tessaview
