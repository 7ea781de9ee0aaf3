#include "tree/network_nodes.h"

#include "platform/format.h"
#include "tree/node_labels.h"
#include "tree/table_nodes.h"
#include "tree/value_row.h"

namespace tessaview {

namespace {

void expandStream(const NodeView& node, Children& children)
{
    addTables(node.data<Transponder>(), children);
}

constexpr NodeKind kTransportStream{
    .name = "transport-stream",
    .label = [](const NodeView& node) { return transponderText(node.data<Transponder>()); },
    .expand = expandStream,
    .menu = ContextMenu::TransportStream};

/// A stream that was stored though a table is missing; its row says which.
constexpr NodeKind kIncompleteStream{
    .name = "transport-stream",
    .label = [](const NodeView& node) { return transponderText(node.data<Transponder>()); },
    .expand = expandStream,
    .fill =
        [](const NodeView& node, std::vector<ValueRow>& rows) {
            rows.push_back(
                {.name = "Incomplete",
                 .data = "the stream carries " + node.data<Transponder>().needed.lack()});
        },
    .menu = ContextMenu::TransportStream};

std::string networkLabel(const NodeView& node)
{
    const std::uint32_t network = originalNetworkIdOf<Network>(node);
    return network > kLastIdentifier
               ? "No table names the network"
               : formatted("%04X - %s", network, networkText(network).c_str());
}

void expandNetwork(const NodeView& node, Children& children)
{
    for (const auto& [id, transponder] : node.data<Network>().transponders)
        children.add(transponder.needed.areThere() ? kTransportStream : kIncompleteStream,
                     &transponder);
}

constexpr NodeKind kNetwork{.name = "network",
                            .label = networkLabel,
                            .expand = expandNetwork,
                            .originalNetworkId = originalNetworkIdOf<Network>};

void expandRoot(const NodeView& node, Children& children)
{
    for (const auto& [id, network] : node.data<NetworkMap>())
        children.add(kNetwork, &network);
}

constexpr NodeKind kRoot{.name = "root", .label = fixed<"ALL NETWORKS">, .expand = expandRoot};

} // namespace

const NodeKind& rootKind()
{
    return kRoot;
}

} // namespace tessaview
