#include "si/descriptors/transport_descriptors.h"

#include "si/dump.h"

namespace lib13818 {

DescriptorShortSmoothingBuffer::DescriptorShortSmoothingBuffer(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , sb_size(in.bits(2))
    , sb_leak_rate(in.bits(6))
    , DVB_reserved(in.rest())
{
}

void DescriptorShortSmoothingBuffer::dumpBody(std::ostream& out) const
{
    line(out, "sb_size: ", sb_size);
    line(out, "sb_leak_rate: ", sb_leak_rate);
    if (DVB_reserved.empty())
        return;
    line(out, "DVB_reserved:", "");
    hexDump(out, DVB_reserved);
}

DescriptorTransportStream::DescriptorTransportStream(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , byte(in.rest())
{
}

DescriptorDSNG::DescriptorDSNG(DescriptorReader in) noexcept : DescriptorOf(in), byte(in.rest()) {}

} // namespace lib13818
