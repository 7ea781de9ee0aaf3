#include "drivers/linuxdvb/listed_parameters.h"

namespace tessaview {

namespace {

/// The value, unless it is out of its range.
std::int32_t given(std::int32_t value, std::int32_t most)
{
    return value < 0 || value > most ? ISatTransponderS2::kNotGiven : value;
}

S2Parameters sound(const S2Parameters& s2)
{
    return {.system = given(s2.system, 1),
            .modulation = given(s2.modulation, 4),
            .rollOff = given(s2.rollOff, 2),
            .pilot = given(s2.pilot, 1),
            .streamId = given(s2.streamId, 255)};
}

} // namespace

S2Parameters listedParameters(ISatListManager* list, const Channel& channel)
{
    if (!list || typeOf(channel.tuning) != TunerType::Satellite || channel.satellite.empty())
        return {};
    ComPtr<ISatellite> satellite;
    if (failed(getSatellite(*list, Bstr(channel.satellite), satellite)))
        return {};
    std::vector<TransponderEntry> entries;
    static_cast<void>(readTransponders(*satellite.get(), entries)); // as far as they can be read
    for (const TransponderEntry& entry : entries)
        if (distanceOf(tuningOf(entry), channel.tuning) == 0)
            return sound(entry.s2);
    return {};
}

} // namespace tessaview
