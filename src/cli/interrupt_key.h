#pragma once

#include "driver/cancellation.h"

#include <atomic>
#include <thread>

namespace tessaview {

/// While it lives, the first Ctrl+C cancels, and a second one ends the program at once. One at a
/// time.
class InterruptKey {
public:
    /// Without a thread to watch it, Ctrl+C ends the program at once.
    explicit InterruptKey(Cancellation& cancellation);
    InterruptKey(const InterruptKey&) = delete;
    InterruptKey& operator=(const InterruptKey&) = delete;
    ~InterruptKey();

private:
    void watch();

    Cancellation& cancellation_;
    std::atomic<bool> isOver_ = false;
    std::jthread watcher_;
};

} // namespace tessaview
