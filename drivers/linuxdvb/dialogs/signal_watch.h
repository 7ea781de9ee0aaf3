#pragma once

#include "drivers/linuxdvb/dvb_tuner.h"

#include <functional>
#include <optional>
#include <thread>

#include <QObject>

namespace tessaview {

/// What a tuner and its receiver are found to be at one moment.
struct TunerLook {
    DvbState state;
    std::optional<SignalReport> signal;
};

/// Looks at a tuner twice a second, on a thread of its own since a receiver may be slow to answer,
/// and shows what it found on the thread that made it.
class SignalWatch : public QObject {
public:
    using Show = std::function<void(const TunerLook&)>;

    /// Throws std::system_error when there is no thread.
    SignalWatch(DvbTuner& tuner, Show show);
    ~SignalWatch() override = default;

private:
    void watch(const std::stop_token& stop);

    DvbTuner& tuner_;
    Show show_;
    std::jthread worker_; // after all that it uses
};

} // namespace tessaview
