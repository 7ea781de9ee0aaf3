#pragma once

#include "drivers/capture/capture_tuner.h"

#include <string>

namespace tessaview {

/// What the status bar says: the capture the tuner is set to and under which parameters it was
/// received, or that there is none; and what went wrong last.
std::string statusText(const TunerState& state);

} // namespace tessaview
