#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace test {

using Bytes = std::vector<uint8_t>;

/// Writes big-endian fields one behind the other.
class Writer {
public:
    Writer& u8(unsigned value);
    Writer& u16(unsigned value);
    Writer& u32(uint32_t value);
    /// Decimal digits as nibbles, the last `digits` of the value; two to a byte, so an even count.
    Writer& bcd(uint64_t value, int digits);
    Writer& bytes(std::span<const uint8_t> data);
    Writer& text(std::string_view text);
    /// A length byte and the text.
    Writer& countedText(std::string_view text);
    /// A 12-bit length behind four high bits, and then the loop.
    Writer& loop(std::span<const uint8_t> data, unsigned highBits = 0xF);

    operator const Bytes&() const { return out_; } // NOLINT(google-explicit-constructor)
    const Bytes& get() const { return out_; }

private:
    Bytes out_;
};

/// The runs one behind the other.
Bytes joined(const std::vector<Bytes>& runs);

} // namespace test
