#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace test {

using Bytes = std::vector<uint8_t>;

/// The bytes of a hexadecimal text; blanks are for the reader.
inline std::vector<uint8_t> hex(std::string_view text)
{
    std::vector<uint8_t> bytes;
    for (std::size_t i = 0; i + 1 < text.size(); ++i)
        if (text[i] != ' ' && text[i] != '\n')
            bytes.push_back(
                static_cast<uint8_t>(std::stoi(std::string(text.substr(i++, 2)), nullptr, 16)));
    return bytes;
}

/// A heap block of exactly these bytes, so that the address sanitizer sees a read one too far.
inline std::unique_ptr<uint8_t[]> exactly(std::span<const uint8_t> bytes)
{
    auto block = std::make_unique<uint8_t[]>(bytes.size());
    std::copy(bytes.begin(), bytes.end(), block.get());
    return block;
}

/// Builds a descriptor from its bytes, which stay for good since it is a view of them.
template <class Descriptor>
Descriptor decode(std::string_view text)
{
    static std::vector<std::unique_ptr<uint8_t[]>> kept;
    return Descriptor(kept.emplace_back(exactly(hex(text))).get());
}

/// Decodes a section that stands in a block of exactly its size.
template <class Table>
Table parsed(std::span<const uint8_t> section)
{
    Table table;
    table.parse(exactly(section).get());
    return table;
}

} // namespace test
