// A tuner driver that does what its class says, and writes down how it is called.

#include "component/bstr.h"
#include "driver/tuner_driver.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

using namespace tessaview;

namespace {

/// The first number of the class. It fails or hangs there; otherwise it works.
enum Script : std::uint32_t {
    Works = 0xA0,
    CreateFails = 0xA1,
    LacksControl = 0xA2,
    InitializeFails = 0xA3,
    SatListFails = 0xA4,
    InitializeHangs = 0xA5,
    ShutdownHangs = 0xA6,
    GetNameFails = 0xA7,
    GetNameHangs = 0xA8,
};

// NOLINTBEGIN(concurrency-mt-unsafe): only read
std::string journalFile()
{
    const char* const file = std::getenv("TESSAVIEW_TEST_JOURNAL");
    return file ? file : "";
}
// NOLINTEND(concurrency-mt-unsafe)

void note(const std::string& line)
{
    if (!journalFile().empty())
        std::ofstream(journalFile(), std::ios::app) << line << '\n';
}

/// Returns when the file beside the journal appears.
void hang()
{
    while (!std::filesystem::exists(journalFile() + ".go"))
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
}

class ScriptedDriver final : public Implements<ScriptedDriver, IDriverInfo, IDriverControl> {
public:
    explicit ScriptedDriver(std::uint32_t script) : script_(script) {}

    Status QueryInterface(const Guid& iid, void** object) noexcept override
    {
        if (script_ == LacksControl && iid == IDriverControl::kId)
            return status::kNoInterface;
        return Implements::QueryInterface(iid, object);
    }
    Status GetName(char16_t** name) noexcept override
    {
        if (script_ == GetNameHangs)
            hang();
        if (script_ == GetNameFails)
            return status::kAccessDenied;
        *name = Bstr(std::string_view("Scripted <b>driver</b>")).release();
        return status::kOk;
    }
    Status Initialize(const char16_t* settingsKey, const char16_t* userFolder,
                      const char16_t* commonFolder) noexcept override
    {
        common_ = bstrToUtf8(commonFolder);
        note("Initialize " + bstrToUtf8(settingsKey) + " " + bstrToUtf8(userFolder) + " " +
             common_);
        if (script_ == InitializeHangs)
            hang();
        return script_ == InitializeFails ? status::kNotReady : status::kOk;
    }
    Status Shutdown() noexcept override
    {
        const std::filesystem::path list =
            std::filesystem::path(common_).parent_path() / "satlist.xml";
        note(std::filesystem::exists(list) ? "Shutdown with the list saved" : "Shutdown");
        if (script_ == ShutdownHangs)
            hang();
        return status::kOk;
    }
    Status GetTunerType(std::uint16_t* type) noexcept override
    {
        *type = 1;
        return status::kOk;
    }
    Status SetSatListManager(ISatListManager* manager) noexcept override
    {
        note(manager ? "SetSatListManager" : "SetSatListManager null");
        return script_ == SatListFails ? status::kFail : status::kOk;
    }

private:
    friend class Implements<ScriptedDriver, IDriverInfo, IDriverControl>;
    ~ScriptedDriver() { note("released"); }

    std::uint32_t script_;
    std::string common_;
};

} // namespace

extern "C" __attribute__((visibility("default"))) Status
TessaviewCreateInstance(const Guid* clsid, const Guid* iid, void** object)
{
    if (clsid->data1 == CreateFails)
        return status::kAccessDenied;
    auto driver = ComPtr<IDriverInfo>::adopt(new ScriptedDriver(clsid->data1));
    return driver->QueryInterface(*iid, object);
}
