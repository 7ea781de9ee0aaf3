#pragma once

#include "component/bstr.h"
#include "driver/tuner_driver.h"

#include <cstdint>
#include <string>

namespace tessaview {

/// The interfaces of a driver that reading and scanning use. One that the driver lacks answers
/// with a failure.
class DriverAccess {
public:
    explicit DriverAccess(IUnknown* driver);

    ISectionReader* reader() const { return reader_.get(); }

    Status tunerType(TunerType& type) const;

    /// The tuning as it is now, with the name of the satellite in UTF-8.
    Status currentTuning(SatelliteTuning& tuning, std::string& satellite) const;
    Status currentTuning(CableTuning& tuning) const;
    Status currentTuning(TerrestrialTuning& tuning) const;

private:
    ComPtr<ISectionReader> reader_;
    ComPtr<ISetTuner> tuner_;
    ComPtr<IDriverControl> control_;
};

} // namespace tessaview
