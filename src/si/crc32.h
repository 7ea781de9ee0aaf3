#pragma once

#include <cstddef>
#include <cstdint>

namespace lib13818 {

/// The CRC register of ISO/IEC 13818-1 Annex A after running over `count` bytes: polynomial
/// 0x04C11DB7, most significant bit first, start 0xFFFFFFFF, no final complement. Over a whole
/// intact section, CRC_32 included, it is 0. Safe from any thread.
uint32_t crc32Mpeg2(const uint8_t* data, std::size_t count);

/// The same by our own table, which says what the sum is: `crc32Mpeg2` is this one where there is
/// no library that does it with the processor's multiplication of polynomials.
uint32_t crc32ByTable(const uint8_t* data, std::size_t count);

} // namespace lib13818
