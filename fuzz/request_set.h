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
    constexpr auto one = CollectionMode::SingleInstance;
    constexpr auto events = CollectionMode::AllEvents;
    constexpr Wanted kWanted[] = {
        {0x00, 0x00, one},
        {0x01, 0x01, one},
        {0x100, 0x02, one},
        {0x10, 0x40, one},
        {0x11, 0x42, one},
        {0x13, 0x71, one},
        {0x14, 0x70, one},
        {0x14, 0x73, one},
        {0x12, 0x4E, events},
        {0x12, 0x50, events},
        {0x12, 0x60, events},
        {0x10, 0x41, CollectionMode::OtherNetworks},
        {0x11, 0x4A, CollectionMode::OtherNetworks},
        {0x11, 0x46, CollectionMode::OtherStreams},
    };
    std::vector<tessaview::SectionCollector> collectors;
    for (const Wanted& wanted : kWanted) {
        tessaview::TableRequest request{};
        request.PID = wanted.pid;
        request.table_id = static_cast<std::uint8_t>(wanted.table_id);
        request.collection_mode = static_cast<std::uint32_t>(wanted.mode);
        request.match_table_id_extension = wanted.table_id == 0x02 ? 1U : 0U;
        request.table_id_extension = 1;
        collectors.emplace_back(request, budget);
    }
    return collectors;
}

} // namespace fuzz
