#include "si/section_bytes.h"

#include <cstring>

namespace lib13818 {

SectionBytes SectionBytes::copyOf(const uint8_t* section)
{
    const std::size_t size = sectionSize(section);
    auto copy = std::make_shared_for_overwrite<uint8_t[]>(size);
    std::memcpy(copy.get(), section, size);
    const uint8_t* const first = copy.get();
    return {std::move(copy), first};
}

} // namespace lib13818
