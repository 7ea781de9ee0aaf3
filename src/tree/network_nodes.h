#pragma once

#include "tree/node_kind.h"

namespace tessaview {

/// "ALL NETWORKS", over a NetworkMap.
const NodeKind& rootKind();

} // namespace tessaview
