#include "si/crc32.h"

#include <algorithm>
#include <array>

#ifdef TESSAVIEW_HAS_ISAL
#include <isa-l/crc.h>
#endif

namespace lib13818 {

namespace {

constexpr uint32_t kPolynomial = 0x04C11DB7;

constexpr std::array<uint32_t, 256> kTable = [] {
    std::array<uint32_t, 256> table{};
    for (uint32_t i = 0; i < table.size(); ++i) {
        uint32_t value = i << 24;
        for (int bit = 0; bit < 8; ++bit)
            value = value << 1 ^ ((value >> 31) * kPolynomial);
        table[i] = value;
    }
    return table;
}();

constexpr uint32_t step(uint32_t crc, uint8_t byte)
{
    return crc << 8 ^ kTable[(crc >> 24) ^ byte];
}

/// The product of two polynomials over GF(2), modulo the CRC's.
constexpr uint32_t multiply(uint32_t a, uint32_t b)
{
    uint32_t product = 0;
    for (int bit = 31; bit >= 0; --bit) {
        product = product << 1 ^ ((product >> 31) * kPolynomial);
        product ^= (b >> bit & 1) * a;
    }
    return product;
}

// The bytes of a chain are a multiple of the unit, so that its power stands in a table.
constexpr std::size_t kChainUnit = 16;
constexpr std::size_t kLongestChain = 1024; // a quarter of the longest section

/// x to the power of 8 * `kChainUnit` * index: what a register is multiplied by to run over that
/// many units of zeros.
constexpr std::array<uint32_t, kLongestChain / kChainUnit + 1> kPowers = [] {
    std::array<uint32_t, kLongestChain / kChainUnit + 1> powers{};
    uint32_t overUnit = 1;
    for (std::size_t byte = 0; byte < kChainUnit; ++byte)
        overUnit = multiply(overUnit, 0x100);
    powers[0] = 1;
    for (std::size_t i = 1; i < powers.size(); ++i)
        powers[i] = multiply(powers[i - 1], overUnit);
    return powers;
}();

// Below this the joins cost more than the chains save.
constexpr std::size_t kLeastForChains = 320;

/// A table lookup waits for the one before it: four independent chains keep the processor busy,
/// and since the CRC is linear their registers join by multiplication.
uint32_t overFourChains(uint32_t crc, const uint8_t* data, std::size_t chain)
{
    uint32_t second = 0;
    uint32_t third = 0;
    uint32_t fourth = 0;
    for (std::size_t i = 0; i < chain; ++i) {
        crc = step(crc, data[i]);
        second = step(second, data[chain + i]);
        third = step(third, data[2 * chain + i]);
        fourth = step(fourth, data[3 * chain + i]);
    }
    const uint32_t power = kPowers[chain / kChainUnit];
    crc = multiply(crc, power) ^ second;
    crc = multiply(crc, power) ^ third;
    return multiply(crc, power) ^ fourth;
}

} // namespace

uint32_t crc32ByTable(const uint8_t* data, std::size_t count)
{
    uint32_t crc = 0xFFFFFFFF;
    while (count >= kLeastForChains) {
        const std::size_t chain = std::min(count / 4, kLongestChain) / kChainUnit * kChainUnit;
        crc = overFourChains(crc, data, chain);
        data += 4 * chain;
        count -= 4 * chain;
    }
    for (std::size_t i = 0; i < count; ++i)
        crc = step(crc, data[i]);
    return crc;
}

uint32_t crc32Mpeg2(const uint8_t* data, std::size_t count)
{
#ifdef TESSAVIEW_HAS_ISAL
    // The same polynomial and order of bits, with a complement before and after.
    return ~crc32_ieee(0, data, count);
#else
    return crc32ByTable(data, count);
#endif
}

} // namespace lib13818
