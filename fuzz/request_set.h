#pragma once

#include "drivers/common/section_collector.h"

#include <vector>

namespace fuzz {

/// A collector for a request of every kind that the explorer makes.
inline std::vector<tessaview::SectionCollector> everyCollector(tessaview::SectionBudget& budget)
{
    using tessaview::CollectionMode;
    struct Wanted {
        unsigned pid;
        unsigned table_id;
        CollectionMode mode;
    };
    constexpr Wanted kWanted[] = {
        {0x0000, 0x00, CollectionMode::SingleInstance},
        {0x0001, 0x01, CollectionMode::SingleInstance},
        {0x0010, 0x40, CollectionMode::SingleInstance},
        {0x0010, 0x41, CollectionMode::OtherNetworks},
        {0x0011, 0x42, CollectionMode::SingleInstance},
        {0x0011, 0x46, CollectionMode::OtherStreams},
        {0x0011, 0x4A, CollectionMode::OtherNetworks},
        {0x0012, 0x4E, CollectionMode::AllEvents},
        {0x0012, 0x50, CollectionMode::AllEvents},
        {0x0012, 0x60, CollectionMode::AllEvents},
        {0x0013, 0x71, CollectionMode::SingleInstance},
        {0x0014, 0x70, CollectionMode::SingleInstance},
        {0x0014, 0x73, CollectionMode::SingleInstance},
        {0x0100, 0x02, CollectionMode::SingleInstance},
    };
    std::vector<tessaview::SectionCollector> collectors;
    for (const Wanted& wanted : kWanted)
        collectors.emplace_back(
            tessaview::TableRequest{.PID = wanted.pid,
                                    .table_id = static_cast<std::uint8_t>(wanted.table_id),
                                    .padding1 = {},
                                    .collection_mode = static_cast<std::uint32_t>(wanted.mode),
                                    .reserved1 = {},
                                    .match_table_id_extension = wanted.table_id == 0x02 ? 1U : 0U,
                                    .table_id_extension = 1,
                                    .reserved2 = {},
                                    .reserved3 = {},
                                    .reserved4 = {}},
            budget);
    return collectors;
}

} // namespace fuzz
