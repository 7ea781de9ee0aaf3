#pragma once

#include "si/bit_reader.h"

#include <cstdint>
#include <ostream>

namespace lib13818 {

/// Two binary-coded decimal digits; digits above 9 are taken as they are.
constexpr int fromBcd(int byte)
{
    return (byte >> 4) * 10 + (byte & 0x0F);
}

/// UTC from a 40-bit field: Modified Julian Date and six BCD digits (EN 300 468 Annex C). Nothing
/// is range-checked; dates before March 1900 are no calendar dates.
struct DateTime {
    DateTime() = default;
    /// From 5 coded bytes.
    explicit DateTime(const uint8_t* coded);
    /// Reads 5 bytes; those past the end count as 0.
    explicit DateTime(BitReader& in);

    int day = 1;
    int month = 1;
    int year = 1;
    int hour = 1;
    int minute = 1;
    int second = 1;
};

/// Six BCD digits.
struct Duration {
    Duration() = default;
    /// From 3 coded bytes.
    explicit Duration(const uint8_t* coded);
    explicit Duration(BitReader& in);

    int hours = 0;
    int minutes = 0;
    int seconds = 0;
};

/// Four BCD digits.
struct HourMinute {
    HourMinute() = default;
    /// From 2 coded bytes.
    explicit HourMinute(const uint8_t* coded);
    explicit HourMinute(BitReader& in);

    int hours = 0;
    int minutes = 0;
};

// Each switches the stream to decimal and leaves it so.
std::ostream& operator<<(std::ostream& out, const DateTime& time);   ///< 13/10-1993 12:45:0
std::ostream& operator<<(std::ostream& out, const Duration& time);   ///< 1:30:0
std::ostream& operator<<(std::ostream& out, const HourMinute& time); ///< 1:30

} // namespace lib13818
