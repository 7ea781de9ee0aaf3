#pragma once

#include "tree/tree.h"
#include "tree/value_row.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

namespace tessaview {

/// A text of a tree: the label of a node, or one of its rows with its name and data.
struct TreePlace {
    static constexpr std::size_t kLabel = 0;

    NodeId node = 0;
    std::size_t text = kLabel; ///< row n has n + 1

    friend auto operator<=>(const TreePlace&, const TreePlace&) = default;
};

/// Looks for the next text that matches, in the order in which a fully expanded tree shows its
/// nodes, around the end and back to where it began. It works in small steps, so that who shows
/// the tree can go on meanwhile, and is dropped to be cancelled; the tree must stay as it is.
class TreeSearch {
public:
    using Match = std::function<bool(std::string_view utf8)>;
    enum class Direction : std::uint8_t { Forward, Backward };
    enum class Result : std::uint8_t { Running, Found, Nothing };

    /// The place of `start` itself counts first when `takesStart`, last otherwise. The tree must
    /// not be empty.
    TreeSearch(const Tree& tree, Match match, TreePlace start, Direction direction,
               bool takesStart);

    /// Looks at up to that many nodes.
    Result step(std::size_t nodes);
    /// The match, once it is found.
    TreePlace hit() const { return hit_; }
    /// Whether the search has gone around the end of the tree.
    bool hasWrapped() const { return hasWrapped_; }
    /// The part of the tree that was looked at, 0 to 1.
    double progress() const;

private:
    bool findIn(NodeId id, std::size_t first, std::size_t last);
    void advance();

    const Tree& tree_;
    Match match_;
    Direction direction_;
    NodeId node_;
    std::size_t from_; ///< the bound on the side where the node is entered
    std::size_t visited_ = 0;
    bool hasWrapped_ = false;
    TreePlace hit_;
    std::vector<ValueRow> rows_; ///< of the node looked at, kept for their memory
};

/// The node that a fully expanded tree shows below a node; the root below the last one.
NodeView nodeBelow(const NodeView& node);
/// The node that a fully expanded tree shows above a node; the last one above the root.
NodeView nodeAbove(const NodeView& node);

} // namespace tessaview
