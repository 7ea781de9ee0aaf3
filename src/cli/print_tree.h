#pragma once

#include "cli/options.h"
#include "explorer/tree.h"

#include <ostream>

namespace tessaview {

/// Writes the whole tree in the format: a node per line, the same with the rows
/// under each node, or nested JSON objects.
void printTree(std::ostream& out, const Tree& tree, OutputFormat format);

} // namespace tessaview
