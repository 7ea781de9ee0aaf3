#include "drivers/common/raw_section.h"

#include <cstring>
#include <new>

namespace tessaview {

void* taskMemory(std::size_t bytes)
{
    void* const block = TessaviewTaskMemAlloc(bytes);
    if (!block)
        throw std::bad_alloc();
    return block;
}

RawSection::RawSection(std::span<const uint8_t> section)
    : bytes_(static_cast<uint8_t*>(taskMemory(section.size())))
    , size_(section.size())
{
    std::memcpy(bytes_.get(), section.data(), section.size());
}

} // namespace tessaview
