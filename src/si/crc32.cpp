#include "si/crc32.h"

#include <array>

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

/// x to the power of 8 * `bytes`: what a register is multiplied by to run over that many zeros.
uint32_t powerOver(std::size_t bytes)
{
    uint32_t power = 1;
    for (uint32_t square = 0x100; bytes != 0; bytes >>= 1, square = multiply(square, square))
        if (bytes & 1)
            power = multiply(power, square);
    return power;
}

// Below this the joins cost more than the chains save.
constexpr std::size_t kLeastForChains = 512;

} // namespace

uint32_t crc32Mpeg2(const uint8_t* data, std::size_t count)
{
    uint32_t crc = 0xFFFFFFFF;
    if (count >= kLeastForChains) {
        // A table lookup waits for the one before it: four independent chains keep the processor
        // busy, and since the CRC is linear the quarters join by multiplication.
        const std::size_t quarter = count / 4;
        uint32_t second = 0;
        uint32_t third = 0;
        uint32_t fourth = 0;
        for (std::size_t i = 0; i < quarter; ++i) {
            crc = step(crc, data[i]);
            second = step(second, data[quarter + i]);
            third = step(third, data[2 * quarter + i]);
            fourth = step(fourth, data[3 * quarter + i]);
        }
        const uint32_t power = powerOver(quarter);
        crc = multiply(crc, power) ^ second;
        crc = multiply(crc, power) ^ third;
        crc = multiply(crc, power) ^ fourth;
        data += 4 * quarter;
        count -= 4 * quarter;
    }
    for (std::size_t i = 0; i < count; ++i)
        crc = step(crc, data[i]);
    return crc;
}

} // namespace lib13818
