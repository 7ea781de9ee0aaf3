#pragma once

#include "si/bit_reader.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace lib13818 {

/// The size in bytes that the section starting here declares: 3 + section_length.
constexpr std::size_t sectionSize(const uint8_t* section)
{
    return 3U + static_cast<std::size_t>((section[1] & 0x0F) << 8 | section[2]);
}

/// The bytes of one whole section, which nobody changes any more: copies share them, and they stay
/// where they are until the last copy is gone. Empty unless something was put in.
class SectionBytes {
public:
    SectionBytes() = default;
    /// Takes the section over that starts here, which `owner` keeps; 3 + section_length bytes.
    SectionBytes(std::shared_ptr<const void> owner, const uint8_t* section)
        : first_(std::move(owner), section)
    {
    }
    /// A copy of the section that starts here.
    static SectionBytes copyOf(const uint8_t* section);

    bool empty() const { return !first_; }
    Bytes get() const { return empty() ? Bytes() : Bytes(first_.get(), sectionSize(first_.get())); }
    const uint8_t* data() const { return first_.get(); }
    /// Who keeps the bytes.
    const std::shared_ptr<const uint8_t>& owner() const { return first_; }

private:
    std::shared_ptr<const uint8_t> first_;
};

} // namespace lib13818
