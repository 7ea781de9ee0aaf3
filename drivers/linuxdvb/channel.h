#pragma once

#include "satlist/list_access.h"
#include "tuning/tuning.h"

#include <optional>
#include <string>
#include <string_view>

namespace tessaview {

/// What a receiver is tuned to.
struct Channel {
    std::string satellite; ///< of the satellite list; empty for none, and for other tuners
    Tuning tuning;
    S2Parameters s2 = {}; ///< for a satellite; of DVB-T2 the stream id
};

/// A channel as the settings keep it.
std::string storedText(const Channel& channel);
/// None for what is no such text.
std::optional<Channel> channelOf(std::string_view stored);

} // namespace tessaview
