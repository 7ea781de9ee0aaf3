#pragma once

#include "component/unknown.h"
#include "driver/tuner_driver.h"
#include "drivers/common/dialogs_library.h"
#include "drivers/linuxdvb/dvb_tuner.h"

namespace tessaview {

/// The class of this driver.
constexpr Guid kLinuxDvbDriverClass = "{B3A7C1D4-5E62-4F09-8C7B-9A1E04D6F2B5}"_guid;

/// A receiver that the Linux kernel supports through its DVB API, version 5. Tuning and reading
/// show no window, whatever the owner: nothing has to be asked.
class LinuxDvbDriver final
    : public Implements<LinuxDvbDriver, IDriverInfo, IDriverControl, ISetTuner, ISectionReader,
                        IDeviceDialogs, ITunerStatus, IInterrupt, IReadReport> {
    using Base = Implements<LinuxDvbDriver, IDriverInfo, IDriverControl, ISetTuner, ISectionReader,
                            IDeviceDialogs, ITunerStatus, IInterrupt, IReadReport>;

public:
    explicit LinuxDvbDriver(Kernel& kernel = systemKernel()) : tuner_(kernel) {}

    Status GetName(char16_t** name) noexcept override;

    Status Initialize(const char16_t* settingsKey, const char16_t* userFolder,
                      const char16_t* commonFolder) noexcept override;
    Status Shutdown() noexcept override;
    Status GetTunerType(std::uint16_t* type) noexcept override;
    Status SetSatListManager(ISatListManager* manager) noexcept override;

    Status SetSatelliteTuning(WindowHandle owner, const char16_t* satellite,
                              const SatelliteTuning* tuning) noexcept override;
    Status SetCableTuning(WindowHandle owner, const CableTuning* tuning) noexcept override;
    Status SetTerrestrialTuning(WindowHandle owner,
                                const TerrestrialTuning* tuning) noexcept override;
    Status GetSatelliteTuning(char16_t** satellite, SatelliteTuning* tuning) noexcept override;
    Status GetCableTuning(CableTuning* tuning) noexcept override;
    Status GetTerrestrialTuning(TerrestrialTuning* tuning) noexcept override;

    Status ReservedSlot1() noexcept override;
    Status ReadTables(std::uint32_t count, const TableRequest* requests, std::uint32_t waitLimit,
                      SectionList* results) noexcept override;

    Status ShowTuningDialog(WindowHandle owner) noexcept override;
    Status ShowSettingsDialog(WindowHandle owner) noexcept override;
    Status ShowStreamingDialog(WindowHandle owner) noexcept override;

    Status IsLocked(std::int32_t* locked) noexcept override;
    Status ReservedSlot2() noexcept override;
    Status ReservedSlot3() noexcept override;
    Status GetStatusText(char16_t** text) noexcept override;

    Status SetInterrupted(std::int32_t interrupted) noexcept override;

    Status GetReadProblem(char16_t** problem) noexcept override;

private:
    friend Base;
    ~LinuxDvbDriver() = default;

    template <class Record>
    Status tune(const std::string& satellite, const Record* tuning);
    template <class Record>
    Status getTuning(Record* tuning, std::string* satellite = nullptr) const;
    Status show(DriverDialog dialog, WindowHandle owner);

    DvbTuner tuner_;
    DialogsLibrary dialogs_{"linuxdvb_dialogs.so"};
};

} // namespace tessaview
