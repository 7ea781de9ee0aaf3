#pragma once

#include "drivers/linuxdvb/channel.h"
#include "drivers/linuxdvb/frontend_facts.h"

#include <utility>
#include <vector>

namespace tessaview {

/// One way to tune a receiver.
struct Attempt {
    fe_delivery_system system{};
    /// Commands of the API (DTV_...) and their values, but for clearing before and tuning behind.
    std::vector<std::pair<std::uint32_t, std::uint32_t>> properties;

    bool operator==(const Attempt&) const = default;
};

/// The ways to tune a receiver to a channel, in the order in which they are to be tried: the
/// delivery system that the channel's description names, then the others of the tuner type that
/// the receiver has. `frequency` of a satellite channel is that behind the LNB, in kHz. None when
/// the receiver has no delivery system for the channel.
std::vector<Attempt> attemptsFor(const Channel& channel, const FrontendFacts& facts,
                                 std::uint32_t frequency = 0);

} // namespace tessaview
