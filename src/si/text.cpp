#include "si/text.h"

namespace lib13818 {

namespace {

constexpr bool isSelector(uint8_t byte)
{
    return byte <= 0x06 || (byte >= 0x0F && byte <= 0x12) || byte == 0x1F;
}

} // namespace

StrippedText stripSelector(std::string_view bytes) noexcept
{
    const auto first = bytes.empty() ? uint8_t{0xFF} : static_cast<uint8_t>(bytes.front());
    if (!isSelector(first))
        return {.text = bytes, .selector = std::nullopt};
    return {.text = bytes.substr(1), .selector = first};
}

} // namespace lib13818
