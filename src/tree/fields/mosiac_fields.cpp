#include "tree/fields/mosiac_fields.h"

#include "platform/format.h"

#include <variant>

namespace tessaview {

namespace {

using lib13818::DescriptorMosiac;

std::string textOf(const DescriptorMosiac::BouquetInfo& bouquet)
{
    return formatted("bouquet %04X", static_cast<unsigned>(bouquet.bouquet_id));
}

std::string textOf(const DescriptorMosiac::ServiceInfo& service)
{
    return formatted("service %04X of transport stream %04X, network %04X",
                     static_cast<unsigned>(service.service_id),
                     static_cast<unsigned>(service.transport_stream_id),
                     static_cast<unsigned>(service.original_network_id));
}

std::string textOf(const DescriptorMosiac::EventInfo& event)
{
    return formatted("event %04X of service %04X, transport stream %04X, network %04X",
                     static_cast<unsigned>(event.event_id), static_cast<unsigned>(event.service_id),
                     static_cast<unsigned>(event.transport_stream_id),
                     static_cast<unsigned>(event.original_network_id));
}

} // namespace

std::vector<std::uint8_t> elementaryCellIds(const DescriptorMosiac::CellInfo& cell)
{
    std::vector<std::uint8_t> ids(cell.elementary_cell_id.begin(), cell.elementary_cell_id.end());
    for (std::uint8_t& id : ids)
        id &= 0x3F;
    return ids;
}

std::string linkageText(const DescriptorMosiac::CellInfo& cell)
{
    return std::visit([](const auto& linkage) { return textOf(linkage); }, cell.linkage);
}

} // namespace tessaview
