#include "si/nit.h"

namespace lib13818 {

const char* Nit::name() const
{
    switch (table_id) {
    case 0x40:
        return "network_information_section - actual_transport_network";
    case 0x41:
        return "network_information_section - other_transport_network";
    default:
        return "ERROR";
    }
}

void Nit::dump(std::ostream& out) const
{
    for (const TransportStreamEntry& entry : transportStreams) {
        dumpEntry(out, entry);
        dumpList<DescriptorSatelliteDeliverySystem>(out, entry.descriptors);
        dumpList<DescriptorServiceList>(out, entry.descriptors);
    }
}

} // namespace lib13818
