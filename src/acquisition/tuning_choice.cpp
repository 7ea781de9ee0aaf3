#include "acquisition/tuning_choice.h"

#include "model/tuning.h"
#include "platform/format.h"

namespace tessaview {

namespace {

template <class Descriptor>
Transponder::Tuning firstOf(const lib13818::TransportStreamEntry& entry)
{
    const auto descriptor = entry.descriptors.all<Descriptor>().first();
    if (!descriptor)
        return std::monostate();
    return tuningOf(*descriptor);
}

struct FrequencyText {
    std::string operator()(std::monostate /*none*/) const { return ""; }
    std::string operator()(const SatelliteTuning& t) const
    {
        const char polarization = t.polarization < 4 ? "HVLR"[t.polarization] : 'U';
        return formatted("%u MHz %c", t.frequency / 100, polarization);
    }
    std::string operator()(const CableTuning& t) const
    {
        return formatted("%.3f MHz", t.frequency / 1e4);
    }
    std::string operator()(const TerrestrialTuning& t) const
    {
        return formatted("%.3f MHz", t.centre_frequency / 1e5);
    }
};

} // namespace

Transponder::Tuning tuningFor(const lib13818::TransportStreamEntry& entry, TunerType type)
{
    switch (type) {
    case TunerType::Satellite:
        return firstOf<lib13818::DescriptorSatelliteDeliverySystem>(entry);
    case TunerType::Cable:
        return firstOf<lib13818::DescriptorCableDeliverySystem>(entry);
    case TunerType::Terrestrial:
        return firstOf<lib13818::DescriptorTerrestrialDeliverySystem>(entry);
    }
    return std::monostate();
}

std::string frequencyText(const Transponder::Tuning& tuning)
{
    return std::visit(FrequencyText(), tuning);
}

} // namespace tessaview
