#include "explorer/driver_monitor.h"

#include "component/received_text.h"

#include <condition_variable>
#include <mutex>
#include <utility>

namespace tessaview {

using Clock = std::chrono::steady_clock;

/// What the monitor and its thread have in common; the thread keeps it alive when it is left alone.
struct DriverMonitor::Shared {
    Shared(ComPtr<IDriverControl> controlInterface, ComPtr<ITunerStatus> statusInterface,
           Pace chosenPace, CallObserver firstRound)
        : control(std::move(controlInterface))
        , status(std::move(statusInterface))
        , pace(chosenPace)
        , observer(std::move(firstRound))
    {
    }

    void tell(const char* operation) const;
    DriverState ask() const;
    bool waitForNextRound();
    void run();

    ComPtr<IDriverControl> control;
    ComPtr<ITunerStatus> status;
    const Pace pace;
    CallObserver observer; ///< of the first round; the thread's own

    mutable std::mutex mutex; // guards what follows
    std::condition_variable changed;
    DriverState state;
    std::optional<Clock::time_point> asking = {}; ///< since when, while the driver is asked
    bool isWanted = false;                        ///< the next round
    bool isStopping = false;
    bool hasEnded = false;
};

void DriverMonitor::Shared::tell(const char* operation) const
{
    if (observer)
        observer(operation);
}

DriverState DriverMonitor::Shared::ask() const
{
    DriverState answer{.wasAsked = true, .tunerType = {}, .statusText = {}};
    std::uint16_t type = 0;
    tell("GetTunerType");
    if (control && !failed(control->GetTunerType(&type)))
        answer.tunerType = static_cast<TunerType>(type);
    std::int32_t locked = 0;
    tell("IsLocked");
    answer.isLocked = status && !failed(status->IsLocked(&locked)) && locked != 0;
    if (!status)
        return answer;
    std::string text;
    tell("GetStatusText");
    if (!failed(receivedText(text, [&](char16_t** out) { return status->GetStatusText(out); })))
        answer.statusText = std::move(text);
    return answer;
}

/// False when the monitor is being stopped.
bool DriverMonitor::Shared::waitForNextRound()
{
    std::unique_lock lock(mutex);
    changed.wait_for(lock, pace.period, [this] { return isWanted || isStopping; });
    isWanted = false;
    asking = Clock::now();
    return !isStopping;
}

void DriverMonitor::Shared::run()
{
    do {
        DriverState answer = ask();
        tell("");
        observer = nullptr;
        const std::lock_guard lock(mutex);
        state = std::move(answer);
        asking.reset();
    } while (waitForNextRound());
    control.reset();
    status.reset();
    const std::lock_guard lock(mutex);
    hasEnded = true;
    changed.notify_all();
}

DriverMonitor::DriverMonitor(ComPtr<IDriverControl> control, ComPtr<ITunerStatus> status, Pace pace,
                             CallObserver firstRound)
    : shared_(std::make_shared<Shared>(std::move(control), std::move(status), pace,
                                       std::move(firstRound)))
{
    shared_->asking = Clock::now();
    thread_ = std::thread([shared = shared_] { shared->run(); });
}

DriverState DriverMonitor::state() const
{
    const std::lock_guard lock(shared_->mutex);
    const auto& asking = shared_->asking;
    if (asking && Clock::now() - *asking > shared_->pace.overdue)
        return {.wasAsked = true, .tunerType = {}, .statusText = {}};
    return shared_->state;
}

void DriverMonitor::askSoon()
{
    const std::lock_guard lock(shared_->mutex);
    shared_->isWanted = true;
    shared_->changed.notify_all();
}

bool DriverMonitor::stop(Milliseconds patience)
{
    std::unique_lock lock(shared_->mutex);
    if (!thread_.joinable())
        return shared_->hasEnded;
    shared_->isStopping = true;
    shared_->changed.notify_all();
    const bool hasEnded =
        shared_->changed.wait_for(lock, patience, [this] { return shared_->hasEnded; });
    lock.unlock();
    if (hasEnded)
        thread_.join();
    else
        thread_.detach();
    return hasEnded;
}

} // namespace tessaview
