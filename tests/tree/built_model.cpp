#include "tests/tree/built_model.h"

#include "tests/support/decoded_stream.h"
#include "tools/multiplex/sections.h"
#include "tree/value_row.h"

#include <utility>

#include <gtest/gtest.h>

namespace test {

using namespace tessaview;

BuiltModel::BuiltModel(const std::vector<Bytes>& sections)
{
    Transponder stream = decodedStream(sections);
    stream.transport_stream_id = kStream;
    model.store(kNetwork, std::move(stream));
    tree.rebuild(model);
}

NodeView BuiltModel::at(std::initializer_list<const char*> labels) const
{
    NodeView node = transportStream();
    for (const char* const label : labels) {
        std::size_t row = 0;
        while (row < node.childCount() && node.child(row).label() != label)
            ++row;
        if (row == node.childCount()) {
            ADD_FAILURE() << "no node " << label << " under " << node.label();
            return transportStream();
        }
        node = node.child(row);
    }
    return node;
}

BuiltModel modelOfService(const std::vector<Bytes>& descriptors)
{
    return BuiltModel(
        {sdt(kSdtActual, kStream, kNetwork, {{.id = 1, .descriptors = descriptors}})});
}

NodeView serviceOf(const BuiltModel& built)
{
    return built.at(
        {"SDT - actual transport stream", "ORIGINAL NID 0085", "TID 0451", "SECTION 0000", "0001"});
}

std::string treeText(const NodeView& node, std::size_t depth)
{
    std::string text = std::string(2 * depth, ' ') + node.label() + '\n';
    for (std::size_t i = 0; i < node.childCount(); ++i)
        text += treeText(node.child(i), depth + 1);
    return text;
}

namespace {

/// Where a node's bytes stand, and what it does besides showing its rows.
std::string doingOf(const NodeView& node)
{
    const NodeKind& kind = node.kind();
    const auto part = node.sectionPart();
    std::string text = part.section.empty()
                           ? ""
                           : " @" + std::to_string(part.offset) + '+' + std::to_string(part.size) +
                                 " of " + std::to_string(part.section.size());
    text += kind.item == NodeItem::None ? " (leaves the pane as it was)" : "";
    if (kind.menu != ContextMenu::None)
        text += " (menu " + std::to_string(static_cast<int>(kind.menu)) + ")";
    return text;
}

/// What a row says besides its name and data.
std::string itemText(const ValueRow& row)
{
    std::string text;
    if (row.item == RowItem::Bytes)
        text += " (" + std::to_string(row.bytes.size()) + " bytes)";
    if (row.item == RowItem::Pid)
        text += " (PID " + std::to_string(row.pid) + ")";
    return text + (row.remark.empty() ? "" : " (" + row.remark + ")");
}

} // namespace

std::string valuesText(const NodeView& node, std::size_t depth)
{
    const std::string indent(2 * depth, ' ');
    std::string text = indent + node.label() + doingOf(node) + '\n';
    for (const ValueRow& row : valueRows(node))
        text.append(indent).append(4, ' ').append(row.name).append(" = ").append(row.data) +=
            itemText(row) + '\n';
    for (std::size_t i = 0; i < node.childCount(); ++i)
        text += valuesText(node.child(i), depth + 1);
    return text;
}

std::string childLabels(const NodeView& node)
{
    std::string labels;
    for (std::size_t i = 0; i < node.childCount(); ++i)
        labels.append(i == 0 ? "" : " ").append(node.child(i).label());
    return labels;
}

} // namespace test
