#include "cli/print_tree.h"

#include "explorer/value_row.h"

#include <nlohmann/json.hpp>
#include <string>

namespace tessaview {

namespace {

void printNode(std::ostream& out, const NodeView& node, bool withValues, std::size_t depth)
{
    const std::string indent(2 * depth, ' ');
    out << indent << node.label() << '\n';
    if (withValues)
        for (const ValueRow& row : valueRows(node))
            out << indent << "    " << row.name << " = " << row.data << '\n';
    for (std::size_t i = 0; i < node.childCount(); ++i)
        printNode(out, node.child(i), withValues, depth + 1);
}

/// A JSON text in quotes.
std::string jsonText(std::string_view text)
{
    using nlohmann::json;
    return json(text).dump(-1, ' ', false, json::error_handler_t::replace);
}

/// The rows of a node, without the brackets around them.
std::string jsonRows(const NodeView& node)
{
    std::string json;
    for (const ValueRow& row : valueRows(node)) {
        json += json.empty() ? "" : ", ";
        json += R"({"name": )" + jsonText(row.name) + R"(, "data": )" + jsonText(row.data) + "}";
    }
    return json;
}

/// Written as it goes, so that a tree of any size needs no copy of itself.
void printJson(std::ostream& out, const NodeView& node, std::size_t depth)
{
    const std::string indent(2 * depth, ' ');
    out << indent << R"({"label": )" << jsonText(node.label()) << R"(, "kind": )"
        << jsonText(node.kind().name) << R"(, "values": [)" << jsonRows(node)
        << R"(], "children": [)";
    for (std::size_t i = 0; i < node.childCount(); ++i) {
        out << (i == 0 ? "\n" : ",\n");
        printJson(out, node.child(i), depth + 1);
    }
    if (node.childCount() > 0)
        out << '\n' << indent;
    out << "]}";
}

} // namespace

void printTree(std::ostream& out, const Tree& tree, OutputFormat format)
{
    switch (format) {
    case OutputFormat::Tree:
        printNode(out, tree.root(), false, 0);
        break;
    case OutputFormat::Values:
        printNode(out, tree.root(), true, 0);
        break;
    case OutputFormat::Json:
        printJson(out, tree.root(), 0);
        out << '\n';
        break;
    case OutputFormat::None:
        break;
    }
}

} // namespace tessaview
