#include "explorer/find.h"

#include "tree/value_row.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace tessaview {

namespace {

constexpr std::size_t kLastText = std::numeric_limits<std::size_t>::max();

/// The lowest node of a branch.
NodeView lastBelow(NodeView node)
{
    while (const std::size_t children = node.childCount())
        node = node.child(children - 1);
    return node;
}

} // namespace

NodeView nodeBelow(const NodeView& node)
{
    if (node.childCount() > 0)
        return node.child(0);
    NodeView above = node;
    while (!above.isRoot()) {
        const NodeView parent = above.parent();
        if (above.row() + 1 < parent.childCount())
            return parent.child(above.row() + 1);
        above = parent;
    }
    return above;
}

NodeView nodeAbove(const NodeView& node)
{
    if (node.isRoot())
        return lastBelow(node);
    return node.row() == 0 ? node.parent() : lastBelow(node.parent().child(node.row() - 1));
}

TreeSearch::TreeSearch(const Tree& tree, Match match, TreePlace start, Direction direction,
                       bool takesStart)
    : tree_(tree)
    , match_(std::move(match))
    , direction_(direction)
    , node_(start.node)
    , from_(start.text)
{
    if (takesStart)
        return;
    if (direction == Direction::Forward)
        ++from_;
    else if (from_ == TreePlace::kLabel)
        advance();
    else
        --from_;
}

double TreeSearch::progress() const
{
    return static_cast<double>(visited_) / static_cast<double>(tree_.size() + 1);
}

/// Goes to the next node in the direction of the search.
void TreeSearch::advance()
{
    const NodeView node(tree_, node_);
    const bool isForward = direction_ == Direction::Forward;
    node_ = isForward ? nodeBelow(node).id() : nodeAbove(node).id();
    from_ = isForward ? TreePlace::kLabel : kLastText;
    hasWrapped_ = hasWrapped_ || (isForward ? node_ == 0 : node.isRoot());
}

/// Looks at the texts of a node from `first` to `last`; the first or, backwards, the last match is
/// the hit.
bool TreeSearch::findIn(NodeId id, std::size_t first, std::size_t last)
{
    const NodeView node(tree_, id);
    const auto isHit = [&](std::size_t place, std::string_view text) {
        if (place < first || place > last || !match_(text))
            return false;
        hit_ = {.node = id, .text = place};
        return true;
    };
    const bool isForward = direction_ == Direction::Forward;
    if (isForward && isHit(TreePlace::kLabel, node.label()))
        return true;
    if (last > TreePlace::kLabel && node.kind().item == NodeItem::Filled) {
        fillRows(node, rows_);
        for (std::size_t i = 0; i < rows_.size(); ++i) {
            const std::size_t row = isForward ? i : rows_.size() - 1 - i;
            if (isHit(row + 1, rows_[row].name) || isHit(row + 1, rows_[row].data))
                return true;
        }
    }
    return !isForward && isHit(TreePlace::kLabel, node.label());
}

TreeSearch::Result TreeSearch::step(std::size_t nodes)
{
    const bool isForward = direction_ == Direction::Forward;
    for (; nodes > 0; --nodes) {
        if (visited_ > tree_.size())
            return Result::Nothing;
        ++visited_;
        // The first node is visited again at the end, for the texts on its other side.
        if (isForward ? findIn(node_, from_, kLastText) : findIn(node_, 0, from_))
            return Result::Found;
        advance();
    }
    return visited_ > tree_.size() ? Result::Nothing : Result::Running;
}

} // namespace tessaview
