#pragma once

#include "tree/tree.h"
#include "tree/value_row.h"

#include <span>
#include <string>

namespace tessaview {

/// The labels from the root to a node: "ALL NETWORKS > 0001 - ... > PAT".
std::string pathText(const NodeView& node);

/// One line per row, name and all data with a tab between, as spreadsheets take them.
std::string rowsText(std::span<const ValueRow> rows);

} // namespace tessaview
