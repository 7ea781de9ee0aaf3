#pragma once

#include "drivers/linuxdvb/channel.h"

namespace tessaview {

/// What the satellite list says about a satellite channel beyond the tuning record. Nothing
/// without a list, and for a channel that is not in it.
S2Parameters listedParameters(ISatListManager* list, const Channel& channel);

} // namespace tessaview
