#pragma once

#include "driver/tuner_driver.h"

#include <atomic>
#include <mutex>

namespace tessaview {

/// The cancel flag of work that calls a driver. A driver that can be interrupted is kept so while
/// such work is under way and the flag is up, and at no other time.
class Cancellation {
public:
    /// Calls nothing of the driver, which may be null.
    explicit Cancellation(IUnknown* driver) : driver_(ComPtr<IUnknown>::share(driver)) {}

    /// For the work to look at between two calls; outlived by this.
    const std::atomic<bool>& flag() const { return isRaised_; }
    /// Raises or lowers the flag and waits for nobody.
    void raise() { isRaised_ = true; }
    void lower() { isRaised_ = false; }
    /// Tells the driver of a flag that was raised while the work is under way; when there is none,
    /// nothing. Returns when the driver does, so a window leaves it to another thread.
    void tellDriver();

    /// Work under way, for as long as it lives. What was cancelled before begins interrupted.
    /// Calls the driver.
    class Work {
    public:
        explicit Work(Cancellation& cancellation) : cancellation_(cancellation)
        {
            cancellation_.begin();
        }
        Work(const Work&) = delete;
        Work& operator=(const Work&) = delete;
        ~Work() { cancellation_.end(); }

    private:
        Cancellation& cancellation_;
    };

private:
    void begin();
    void end();
    void tell(bool interrupted);

    ComPtr<IUnknown> driver_;
    std::atomic<bool> isRaised_ = false;
    /// Keeps what the driver is told in the order of what it is told of. Held in its calls.
    std::mutex mutex_;
    ComPtr<IInterrupt> interrupt_; ///< null unless work is under way and the driver has it
};

} // namespace tessaview
