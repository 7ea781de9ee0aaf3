#include "si/descriptors/mosiac_descriptor.h"

#include "si/dump.h"

namespace lib13818 {

namespace {

constexpr Refusal kCellsMissTheEnd{.code = kBadContent, .message = "mosiac_descriptor"};

int readLinkageInfo(BitReader& in)
{
    // Past the end it would read as 0, which is another error.
    if (in.atEnd())
        throw error(kCellsMissTheEnd.code, kCellsMissTheEnd.message);
    return in.u8();
}

DescriptorMosiac::Linkage readLinkage(BitReader& in, int linkageInfo)
{
    switch (linkageInfo) {
    case 1:
        return DescriptorMosiac::BouquetInfo(in);
    case 2:
    case 3:
        return DescriptorMosiac::ServiceInfo(in);
    case 4:
        return DescriptorMosiac::EventInfo(in);
    default:
        throw error(kMalformedHeader, "");
    }
}

void dumpLinkage(std::ostream& out, const DescriptorMosiac::BouquetInfo& bouquet)
{
    line(out, "BouquetInfo::bouquet_id: ", bouquet.bouquet_id);
}

void dumpLinkage(std::ostream& out, const DescriptorMosiac::ServiceInfo& service)
{
    line(out, "ServiceInfo::original_network_id: ", service.original_network_id);
    line(out, "ServiceInfo::transport_stream_id: ", service.transport_stream_id);
    line(out, "ServiceInfo::service_id: ", service.service_id);
}

void dumpLinkage(std::ostream& out, const DescriptorMosiac::EventInfo& event)
{
    line(out, "EventInfo::original_network_id: ", event.original_network_id);
    line(out, "EventInfo::transport_stream_id: ", event.transport_stream_id);
    line(out, "EventInfo::service_id: ", event.service_id);
    line(out, "EventInfo::event_id: ", event.event_id);
}

} // namespace

DescriptorMosiac::BouquetInfo::BouquetInfo(BitReader& in) : bouquet_id(in.u16()) {}

DescriptorMosiac::ServiceInfo::ServiceInfo(BitReader& in)
    : original_network_id(in.u16())
    , transport_stream_id(in.u16())
    , service_id(in.u16())
{
}

DescriptorMosiac::EventInfo::EventInfo(BitReader& in)
    : original_network_id(in.u16())
    , transport_stream_id(in.u16())
    , service_id(in.u16())
    , event_id(in.u16())
{
}

DescriptorMosiac::CellInfo::CellInfo(BitReader& in)
    : logical_cell_id(in.bits(6))
    , logical_cell_presentation_info(in.skip(7).bits(3))
    , elementary_cell_field_length(in.u8())
    , elementary_cell_id(in.take(elementary_cell_field_length))
    , cell_linkage_info(readLinkageInfo(in))
    , linkage(readLinkage(in, cell_linkage_info))
{
}

DescriptorMosiac::DescriptorMosiac(DescriptorReader in)
    : DescriptorOf(in)
    , mosiac_entry_point(in.bits(1))
    , number_of_horizontal_elementary_cells(in.bits(3))
    , number_of_vertical_elementary_cells(in.skip(1).bits(3))
    , entries(readRecordsToEnd<CellInfo>(in, kCellsMissTheEnd))
{
}

void DescriptorMosiac::dumpBody(std::ostream& out) const
{
    line(out, "mosiac_entry_point: ", mosiac_entry_point);
    line(out, "number_of_horizontal_elementary_cells: ", number_of_horizontal_elementary_cells);
    line(out, "number_of_vertical_elementary_cells: ", number_of_vertical_elementary_cells);
    for (const CellInfo& cell : entries) {
        line(out, "DescriptorMosiac::CellInfo::logical_cell_id: ", cell.logical_cell_id);
        line(out, "DescriptorMosiac::CellInfo::logical_call_presentation_info: ",
             cell.logical_cell_presentation_info);
        line(out, "DescriptorMosiac::CellInfo::elementary_cell_field_length: ",
             cell.elementary_cell_field_length);
        line(out, "DescriptorMosiac::CellInfo::cell_linkage_info: ", cell.cell_linkage_info);
        std::visit([&](const auto& linkage) { dumpLinkage(out, linkage); }, cell.linkage);
    }
}

} // namespace lib13818
