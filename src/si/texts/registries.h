#pragma once

#include <cstdint>

// Names of registered identifiers, in the Windows-1252 code page. An identifier without an entry
// is "<unknown>".

namespace lib13818 {

/// Builds the look-up tables. Called once at start-up; a look-up before that builds them. Safe
/// from any thread.
void buildRegistries();

const char* originalNetworkName(uint32_t original_network_id);
const char* caSystemName(uint32_t CA_system_id);
const char* dataBroadcastName(uint32_t data_broadcast_id);

} // namespace lib13818
