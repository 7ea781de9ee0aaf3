#include "drivers/linuxdvb/listed_parameters.h"

#include "satlist/list_access.h"

namespace tessaview {

namespace {

bool isOf(ISatTransponder& transponder, const SatelliteTuning& tuning)
{
    TransponderEntry entry;
    return !failed(readTransponder(transponder, entry)) &&
           static_cast<std::uint32_t>(entry.frequency) == tuning.frequency &&
           entry.polarization == tuning.polarization;
}

/// A value that is given and in its range.
std::optional<int> given(ISatTransponderS2& s2,
                         Status (ISatTransponderS2::*get)(std::int32_t*) noexcept, int most)
{
    std::int32_t value = ISatTransponderS2::kNotGiven;
    if (failed((s2.*get)(&value)) || value < 0 || value > most)
        return std::nullopt;
    return value;
}

std::optional<bool> asFlag(std::optional<int> value)
{
    return value ? std::optional(*value != 0) : std::nullopt;
}

S2Parameters parametersOf(ISatTransponder& transponder)
{
    ComPtr<ISatTransponderS2> s2;
    if (failed(query(&transponder, s2)))
        return {};
    return {.isS2 = asFlag(given(*s2.get(), &ISatTransponderS2::get_System, 1)),
            .modulation = given(*s2.get(), &ISatTransponderS2::get_Modulation, 4),
            .rollOff = given(*s2.get(), &ISatTransponderS2::get_RollOff, 2),
            .pilot = asFlag(given(*s2.get(), &ISatTransponderS2::get_Pilot, 1)),
            .streamId = given(*s2.get(), &ISatTransponderS2::get_StreamId, 255)};
}

} // namespace

S2Parameters listedParameters(ISatListManager* list, const Channel& channel)
{
    const auto* const tuning = std::get_if<SatelliteTuning>(&channel.tuning);
    if (!list || !tuning || channel.satellite.empty())
        return {};
    ComPtr<ISatellite> satellite;
    ComPtr<IEnumSatTransponder> transponders;
    if (failed(getSatellite(*list, Bstr(channel.satellite), satellite)) ||
        failed(enumTransponders(*satellite.get(), TransponderUse::Scan, transponders)))
        return {};
    for (auto& transponder : Items<ISatTransponder>(transponders.get()))
        if (isOf(*transponder.get(), *tuning))
            return parametersOf(*transponder.get());
    return {};
}

} // namespace tessaview
