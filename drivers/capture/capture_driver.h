#pragma once

#include "component/unknown.h"
#include "driver/tuner_driver.h"
#include "drivers/capture/capture_tuner.h"
#include "drivers/common/dialogs_library.h"

namespace tessaview {

/// The class of this driver.
constexpr Guid kCaptureDriverClass = "{8F6E0A52-3B1D-4C7E-9A64-D20B71C5E3F8}"_guid;

/// A tuner whose air is a set of captured transport streams. Tuning locks onto the stream that
/// was received under those parameters; until then the tuner is set to the one that was chosen, or
/// the first. Tuning and reading show no window, whatever the owner: nothing has to be asked.
class CaptureDriver final
    : public Implements<CaptureDriver, IDriverInfo, IDriverControl, ISetTuner, ISectionReader,
                        IDeviceDialogs, ITunerStatus, ISourceFiles, ISourceList, IReadReport,
                        IInterrupt, IReadProgress> {
    using Base = Implements<CaptureDriver, IDriverInfo, IDriverControl, ISetTuner, ISectionReader,
                            IDeviceDialogs, ITunerStatus, ISourceFiles, ISourceList, IReadReport,
                            IInterrupt, IReadProgress>;

public:
    CaptureDriver() = default;

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

    Status SetSourceFiles(std::uint32_t count, const char16_t* const* paths,
                          char16_t** problem) noexcept override;

    Status GetSourceCount(std::uint32_t* count) noexcept override;
    Status GetCurrentSource(std::uint32_t* index) noexcept override;
    Status GetSourceName(std::uint32_t index, char16_t** name) noexcept override;
    Status SelectSource(std::uint32_t index) noexcept override;

    Status GetReadProblem(char16_t** problem) noexcept override;

    Status SetInterrupted(std::int32_t interrupted) noexcept override;
    Status GetReadProgress(std::uint64_t* position, std::uint64_t* total) noexcept override;

private:
    friend Base;
    ~CaptureDriver() = default;

    template <class Record>
    Status getTuning(const Capture* capture, Record* tuning) const;

    Status show(DriverDialog dialog, WindowHandle owner);

    CaptureTuner tuner_;
    DialogsLibrary dialogs_{"capture_dialogs.so"};
};

} // namespace tessaview
