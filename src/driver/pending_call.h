#pragma once

#include "driver/driver_session.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <thread>

namespace tessaview {

/// How long a driver may take for a call before it is told that it does not answer: 5 seconds, or
/// as many as $TESSAVIEW_DRIVER_PATIENCE says.
std::chrono::milliseconds driverPatience();

/// Work that calls a driver, on a thread of its own, so that a driver that never returns holds
/// nobody up: who has waited long enough lets go of the work, which may then go on for ever. So
/// the work must own, or share, all that it touches. What it throws is lost.
class PendingCall {
public:
    /// Starts the work. It is to tell the observer each operation of the driver that it calls.
    explicit PendingCall(std::function<void(const CallObserver&)> work);
    PendingCall(const PendingCall&) = delete;
    PendingCall& operator=(const PendingCall&) = delete;
    ~PendingCall();

    /// Waits for the end of the work, but no longer than this; whether it has ended.
    bool waitFor(std::chrono::milliseconds limit) const;
    /// The operation that was called last; empty before the first.
    std::string operation() const;

    /// How many that were let go of have still not returned. While there are such, the process is
    /// to be ended without tidying up behind them.
    static int unfinished();

private:
    struct State;

    std::shared_ptr<State> state_;
    std::thread thread_;
};

} // namespace tessaview
