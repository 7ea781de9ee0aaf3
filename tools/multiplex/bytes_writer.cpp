#include "tools/multiplex/bytes_writer.h"

namespace test {

Writer& Writer::u8(unsigned value)
{
    out_.push_back(static_cast<uint8_t>(value));
    return *this;
}

Writer& Writer::u16(unsigned value)
{
    return u8(value >> 8).u8(value);
}

Writer& Writer::u32(uint32_t value)
{
    return u16(value >> 16).u16(value);
}

Writer& Writer::bcd(uint64_t value, int digits)
{
    std::vector<unsigned> nibbles(static_cast<std::size_t>(digits));
    for (auto nibble = nibbles.rbegin(); nibble != nibbles.rend(); ++nibble, value /= 10)
        *nibble = static_cast<unsigned>(value % 10);
    for (std::size_t i = 0; i + 1 < nibbles.size(); i += 2)
        u8(nibbles[i] << 4 | nibbles[i + 1]);
    return *this;
}

Writer& Writer::bytes(std::span<const uint8_t> data)
{
    out_.insert(out_.end(), data.begin(), data.end());
    return *this;
}

Writer& Writer::text(std::string_view text)
{
    out_.insert(out_.end(), text.begin(), text.end());
    return *this;
}

Writer& Writer::countedText(std::string_view value)
{
    return u8(static_cast<unsigned>(value.size())).text(value);
}

Writer& Writer::loop(std::span<const uint8_t> data, unsigned highBits)
{
    return u16(highBits << 12 | static_cast<unsigned>(data.size())).bytes(data);
}

Bytes joined(const std::vector<Bytes>& runs)
{
    Writer out;
    for (const Bytes& run : runs)
        out.bytes(run);
    return out;
}

} // namespace test
