#include "si/descriptors/application_transport_descriptors.h"

#include "si/dump.h"

#include <algorithm>

namespace lib13818 {

namespace {

constexpr int kObjectCarousel = 1;
constexpr int kIp = 2;

DescriptorRoutingIPv6::Address readAddress(BitReader& in)
{
    DescriptorRoutingIPv6::Address address{};
    std::ranges::copy(in.take(static_cast<int>(address.size())), address.begin());
    return address;
}

void dumpConnection(std::ostream& out, const DescriptorTransportProtocol::Connection& connection)
{
    line(out, "remote_connection: ", connection.remote_connection);
    if (connection.remote_connection == 0)
        return;
    line(out, "original_network_id: ", connection.original_network_id);
    line(out, "transport_stream_id: ", connection.transport_stream_id);
    line(out, "service_id: ", connection.service_id);
}

} // namespace

DescriptorTransportProtocol::Connection::Connection(BitReader& in) : remote_connection(in.bits(1))
{
    in.skip(7);
    if (remote_connection == 0)
        return;
    original_network_id = in.u16();
    transport_stream_id = in.u16();
    service_id = in.u16();
}

DescriptorTransportProtocol::ObjectCarouselSelector::ObjectCarouselSelector(BitReader& in)
    : Connection(in)
    , component_tag(in.u8())
{
}

DescriptorTransportProtocol::IpSelector::IpSelector(BitReader& in)
    : Connection(in)
    , alignment_indicator(in.bits(1))
{
}

DescriptorTransportProtocol::DescriptorTransportProtocol(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , protocol_id(in.u16())
    , transport_protocol_label(in.u8())
{
    if (protocol_id == kObjectCarousel)
        objectCarousel = ObjectCarouselSelector(in);
    else if (protocol_id == kIp)
        ip = IpSelector(in);
}

void DescriptorTransportProtocol::dumpBody(std::ostream& out) const
{
    line(out, "protocol_id: ", protocol_id);
    if (protocol_id == kObjectCarousel) {
        dumpConnection(out, objectCarousel);
        line(out, "component_tag: ", objectCarousel.component_tag);
    } else if (protocol_id == kIp) {
        dumpConnection(out, ip);
        line(out, "alignment_indicator: ", ip.alignment_indicator);
    }
}

DescriptorRoutingIPv4::RouteIPv4::RouteIPv4(BitReader& in)
    : component_tag(in.u8())
    , address(in.u32())
    , port_number(in.u16())
    , address_mask(in.u32())
{
}

DescriptorRoutingIPv4::DescriptorRoutingIPv4(DescriptorReader in)
    : DescriptorOf(in)
    , entries(readRecords<RouteIPv4>(in, 11, {kBadContent, "routing_ipv4_descriptor: 1"}))
{
}

void DescriptorRoutingIPv4::dumpBody(std::ostream& out) const
{
    for (const RouteIPv4& entry : entries) {
        line(out, "component_tag: ", entry.component_tag);
        line(out, "address: ", entry.address);
        line(out, "port_number: ", entry.port_number);
        line(out, "address_mask: ", entry.address_mask);
    }
}

DescriptorRoutingIPv6::RouteIPv6::RouteIPv6(BitReader& in)
    : component_tag(in.u8())
    , address(readAddress(in))
    , port_number(in.u16())
    , address_mask(readAddress(in))
{
}

DescriptorRoutingIPv6::DescriptorRoutingIPv6(DescriptorReader in)
    : DescriptorOf(in)
    , entries(readRecords<RouteIPv6>(in, 35, {kBadContent, "routing_ipv4_descriptor: 1"}))
{
}

void DescriptorRoutingIPv6::dumpBody(std::ostream& out) const
{
    for (const RouteIPv6& entry : entries) {
        line(out, "component_tag: ", entry.component_tag);
        line(out, "address:", "");
        hexDump(out, entry.address);
        line(out, "port_number: ", entry.port_number);
        line(out, "address_mask:", "");
        hexDump(out, entry.address_mask);
    }
}

DescriptorPrefetch::PrefetchInfo::PrefetchInfo(BitReader& in)
    : label_length(in.u8())
    , label(in.text(label_length))
    , prefetch_priority(in.u8())
{
}

DescriptorPrefetch::DescriptorPrefetch(DescriptorReader in)
    : DescriptorOf(in)
    , transport_protocol_label(in.u8())
    , entries(readRecordsToEnd<PrefetchInfo>(in, {kBadContent, "prefetch_descriptor: 1"}))
{
}

void DescriptorPrefetch::dumpBody(std::ostream& out) const
{
    line(out, "transport_protocol_label: ", transport_protocol_label);
    for (const PrefetchInfo& entry : entries) {
        line(out, "label_length: ", entry.label_length);
        line(out, "label: ", entry.label);
        line(out, "prefetch_priority: ", entry.prefetch_priority);
    }
}

DescriptorDIILocation::DIILocationInfo::DIILocationInfo(BitReader& in)
    : DII_identification(in.skip(1).bits(15))
    , association_tag(in.u16())
{
}

DescriptorDIILocation::DescriptorDIILocation(DescriptorReader in)
    : DescriptorOf(in)
    , transport_protocol_label(in.u8())
    , entries(readRecordsToEnd<DIILocationInfo>(in, {kBadContent, "dii_location_descriptor: 1"}))
{
}

void DescriptorDIILocation::dumpBody(std::ostream& out) const
{
    line(out, "transport_protocol_label: ", transport_protocol_label);
    for (const DIILocationInfo& entry : entries) {
        line(out, "DII_identification: ", entry.DII_identification);
        line(out, "associatoin_tag: ", entry.association_tag);
    }
}

} // namespace lib13818
