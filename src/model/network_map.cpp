#include "model/network_map.h"

#include <utility>

namespace tessaview {

const Transponder* NetworkMap::find(std::uint32_t original_network_id,
                                    std::uint32_t transport_stream_id) const
{
    const auto network = networks_.find(original_network_id);
    if (network == networks_.end())
        return nullptr;
    const auto found = network->second.transponders.find(transport_stream_id);
    return found == network->second.transponders.end() ? nullptr : &found->second;
}

bool NetworkMap::store(std::uint32_t original_network_id, Transponder&& transponder)
{
    Network& network = networks_[original_network_id];
    network.original_network_id = original_network_id;
    const std::uint32_t id = transponder.transport_stream_id;
    return network.transponders.try_emplace(id, std::move(transponder)).second;
}

} // namespace tessaview
