#pragma once

#include <functional>

namespace tessaview {

/// Whether what takes long is to end.
using StopRequested = std::function<bool()>;

/// Thrown where what takes long was asked to end.
struct Interrupted {};

} // namespace tessaview
