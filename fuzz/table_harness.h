#pragma once

#include "si/crc32.h"
#include "si/error.h"
#include "si/section.h"
#include "tests/support/bytes.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <sstream>
#include <type_traits>
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
    Table copy = table;
    require(dumpOf(copy) == dumpOf(table));
    copy.clear();
    dumpOf(copy);
}

/// Adds the input as a descriptor loop to a set, as far as its descriptors are taken.
template <class Set>
void decodeLoop(std::span<const uint8_t> input)
{
    const auto block = exactly(input);
    std::span<const uint8_t> loop(block.get(), input.size());
    Set set;
    while (loop.size() >= 2 && loop.size() >= 2U + loop[1]) {
        const auto descriptor = exactly(loop.first(2U + loop[1]));
        try {
            set.add(descriptor.get());
        } catch (const lib13818::error&) {
        }
        loop = loop.subspan(2U + loop[1]);
    }
    Set copy = set;
    require(dumpOf(copy) == dumpOf(set));
    Set moved = std::move(copy);
    require(dumpOf(moved) == dumpOf(set));
    Set::forEachType([&]<class List>() {
        require(moved.template all<List>().size() == set.template all<List>().size());
        moved.template clear<List>();
    });
    require(moved.empty());
    try {
        set.addLoop({block.get(), input.size()});
    } catch (const lib13818::error&) {
    }
    dumpOf(set);
}

} // namespace fuzz
