#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace lib13818 {

/// A run of bytes in a section.
using Bytes = std::span<const uint8_t>;

/// Reads big-endian fields off the front of a byte range, most significant bit first. Texts and
/// byte runs are views into the range.
///
/// A field that would reach past the end reads as 0; texts and byte runs are cut there. The
/// position still moves on, so `exactlyAtEnd` tells a loop that fits from one that overruns.
class BitReader {
public:
    BitReader() = default;
    explicit BitReader(Bytes bytes) noexcept : bytes_(bytes) {}

    bool atEnd() const noexcept { return position_ >= 8 * bytes_.size(); }
    bool exactlyAtEnd() const noexcept { return position_ == 8 * bytes_.size(); }
    int bytesLeft() const noexcept
    {
        return atEnd() ? 0 : static_cast<int>(bytes_.size() - position_ / 8);
    }
    /// The byte that is read next; past the last one at the end.
    const uint8_t* place() const noexcept { return bytes_.data() + bytes_.size() - bytesLeft(); }

    /// The next `count` bits, 0 to 31.
    int bits(int count) noexcept { return static_cast<int>(unsignedBits(count)); }
    int u8() noexcept { return bits(8); }
    int u16() noexcept { return bits(16); }
    uint32_t u32() noexcept { return unsignedBits(32); }
    bool flag() noexcept { return bits(1) != 0; }
    BitReader& skip(int bitCount) noexcept
    {
        position_ += static_cast<std::size_t>(bitCount);
        return *this;
    }

    /// The next `length` bytes as a range of their own, cut at the end.
    Bytes take(int length) noexcept
    {
        const std::size_t first = std::min(position_ / 8, bytes_.size());
        const auto wanted = static_cast<std::size_t>(length);
        position_ += 8 * wanted;
        return bytes_.subspan(first, std::min(wanted, bytes_.size() - first));
    }
    std::string_view text(int length) noexcept
    {
        const Bytes bytes = take(length);
        return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
    }
    /// A text behind a length byte.
    std::string_view countedText() noexcept { return text(u8()); }
    /// Everything that is left.
    Bytes rest() noexcept { return take(bytesLeft()); }
    std::string_view restText() noexcept { return text(bytesLeft()); }

private:
    uint32_t unsignedBits(int count) noexcept
    {
        const std::size_t first = position_;
        position_ += static_cast<std::size_t>(count);
        if (position_ > 8 * bytes_.size())
            return 0;
        uint64_t value = 0;
        for (std::size_t byte = first / 8; 8 * byte < position_; ++byte)
            value = value << 8 | bytes_[byte];
        const std::size_t unread = (8 - position_ % 8) % 8;
        return static_cast<uint32_t>(value >> unread & ((uint64_t{1} << count) - 1));
    }

    Bytes bytes_;
    std::size_t position_ = 0; // in bits
};

} // namespace lib13818
