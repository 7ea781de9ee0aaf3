#include "cli/print_tree.h"

#include "tree/value_row.h"

#include <algorithm>
#include <future>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace tessaview {

namespace {

/// Adds a JSON text in quotes.
void appendJson(std::string& out, std::string_view text)
{
    using nlohmann::json;
    // Nearly every text: the library takes a while to find that nothing is to be escaped.
    const bool isPlain = std::all_of(text.begin(), text.end(), [](char c) {
        return c >= ' ' && c <= '~' && c != '"' && c != '\\';
    });
    if (isPlain)
        out.append(1, '"').append(text).append(1, '"');
    else
        out += json(text).dump(-1, ' ', false, json::error_handler_t::replace);
}

/// Adds a node and, if asked for, its rows: a line each.
void appendText(std::string& out, const TreeWalk& walk, const std::vector<ValueRow>& rows)
{
    const std::size_t indent = 2 * walk.depth();
    out.append(indent, ' ').append(walk.node().label()) += '\n';
    for (const ValueRow& row : rows)
        out.append(indent + 4, ' ').append(row.name).append(" = ").append(row.data) += '\n';
}

/// Adds a node as an object, up to its children.
void appendJson(std::string& out, const TreeWalk& walk, const std::vector<ValueRow>& rows)
{
    out.append(2 * walk.depth(), ' ') += R"({"label": )";
    appendJson(out, walk.node().label());
    out += R"(, "kind": )";
    appendJson(out, walk.node().kind().name);
    out += R"(, "values": [)";
    for (const ValueRow& row : rows) {
        out += &row == rows.data() ? R"({"name": )" : R"(, {"name": )";
        appendJson(out, row.name);
        out += R"(, "data": )";
        appendJson(out, row.data);
        out += '}';
    }
    out += R"(], "children": [)";
}

/// Ends the objects of the nodes between one of depth `from`, a leaf, and one of depth `to`.
void endJson(std::string& out, std::size_t from, std::size_t to)
{
    out += "]}";
    for (; from > to; --from)
        out.append(1, '\n').append(2 * (from - 1), ' ') += "]}";
}

/// Writes blocks on a thread of its own while the next one is made: a third of the time is the
/// system's for writing.
class BlockWriter {
public:
    explicit BlockWriter(std::ostream& out) : out_(out) {}

    /// Takes the block when the one before is written, and leaves an empty one.
    void write(std::string& block)
    {
        if (writing_.valid())
            writing_.get();
        block_.swap(block);
        block.clear();
        writing_ = std::async(std::launch::async, [this] { out_ << block_; });
    }

private:
    std::ostream& out_;
    std::string block_;
    std::future<void> writing_; ///< ends before what it uses
};

} // namespace

void printTree(std::ostream& out, TreeWalk walk, OutputFormat format)
{
    constexpr std::size_t kBlock = 1 << 20;
    const bool isJson = format == OutputFormat::Json;
    std::string text;
    BlockWriter writer(out);
    std::vector<ValueRow> rows;
    std::size_t depth = 0; // of the node before
    for (bool isFirst = true; walk.next(); isFirst = false) {
        if (format != OutputFormat::Tree)
            fillRows(walk.node(), rows);
        if (isJson && !isFirst) {
            if (walk.depth() <= depth)
                endJson(text, depth, walk.depth());
            text += walk.depth() > depth ? "\n" : ",\n";
        }
        depth = walk.depth();
        isJson ? appendJson(text, walk, rows) : appendText(text, walk, rows);
        if (text.size() >= kBlock)
            writer.write(text);
    }
    if (isJson) {
        endJson(text, depth, 0);
        text += '\n';
    }
    writer.write(text);
}

} // namespace tessaview
