#pragma once

#include "drivers/capture/capture_index.h"

#include <string>

namespace tessaview {

/// What the status bar says: the capture the tuner is set to, and under which parameters it was
/// received, or why there is none.
std::string statusText(const Capture* current, std::size_t captureCount);

} // namespace tessaview
