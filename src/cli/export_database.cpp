#include "cli/export_database.h"

#include "export/database_export.h"

#include <filesystem>
#include <system_error>

namespace tessaview {

namespace {

constexpr const char* kNotExported = "nothing was exported: ";

} // namespace

std::string exportObstacle(const std::string& file)
{
    namespace fs = std::filesystem;
    if (file.empty())
        return {};
    std::error_code ignored;
    if (fs::exists(fs::symlink_status(file, ignored)))
        return kNotExported + file + " exists already; choose a new name or move it away";
    if (!fs::is_directory(fs::absolute(file, ignored).parent_path(), ignored))
        return kNotExported + file + ": its folder does not exist";
    return {};
}

std::string exportTo(const std::string& file, const NetworkMap& model,
                     const CharsetPolicy& charsets)
{
    if (file.empty() || model.empty())
        return {};
    const auto failure = exportDatabase(model, file, charsets);
    return failure ? "the export failed\n" + std::string(failure->what()) : std::string();
}

} // namespace tessaview
