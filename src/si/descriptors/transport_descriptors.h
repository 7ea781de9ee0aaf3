#pragma once

#include "si/descriptors/descriptor.h"

#include <cstdint>

// What a transport stream as a whole is (EN 300 468, 6.2).

namespace lib13818 {

class DescriptorShortSmoothingBuffer final
    : public DescriptorOf<0x61, "short_smoothing_buffer_descriptor"> {
public:
    explicit DescriptorShortSmoothingBuffer(DescriptorReader in) noexcept;
    void dumpBody(std::ostream& out) const override;
    void clear() override { DVB_reserved = {}; }

    int sb_size;      ///< coded
    int sb_leak_rate; ///< coded
    Bytes DVB_reserved;
};

class DescriptorPartialTransportStream final
    : public DescriptorOf<0x63, "partial_transport_descriptor"> {
public:
    explicit DescriptorPartialTransportStream(DescriptorReader in) noexcept : DescriptorOf(in) {}
};

class DescriptorTransportStream final : public DescriptorOf<0x67, "transport_stream_descriptor"> {
public:
    explicit DescriptorTransportStream(DescriptorReader in) noexcept;

    Bytes byte;
};

class DescriptorDSNG final : public DescriptorOf<0x68, "DSNG_descriptor"> {
public:
    explicit DescriptorDSNG(DescriptorReader in) noexcept;

    Bytes byte;
};

} // namespace lib13818
