#include "si/descriptors/descriptor_set.h"

#include "si/descriptors/typed_lists_impl.h"
#include "si/error.h"

namespace lib13818 {

template class TypedLists<DescriptorClasses>;

void walkChecked(DescriptorSet& set, Bytes loop)
{
    if (set.fill(loop) != 0)
        throw error(-1, kStartEndMismatch, loop.data());
}

DescriptorSet walkEntry(Bytes loop)
{
    DescriptorSet set;
    set.fill(loop);
    return set;
}

} // namespace lib13818
