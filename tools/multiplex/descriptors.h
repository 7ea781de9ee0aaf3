#pragma once

#include "tools/multiplex/bytes_writer.h"

#include <string_view>
#include <vector>

// Descriptors as a broadcaster makes them.

namespace test {

Bytes descriptor(unsigned tag, std::span<const uint8_t> payload);

Bytes networkName(std::string_view name);
Bytes bouquetName(std::string_view name);
Bytes service(unsigned type, std::string_view provider, std::string_view name);

struct ListedService {
    unsigned id;
    unsigned type;
};
Bytes serviceList(const std::vector<ListedService>& services);

struct SatelliteParameters {
    uint64_t frequency;       ///< 10 kHz
    unsigned orbitalPosition; ///< tenths of a degree
    bool isEast = true;
    unsigned polarization = 0;
    unsigned modulation = 1;
    uint64_t symbolRate = 275000; ///< 100 symbols/s
    unsigned fecInner = 3;
};
Bytes satelliteDelivery(const SatelliteParameters& parameters);

struct CableParameters {
    uint64_t frequency; ///< 100 Hz
    unsigned modulation = 3;
    uint64_t symbolRate = 69000; ///< 100 symbols/s
};
Bytes cableDelivery(const CableParameters& parameters);

/// A terrestrial one with everything but the frequency, in 10 Hz, set to common values.
Bytes terrestrialDelivery(uint32_t centreFrequency);

Bytes conditionalAccess(unsigned system, unsigned pid, std::span<const uint8_t> privateData = {});
Bytes language(std::string_view code, unsigned audioType = 0);
Bytes shortEvent(std::string_view language, std::string_view name, std::string_view text);
Bytes content(unsigned nibbles, unsigned userNibbles = 0);
Bytes parentalRating(std::string_view country, unsigned rating);
Bytes component(unsigned streamContent, unsigned type, unsigned tag, std::string_view language,
                std::string_view text);
Bytes teletext(std::string_view language, unsigned type, unsigned magazine, unsigned page);
Bytes linkage(unsigned stream, unsigned network, unsigned service, unsigned type);
/// An offset from UTC in hours, which does not change before the end of the century.
Bytes localTimeOffset(std::string_view country, unsigned hours);

} // namespace test
