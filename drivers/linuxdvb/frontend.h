#pragma once

#include "drivers/linuxdvb/attempts.h"
#include "drivers/linuxdvb/dish.h"
#include "drivers/linuxdvb/frontend_facts.h"
#include "drivers/linuxdvb/signal.h"

namespace tessaview {

/// A receiver that is in use: nobody else can tune it until it is destroyed.
class Frontend {
public:
    /// Throws DeviceError.
    Frontend(Kernel& kernel, DeviceId id);

    const FrontendFacts& facts() const { return facts_; }

    /// Tunes to a channel and waits until the receiver is locked; gives the delivery system that
    /// it locked by. `lockLimit` is for each of those that come into question. Throws DeviceError
    /// with the step that failed, and Interrupted.
    fe_delivery_system tune(const Channel& channel, const Dish& dish,
                            std::chrono::milliseconds lockLimit, const StopRequested& stop);

    /// Waits until the receiver is locked to what it is tuned to; gives whether it is in time.
    /// Throws DeviceError and Interrupted.
    bool locksWithin(std::chrono::milliseconds limit, const StopRequested& stop) const;
    DeviceError noSignal(const Channel& channel, std::chrono::milliseconds waited) const;

    /// Throws DeviceError.
    SignalReport signal() { return meter_.measure(device_); }

private:
    void point(const DishPlan& plan, const StopRequested& stop) const;
    void send(const Attempt& attempt) const;

    Device device_;
    FrontendFacts facts_;
    SignalMeter meter_;
};

} // namespace tessaview
