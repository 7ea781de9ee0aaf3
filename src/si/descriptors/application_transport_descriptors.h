#pragma once

#include "si/descriptors/descriptor.h"
#include "si/descriptors/records.h"

#include <array>
#include <string_view>

// How an application is carried, and what of it to fetch first (ETSI TS 102 812, 10.8). Every
// error has code 3.

namespace lib13818 {

class DescriptorTransportProtocol final
    : public DescriptorOf<0x02, "transport_protocol_descriptor"> {
public:
    explicit DescriptorTransportProtocol(DescriptorReader in) noexcept;
    void dumpBody(std::ostream& out) const override;

    /// The service that carries the application: this one, unless the connection is remote.
    struct Connection {
        Connection() = default;
        explicit Connection(BitReader& in);

        int remote_connection = 0;
        int original_network_id = 0;
        int transport_stream_id = 0;
        int service_id = 0;
    };
    struct ObjectCarouselSelector : Connection {
        ObjectCarouselSelector() = default;
        explicit ObjectCarouselSelector(BitReader& in);

        int component_tag = 0;
    };
    struct IpSelector : Connection {
        IpSelector() = default;
        explicit IpSelector(BitReader& in);

        int alignment_indicator = 0;
    };

    int protocol_id; ///< 1 = object carousel, 2 = IP
    int transport_protocol_label;
    // The one of the protocol_id is broadcast, the other keeps 0.
    ObjectCarouselSelector objectCarousel;
    IpSelector ip;
};

class DescriptorRoutingIPv4 final : public DescriptorOf<0x06, "routing_IPv4_descriptor"> {
public:
    explicit DescriptorRoutingIPv4(DescriptorReader in);
    void dumpBody(std::ostream& out) const override;
    void clear() override { entries = {}; }

    struct RouteIPv4 : Record {
        explicit RouteIPv4(BitReader& in);

        int component_tag;
        uint32_t address;
        int port_number;
        uint32_t address_mask;
    };
    Records<RouteIPv4> entries;
};

class DescriptorRoutingIPv6 final : public DescriptorOf<0x07, "routing_IPv4_descriptor"> {
public:
    explicit DescriptorRoutingIPv6(DescriptorReader in);
    void dumpBody(std::ostream& out) const override;
    void clear() override { entries = {}; }

    using Address = std::array<uint8_t, 16>;
    struct RouteIPv6 : Record {
        explicit RouteIPv6(BitReader& in);

        int component_tag;
        Address address;
        int port_number;
        Address address_mask;
    };
    Records<RouteIPv6> entries;
};

class DescriptorPrefetch final : public DescriptorOf<0x0C, "prefetch_descriptor"> {
public:
    explicit DescriptorPrefetch(DescriptorReader in);
    void dumpBody(std::ostream& out) const override;
    void clear() override { entries = {}; }

    struct PrefetchInfo : Record {
        explicit PrefetchInfo(BitReader& in);

        int label_length; ///< as coded, in bytes
        std::string_view label;
        int prefetch_priority; ///< 1 to 100
    };

    int transport_protocol_label;
    Records<PrefetchInfo> entries;
};

class DescriptorDIILocation final : public DescriptorOf<0x0D, "DII_location_descriptor"> {
public:
    explicit DescriptorDIILocation(DescriptorReader in);
    void dumpBody(std::ostream& out) const override;
    void clear() override { entries = {}; }

    struct DIILocationInfo : Record {
        explicit DIILocationInfo(BitReader& in);

        int DII_identification;
        int association_tag;
    };

    int transport_protocol_label;
    Records<DIILocationInfo> entries;
};

} // namespace lib13818
