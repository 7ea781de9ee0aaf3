#include "si/text.h"

namespace lib13818 {

namespace {

constexpr bool isSelector(uint8_t byte)
{
    return byte <= 0x06 || (byte >= 0x0F && byte <= 0x12) || byte == 0x1F;
}

} // namespace

StrippedText stripSelector(std::span<const uint8_t> bytes)
{
    StrippedText result;
    if (!bytes.empty() && isSelector(bytes.front())) {
        result.selector = bytes.front();
        bytes = bytes.subspan(1);
    }
    result.text.assign(bytes.begin(), bytes.end());
    return result;
}

} // namespace lib13818
