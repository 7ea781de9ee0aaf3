#include "drivers/capture/delivery_parameters.h"

#include "si/bit_reader.h"

namespace tessaview {

namespace {

using lib13818::BitReader;

constexpr std::size_t kLongHeader = 8;
constexpr std::size_t kCrc = 4;
// The payload of every delivery system descriptor that is read here (EN 300 468, 6.2.13).
constexpr std::size_t kDeliverySize = 11;

std::uint32_t bcd(BitReader& in, int digits)
{
    std::uint32_t value = 0;
    for (int i = 0; i < digits; ++i)
        value = value * 10 + static_cast<std::uint32_t>(in.bits(4));
    return value;
}

uint8_t narrow(int value)
{
    return static_cast<uint8_t>(value);
}

// The units of the records are those of the descriptors' last digits (EN 300 468, 6.2.13).

SatelliteTuning satelliteTuning(BitReader in)
{
    SatelliteTuning record{};
    record.frequency = bcd(in, 8);
    record.orbital_position = static_cast<std::uint16_t>(bcd(in, 4) / 10);
    record.west_east_flag = static_cast<std::uint32_t>(in.bits(1));
    record.polarization = narrow(in.bits(2));
    record.modulation = narrow(in.bits(5));
    record.symbol_rate = bcd(in, 7);
    record.FEC_inner = narrow(in.bits(4));
    return record;
}

CableTuning cableTuning(BitReader in)
{
    CableTuning record{};
    record.frequency = bcd(in, 8);
    record.FEC_outer = narrow(in.skip(12).bits(4));
    record.modulation = narrow(in.u8());
    record.symbol_rate = bcd(in, 7);
    record.FEC_inner = narrow(in.bits(4));
    return record;
}

TerrestrialTuning terrestrialTuning(BitReader in)
{
    TerrestrialTuning record{};
    record.centre_frequency = in.u32();
    record.bandwidth = narrow(in.bits(3));
    record.constellation = narrow(in.skip(5).bits(2));
    record.hierarchy_information = narrow(in.bits(3));
    record.code_rate_HP_stream = narrow(in.bits(3));
    record.code_rate_LP_stream = narrow(in.bits(3));
    record.guard_interval = narrow(in.bits(2));
    record.transmission_mode = narrow(in.bits(2));
    record.other_frequency_flag = narrow(in.bits(1));
    return record;
}

/// The first delivery system descriptor of a loop.
CaptureTuning deliveryIn(BitReader loop)
{
    while (!loop.atEnd()) {
        const int tag = loop.u8();
        const auto payload = loop.take(loop.u8());
        if (payload.size() < kDeliverySize)
            continue;
        switch (tag) {
        case 0x43:
            return satelliteTuning(BitReader(payload));
        case 0x44:
            return cableTuning(BitReader(payload));
        case 0x5A:
            return terrestrialTuning(BitReader(payload));
        default:
            break;
        }
    }
    return {};
}

} // namespace

CaptureTuning deliveryOf(std::span<const uint8_t> section, int transport_stream_id)
{
    BitReader in(section.subspan(kLongHeader, section.size() - kLongHeader - kCrc));
    in.take(in.skip(4).bits(12));
    BitReader streams(in.take(in.skip(4).bits(12)));
    while (!streams.atEnd()) {
        const int stream = streams.u16();
        const BitReader descriptors(streams.skip(16 + 4).take(streams.bits(12)));
        if (stream == transport_stream_id)
            return deliveryIn(descriptors);
    }
    return {};
}

} // namespace tessaview
