#include "si/bit_reader.h"

#include <algorithm>

namespace lib13818 {

uint32_t BitReader::unsignedBits(int count)
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

BitReader& BitReader::skip(int bitCount)
{
    position_ += static_cast<std::size_t>(bitCount);
    return *this;
}

std::span<const uint8_t> BitReader::take(int length)
{
    const std::size_t first = std::min(position_ / 8, bytes_.size());
    const auto wanted = static_cast<std::size_t>(length);
    position_ += 8 * wanted;
    return bytes_.subspan(first, std::min(wanted, bytes_.size() - first));
}

std::string BitReader::text(int length)
{
    const auto bytes = take(length);
    return {bytes.begin(), bytes.end()};
}

std::vector<uint8_t> BitReader::rest()
{
    const auto bytes = take(bytesLeft());
    return {bytes.begin(), bytes.end()};
}

std::string BitReader::restText()
{
    return text(bytesLeft());
}

} // namespace lib13818
