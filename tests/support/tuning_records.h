#pragma once

#include "driver/tuner_driver.h"

namespace test {

// Tuning records with the fields that show.

inline tessaview::SatelliteTuning satelliteRecord(std::uint32_t frequency, int polarization,
                                                  std::uint32_t symbolRate, int FEC_inner)
{
    tessaview::SatelliteTuning record{};
    record.frequency = frequency;
    record.polarization = static_cast<std::uint8_t>(polarization);
    record.symbol_rate = symbolRate;
    record.FEC_inner = static_cast<std::uint8_t>(FEC_inner);
    return record;
}

inline tessaview::CableTuning cableRecord(std::uint32_t frequency)
{
    tessaview::CableTuning record{};
    record.frequency = frequency;
    return record;
}

inline tessaview::TerrestrialTuning terrestrialRecord(std::uint32_t centreFrequency)
{
    tessaview::TerrestrialTuning record{};
    record.centre_frequency = centreFrequency;
    return record;
}

} // namespace test
