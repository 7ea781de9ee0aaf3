#include "si/dump.h"

#include <algorithm>
#include <iomanip>

namespace lib13818 {

namespace {

constexpr std::size_t kRowBytes = 16;

char shown(uint8_t byte)
{
    const bool isLetter = (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
    return isLetter ? static_cast<char>(byte) : '.';
}

} // namespace

void hexDump(std::ostream& out, std::span<const uint8_t> bytes)
{
    while (!bytes.empty()) {
        const auto row = bytes.first(std::min(bytes.size(), kRowBytes));
        for (const int byte : row)
            out << std::hex << std::setw(2) << byte << ' ';
        for (std::size_t gap = row.size(); gap < kRowBytes; ++gap)
            out << "   ";
        out << " : ";
        for (const uint8_t byte : row)
            out << shown(byte);
        out << std::endl; // NOLINT(performance-avoid-endl): every line is flushed
        bytes = bytes.subspan(row.size());
    }
}

} // namespace lib13818
