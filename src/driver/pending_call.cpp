#include "driver/pending_call.h"

#include "platform/number.h"

#include <atomic>
#include <condition_variable>
#include <cstdlib>
#include <mutex>

namespace tessaview {

namespace {

std::atomic<int> unfinishedCalls = 0;

} // namespace

std::chrono::milliseconds driverPatience()
{
    // NOLINTNEXTLINE(concurrency-mt-unsafe): only read
    if (const char* const given = std::getenv("TESSAVIEW_DRIVER_PATIENCE"))
        if (const int seconds = wholeNumber<int>(given).value_or(0); seconds > 0)
            return std::chrono::seconds(seconds);
    return std::chrono::seconds(5);
}

struct PendingCall::State {
    std::mutex mutex;
    std::condition_variable ended;
    bool hasEnded = false;
    bool isLetGo = false;
    const char* operation = "";
};

PendingCall::PendingCall(std::function<void(const CallObserver&)> work)
    : state_(std::make_shared<State>())
{
    thread_ = std::thread([state = state_, work = std::move(work)]() mutable {
        try {
            work([&](const char* operation) {
                const std::lock_guard lock(state->mutex);
                state->operation = operation;
            });
        } catch (...) { // NOLINT(bugprone-empty-catch): the results show that it did not get there
        }
        work = nullptr; // lets go of what it shares before anybody hears of the end
        const std::lock_guard lock(state->mutex);
        state->hasEnded = true;
        unfinishedCalls -= state->isLetGo ? 1 : 0;
        state->ended.notify_all();
    });
}

PendingCall::~PendingCall()
{
    bool hasEnded = false;
    {
        const std::lock_guard lock(state_->mutex);
        hasEnded = state_->hasEnded;
        state_->isLetGo = !hasEnded;
        unfinishedCalls += hasEnded ? 0 : 1;
    }
    if (hasEnded)
        thread_.join();
    else
        thread_.detach();
}

int PendingCall::unfinished()
{
    return unfinishedCalls;
}

bool PendingCall::waitFor(std::chrono::milliseconds limit) const
{
    std::unique_lock lock(state_->mutex);
    return state_->ended.wait_for(lock, limit, [&] { return state_->hasEnded; });
}

std::string PendingCall::operation() const
{
    const std::lock_guard lock(state_->mutex);
    return state_->operation;
}

} // namespace tessaview
