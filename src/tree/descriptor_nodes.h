#pragma once

#include "si/descriptors/descriptor_set.h"
#include "tree/tree.h"

namespace tessaview {

/// Adds the groups of a descriptor loop, one per class in the tree's order: one descriptor is a
/// node of its own, more are numbered nodes under one with the plural label.
void addDescriptorLoop(const lib13818::DescriptorSet& descriptors, Children& children);

} // namespace tessaview
