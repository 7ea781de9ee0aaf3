#pragma once

#include "charset/display_text.h"
#include "si/descriptors/descriptor.h"
#include "si/texts/registries.h"
#include "tree/tree.h"

#include <cstdint>
#include <string>

// What the kinds of tables and those of networks share.

namespace tessaview {

/// A fixed label.
template <lib13818::Literal Text>
std::string fixed(const NodeView& /*node*/)
{
    return Text.text;
}

/// The network that what a node stands for names itself.
template <class T>
std::uint32_t originalNetworkIdOf(const NodeView& node)
{
    return static_cast<std::uint32_t>(node.data<T>().original_network_id);
}

/// The registered name of a network.
inline std::string networkText(std::uint32_t original_network_id)
{
    return registryText(lib13818::originalNetworkName(original_network_id));
}

} // namespace tessaview
