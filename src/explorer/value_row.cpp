#include "explorer/value_row.h"

#include "explorer/tree.h"

namespace tessaview {

std::vector<ValueRow> valueRows(const NodeView& node)
{
    std::vector<ValueRow> rows;
    if (const auto fill = node.kind().fill)
        fill(node, rows);
    return rows;
}

} // namespace tessaview
