#include "explorer/copy_text.h"

namespace tessaview {

std::string pathText(const NodeView& node)
{
    const std::string label = node.label();
    return node.isRoot() ? label : pathText(node.parent()) + " > " + label;
}

std::string rowsText(std::span<const ValueRow> rows)
{
    std::string text;
    for (const ValueRow& row : rows) {
        text += row.name;
        text += '\t';
        text += dataText(row);
        text += '\n';
    }
    return text;
}

} // namespace tessaview
