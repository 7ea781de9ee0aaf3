#include "tools/multiplex/stream_builder.h"

#include <algorithm>

namespace test {

namespace {

constexpr std::size_t kHeaderSize = 4;
constexpr std::size_t kPayloadSize = kPacketSize - kHeaderSize;
constexpr unsigned kNullPid = 0x1FFF;

} // namespace

void StreamBuilder::packetOf(unsigned pid, bool startsSection, std::span<const uint8_t> content,
                             std::size_t gap)
{
    uint8_t& counter = counters_[pid];
    Writer packet;
    packet.u8(0x47)
        .u16((startsSection ? 0x4000U : 0U) | pid)
        .u8((gap > 0 ? 0x30U : 0x10U) | counter);
    counter = (counter + 1) & 0x0F;
    if (gap > 0) {
        packet.u8(static_cast<unsigned>(gap - 1));
        for (std::size_t i = 1; i < gap; ++i)
            packet.u8(i == 1 ? 0x00 : 0xFF);
    }
    packet.bytes(content);
    Bytes bytes = packet;
    bytes.resize(kPacketSize, 0xFF);
    stream_.insert(stream_.end(), bytes.begin(), bytes.end());
}

StreamBuilder& StreamBuilder::put(unsigned pid, std::span<const uint8_t> sections, std::size_t gap)
{
    Bytes rest = Writer().u8(0).bytes(sections);
    for (bool isFirst = true; isFirst || !rest.empty(); isFirst = false) {
        const std::size_t room = kPayloadSize - (isFirst ? gap : 0);
        const std::size_t taken = std::min(room, rest.size());
        packetOf(pid, isFirst, std::span(rest).first(taken), isFirst ? gap : 0);
        rest.erase(rest.begin(), rest.begin() + static_cast<std::ptrdiff_t>(taken));
    }
    return *this;
}

StreamBuilder& StreamBuilder::putPacked(unsigned pid, const std::vector<Bytes>& sections)
{
    const Bytes all = joined(sections);
    std::vector<std::size_t> starts;
    std::size_t offset = 0;
    for (const Bytes& section : sections) {
        starts.push_back(offset);
        offset += section.size();
    }
    for (std::size_t at = 0; at < all.size();) {
        // A pointer field takes a byte, which may push the start it points at out of the packet.
        const auto next = std::lower_bound(starts.begin(), starts.end(), at);
        const bool pointsAtStart = next != starts.end() && *next < at + kPayloadSize - 1;
        Writer content;
        if (pointsAtStart)
            content.u8(static_cast<unsigned>(*next - at));
        // Without one no section may start in the packet, so it ends where the next one begins.
        const std::size_t room = kPayloadSize - (pointsAtStart ? 1 : 0);
        std::size_t taken = std::min(room, all.size() - at);
        if (!pointsAtStart && next != starts.end())
            taken = std::min(taken, *next - at);
        content.bytes(std::span(all).subspan(at, taken));
        const std::size_t unused = pointsAtStart || at + taken == all.size() ? 0 : room - taken;
        packetOf(pid, pointsAtStart, content.get(), unused);
        at += taken;
    }
    return *this;
}

StreamBuilder& StreamBuilder::nullPackets(std::size_t count)
{
    const Bytes stuffing(kPayloadSize, 0xFF);
    for (std::size_t i = 0; i < count; ++i)
        packetOf(kNullPid, false, stuffing, 0);
    return *this;
}

StreamBuilder& StreamBuilder::payload(unsigned pid, std::span<const uint8_t> bytes)
{
    packetOf(pid, false, bytes.first(std::min(bytes.size(), kPayloadSize)), 0);
    return *this;
}

StreamBuilder& StreamBuilder::repeatLast()
{
    const Bytes last(stream_.end() - static_cast<std::ptrdiff_t>(kPacketSize), stream_.end());
    stream_.insert(stream_.end(), last.begin(), last.end());
    return *this;
}

std::span<uint8_t> StreamBuilder::packet(std::size_t index)
{
    return std::span(stream_).subspan(index * kPacketSize, kPacketSize);
}

Bytes StreamBuilder::build(std::size_t packetSize) const
{
    if (packetSize == kPacketSize)
        return stream_;
    Writer out;
    for (std::size_t at = 0; at < stream_.size(); at += kPacketSize) {
        if (packetSize == 192)
            out.u32(static_cast<uint32_t>(at));
        out.bytes(std::span(stream_).subspan(at, kPacketSize));
        if (packetSize == 204)
            for (unsigned i = 0; i < 16; ++i)
                out.u8(i);
    }
    return out.get();
}

} // namespace test
