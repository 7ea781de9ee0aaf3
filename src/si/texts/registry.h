#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

namespace lib13818 {

/// One row of a registry: the text of all keys from `first` to `last`.
struct RegistryRow {
    uint32_t first;
    uint32_t last;
    const char* text;
};

/// A registry over rows that may overlap: for every key the last row that holds it counts.
class Registry {
public:
    explicit Registry(std::span<const RegistryRow> rows);

    /// "<unknown>" for a key in no row.
    const char* name(uint32_t key) const;

    /// The rows as they count: ascending, apart from each other, neighbours of one text joined.
    std::span<const RegistryRow> ranges() const { return ranges_; }

private:
    std::vector<RegistryRow> ranges_;
};

/// The registries themselves, for whoever wants more than a name.
const Registry& originalNetworks();
const Registry& caSystems();
const Registry& dataBroadcasts();

} // namespace lib13818
