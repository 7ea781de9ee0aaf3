#pragma once

#include "tuning/tuning.h"

#include <cstdint>
#include <span>

namespace tessaview {

/// What an intact NIT section says of the delivery of one transport stream: its first descriptor
/// of a satellite, cable or terrestrial delivery system.
Tuning deliveryOf(std::span<const uint8_t> section, int transport_stream_id);

} // namespace tessaview
