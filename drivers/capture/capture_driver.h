#pragma once

#include "component/unknown.h"
#include "driver/tuner_driver.h"
#include "drivers/capture/capture_index.h"

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace tessaview {

/// The class of this driver.
constexpr Guid kCaptureDriverClass = "{8F6E0A52-3B1D-4C7E-9A64-D20B71C5E3F8}"_guid;

/// A tuner whose air is a set of captured transport streams. Tuning locks onto the stream that
/// was received under those parameters; until then the tuner is set to the first of the set.
class CaptureDriver final : public Implements<CaptureDriver, IDriverInfo, IDriverControl, ISetTuner,
                                              ISectionReader, ITunerStatus, ISourceFiles> {
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

    Status IsLocked(std::int32_t* locked) noexcept override;
    Status ReservedSlot2() noexcept override;
    Status ReservedSlot3() noexcept override;
    Status GetStatusText(char16_t** text) noexcept override;

    Status SetSourceFiles(std::uint32_t count, const char16_t* const* paths,
                          char16_t** problem) noexcept override;

private:
    friend class Implements<CaptureDriver, IDriverInfo, IDriverControl, ISetTuner, ISectionReader,
                            ITunerStatus, ISourceFiles>;
    ~CaptureDriver() = default;

    using Captures = std::shared_ptr<const std::vector<Capture>>;

    /// What the tuner is set to; both parts belong together.
    struct State {
        Captures captures = std::make_shared<std::vector<Capture>>();
        std::optional<std::size_t> current;            ///< an index; none: no lock
        TunerType fallbackType = TunerType::Satellite; ///< where the captures carry none

        const Capture* capture() const { return current ? &(*captures)[*current] : nullptr; }
        TunerType type() const;
    };

    State state() const;
    void setCaptures(std::vector<Capture> captures);
    Status lockOnto(const Captures& captures, std::optional<std::size_t> index);
    template <class Tuning>
    Status getTuning(TunerType type, Tuning* tuning) const;

    // Held for moments only, so that a long read keeps no one waiting.
    mutable std::mutex mutex_;
    State state_;
};

} // namespace tessaview
