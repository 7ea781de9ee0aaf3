#pragma once

#include "si/descriptors/typed_lists.h"

#include <cstdint>
#include <span>

namespace lib13818 {

/// The descriptor classes, a list each in this order. To add a class, write it in its family's
/// file and enter it here: dispatch, copies and the tree's check follow.
// clang-format off
struct DescriptorClasses : ClassList<
    HighUserPrivate,
    LowUserPrivate> {};
// clang-format on

/// The descriptors of one table entity (EN 300 468 clause 6, ISO/IEC 13818-1 clause 2.6).
using DescriptorSet = TypedLists<DescriptorClasses>;

/// Adds every descriptor of the loop; throws "descriptor start end mismatch" if the loop does not
/// end where its last one does.
void walkChecked(DescriptorSet& set, std::span<const uint8_t> loop);

/// Adds the descriptors that fit into the loop and leaves what follows them.
void walkEntry(DescriptorSet& set, std::span<const uint8_t> loop);

/// Dumps the descriptors of one class.
template <class List, class Set>
void dumpList(std::ostream& out, const Set& set)
{
    for (const auto& descriptor : set.template all<List>())
        descriptor.dump(out);
}

// Instantiated once, in descriptor_set.cpp: its members touch every class.
extern template class TypedLists<DescriptorClasses>;

} // namespace lib13818
