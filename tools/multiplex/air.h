#pragma once

#include "tools/multiplex/bytes_writer.h"
#include "tools/multiplex/descriptors.h"

#include <filesystem>
#include <string>
#include <vector>

// An invented sky to scan: three satellites with 44 transport streams of two networks, as captured
// streams in a folder per satellite, and the satellite list that leads there.

namespace test {

/// What is wrong with a stream that a NIT lists.
enum class AirFault {
    None,
    Missing,    ///< it is not on the air
    Unlocked,   ///< its frequency carries packets without a table
    NoSdt,      ///< it has no SDT
    DamagedSdt, ///< the CRC of its SDT fails
    NoPmts,     ///< its PAT names programs that have no PMT
    CableOnly   ///< the NIT has cable parameters for it
};

struct AirStream {
    unsigned stream;
    unsigned network;
    SatelliteParameters tuning;
    AirFault fault = AirFault::None;
};

struct AirSatellite {
    std::string name;
    unsigned networkId; ///< of its NIT
    std::vector<AirStream> streams;
    std::vector<SatelliteParameters> transponders; ///< those of the satellite list
};

/// Two of the three satellites use the same frequencies.
std::vector<AirSatellite> testAir();

/// Writes the streams, a folder per satellite, and "satlist.xml" into a folder. Throws
/// std::runtime_error.
void writeAir(const std::vector<AirSatellite>& air, const std::filesystem::path& folder);

} // namespace test
