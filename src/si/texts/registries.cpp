#include "si/texts/registries.h"

#include "si/texts/registry.h"

namespace lib13818 {

void buildRegistries()
{
    originalNetworks();
    caSystems();
    dataBroadcasts();
}

const char* originalNetworkName(uint32_t original_network_id)
{
    return originalNetworks().name(original_network_id);
}

const char* caSystemName(uint32_t CA_system_id)
{
    return caSystems().name(CA_system_id);
}

const char* dataBroadcastName(uint32_t data_broadcast_id)
{
    return dataBroadcasts().name(data_broadcast_id);
}

} // namespace lib13818
