#pragma once

#include "drivers/capture/capture_index.h"

#include <optional>
#include <span>
#include <string_view>

namespace tessaview {

/// The index of the capture whose own parameters are nearest to a tuning, or none when no capture
/// is near enough: 3 MHz on a satellite, with the same polarization and, where both name one, the
/// same orbital position; 0.5 MHz on cable and terrestrial. A satellite's name counts only where
/// a folder of the set has it, whatever its case. A tuning without a frequency fits none.
std::optional<std::size_t> findCapture(std::span<const Capture> captures, const Tuning& tuning,
                                       std::string_view satellite = {});

} // namespace tessaview
