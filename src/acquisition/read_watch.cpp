#include "acquisition/read_watch.h"

#include <optional>
#include <system_error>

namespace tessaview {

ReadWatch::ReadWatch(IUnknown* driver, ScanProgress& progress, std::chrono::milliseconds period)
    : driver_(driver)
    , progress_(progress)
    , period_(period)
{
    if (!driver_.isKnown())
        return;
    try {
        thread_ = std::jthread([this](const std::stop_token& stop) { run(stop); });
    } catch (const std::system_error&) { // NOLINT(bugprone-empty-catch): it goes without, too
    }
}

void ReadWatch::run(const std::stop_token& stop)
{
    std::optional<unsigned> told;
    const auto tell = [&](std::optional<unsigned> percent) {
        if (percent != told)
            progress_.hasRead(percent);
        told = percent;
    };
    std::unique_lock lock(mutex_);
    while (!ended_.wait_for(lock, stop, period_, [&] { return stop.stop_requested(); })) {
        const OperationProgress::Now now = driver_.now();
        tell(now.total > 0 ? std::optional(percentOf(now)) : std::nullopt);
    }
    tell(std::nullopt);
}

} // namespace tessaview
