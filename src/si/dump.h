#pragma once

#include <cstdint>
#include <iomanip>
#include <ostream>
#include <span>

namespace lib13818 {

/// One line of a dump: label, value in the stream's current format, end of line.
template <class Value>
void line(std::ostream& out, const char* label, const Value& value)
{
    out << label << value << std::endl; // NOLINT(performance-avoid-endl): every line is flushed
}

/// The same with the value in a field of a width.
template <class Value>
void line(std::ostream& out, const char* label, const Value& value, int width)
{
    // The width is for the next thing written only.
    out << label << std::setw(width) << value
        << std::endl; // NOLINT(performance-avoid-endl): every line is flushed
}

/// Sixteen bytes a row, digits and then letters; nothing for no bytes. Needs the stream in
/// hexadecimal, as the header line of a descriptor's dump leaves it.
void hexDump(std::ostream& out, std::span<const uint8_t> bytes);

} // namespace lib13818
