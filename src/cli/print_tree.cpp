#include "cli/print_tree.h"

#include <nlohmann/json.hpp>
#include <string>

namespace tessaview {

namespace {

void printNode(std::ostream& out, const NodeView& node, std::size_t depth)
{
    out << std::string(2 * depth, ' ') << node.label() << '\n';
    for (std::size_t i = 0; i < node.childCount(); ++i)
        printNode(out, node.child(i), depth + 1);
}

/// A JSON text in quotes.
std::string quoted(std::string_view text)
{
    using nlohmann::json;
    return json(text).dump(-1, ' ', false, json::error_handler_t::replace);
}

/// Written as it goes, so that a tree of any size needs no copy of itself.
void printJson(std::ostream& out, const NodeView& node, std::size_t depth)
{
    const std::string indent(2 * depth, ' ');
    out << indent << R"({"label": )" << quoted(node.label()) << R"(, "kind": )"
        << quoted(node.kind().name) << R"(, "values": [], "children": [)";
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
        printNode(out, tree.root(), 0);
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
