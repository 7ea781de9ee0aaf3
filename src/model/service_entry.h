#pragma once

#include "model/transponder.h"

#include <cstdint>
#include <optional>

// What the SDT says of a service.

namespace tessaview {

/// The first entry of a service, in the order of the sections, in what the SDT says of a transport
/// stream: that of one network, or of any. With `isDescribed` the first that has a service
/// descriptor. Null without one.
const lib13818::SdtService* findService(const SdtMap& sdt, std::optional<std::uint32_t> network,
                                        std::uint32_t transport_stream_id, std::uint32_t service_id,
                                        bool isDescribed = false);

/// The service descriptor of an entry, the first where it has several; none without an entry.
std::optional<lib13818::DescriptorService> serviceDescriptorOf(const lib13818::SdtService* entry);

} // namespace tessaview
