#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace lib13818 {

/// Reads big-endian fields off the front of a byte range, most significant bit first.
///
/// A field that would reach past the end reads as 0; texts and byte runs are cut there. The
/// position still moves on, so `exactlyAtEnd` tells a loop that fits from one that overruns.
class BitReader {
public:
    BitReader() = default;
    explicit BitReader(std::span<const uint8_t> bytes) : bytes_(bytes) {}

    bool atEnd() const { return position_ >= 8 * bytes_.size(); }
    bool exactlyAtEnd() const { return position_ == 8 * bytes_.size(); }
    int bytesLeft() const { return atEnd() ? 0 : static_cast<int>(bytes_.size() - position_ / 8); }

    /// The next `count` bits, 0 to 31.
    int bits(int count) { return static_cast<int>(unsignedBits(count)); }
    int u8() { return bits(8); }
    int u16() { return bits(16); }
    uint32_t u32() { return unsignedBits(32); }
    bool flag() { return bits(1) != 0; }
    BitReader& skip(int bitCount);

    /// The next `length` bytes as a range of their own, cut at the end.
    std::span<const uint8_t> take(int length);
    std::string text(int length);
    /// A text behind a length byte.
    std::string countedText() { return text(u8()); }
    /// Everything that is left.
    std::vector<uint8_t> rest();
    std::string restText();

private:
    uint32_t unsignedBits(int count);

    std::span<const uint8_t> bytes_;
    std::size_t position_ = 0; // in bits
};

} // namespace lib13818
