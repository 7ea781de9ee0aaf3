#pragma once

#include "model/transponder.h"

#include <cstddef>
#include <cstdint>
#include <map>

namespace tessaview {

/// A network: its transport streams by transport_stream_id, ascending.
struct Network {
    std::map<std::uint32_t, Transponder> transponders;
    std::uint32_t original_network_id = 0;
};

/// Everything that was learned about the broadcasts read: the networks by original_network_id,
/// ascending. Takes no lock: one thread at a time. Networks and transponders stay where they are
/// until `clear`.
class NetworkMap {
public:
    using Networks = std::map<std::uint32_t, Network>;

    bool empty() const { return networks_.empty(); }
    std::size_t size() const { return networks_.size(); }
    Networks::const_iterator begin() const { return networks_.begin(); }
    Networks::const_iterator end() const { return networks_.end(); }

    /// The transport stream stored under the two identifiers, or null.
    const Transponder* find(std::uint32_t original_network_id,
                            std::uint32_t transport_stream_id) const;
    /// Stores a transport stream under the network, which is created if need be, and its own
    /// transport_stream_id. One that is there already stays: the answer is false then, and
    /// `transponder` still the caller's. An incomplete one makes way for a complete one, also
    /// where it stands in a network that no table names.
    bool store(std::uint32_t original_network_id, Transponder&& transponder);
    /// The number of a network of its own, behind all others, for a stream whose network no table
    /// names.
    std::uint32_t unnamedNetwork() const;
    void clear() { networks_.clear(); }

private:
    void removeIncomplete(std::uint32_t original_network_id, const Transponder& complete);

    Networks networks_;
};

} // namespace tessaview
