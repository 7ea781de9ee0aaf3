#include "acquisition/driver_access.h"

namespace tessaview {

DriverAccess::DriverAccess(IUnknown* driver)
{
    // A query that fails leaves its pointer null, and that is tested where it is used.
    static_cast<void>(query(driver, reader_));
    static_cast<void>(query(driver, tuner_));
    static_cast<void>(query(driver, control_));
}

Status DriverAccess::tunerType(TunerType& type) const
{
    if (!control_)
        return status::kNoInterface;
    std::uint16_t code = 0;
    const Status result = control_->GetTunerType(&code);
    type = static_cast<TunerType>(code);
    return result;
}

Status DriverAccess::currentTuning(SatelliteTuning& tuning, std::string& satellite) const
{
    if (!tuner_)
        return status::kNoInterface;
    Bstr name;
    const Status result = tuner_->GetSatelliteTuning(name.put(), &tuning);
    if (failed(result))
        static_cast<void>(name.release()); // a failed call hands nothing over, whatever it left
    else
        satellite = name.utf8();
    return result;
}

Status DriverAccess::currentTuning(CableTuning& tuning) const
{
    return tuner_ ? tuner_->GetCableTuning(&tuning) : status::kNoInterface;
}

Status DriverAccess::currentTuning(TerrestrialTuning& tuning) const
{
    return tuner_ ? tuner_->GetTerrestrialTuning(&tuning) : status::kNoInterface;
}

} // namespace tessaview
