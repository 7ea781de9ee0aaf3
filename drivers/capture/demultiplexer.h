#pragma once

#include "drivers/capture/packet_file.h"
#include "drivers/capture/section_assembler.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tessaview {

/// Finds the sections of a few PIDs in a captured stream, in one pass.
class Demultiplexer {
public:
    /// Sections of this PID are wanted; false when there is no such PID.
    bool select(std::uint32_t pid);

    /// Hands every section of the selected PIDs to `take(pid, section)`, in the order in which
    /// they end, until it answers false.
    template <class Take>
    void run(PacketFile& file, Take take)
    {
        bool goesOn = true;
        file.forEachPacket([&](const uint8_t* packet) {
            const std::uint32_t pid = (packet[1] & 0x1FU) << 8 | packet[2];
            const uint16_t slot = slotOf_[pid];
            if (slot != kNotSelected)
                assemblers_[slot - 1U].take(packet, [&](std::span<const uint8_t> section) {
                    goesOn = goesOn && take(pid, section);
                });
            return goesOn;
        });
    }

private:
    static constexpr std::uint32_t kPids = 0x2000;
    static constexpr uint16_t kNotSelected = 0;

    std::array<uint16_t, kPids> slotOf_{}; // one more than the assembler's index
    std::vector<SectionAssembler> assemblers_;
};

} // namespace tessaview
