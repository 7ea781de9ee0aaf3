#pragma once

#include "charset/charset_policy.h"
#include "explorer/tree.h"

namespace tessaview {

/// The rule by which the texts of a node are read: that of the network it belongs to.
const CharsetRule& charsetRuleOf(const NodeView& node);

} // namespace tessaview
