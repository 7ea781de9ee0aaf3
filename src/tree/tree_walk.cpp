#include "tree/tree_walk.h"

#include <utility>

namespace tessaview {

TreeWalk::TreeWalk(const NetworkMap& model, CharsetPolicy charsets)
{
    tree_.setCharsetPolicy(std::move(charsets));
    tree_.plant(model);
}

bool TreeWalk::next()
{
    if (std::exchange(hasBegun_, true)) {
        if (node().childCount() > 0) {
            at_ = node().child(0).id();
            ++depth_;
        } else {
            while (node().isRoot() || node().row() + 1 == node().parent().childCount()) {
                if (node().isRoot())
                    return false;
                leave();
            }
            tree_.cutChildren(at_++);
        }
    }
    tree_.expand(at_);
    return true;
}

void TreeWalk::leave()
{
    tree_.cutChildren(at_);
    at_ = node().parent().id();
    --depth_;
}

} // namespace tessaview
