#pragma once

#include "drivers/common/interrupted.h"

#include <chrono>
#include <cstdint>
#include <poll.h>
#include <span>
#include <string>
#include <vector>

namespace tessaview {

/// The calls by which devices are reached, and the clock that waiting goes by; tests put devices
/// and a time of their own in their place. What fails answers the negative error number.
class Kernel {
public:
    using Clock = std::chrono::steady_clock;

    Kernel() = default;
    Kernel(const Kernel&) = delete;
    Kernel& operator=(const Kernel&) = delete;
    virtual ~Kernel() = default;

    /// The names in a folder, in order; none where it cannot be read.
    virtual std::vector<std::string> entries(const std::string& folder) = 0;
    virtual int open(const std::string& path, int flags) = 0;
    virtual int control(int file, unsigned long request, std::uintptr_t argument) = 0;
    virtual long read(int file, std::span<std::uint8_t> buffer) = 0;
    /// Waits until one of the files has something, or for the whole time without files.
    virtual int wait(std::span<pollfd> files, std::chrono::milliseconds limit) = 0;
    virtual void close(int file) noexcept = 0;
    virtual Clock::time_point now() = 0;
};

/// The system's own.
Kernel& systemKernel();

/// The longest wait between two looks at whether to end.
constexpr std::chrono::milliseconds kStopInterval{100};

/// Lets a time pass. Throws Interrupted.
void pause(Kernel& kernel, std::chrono::milliseconds time, const StopRequested& stop);

} // namespace tessaview
