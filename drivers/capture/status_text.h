#pragma once

#include "drivers/capture/capture_tuner.h"

#include <string>

namespace tessaview {

/// "12187 MHz H 27500 kS/s" of a satellite, the like of the others; empty for none, or for a
/// terrestrial one without a frequency.
std::string tuningText(const CaptureTuning& tuning);

/// What the status bar says: the capture the tuner is set to and under which parameters it was
/// received, or that there is none; and what went wrong last.
std::string statusText(const TunerState& state);

} // namespace tessaview
