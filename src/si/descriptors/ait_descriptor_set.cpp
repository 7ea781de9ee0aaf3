#include "si/descriptors/ait_descriptor_set.h"

#include "si/descriptors/typed_lists_impl.h"

namespace lib13818 {

template class TypedLists<AitDescriptorClasses>;

} // namespace lib13818
