#pragma once

#include "component/guid.h"
#include "driver/tuner_driver.h"
#include "satlist/satellite_list.h"
#include "tests/support/temporary_folder.h"

#include <string>

namespace test {

/// The classes of the scripted driver, by what they do; otherwise they work.
namespace scripted {
using tessaview::operator""_guid;
constexpr tessaview::Guid kWorks = "{000000A0-0000-0000-0000-000000000000}"_guid;
constexpr tessaview::Guid kCreateFails = "{000000A1-0000-0000-0000-000000000000}"_guid;
constexpr tessaview::Guid kLacksControl = "{000000A2-0000-0000-0000-000000000000}"_guid;
constexpr tessaview::Guid kInitializeFails = "{000000A3-0000-0000-0000-000000000000}"_guid;
constexpr tessaview::Guid kSatListFails = "{000000A4-0000-0000-0000-000000000000}"_guid;
constexpr tessaview::Guid kInitializeHangs = "{000000A5-0000-0000-0000-000000000000}"_guid;
constexpr tessaview::Guid kShutdownHangs = "{000000A6-0000-0000-0000-000000000000}"_guid;
constexpr tessaview::Guid kGetNameFails = "{000000A7-0000-0000-0000-000000000000}"_guid;
constexpr tessaview::Guid kGetNameHangs = "{000000A8-0000-0000-0000-000000000000}"_guid;
/// Ends the process in the call that $TESSAVIEW_TEST_CRASH names.
constexpr tessaview::Guid kCrashes = "{000000A9-0000-0000-0000-000000000000}"_guid;
} // namespace scripted

inline const std::string kLibraryFolder = TESSAVIEW_BUILD_DIR "/lib/tessaview3/components/";
inline const std::string kScriptedLibrary =
    TESSAVIEW_BUILD_DIR "/tests/scripted/scripted_driver.so";

/// A folder of manifests, in which a test installs what it needs.
class InstalledComponents {
public:
    explicit InstalledComponents(std::filesystem::path folder) : folder_(std::move(folder))
    {
        std::filesystem::create_directories(folder_);
    }

    void scriptedDriver(const tessaview::Guid& clsid, const std::string& name) const
    {
        install(name, clsid, kScriptedLibrary, toText(tessaview::kDriverCategory));
    }
    void captureDriver() const
    {
        using tessaview::operator""_guid;
        install("captures", "{8F6E0A52-3B1D-4C7E-9A64-D20B71C5E3F8}"_guid,
                kLibraryFolder + "capture.so", toText(tessaview::kDriverCategory));
    }
    void satelliteList() const
    {
        install("satellites", tessaview::kSatListManagerClass, kLibraryFolder + "satlist.so", "");
    }
    const std::filesystem::path& folder() const { return folder_; }

private:
    void install(const std::string& name, const tessaview::Guid& clsid, const std::string& library,
                 const std::string& category) const
    {
        std::string manifest = R"({"clsid": ")";
        manifest += toText(clsid) + R"(", "name": ")" + name + R"(", "library": ")" + library;
        manifest += R"(", "categories": [)";
        if (!category.empty())
            manifest.append("\"").append(category).append("\"");
        writeFile(folder_ / (name + ".component"), manifest + "]}");
    }

    std::filesystem::path folder_;
};

} // namespace test
