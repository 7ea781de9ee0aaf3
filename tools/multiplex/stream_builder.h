#pragma once

#include "tools/multiplex/bytes_writer.h"

#include <array>
#include <cstddef>

namespace test {

constexpr std::size_t kPacketSize = 188;

/// Puts sections into the packets of a transport stream (ISO/IEC 13818-1, 2.4.3 and 2.4.4.1).
class StreamBuilder {
public:
    /// One section or several, one right behind the other from the start of a packet; what is
    /// left of the last packet is stuffed. `gap` stuffing bytes stand in an adaptation field
    /// of the first packet, which moves the borders between packets.
    StreamBuilder& put(unsigned pid, std::span<const uint8_t> sections, std::size_t gap = 0);

    /// Sections of one PID whose packets are full: each starts right behind the one before it,
    /// wherever that is, by the pointer field.
    StreamBuilder& putPacked(unsigned pid, const std::vector<Bytes>& sections);

    StreamBuilder& nullPackets(std::size_t count);
    /// A packet of payload as it is, as of audio or video.
    StreamBuilder& payload(unsigned pid, std::span<const uint8_t> bytes);
    /// The last packet once more, as the standard allows.
    StreamBuilder& repeatLast();
    /// The packet at an index, to spoil it.
    std::span<uint8_t> packet(std::size_t index);
    std::size_t packetCount() const { return stream_.size() / kPacketSize; }

    /// The stream in packets of 188 bytes, or with the four bytes before (192) or the sixteen
    /// behind (204) that recorders and demodulators add.
    Bytes build(std::size_t packetSize = kPacketSize) const;

private:
    void packetOf(unsigned pid, bool startsSection, std::span<const uint8_t> content,
                  std::size_t gap);

    Bytes stream_;
    std::array<uint8_t, 0x2000> counters_{};
};

} // namespace test
