#pragma once

#include "drivers/common/driver_object.h"
#include "drivers/linuxdvb/dvb_tuner.h"

namespace tessaview {

/// The class of this driver.
constexpr Guid kLinuxDvbDriverClass = "{B3A7C1D4-5E62-4F09-8C7B-9A1E04D6F2B5}"_guid;

/// A receiver that the Linux kernel supports through its DVB API, version 5. Tuning and reading
/// show no window, whatever the owner: nothing has to be asked.
class LinuxDvbDriver final : public DriverObject<LinuxDvbDriver, DvbTuner> {
    using Base = DriverObject<LinuxDvbDriver, DvbTuner>;

    friend Base;
    friend Base::Object;
    ~LinuxDvbDriver() = default;

    static constexpr const char* kName = "Linux DVB";
    static constexpr const char* kDialogs = "linuxdvb_dialogs.so";
    static constexpr Status kOtherTuning = status::kNotReady;
    using Error = DeviceError;

    static Status statusOf(const DeviceError& error);
    std::optional<TunerType> tunerType() const { return tuner_.state().type; }
    Status tune(const Tuning& tuning, const std::string& satellite);
    std::optional<Tuning> tunedTo(std::string& satellite) const;
    Status read(std::span<const TableRequest> requests, std::chrono::seconds waitLimit,
                Answers& answers);
    bool isLocked();
    std::string statusLine();
};

} // namespace tessaview
