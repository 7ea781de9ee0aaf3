#pragma once

#include "charset/charset_policy.h"
#include "model/network_map.h"
#include "si/descriptors/descriptor.h"
#include "si/descriptors/records.h"
#include "tree/node_kind.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace tessaview {

class Tree;

/// Logs the networks of a model, as for showing them; `valuePane` is only named.
void logNetworks(const NetworkMap& model, const void* valuePane = nullptr);

/// The place of a node in its tree; the root is 0.
using NodeId = std::uint32_t;

/// Where the bytes of a node stand: a part of the section that they came in.
struct SectionPart {
    std::span<const std::uint8_t> section; ///< from table_id to CRC_32; empty for no bytes
    std::size_t offset = 0;                ///< of the first byte in the section
    std::size_t size = 0;                  ///< in bytes
};

/// One node of a tree, for as long as the tree is not rebuilt or cleared. Descriptors and their
/// records are kept as bytes only: the node points at the first, and what it stands for is decoded
/// when it is asked for.
class NodeView {
public:
    NodeView(const Tree& tree, NodeId id) : tree_(&tree), id_(id) {}

    NodeId id() const { return id_; }
    const Tree& tree() const { return *tree_; }
    const NodeKind& kind() const;
    /// What the node stands for, of the type its kind fixes: a reference into the model, or a
    /// descriptor or record as a value.
    template <class T>
    decltype(auto) data() const
    {
        if constexpr (std::derived_from<T, lib13818::Descriptor>) {
            return T(static_cast<const std::uint8_t*>(address()));
        } else if constexpr (std::derived_from<T, lib13818::Record>) {
            lib13818::BitReader in = recordReader();
            return T(in);
        } else {
            return *static_cast<const T*>(address());
        }
    }
    /// The object in the model, or the first byte of a descriptor or record; null for a heading.
    const void* address() const;
    /// The bytes as they were broadcast that the node stands for: a section, an entry of one with
    /// its descriptors, a descriptor or one of its records; none for a node that stands for several
    /// or for none. They live as long as the model does not change.
    std::span<const std::uint8_t> bytes() const;
    /// Where these bytes stand in their section; an empty section for a node without.
    SectionPart sectionPart() const;
    /// Reads from the first byte of a record to the end of its descriptor.
    lib13818::BitReader recordReader() const;
    std::string label() const { return kind().label(*this); }
    /// The network that it belongs to, which is another one for what a stream tells of others.
    std::optional<std::uint32_t> originalNetworkId() const;
    /// The rule by which its texts are read: that of the network it belongs to.
    const CharsetRule& charsetRule() const;

    bool isRoot() const { return id_ == 0; }
    NodeView parent() const;
    std::size_t childCount() const;
    NodeView child(std::size_t row) const;
    /// The place among all children of the parent.
    std::size_t row() const;

private:
    const Tree* tree_;
    NodeId id_;
};

/// Takes the children of one node while it is expanded.
class Children {
public:
    Children(Tree& tree, NodeId parent) : tree_(tree), parent_(parent) {}

    /// A node of the kind that stands for `data`: an object in the model, the first byte of a
    /// descriptor or record, or null for a mere heading.
    void add(const NodeKind& kind, const void* data);

private:
    Tree& tree_;
    NodeId parent_;
};

/// The whole model as one tree, free of any toolkit. A node is 24 bytes; labels and rows are made
/// on demand. Nodes point into the model, so the tree is cleared before the model
/// changes, always.
class Tree {
public:
    /// 2.4 GB: no multiplex comes near, but a stream that somebody made to hurt could pass it.
    static constexpr std::size_t kMostNodes = 100'000'000;

    Tree() = default;
    Tree(const Tree&) = delete;
    Tree& operator=(const Tree&) = delete;

    /// Builds the tree anew in one pass and logs the networks. `valuePane` is only named in the
    /// log. Where memory or `kMostNodes` does not suffice, the tree has the nodes that it came to,
    /// from the upper levels down.
    void rebuild(const NetworkMap& model, const void* valuePane = nullptr);
    /// How many nodes have nothing below them only because there was no room for it.
    std::size_t cutNodes() const { return cutNodes_; }
    /// What a person is to know of a tree that was cut; empty when it is whole.
    std::string problem() const;
    /// Forgets all nodes.
    void clear();

    /// The character tables of labels and rows. They are made on demand, so what has changed here
    /// shows as soon as they are asked for again.
    const CharsetPolicy& charsetPolicy() const { return charsetPolicy_; }
    void setCharsetPolicy(CharsetPolicy policy) { charsetPolicy_ = std::move(policy); }

    bool empty() const { return nodes_.empty(); }
    std::size_t size() const { return nodes_.size(); }
    /// Bytes that the nodes take.
    std::size_t memory() const { return nodes_.capacity() * sizeof(Node); }
    NodeView root() const { return {*this, 0}; }

private:
    friend class NodeView;
    friend class Children;
    friend class TreeWalk;

    struct Node {
        const NodeKind* kind = nullptr;
        const void* data = nullptr;
        NodeId parent = 0;
        /// Where its children begin, which end where those of the next begin.
        NodeId firstChild = 0;
    };

    void cutAt(NodeId unfinished, const char* reason);
    /// Begins with nothing but the root.
    void plant(const NetworkMap& model);
    /// Adds the children of a node at the end.
    void expand(NodeId id);
    /// Takes the children of a node away, which are the last nodes.
    void cutChildren(NodeId id) { nodes_.resize(nodes_[id].firstChild); }

    std::vector<Node> nodes_; ///< breadth first, or as a walk needs them
    const char* cutReason_ = "";
    std::size_t cutNodes_ = 0;
    CharsetPolicy charsetPolicy_;
};

} // namespace tessaview
