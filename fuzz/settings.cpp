// The settings file, read and then written over.

#include "platform/settings.h"

#include "fuzz/table_harness.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace {

/// A folder for this run, below the one for temporary files.
std::filesystem::path runFolder()
{
    std::string name = std::filesystem::temp_directory_path() / "tessaview-settings-XXXXXX";
    fuzz::require(mkdtemp(name.data()) != nullptr);
    return name;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    static const std::filesystem::path folder = runFolder();
    const std::filesystem::path file = folder / "settings.json";
    std::ofstream(file, std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));

    tessaview::Settings settings(file);
    const auto key = tessaview::kSettingsKey;
    settings.canOpen(key);
    settings.text(key, "driverclsid");
    settings.texts(key, "files");
    const auto before = settings.number(key, "sitables");
    try {
        settings.setText(key, "driverclsid", "{0}");
        fuzz::require(settings.text(key, "driverclsid") == "{0}");
    } catch (const tessaview::SettingsError&) {
    }
    fuzz::require(settings.number(key, "sitables") == before);

    for (const auto& entry : std::filesystem::directory_iterator(folder))
        std::filesystem::remove(entry);
    return 0;
}
