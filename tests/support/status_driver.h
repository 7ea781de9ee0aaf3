#pragma once

#include "component/bstr.h"
#include "driver/tuner_driver.h"

#include <atomic>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace test {

/// A driver that tells of itself what a test says, from any thread, and records what else it is
/// asked to do.
class StatusDriver final
    : public tessaview::Implements<StatusDriver, tessaview::IDriverInfo, tessaview::IDriverControl,
                                   tessaview::ITunerStatus, tessaview::IDeviceDialogs,
                                   tessaview::ISetTuner> {
public:
    using Status = tessaview::Status;

    static tessaview::ComPtr<StatusDriver> make()
    {
        return tessaview::ComPtr<StatusDriver>::adopt(new StatusDriver);
    }

    std::atomic<int> tunerType = 1; ///< negative: GetTunerType fails
    std::atomic<int> locked = 1;    ///< negative: IsLocked fails
    std::atomic<bool> hasStatusText = true;
    std::atomic<bool> hasDialogs = true;
    std::atomic<bool> hasSetTuner = true;
    std::atomic<Status> setAnswer = tessaview::status::kOk;
    std::atomic<int> rounds = 0;       ///< of questions
    std::function<void()> duringRound; ///< set before the driver is used
    std::function<void()> duringSet;

    /// The operations beside questions, in their order.
    std::vector<std::string> calls() const
    {
        const std::lock_guard lock(mutex_);
        return calls_;
    }

    Status QueryInterface(const tessaview::Guid& iid, void** object) noexcept override
    {
        *object = nullptr;
        if ((iid == tessaview::IDeviceDialogs::kId && !hasDialogs) ||
            (iid == tessaview::ISetTuner::kId && !hasSetTuner))
            return tessaview::status::kNoInterface;
        return Implements::QueryInterface(iid, object);
    }

    Status GetName(char16_t**) noexcept override { return tessaview::status::kNotImplemented; }
    Status Initialize(const char16_t*, const char16_t*, const char16_t*) noexcept override
    {
        return tessaview::status::kOk;
    }
    Status Shutdown() noexcept override { return tessaview::status::kOk; }
    Status SetSatListManager(tessaview::ISatListManager*) noexcept override
    {
        return tessaview::status::kOk;
    }
    Status GetTunerType(std::uint16_t* type) noexcept override
    {
        ++rounds;
        if (duringRound)
            duringRound();
        *type = static_cast<std::uint16_t>(tunerType);
        return tunerType < 0 ? tessaview::status::kFail : tessaview::status::kOk;
    }

    Status IsLocked(std::int32_t* flag) noexcept override
    {
        *flag = locked;
        return locked < 0 ? tessaview::status::kFail : tessaview::status::kOk;
    }
    Status ReservedSlot2() noexcept override { return tessaview::status::kNotImplemented; }
    Status ReservedSlot3() noexcept override { return tessaview::status::kNotImplemented; }
    Status GetStatusText(char16_t** text) noexcept override
    {
        static char16_t rubbish[] = u"not to be freed"; // what a failure may leave
        *text =
            hasStatusText ? tessaview::Bstr(std::string_view("61 dB\u00B5V")).release() : rubbish;
        return *text == rubbish ? tessaview::status::kFail : tessaview::status::kOk;
    }

    Status ShowTuningDialog(tessaview::WindowHandle) noexcept override { return note("tuning"); }
    Status ShowSettingsDialog(tessaview::WindowHandle) noexcept override
    {
        return note("settings");
    }
    Status ShowStreamingDialog(tessaview::WindowHandle) noexcept override
    {
        return note("streaming");
    }

    Status SetSatelliteTuning(tessaview::WindowHandle owner, const char16_t* satellite,
                              const tessaview::SatelliteTuning* tuning) noexcept override
    {
        return set(owner, "satellite '" + tessaview::bstrToUtf8(satellite) + "' " +
                              std::to_string(tuning->frequency));
    }
    Status SetCableTuning(tessaview::WindowHandle owner,
                          const tessaview::CableTuning* tuning) noexcept override
    {
        return set(owner, "cable " + std::to_string(tuning->frequency));
    }
    Status SetTerrestrialTuning(tessaview::WindowHandle owner,
                                const tessaview::TerrestrialTuning* tuning) noexcept override
    {
        return set(owner, "terrestrial " + std::to_string(tuning->centre_frequency));
    }
    Status GetSatelliteTuning(char16_t**, tessaview::SatelliteTuning*) noexcept override
    {
        return tessaview::status::kNotImplemented;
    }
    Status GetCableTuning(tessaview::CableTuning*) noexcept override
    {
        return tessaview::status::kNotImplemented;
    }
    Status GetTerrestrialTuning(tessaview::TerrestrialTuning*) noexcept override
    {
        return tessaview::status::kNotImplemented;
    }

private:
    friend Implements;
    StatusDriver() = default;
    ~StatusDriver() = default;

    Status note(std::string call)
    {
        const std::lock_guard lock(mutex_);
        calls_.push_back(std::move(call));
        return tessaview::status::kOk;
    }

    Status set(tessaview::WindowHandle owner, std::string call)
    {
        if (duringSet)
            duringSet();
        note(std::move(call) + (owner ? "" : " without owner"));
        return setAnswer;
    }

    mutable std::mutex mutex_;
    std::vector<std::string> calls_;
};

} // namespace test
