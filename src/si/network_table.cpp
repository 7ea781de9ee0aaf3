#include "si/network_table.h"

#include "si/dump.h"
#include "si/error.h"

#include <type_traits>

namespace lib13818 {

static_assert(std::is_nothrow_move_constructible_v<TransportStreamEntry>);

TransportStreamEntry::TransportStreamEntry(BitReader& loop)
    : transport_stream_id(require(loop, 6).u16())
    , original_network_id(loop.u16())
    , transport_descriptors_length(loop.skip(4).bits(12))
    , descriptors(walkEntry(loop.take(transport_descriptors_length)))
{
}

void NetworkTable::clear()
{
    caDescriptors.clear();
    transportStreams.clear();
}

void NetworkTable::parsePayload(const uint8_t* body)
{
    BitReader in = payload(body);
    const int firstLoopLength = require(in, 2).skip(4).bits(12);
    takeFirstLoop(require(in, firstLoopLength).take(firstLoopLength));
    const int streamLoopLength = require(in, 2).skip(4).bits(12);
    BitReader loop = takeLoop(in, streamLoopLength);
    while (!loop.atEnd())
        transportStreams.emplace_back(loop);
    requireExactEnd(loop);
}

void NetworkTable::takeFirstLoop(Bytes loop)
{
    DescriptorSet both;
    const auto sortOut = [&] {
        for (const DescriptorCA& access : both.all<DescriptorCA>())
            caDescriptors.push_back(access);
        descriptors.fill(behind(descriptors, both.bytes()));
        descriptors.leaveOut<DescriptorCA>();
    };
    try {
        both.fill(loop);
    } catch (const error&) {
        sortOut();
        throw;
    }
    sortOut();
}

void NetworkTable::dumpEntry(std::ostream& out, const TransportStreamEntry& entry)
{
    line(out, "stream_id ", entry.transport_stream_id);
    line(out, "original_network_id ", entry.original_network_id);
    dumpList<LowUserPrivate>(out, entry.descriptors);
}

} // namespace lib13818
