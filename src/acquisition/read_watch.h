#pragma once

#include "acquisition/scan_progress.h"
#include "driver/operation_progress.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace tessaview {

/// Tells, as long as it lives, how far the driver is with what it reads, where it knows that: asks
/// it again and again on a thread of its own.
class ReadWatch {
public:
    /// `progress` must outlive this; `driver` may be null.
    ReadWatch(IUnknown* driver, ScanProgress& progress,
              std::chrono::milliseconds period = std::chrono::milliseconds(200));
    ReadWatch(const ReadWatch&) = delete;
    ReadWatch& operator=(const ReadWatch&) = delete;
    /// Ends with a last word that nothing is read any more, if anything was.
    ~ReadWatch() = default;

private:
    void run(const std::stop_token& stop);

    OperationProgress driver_;
    ScanProgress& progress_;
    std::chrono::milliseconds period_;
    std::mutex mutex_;
    std::condition_variable_any ended_;
    std::jthread thread_; ///< last: it uses what stands above
};

} // namespace tessaview
