#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace tessaview {

/// The bytes of one row of a hex view, and the characters such a row has.
inline constexpr std::size_t kHexRowBytes = 16;
inline constexpr std::size_t kHexRowWidth = 77;

constexpr std::size_t hexRowCount(std::size_t bytes)
{
    return bytes / kHexRowBytes + (bytes % kHexRowBytes != 0);
}

/// A row as text: its offset, its bytes as two digits each, and as characters where they are
/// printable ASCII. `row` is below hexRowCount(bytes.size()).
std::string hexRow(std::span<const std::uint8_t> bytes, std::size_t row);

} // namespace tessaview
