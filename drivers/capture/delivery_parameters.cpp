#include "drivers/capture/delivery_parameters.h"

#include "si/bit_reader.h"
#include "si/descriptors/delivery_descriptors.h"

namespace tessaview {

namespace {

using lib13818::BitReader;

constexpr std::size_t kLongHeader = 8;
constexpr std::size_t kCrc = 4;
// The payload of every delivery system descriptor that is read here (EN 300 468, 6.2.13).
constexpr std::size_t kDeliverySize = 11;

/// The first delivery system descriptor of a loop.
Tuning deliveryIn(lib13818::Bytes loop)
{
    Tuning found;
    lib13818::forEachDescriptor(loop, [&](const uint8_t* descriptor) {
        if (isGiven(found) || descriptor[1] < kDeliverySize)
            return;
        if (descriptor[0] == lib13818::DescriptorSatelliteDeliverySystem::kTag)
            found = tuningOf(lib13818::DescriptorSatelliteDeliverySystem(descriptor));
        else if (descriptor[0] == lib13818::DescriptorCableDeliverySystem::kTag)
            found = tuningOf(lib13818::DescriptorCableDeliverySystem(descriptor));
        else if (descriptor[0] == lib13818::DescriptorTerrestrialDeliverySystem::kTag)
            found = tuningOf(lib13818::DescriptorTerrestrialDeliverySystem(descriptor));
    });
    return found;
}

} // namespace

Tuning deliveryOf(std::span<const uint8_t> section, int transport_stream_id)
{
    BitReader in(section.subspan(kLongHeader, section.size() - kLongHeader - kCrc));
    in.take(in.skip(4).bits(12));
    BitReader streams(in.take(in.skip(4).bits(12)));
    while (!streams.atEnd()) {
        const int stream = streams.u16();
        const auto descriptors = streams.skip(16 + 4).take(streams.bits(12));
        if (stream == transport_stream_id)
            return deliveryIn(descriptors);
    }
    return {};
}

} // namespace tessaview
