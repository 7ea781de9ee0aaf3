#pragma once

#include "acquisition/section_batch.h"
#include "component/bstr.h"
#include "driver/tuner_driver.h"
#include "model/transponder.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace tessaview {

/// What a tuner can be set to.
struct TunerSetting {
    Transponder::Tuning tuning = std::monostate();
    std::string satellite = {}; ///< UTF-8; only with satellite parameters

    bool isGiven() const { return !std::holds_alternative<std::monostate>(tuning); }
};

/// The interfaces of a driver that reading and scanning use. One that the driver lacks answers
/// with a failure.
class DriverAccess {
public:
    explicit DriverAccess(IUnknown* driver);

    /// Asks for tables. What the driver says may be missing from them is printed and logged.
    Status read(SectionBatch& batch, std::span<const TableRequest> requests) const;

    Status tunerType(TunerType& type) const;

    /// The tuning as it is now, with the name of the satellite in UTF-8.
    Status currentTuning(SatelliteTuning& tuning, std::string& satellite) const;
    Status currentTuning(CableTuning& tuning) const;
    Status currentTuning(TerrestrialTuning& tuning) const;
    /// The setting as it is now, to return to; none unless the driver answers exactly zero.
    TunerSetting currentSetting(TunerType type) const;

    /// The driver's short text about its tuner, UTF-8; empty when it gives none.
    std::string statusText() const;

    /// The driver's list of sources; 0 when it has none.
    std::uint32_t sourceCount() const;
    /// The source that the tuner is set to, to return to; nothing when the driver does not tell.
    std::optional<std::uint32_t> currentSource() const;
    /// What a source is called, UTF-8; its number when the driver does not tell.
    std::string sourceName(std::uint32_t index) const;
    Status selectSource(std::uint32_t index) const;

    /// Sets the tuner; returns when it is set. Without parameters nothing is called. `owner` is
    /// for windows of the driver.
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
