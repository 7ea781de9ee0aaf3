#include "tuning/tuner_setting.h"

#include "component/received_text.h"

namespace tessaview {

Status setTuner(ISetTuner& tuner, WindowHandle owner, const TunerSetting& setting)
{
    if (const auto* satellite = std::get_if<SatelliteTuning>(&setting.tuning)) {
        const Bstr name{std::string_view(setting.satellite)};
        return tuner.SetSatelliteTuning(owner, name.get(), satellite);
    }
    if (const auto* cable = std::get_if<CableTuning>(&setting.tuning))
        return tuner.SetCableTuning(owner, cable);
    if (const auto* terrestrial = std::get_if<TerrestrialTuning>(&setting.tuning))
        return tuner.SetTerrestrialTuning(owner, terrestrial);
    return status::kInvalidArgument;
}

Status getSetting(ISetTuner& tuner, TunerType type, TunerSetting& setting)
{
    const auto take = [&](auto record, const auto& get) {
        const Status result = get(record);
        if (!failed(result))
            setting.tuning = record;
        return result;
    };
    switch (type) {
    case TunerType::Satellite:
        return take(SatelliteTuning{}, [&](SatelliteTuning& record) {
            return receivedText(setting.satellite, [&](char16_t** name) {
                return tuner.GetSatelliteTuning(name, &record);
            });
        });
    case TunerType::Cable:
        return take(CableTuning{},
                    [&](CableTuning& record) { return tuner.GetCableTuning(&record); });
    case TunerType::Terrestrial:
        return take(TerrestrialTuning{},
                    [&](TerrestrialTuning& record) { return tuner.GetTerrestrialTuning(&record); });
    }
    return status::kInvalidArgument;
}

} // namespace tessaview
