#pragma once

#include "charset/charset_policy.h"
#include "explorer/tree.h"

#include <cstdint>
#include <optional>

namespace tessaview {

/// The network that a node belongs to, which is another one for what a stream tells of others.
std::optional<std::uint32_t> originalNetworkOf(const NodeView& node);

/// The rule by which the texts of a node are read: that of the network it belongs to.
const CharsetRule& charsetRuleOf(const NodeView& node);

} // namespace tessaview
