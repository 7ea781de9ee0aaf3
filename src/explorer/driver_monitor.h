#pragma once

#include "driver/driver_session.h"
#include "driver/tuner_driver.h"

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <thread>

namespace tessaview {

/// What a driver last answered about itself; what it did not answer is missing.
struct DriverState {
    bool wasAsked = false; ///< false until the first round of questions is over
    std::optional<TunerType> tunerType;
    bool isLocked = false;
    std::optional<std::string> statusText; ///< UTF-8

    bool isTuner(TunerType type) const { return tunerType == type; }
};

/// Asks a driver again and again, on a thread of its own, what the enabling of commands and the
/// status bar need to know, so that a slow driver never holds up the window. An answer that is
/// overdue counts as none.
class DriverMonitor {
public:
    using Milliseconds = std::chrono::milliseconds;

    struct Pace {
        Milliseconds period{250};   ///< between two rounds
        Milliseconds overdue{3000}; ///< after which an unanswered round counts as failed
    };

    /// Both interfaces may be null; their questions count as failed then. `firstRound`, which may
    /// be null, is told the calls of the first round, on the monitor's thread, and an empty
    /// operation at its end.
    DriverMonitor(ComPtr<IDriverControl> control, ComPtr<ITunerStatus> status,
                  CallObserver firstRound = {})
        : DriverMonitor(std::move(control), std::move(status), Pace(), std::move(firstRound))
    {
    }
    DriverMonitor(ComPtr<IDriverControl> control, ComPtr<ITunerStatus> status, Pace pace,
                  CallObserver firstRound = {});
    DriverMonitor(const DriverMonitor&) = delete;
    DriverMonitor& operator=(const DriverMonitor&) = delete;
    ~DriverMonitor() { stop(); }

    /// May be called from any thread and never waits for the driver.
    DriverState state() const;
    /// Asks for a round without waiting for its time, after something has changed.
    void askSoon();

    /// Ends the questions, before the driver is shut down. Waits for a call that is under way, but
    /// not for ever: after `patience` the thread is left alone with its references to the driver,
    /// which it releases, without another question, if the call ever returns. False in that case.
    bool stop(Milliseconds patience = Milliseconds(2000));

private:
    struct Shared;
    std::shared_ptr<Shared> shared_;
    std::thread thread_;
};

} // namespace tessaview
