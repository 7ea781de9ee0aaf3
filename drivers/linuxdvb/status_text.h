#pragma once

#include "drivers/linuxdvb/dvb_tuner.h"

#include <optional>
#include <string>

namespace tessaview {

/// "adapter0 DVB-S2 12187 H 27500 locked 71 % 12.4 dB", and what went wrong last in brackets.
std::string statusText(const DvbState& state, const std::optional<SignalReport>& signal);

} // namespace tessaview
