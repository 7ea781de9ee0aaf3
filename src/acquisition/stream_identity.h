#pragma once

#include "model/transponder.h"

#include <cstdint>
#include <optional>

namespace tessaview {

/// Finds the identifiers of an incomplete stream where else they are told: by the SDT, by the only
/// entry or the own one of the NIT, by the events of the actual stream. Where nothing tells its
/// transport_stream_id it gets one above `kLastIdentifier`; `original_network_id` stays as it is
/// when it is given, and empty when nothing tells it.
void identifyStream(Transponder& transponder, std::optional<std::uint32_t>& original_network_id);

/// Whether no section of any table was decoded.
bool isEmpty(const Transponder& transponder);

} // namespace tessaview
