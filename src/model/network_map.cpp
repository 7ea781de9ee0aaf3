#include "model/network_map.h"

#include <algorithm>
#include <iterator>
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
    if (transponder.needed.areThere())
        removeIncomplete(original_network_id, transponder);
    Network& network = networks_[original_network_id];
    network.original_network_id = original_network_id;
    const std::uint32_t id = transponder.transport_stream_id;
    return network.transponders.try_emplace(id, std::move(transponder)).second;
}

/// Removes what was stored of the same stream before it was complete.
void NetworkMap::removeIncomplete(std::uint32_t original_network_id, const Transponder& complete)
{
    for (auto entry = networks_.begin(); entry != networks_.end();) {
        auto& transponders = entry->second.transponders;
        const auto found = transponders.find(complete.transport_stream_id);
        if (found != transponders.end() && !found->second.needed.areThere()) {
            const lib13818::Pat& pat = found->second.pat;
            const bool isSameStream = pat.parsed && pat.CRC_32 == complete.pat.CRC_32;
            if (entry->first == original_network_id ||
                (entry->first > kLastIdentifier && isSameStream))
                transponders.erase(found);
        }
        entry = transponders.empty() ? networks_.erase(entry) : std::next(entry);
    }
}

std::uint32_t NetworkMap::unnamedNetwork() const
{
    const std::uint32_t last = networks_.empty() ? 0 : networks_.rbegin()->first;
    return std::max(last, kLastIdentifier) + 1;
}

} // namespace tessaview
