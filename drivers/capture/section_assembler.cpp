#include "drivers/capture/section_assembler.h"

#include "drivers/capture/packet_file.h"
#include "si/section.h"

#include <algorithm>

namespace tessaview {

namespace {

constexpr std::size_t kHeaderSize = 3;

/// What follows header and adaptation field.
std::span<const uint8_t> payloadOf(const uint8_t* packet)
{
    const std::span<const uint8_t> bytes(packet, kPacketSize);
    const bool hasAdaptationField = (packet[3] & 0x20) != 0;
    const std::size_t start = hasAdaptationField ? 5U + packet[4] : 4U;
    return bytes.subspan(std::min(start, kPacketSize));
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
    if (isScrambled) {
        section_.clear();
        return {};
    }
    return payloadOf(packet);
}

std::size_t SectionAssembler::missing() const
{
    if (section_.size() < kHeaderSize)
        return kHeaderSize - section_.size();
    return lib13818::sectionSize(section_.data()) - section_.size();
}

} // namespace tessaview
