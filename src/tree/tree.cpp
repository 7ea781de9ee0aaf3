#include "tree/tree.h"

#include "log/log_file.h"
#include "tree/network_nodes.h"

#include <new>
#include <stdexcept>

namespace tessaview {

const NodeKind& NodeView::kind() const
{
    return *tree_->nodes_[id_].kind;
}

const void* NodeView::address() const
{
    return tree_->nodes_[id_].data;
}

std::span<const std::uint8_t> NodeView::bytes() const
{
    const auto bytesOf = kind().bytes;
    return bytesOf ? bytesOf(*this) : std::span<const std::uint8_t>();
}

SectionPart NodeView::sectionPart() const
{
    const auto own = bytes();
    if (own.empty())
        return {};
    NodeView at = *this;
    while (at.kind().part != NodePart::Section)
        at = at.parent();
    const auto section = at.bytes();
    return {.section = section,
            .offset = static_cast<std::size_t>(own.data() - section.data()),
            .size = own.size()};
}

lib13818::BitReader NodeView::recordReader() const
{
    NodeView at = *this;
    while (at.kind().part != NodePart::Descriptor)
        at = at.parent();
    const auto descriptor = at.bytes();
    const auto* const first = static_cast<const std::uint8_t*>(address());
    const auto offset = static_cast<std::size_t>(first - descriptor.data());
    return lib13818::BitReader(descriptor.subspan(offset));
}

NodeView NodeView::parent() const
{
    return {*tree_, tree_->nodes_[id_].parent};
}

std::size_t NodeView::childCount() const
{
    const auto& nodes = tree_->nodes_;
    const std::size_t end = id_ + 1U < nodes.size() ? nodes[id_ + 1U].firstChild : nodes.size();
    return end - nodes[id_].firstChild;
}

NodeView NodeView::child(std::size_t row) const
{
    return {*tree_, tree_->nodes_[id_].firstChild + static_cast<NodeId>(row)};
}

std::size_t NodeView::row() const
{
    return isRoot() ? 0 : id_ - tree_->nodes_[tree_->nodes_[id_].parent].firstChild;
}

std::optional<std::uint32_t> NodeView::originalNetworkId() const
{
    for (NodeView at = *this;; at = at.parent()) {
        if (const auto networkOf = at.kind().originalNetworkId)
            return networkOf(at);
        if (at.isRoot())
            return std::nullopt;
    }
}

const CharsetRule& NodeView::charsetRule() const
{
    return tree_->charsetPolicy().ruleFor(originalNetworkId());
}

void Children::add(const NodeKind& kind, const void* data)
{
    if (tree_.nodes_.size() == Tree::kMostNodes)
        throw std::length_error("The tree is full with 100,000,000 nodes");
    tree_.nodes_.push_back({.kind = &kind, .data = data, .parent = parent_});
}

void logNetworks(const NetworkMap& model, const void* valuePane)
{
    NodeId id = 0; // of the root, behind which the networks stand
    for (const auto& [key, network] : model) {
        LogPrint(g_log, 2, "NID=%#x", network.original_network_id);
        LogPrint(g_log, 2, "CTransponderTableListPaneWnd::SetTable(%#x,Network&,%#zx)", ++id,
                 reinterpret_cast<std::size_t>(valuePane));
    }
    LogPrint(g_log, 2, "All networks processed");
}

void Tree::rebuild(const NetworkMap& model, const void* valuePane)
{
    NodeId id = 0;
    try {
        plant(model);
        // Breadth first, so that the children of a node stand side by side.
        for (; id < nodes_.size(); ++id)
            expand(id);
    } catch (const std::bad_alloc&) {
        cutAt(id, "There is not enough memory for the whole tree");
    } catch (const std::length_error& problem) {
        cutAt(id, problem.what());
    }
    logNetworks(model, valuePane);
    if (cutNodes_ > 0)
        LogPrint(g_log, log_level::kError, "%s", problem().c_str());
}

/// Leaves the node whose children could not all be made, and those behind it, without any.
void Tree::cutAt(NodeId unfinished, const char* reason)
{
    cutReason_ = reason;
    if (nodes_.empty()) {
        cutNodes_ = 1; // the root itself
        return;
    }
    nodes_.erase(nodes_.begin() + nodes_[unfinished].firstChild, nodes_.end());
    for (NodeId id = unfinished; id < nodes_.size(); ++id) {
        nodes_[id].firstChild = static_cast<NodeId>(nodes_.size());
        cutNodes_ += nodes_[id].kind->expand ? 1 : 0;
    }
}

std::string Tree::problem() const
{
    if (cutNodes_ == 0)
        return {};
    return std::string(cutReason_) + ": what is below " + std::to_string(cutNodes_) +
           " of its nodes is not shown. All that was read is kept, and "
           "an export to a database holds it.";
}

void Tree::plant(const NetworkMap& model)
{
    clear();
    nodes_.push_back({.kind = &rootKind(), .data = &model});
}

void Tree::expand(NodeId id)
{
    nodes_[id].firstChild = static_cast<NodeId>(nodes_.size());
    Children children(*this, id);
    if (const auto expandKind = nodes_[id].kind->expand)
        expandKind(NodeView(*this, id), children);
    if (id + 1U < nodes_.size())
        nodes_[id + 1U].firstChild = static_cast<NodeId>(nodes_.size());
}

void Tree::clear()
{
    nodes_.clear();
    cutNodes_ = 0;
}

} // namespace tessaview
