#pragma once

#include "model/network_map.h"
#include "tools/multiplex/descriptors.h"
#include "tools/multiplex/sections.h"

#include <vector>

namespace test {

/// Stores a transport stream with satellite tuning 12187 MHz, vertical, 27500 kS/s, 3/4.
void addSatelliteStream(tessaview::NetworkMap& model, unsigned network,
                        const std::vector<Bytes>& sections);

/// Networks of ten transport streams each; every stream has an EMM, every service a video and an
/// audio stream and an ECM.
tessaview::NetworkMap manyServices(unsigned streams, unsigned servicesPerStream);

} // namespace test
