// The scripted driver as a library of its own: it does what its class says, and writes down how it
// is called.

#include "component/bstr.h"
#include "tests/support/scripted_driver.h"
#include "tools/multiplex/sections.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

using namespace tessaview;

namespace {

/// The first number of the class. It fails, hangs or waits to be interrupted there; otherwise it
/// works.
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
    Crashes = 0xA9,
    ReadsInPart = 0xAA,
    // These receive nothing.
    SetWaits = 0xB0,
    ReadWaits = 0xB1,
    SetAndReadFail = 0xB2,
    ReadHangs = 0xB3,
};

// NOLINTBEGIN(concurrency-mt-unsafe): only read
std::string environment(const char* variable)
{
    const char* const value = std::getenv(variable);
    return value ? value : "";
}
// NOLINTEND(concurrency-mt-unsafe)

std::string journalFile()
{
    return environment("TESSAVIEW_TEST_JOURNAL");
}

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

class JournalDriver final : public test::ScriptedDriver {
public:
    explicit JournalDriver(std::uint32_t script)
    {
        driverName = "Scripted <b>driver</b>";
        switch (script) {
        case LacksControl:
            missing = {IDriverControl::kId};
            break;
        case InitializeFails:
            failAlways("Initialize", status::kNotReady);
            break;
        case SatListFails:
            failAlways("SetSatListManager", status::kFail);
            break;
        case GetNameFails:
            failAlways("GetName", status::kAccessDenied);
            break;
        case InitializeHangs:
            actIn("Initialize", hang);
            break;
        case ShutdownHangs:
            actIn("Shutdown", hang);
            break;
        case GetNameHangs:
            actIn("GetName", hang);
            break;
        case ReadsInPart:
            air = {{{0x0000, 0x00}, {test::pat(1, {})}},
                   {{0x0010, 0x40}, {test::nit(0x40, 1, {}, {})}},
                   {{0x0011, 0x42}, {test::sdt(0x42, 1, 1, {})}}};
            readProblem = "the signal was lost";
            break;
        case Crashes:
            actIn(environment("TESSAVIEW_TEST_CRASH"), std::abort);
            break;
        case ReadHangs:
            actIn("ReadTables", [] {
                note("ReadTables");
                hang();
            });
            break;
        case SetWaits:
            actIn("SetSatelliteTuning", [this] { waitForInterrupt(); });
            break;
        case ReadWaits:
            actIn("ReadTables", [this] { waitForInterrupt(); });
            break;
        default:
            break;
        }
        if (script < SetWaits)
            return;
        driverName = "Deaf";
        statusText = "receiver 0: in use by another program";
        failAlways("SetSatelliteTuning", status::kFail);
        failAlways("ReadTables", status::kFail);
    }

    Status Initialize(const char16_t* settingsKey, const char16_t* userFolder,
                      const char16_t* commonFolder) noexcept override
    {
        common_ = bstrToUtf8(commonFolder);
        note("Initialize " + bstrToUtf8(settingsKey) + " " + bstrToUtf8(userFolder) + " " +
             common_);
        return ScriptedDriver::Initialize(settingsKey, userFolder, commonFolder);
    }
    Status Shutdown() noexcept override
    {
        const std::filesystem::path list =
            std::filesystem::path(common_).parent_path() / "satlist.xml";
        note(std::filesystem::exists(list) ? "Shutdown with the list saved" : "Shutdown");
        return ScriptedDriver::Shutdown();
    }
    Status SetSatListManager(ISatListManager* manager) noexcept override
    {
        note(manager ? "SetSatListManager" : "SetSatListManager null");
        return ScriptedDriver::SetSatListManager(manager);
    }

private:
    ~JournalDriver() override { note("released"); }

    void actIn(const std::string& operation, std::function<void()> act)
    {
        duringCall = [operation, act = std::move(act)](std::string_view called, int) {
            if (called == operation)
                act();
        };
    }

    std::string common_;
};

} // namespace

extern "C" __attribute__((visibility("default"))) Status
TessaviewCreateInstance(const Guid* clsid, const Guid* iid, void** object)
{
    if (clsid->data1 == CreateFails)
        return status::kAccessDenied;
    auto driver = ComPtr<IDriverInfo>::adopt(new JournalDriver(clsid->data1));
    return driver->QueryInterface(*iid, object);
}
