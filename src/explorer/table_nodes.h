#pragma once

#include "explorer/node_kind.h"

namespace tessaview {

/// "ALL NETWORKS", over a NetworkMap.
const NodeKind& rootKind();
/// A network, over a Network.
const NodeKind& networkKind();
/// A transport stream, over a Transponder.
const NodeKind& transportStreamKind();
/// A program, over its Pmt.
const NodeKind& programKind();

} // namespace tessaview
