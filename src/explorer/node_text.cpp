#include "explorer/node_text.h"

namespace tessaview {

const CharsetRule& charsetRuleOf(const NodeView& node)
{
    const CharsetPolicy& policy = node.tree().charsetPolicy();
    for (NodeView at = node;; at = at.parent()) {
        if (const auto networkOf = at.kind().originalNetworkId)
            return policy.ruleFor(networkOf(at));
        if (at.isRoot())
            return policy.common();
    }
}

} // namespace tessaview
