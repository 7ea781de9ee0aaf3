#pragma once

#include "model/transponder.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace tessaview {

/// The name of a service as the broadcast has it, character table selector included, from the SDT
/// actual of the transport stream that was read; nothing when no entry of that service there has
/// a service descriptor.
std::optional<std::string_view> lookupServiceName(const Transponder& transponder,
                                                  std::uint32_t original_network_id,
                                                  std::uint32_t transport_stream_id,
                                                  std::uint32_t service_id);

} // namespace tessaview
