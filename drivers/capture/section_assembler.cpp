#include "drivers/capture/section_assembler.h"

#include "drivers/capture/packet_file.h"
#include "si/section.h"

#include <algorithm>

namespace tessaview {

namespace {

constexpr std::size_t kHeaderSize = 3;

/// Where the payload starts, behind header and adaptation field; beyond the packet when the
/// field's length is wrong.
std::size_t payloadStart(const uint8_t* packet)
{
    const bool hasAdaptationField = (packet[3] & 0x20) != 0;
    return hasAdaptationField ? 5U + packet[4] : 4U;
}

} // namespace

std::span<const uint8_t> SectionAssembler::accept(const uint8_t* packet)
{
    const bool isDamaged = (packet[1] & 0x80) != 0;
    const bool isScrambled = (packet[3] & 0xC0) != 0;
    const bool hasPayload = (packet[3] & 0x10) != 0;
    if (isDamaged || !hasPayload) // the counter does not count packets without payload
        return {};

    const int counter = packet[3] & 0x0F;
    const std::span<const uint8_t> bytes(packet, kPacketSize);
    if (counter == counter_ &&
        std::equal(bytes.begin(), bytes.end(), previous_.begin(), previous_.end()))
        return {};
    if (counter_ != kNoCounter && counter != (counter_ + 1) % 16)
        section_.clear(); // packets are missing in between
    counter_ = counter;
    previous_.assign(bytes.begin(), bytes.end());
    const std::size_t start = payloadStart(packet);
    if (isScrambled || start > kPacketSize) {
        section_.clear();
        return {};
    }
    return bytes.subspan(start);
}

std::size_t SectionAssembler::missing() const
{
    if (section_.size() < kHeaderSize)
        return kHeaderSize - section_.size();
    return lib13818::sectionSize(section_.data()) - section_.size();
}

} // namespace tessaview
