// A tuner driver that receives nothing: where its class says it waits until it is interrupted, and
// fails then; elsewhere it fails at once.

#include "component/bstr.h"
#include "driver/tuner_driver.h"

#include <atomic>
#include <string_view>

using namespace tessaview;

namespace {

/// The first number of the class.
enum Script : std::uint32_t {
    SetWaits = 0xB0,
    ReadWaits = 0xB1,
    Fails = 0xB2,
};

class DeafDriver final : public Implements<DeafDriver, IDriverInfo, IDriverControl, ISetTuner,
                                           ISectionReader, ITunerStatus, IInterrupt> {
public:
    explicit DeafDriver(std::uint32_t script) : script_(script) {}

    Status GetName(char16_t** name) noexcept override { return give("Deaf", name); }

    Status Initialize(const char16_t*, const char16_t*, const char16_t*) noexcept override
    {
        return status::kOk;
    }
    Status Shutdown() noexcept override { return status::kOk; }
    Status GetTunerType(std::uint16_t* type) noexcept override
    {
        *type = static_cast<std::uint16_t>(TunerType::Satellite);
        return status::kOk;
    }
    Status SetSatListManager(ISatListManager* manager) noexcept override
    {
        return manager ? status::kOk : status::kFail;
    }

    Status SetSatelliteTuning(WindowHandle, const char16_t*,
                              const SatelliteTuning*) noexcept override
    {
        return fail(SetWaits);
    }
    Status SetCableTuning(WindowHandle, const CableTuning*) noexcept override
    {
        return status::kFail;
    }
    Status SetTerrestrialTuning(WindowHandle, const TerrestrialTuning*) noexcept override
    {
        return status::kFail;
    }
    Status GetSatelliteTuning(char16_t**, SatelliteTuning*) noexcept override
    {
        return status::kFail;
    }
    Status GetCableTuning(CableTuning*) noexcept override { return status::kFail; }
    Status GetTerrestrialTuning(TerrestrialTuning*) noexcept override { return status::kFail; }

    Status ReservedSlot1() noexcept override { return status::kNotImplemented; }
    Status ReadTables(std::uint32_t, const TableRequest*, std::uint32_t,
                      SectionList*) noexcept override
    {
        return fail(ReadWaits);
    }

    Status IsLocked(std::int32_t* locked) noexcept override
    {
        *locked = 0;
        return status::kOk;
    }
    Status ReservedSlot2() noexcept override { return status::kNotImplemented; }
    Status ReservedSlot3() noexcept override { return status::kNotImplemented; }
    Status GetStatusText(char16_t** text) noexcept override
    {
        return give("receiver 0: in use by another program", text);
    }

    Status SetInterrupted(std::int32_t interrupted) noexcept override
    {
        interrupted_ = interrupted != 0;
        interrupted_.notify_all();
        return status::kOk;
    }

private:
    friend Implements;
    ~DeafDriver() = default;

    static Status give(std::string_view text, char16_t** out)
    {
        *out = Bstr(text).release();
        return status::kOk;
    }
    Status fail(Script waiting) const
    {
        if (script_ == waiting)
            interrupted_.wait(false);
        return status::kFail;
    }

    std::uint32_t script_;
    std::atomic<bool> interrupted_ = false;
};

} // namespace

extern "C" __attribute__((visibility("default"))) Status
TessaviewCreateInstance(const Guid* clsid, const Guid* iid, void** object)
{
    auto driver = ComPtr<IDriverInfo>::adopt(new DeafDriver(clsid->data1));
    return driver->QueryInterface(*iid, object);
}
