#include "si/descriptors/descriptor_set.h"

#include "si/descriptors/typed_lists_impl.h"
#include "si/error.h"

namespace lib13818 {

template class TypedLists<DescriptorClasses>;

void walkChecked(DescriptorSet& set, std::span<const uint8_t> loop)
{
    if (set.addLoop(loop) != 0)
        throw error(kStartEndMismatch);
}

void walkEntry(DescriptorSet& set, std::span<const uint8_t> loop)
{
    set.addLoop(loop);
}

} // namespace lib13818
