#pragma once

#include "tuning/tuning.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tessaview {

/// What DVB-S2 needs beyond a tuning record; what is not given is left to the receiver.
struct S2Hints {
    std::optional<bool> isS2;
    std::optional<int> modulation; ///< 1 QPSK, 2 8PSK, 3 16APSK, 4 32APSK
    std::optional<int> rollOff;    ///< 0 0.35, 1 0.25, 2 0.20 (EN 300 468, 6.2.13.2)
    std::optional<bool> pilot;
    std::optional<int> streamId; ///< input stream identifier, 0 to 255

    bool operator==(const S2Hints&) const = default;
};

/// What a receiver is tuned to.
struct Channel {
    std::string satellite; ///< of the satellite list; empty for none, and for other tuners
    Tuning tuning;
    S2Hints s2; ///< for a satellite
};

/// A channel as the settings keep it.
std::string storedText(const Channel& channel);
/// None for what is no such text.
std::optional<Channel> channelOf(std::string_view stored);

} // namespace tessaview
