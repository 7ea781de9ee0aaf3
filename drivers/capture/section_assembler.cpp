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

/// Payloads are compared and not packets: a clock reference in the adaptation field differs.
bool SectionAssembler::isRepetition(int counter, std::span<const uint8_t> payload) const
{
    return counter == counter_ && !isRepeated_ &&
           std::equal(payload.begin(), payload.end(), previous_.begin(), previous_.end());
}

// A discontinuity_indicator needs no reading: it only admits a jump of the counter, and a jump
// ends the section under way in any case, since none goes on across it.
std::span<const uint8_t> SectionAssembler::accept(const uint8_t* packet)
{
    const bool isDamaged = (packet[1] & 0x80) != 0;
    const bool isScrambled = (packet[3] & 0xC0) != 0;
    const bool hasPayload = (packet[3] & 0x10) != 0;
    if (isDamaged || !hasPayload) // the counter does not count packets without payload
        return {};

    const int counter = packet[3] & 0x0F;
    const std::span<const uint8_t> bytes(packet, kPacketSize);
    const auto payload = bytes.subspan(std::min(payloadStart(packet), kPacketSize));
    if (isRepetition(counter, payload)) {
        isRepeated_ = true;
        return {};
    }
    isRepeated_ = false;
    if (counter_ != kNoCounter && counter != (counter_ + 1) % 16)
        section_.clear(); // packets are missing in between
    counter_ = counter;
    previous_.assign(payload.begin(), payload.end());
    if (isScrambled || payload.empty()) {
        section_.clear();
        return {};
    }
    return payload;
}

std::size_t SectionAssembler::missing() const
{
    if (section_.size() < kHeaderSize)
        return kHeaderSize - section_.size();
    return lib13818::sectionSize(section_.data()) - section_.size();
}

} // namespace tessaview
