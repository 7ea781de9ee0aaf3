#pragma once

#include "acquisition/section_batch.h"
#include "driver/tuner_driver.h"
#include "tuning/tuner_setting.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace tessaview {

/// The interfaces of a driver that reading and scanning use. One that the driver lacks answers
/// with a failure.
class DriverAccess {
public:
    explicit DriverAccess(IUnknown* driver);

    /// Asks for tables. What the driver says may be missing from them is printed and logged, and
    /// `mayLackSome` becomes true; else it is left alone.
    Status read(SectionBatch& batch, std::span<const TableRequest> requests,
                bool& mayLackSome) const;

    Status tunerType(TunerType& type) const;

    /// What the tuner is set to now; see `getSetting`.
    Status currentSetting(TunerType type, TunerSetting& setting) const;

    /// The driver's short text about its tuner, UTF-8; empty when it gives none.
    std::string statusText() const;

    /// The driver's list of sources; 0 when it has none.
    std::uint32_t sourceCount() const;
    /// The source that the tuner is set to, to return to; nothing when the driver does not tell.
    std::optional<std::uint32_t> currentSource() const;
    /// What a source is called, UTF-8; its number when the driver does not tell.
    std::string sourceName(std::uint32_t index) const;
    Status selectSource(std::uint32_t index) const;

    /// Sets the tuner; see `setTuner`.
    Status tune(WindowHandle owner, const TunerSetting& setting) const;

private:
    ComPtr<ISectionReader> reader_;
    ComPtr<ISetTuner> tuner_;
    ComPtr<IDriverControl> control_;
    ComPtr<ITunerStatus> status_;
    ComPtr<IReadReport> report_;
    ComPtr<ISourceList> sources_;
};

} // namespace tessaview
