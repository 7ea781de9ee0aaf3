#pragma once

#include "si/crc32.h"
#include "si/descriptors/descriptor.h"
#include "si/error.h"
#include "si/section.h"
#include "tests/support/bytes.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <sstream>
#include <type_traits>
#include <utility>
#include <vector>

namespace fuzz {

using test::exactly;

/// What the input would be as a section: its section_length is put right, and for a long one its
/// CRC_32, since no search finds those by chance.
inline std::vector<uint8_t> sectionOf(std::span<const uint8_t> input, bool isLong)
{
    constexpr std::size_t kCrcBytes = 4;
    const std::size_t most = isLong ? 3 + 4095 : 3 + 1023;
    const std::size_t least = isLong ? 3 + kCrcBytes : 3;
    std::vector<uint8_t> section(input.begin(), input.end());
    section.resize(std::clamp(section.size(), least, most));
    const std::size_t length = section.size() - 3;
    section[1] = static_cast<uint8_t>((section[1] & 0xF0) | length >> 8);
    section[2] = static_cast<uint8_t>(length);
    if (isLong) {
        const std::size_t checked = section.size() - kCrcBytes;
        const uint32_t crc = lib13818::crc32Mpeg2(section.data(), checked);
        for (std::size_t i = 0; i < kCrcBytes; ++i)
            section[checked + i] = static_cast<uint8_t>(crc >> (24 - 8 * i));
    }
    return section;
}

template <class Value>
std::string dumpOf(const Value& value)
{
    std::ostringstream out;
    value.dump(out);
    return out.str();
}

inline void require(bool holds)
{
    if (!holds)
        __builtin_trap();
}

/// Decodes the input as a section of the table: it throws the library's error or it decodes, and
/// whatever it holds then can be copied, dumped and cleared.
template <class Table>
void decodeTable(std::span<const uint8_t> input)
{
    const auto section = sectionOf(input, std::is_base_of_v<lib13818::LongSection, Table>);
    Table table;
    try {
        table.parse(std::span<const uint8_t>(exactly(section).get(), section.size()));
        require(table.parsed);
    } catch (const lib13818::error& failure) {
        require(!table.parsed);
        require(failure.code == -1 || failure.code == 2 || failure.code == 3);
    }
    const std::string dump = dumpOf(table);
    Table copy = std::exchange(table, Table());
    require(dumpOf(copy) == dump);
    copy.clear();
    dumpOf(copy);
}

/// Takes the input as a descriptor loop, and each of its descriptors as a loop of its own.
template <class Set>
void decodeLoop(std::span<const uint8_t> input)
{
    const auto block = exactly(input);
    const auto decode = [](std::span<const uint8_t> loop) {
        Set set;
        try {
            const std::size_t left = set.fill(loop);
            require(set.bytes().size() + left == loop.size());
        } catch (const lib13818::error&) {
        }
        std::size_t listed = 0;
        Set::forEachType([&]<class List>() { listed += set.template all<List>().size(); });
        set.forEach([&](std::span<const uint8_t> /*descriptor*/) { --listed; });
        require(listed == 0);
        dumpOf(set);
    };
    const std::span<const uint8_t> loop(block.get(), input.size());
    decode(loop);
    lib13818::forEachDescriptor(loop, [&](const uint8_t* descriptor) {
        const auto own = exactly({descriptor, 2U + descriptor[1]});
        decode({own.get(), 2U + descriptor[1]});
    });
}

} // namespace fuzz
