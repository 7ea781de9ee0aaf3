#pragma once

#include "si/descriptors/descriptor.h"

#include <cstdint>
#include <vector>

// What a transport stream as a whole is (EN 300 468, 6.2).

namespace lib13818 {

class DescriptorShortSmoothingBuffer final
    : public DescriptorOf<0x61, "short_smoothing_buffer_descriptor"> {
public:
    explicit DescriptorShortSmoothingBuffer(DescriptorReader in);
    void dumpBody(std::ostream& out) const override;
    void clear() override { DVB_reserved.clear(); }

    int sb_size;      ///< coded
    int sb_leak_rate; ///< coded
    std::vector<uint8_t> DVB_reserved;
};

class DescriptorPartialTransportStream final
    : public DescriptorOf<0x63, "partial_transport_descriptor"> {
public:
    explicit DescriptorPartialTransportStream(DescriptorReader in) : DescriptorOf(in) {}
};

class DescriptorTransportStream final : public DescriptorOf<0x67, "transport_stream_descriptor"> {
public:
    explicit DescriptorTransportStream(DescriptorReader in);

    std::vector<uint8_t> byte;
};

class DescriptorDSNG final : public DescriptorOf<0x68, "DSNG_descriptor"> {
public:
    explicit DescriptorDSNG(DescriptorReader in);

    std::vector<uint8_t> byte;
};

} // namespace lib13818
