#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tessaview {

/// Joins the payloads of one PID's packets into sections (ISO/IEC 13818-1, 2.4.4).
class SectionAssembler {
public:
    /// Takes one 188-byte packet of the PID and hands every section that ends in it to
    /// `emit(section)`. Lost, repeated, scrambled and damaged packets are dealt with here.
    template <class Emit>
    void take(const uint8_t* packet, Emit emit)
    {
        auto payload = accept(packet);
        if (payload.empty())
            return;
        const bool startsSection = (packet[1] & 0x40) != 0;
        if (!startsSection) {
            if (!section_.empty())
                append(payload, emit);
            return;
        }
        const std::size_t pointer = payload.front();
        payload = payload.subspan(1);
        if (pointer > payload.size()) {
            section_.clear();
            return;
        }
        if (!section_.empty())
            append(payload.first(pointer), emit);
        section_.clear(); // what is not complete where the next one starts never will be
        startSections(payload.subspan(pointer), emit);
    }

private:
    /// The payload to use of a packet; none when it carries nothing new.
    std::span<const uint8_t> accept(const uint8_t* packet);
    /// Whether this is the last packet once more, which the standard allows once.
    bool isRepetition(int counter, std::span<const uint8_t> payload) const;
    /// The bytes that complete the section, as far as they are there; 0 once it is complete.
    std::size_t missing() const;
    /// Adds what belongs to the section under way; gives the bytes that it took.
    template <class Emit>
    std::size_t append(std::span<const uint8_t> bytes, Emit emit);
    template <class Emit>
    void startSections(std::span<const uint8_t> bytes, Emit emit);

    static constexpr uint8_t kStuffing = 0xFF;
    static constexpr int kNoCounter = -1;

    std::vector<uint8_t> section_;  // under way; empty between sections
    std::vector<uint8_t> previous_; // the last payload, to tell a repetition
    int counter_ = kNoCounter;
    bool isRepeated_ = false; // the last packet was one
};

template <class Emit>
std::size_t SectionAssembler::append(std::span<const uint8_t> bytes, Emit emit)
{
    std::size_t taken = 0;
    // The header first, which tells how much there is to come; it may be split between packets.
    for (std::size_t wanted = missing(); wanted > 0 && taken < bytes.size(); wanted = missing()) {
        const auto part = bytes.subspan(taken, std::min(wanted, bytes.size() - taken));
        section_.insert(section_.end(), part.begin(), part.end());
        taken += part.size();
    }
    if (missing() == 0) {
        emit(std::span<const uint8_t>(section_));
        section_.clear();
    }
    return taken;
}

template <class Emit>
void SectionAssembler::startSections(std::span<const uint8_t> bytes, Emit emit)
{
    while (!bytes.empty() && bytes.front() != kStuffing)
        bytes = bytes.subspan(append(bytes, emit));
}

} // namespace tessaview
