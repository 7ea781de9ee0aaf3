#include "drivers/linuxdvb/dialogs/signal_watch.h"

#include <condition_variable>
#include <mutex>

namespace tessaview {

namespace {

constexpr std::chrono::milliseconds kInterval{500};

} // namespace

SignalWatch::SignalWatch(DvbTuner& tuner, Show show)
    : tuner_(tuner)
    , show_(std::move(show))
    , worker_([this](const std::stop_token& stop) { watch(stop); })
{
}

void SignalWatch::watch(const std::stop_token& stop)
{
    std::mutex mutex;
    std::condition_variable_any never;
    std::unique_lock lock(mutex);
    while (!stop.stop_requested()) {
        const auto signal = tuner_.signal();
        auto look = std::make_shared<const TunerLook>(TunerLook{tuner_.state(), signal});
        QMetaObject::invokeMethod(
            this, [this, look] { show_(*look); }, Qt::QueuedConnection);
        never.wait_for(lock, stop, kInterval, [] { return false; });
    }
}

} // namespace tessaview
