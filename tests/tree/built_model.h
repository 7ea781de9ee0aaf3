#pragma once

#include "model/network_map.h"
#include "tools/multiplex/bytes_writer.h"
#include "tree/tree.h"

#include <initializer_list>
#include <string>
#include <vector>

namespace test {

constexpr unsigned kNetwork = 0x0085; ///< the original_network_id of built models
constexpr unsigned kStream = 0x0451;

/// A model of one transport stream, decoded from sections as they are broadcast, and its tree.
class BuiltModel {
public:
    explicit BuiltModel(const std::vector<Bytes>& sections);

    /// The node below the transport stream to which the labels lead; the test fails, and the
    /// transport stream it is, without one.
    tessaview::NodeView at(std::initializer_list<const char*> labels) const;
    tessaview::NodeView transportStream() const { return tree.root().child(0).child(0); }

    tessaview::NetworkMap model;
    tessaview::Tree tree;
};

/// The model with one service that has the descriptors.
BuiltModel modelOfService(const std::vector<Bytes>& descriptors);
/// The service of such a model.
tessaview::NodeView serviceOf(const BuiltModel& built);

/// A node per line, two blanks more for each level.
std::string treeText(const tessaview::NodeView& node, std::size_t depth = 0);
/// The same with what each node does, and below it its rows and what they are besides text.
std::string valuesText(const tessaview::NodeView& node, std::size_t depth = 0);
/// The labels of the children, with blanks between.
std::string childLabels(const tessaview::NodeView& node);

} // namespace test
