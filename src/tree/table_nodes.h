#pragma once

#include "model/transponder.h"
#include "tree/tree.h"

namespace tessaview {

/// Adds the tables of a transport stream that were read, in the order in which the tree shows them.
void addTables(const Transponder& t, Children& children);

} // namespace tessaview
