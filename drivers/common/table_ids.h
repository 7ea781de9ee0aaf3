#pragma once

#include <cstdint>

// What a table_id tells about a table (EN 300 468, table 2).

namespace tessaview {

/// The first of the tables with a short header: TDT, RST, stuffing, TOT.
constexpr std::uint8_t kFirstShortTable = 0x70;

/// Whether it is an event information table of any kind.
constexpr bool isEventTable(std::uint8_t table_id)
{
    return table_id >= 0x4E && table_id <= 0x6F;
}

/// The bits of a table_id that a section has to have in common with a request: a request for an
/// event schedule names the first of the sixteen that it is spread over.
constexpr std::uint8_t tableIdMask(std::uint8_t requested)
{
    return requested == 0x50 || requested == 0x60 ? 0xF0 : 0xFF;
}

} // namespace tessaview
