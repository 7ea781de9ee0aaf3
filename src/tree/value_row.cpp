#include "tree/value_row.h"

#include "platform/format.h"
#include "tree/tree.h"

namespace tessaview {

void fillRows(const NodeView& node, std::vector<ValueRow>& rows)
{
    rows.clear();
    if (const auto fill = node.kind().fill)
        fill(node, rows);
}

std::vector<ValueRow> valueRows(const NodeView& node)
{
    std::vector<ValueRow> rows;
    fillRows(node, rows);
    for (ValueRow& row : rows)
        if (row.remark.empty() && !row.broadcast.text.empty())
            row.remark = charsetRemark(row.broadcast, node.charsetRule());
    return rows;
}

std::string dataText(const ValueRow& row)
{
    return row.item == RowItem::Bytes ? hexList(row.bytes, row.bytes.size()) : row.data;
}

} // namespace tessaview
