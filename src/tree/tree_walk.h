#pragma once

#include "tree/tree.h"

#include <cstddef>

namespace tessaview {

/// Goes through all nodes that a tree of the model would have, each before its children. Only the
/// nodes from the root to the present one exist, and their siblings: to write a tree of any size
/// takes the memory of a path.
class TreeWalk {
public:
    /// Stands before the root. The model must not change until the walk is over.
    TreeWalk(const NetworkMap& model, CharsetPolicy charsets);

    /// Goes to the next node; false behind the last one.
    bool next();
    /// The present node, with its children but not theirs; until `next` is called.
    NodeView node() const { return {tree_, at_}; }
    /// Nodes above the present one.
    std::size_t depth() const { return depth_; }

private:
    void leave();

    Tree tree_;
    NodeId at_ = 0;
    std::size_t depth_ = 0;
    bool hasBegun_ = false;
};

} // namespace tessaview
