#include "fuzz/table_harness.h"
#include "si/descriptors/descriptor_set.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    fuzz::decodeLoop<lib13818::DescriptorSet>({data, size});
    return 0;
}
