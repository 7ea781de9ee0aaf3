#include "explorer/hex_rows.h"

#include "platform/format.h"

#include <algorithm>

namespace tessaview {

std::string hexRow(std::span<const std::uint8_t> bytes, std::size_t row)
{
    const std::size_t offset = row * kHexRowBytes;
    const auto shown = bytes.subspan(offset, std::min(kHexRowBytes, bytes.size() - offset));
    const std::size_t missing = kHexRowBytes - shown.size();

    std::string text = formatted("%08zxh:", offset);
    for (const std::uint8_t byte : shown)
        text += formatted(" %02x", static_cast<unsigned>(byte));
    text.append(3 * missing, ' ');
    text += " ; ";
    for (const std::uint8_t byte : shown)
        text += byte >= 0x20 && byte <= 0x7E ? static_cast<char>(byte) : '.';
    text.append(missing, ' ');
    return text;
}

} // namespace tessaview
