#pragma once

#include <cstdint>

namespace tessaview {

/// What a scan reaches.
enum class ScanMode : std::uint8_t {
    CurrentTransponder = 0, ///< the stream the tuner is set to
    CurrentNit = 1,         ///< every stream of the network that its NIT describes
    SingleSatellite = 2,    ///< the networks behind every transponder of one satellite
    AllSatellites = 3,      ///< the same for every selected satellite
    AllSources = 4          ///< every stream that the driver has a source of, such as a capture
};

} // namespace tessaview
