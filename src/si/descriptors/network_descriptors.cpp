#include "si/descriptors/network_descriptors.h"

#include "si/dump.h"

namespace lib13818 {

DescriptorNetworkName::DescriptorNetworkName(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , network_name(in.restText())
{
}

void DescriptorNetworkName::dumpBody(std::ostream& out) const
{
    line(out, "network_name: ", network_name);
}

DescriptorServiceList::Info::Info(BitReader& in) : service_id(in.u16()), service_type(in.u8()) {}

DescriptorServiceList::DescriptorServiceList(DescriptorReader in)
    : DescriptorOf(in)
    , services(readRecords<Info>(in, 3))
{
}

void DescriptorServiceList::dumpBody(std::ostream& out) const
{
    for (const Info& service : services) {
        line(out, "service_id ", service.service_id);
        line(out, "service_type ", service.service_type);
    }
}

DescriptorStuffing::DescriptorStuffing(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , stuffing_byte(in.rest())
{
}

void DescriptorStuffing::dumpBody(std::ostream& out) const
{
    if (stuffing_byte.empty())
        return;
    line(out, "stuffing_byte:", "");
    hexDump(out, stuffing_byte);
}

DescriptorBouquetName::DescriptorBouquetName(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , bouquet_name(in.restText())
{
}

void DescriptorBouquetName::dumpBody(std::ostream& out) const
{
    line(out, "bouquet_name: ", bouquet_name);
}

DescriptorLinkage::DescriptorLinkage(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , transport_stream_id(in.u16())
    , original_network_id(in.u16())
    , service_id(in.u16())
    , linkage_type(in.u8())
    , private_data_byte(in.rest())
{
}

void DescriptorLinkage::dumpBody(std::ostream& out) const
{
    line(out, "transport_stream_id: ", transport_stream_id);
    line(out, "original_network_id: ", original_network_id);
    line(out, "service_id: ", service_id);
    line(out, "linkage_type: ", linkage_type);
    if (private_data_byte.empty())
        return;
    line(out, "private_data_byte:", "");
    hexDump(out, private_data_byte);
}

DescriptorPrivateDataSpecifier::DescriptorPrivateDataSpecifier(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , private_data_specifier(in.u32())
{
}

void DescriptorPrivateDataSpecifier::dumpBody(std::ostream& out) const
{
    line(out, "private_data_specifier: ", private_data_specifier);
}

} // namespace lib13818
