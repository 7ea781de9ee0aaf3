#include "explorer/node_text.h"

namespace tessaview {

std::optional<std::uint32_t> originalNetworkOf(const NodeView& node)
{
    for (NodeView at = node;; at = at.parent()) {
        if (const auto networkOf = at.kind().originalNetworkId)
            return networkOf(at);
        if (at.isRoot())
            return std::nullopt;
    }
}

const CharsetRule& charsetRuleOf(const NodeView& node)
{
    return node.tree().charsetPolicy().ruleFor(originalNetworkOf(node));
}

} // namespace tessaview
