#pragma once

#include "cli/options.h"
#include "tree/tree_walk.h"

#include <ostream>

namespace tessaview {

/// Writes all nodes in a format other than None, as it comes by them: a node per line, the same
/// with the rows under each node, or nested JSON objects.
void printTree(std::ostream& out, TreeWalk walk, OutputFormat format);

} // namespace tessaview
