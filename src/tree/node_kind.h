#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tessaview {

class Children;
class NodeView;
struct ValueRow;

/// What the nodes of a kind carry for the value pane.
enum class NodeItem : std::uint8_t {
    None,  ///< selecting it leaves the value pane as it was
    Plain, ///< selecting it empties the value pane
    Filled ///< selecting it shows its rows
};

/// What the bytes of a node are.
enum class NodePart : std::uint8_t {
    None,       ///< it stands for no bytes of its own
    Section,    ///< a whole section
    Entry,      ///< an entry of a section, its descriptor loop included
    Descriptor, ///< a descriptor, from its tag
    Record      ///< an entry of a descriptor
};

/// The menus that a right click on a node may open, by resource id.
enum class ContextMenu : std::uint16_t {
    None = 0,
    CableDelivery = 139,
    TerrestrialDelivery = 140,
    Program = 144,
    TransportStream = 145,
    SatelliteDelivery = 148
};

/// A kind of tree node: one static object each.
struct NodeKind {
    const char* name; ///< for machines: "sdt-service", "service_descriptor"
    std::string (*label)(const NodeView& node);
    /// Adds the children of a node; null for a leaf.
    void (*expand)(const NodeView& node, Children& children) = nullptr;
    /// Adds the rows of a node; null for a kind without fields.
    void (*fill)(const NodeView& node, std::vector<ValueRow>& rows) = nullptr;
    NodeItem item = fill ? NodeItem::Filled : NodeItem::Plain;
    ContextMenu menu = ContextMenu::None;
    /// The network that a node and all below it belong to; null for a kind that does not say.
    std::uint32_t (*originalNetworkId)(const NodeView& node) = nullptr;
    /// The bytes of a node, and what they are; null for a kind that has none.
    std::span<const std::uint8_t> (*bytes)(const NodeView& node) = nullptr;
    NodePart part = NodePart::None;
};

} // namespace tessaview
