#pragma once

#include "driver/tuner_driver.h"

#include <cstdint>
#include <mutex>
#include <string>

namespace tessaview {

/// How far an operation of a driver is, for who waits for it on another thread. May be used from
/// any thread.
class OperationProgress {
public:
    struct Now {
        std::uint64_t position = 0;
        std::uint64_t total = 0; ///< 0 when the driver does not tell
    };

    OperationProgress() = default;
    explicit OperationProgress(IUnknown* driver) { watch(driver); }

    /// Asks this driver from now on, which may be null. Queries it.
    void watch(IUnknown* driver);
    bool isKnown() const;
    /// Asks the driver, which answers at once; never a position beyond the total.
    Now now() const;

private:
    ComPtr<IReadProgress> source() const;

    mutable std::mutex mutex_;
    ComPtr<IReadProgress> source_; ///< null without a driver that tells
};

/// What a person is told of a look at captures: "Looking at the captures... 12 of 300".
std::string lookText(const OperationProgress::Now& now);

/// The part of the way that is covered, 0 to 100; 0 when it is not known.
unsigned percentOf(const OperationProgress::Now& now);

} // namespace tessaview
