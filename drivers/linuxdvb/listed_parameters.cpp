#include "drivers/linuxdvb/listed_parameters.h"

#include "satlist/list_access.h"

namespace tessaview {

namespace {

/// A value that is given and in its range.
std::optional<int> given(std::int32_t value, int most)
{
    return value < 0 || value > most ? std::nullopt : std::optional(value);
}

std::optional<bool> givenFlag(std::int32_t value)
{
    const auto flag = given(value, 1);
    return flag ? std::optional(*flag != 0) : std::nullopt;
}

S2Hints hintsOf(const S2Parameters& s2)
{
    return {.isS2 = givenFlag(s2.system),
            .modulation = given(s2.modulation, 4),
            .rollOff = given(s2.rollOff, 2),
            .pilot = givenFlag(s2.pilot),
            .streamId = given(s2.streamId, 255)};
}

} // namespace

S2Hints listedParameters(ISatListManager* list, const Channel& channel)
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
            return hintsOf(entry.s2);
    return {};
}

} // namespace tessaview
