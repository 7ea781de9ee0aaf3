#include "driver/cancellation.h"

namespace tessaview {

void Cancellation::tellDriver()
{
    const std::lock_guard lock(mutex_);
    tell(isRaised_);
}

void Cancellation::begin()
{
    const std::lock_guard lock(mutex_);
    static_cast<void>(query(driver_, interrupt_)); // a driver without it ends its call first
    tell(isRaised_);
}

void Cancellation::end()
{
    const std::lock_guard lock(mutex_);
    tell(false);
    interrupt_.reset();
}

void Cancellation::tell(bool interrupted)
{
    if (interrupt_)
        interrupt_->SetInterrupted(interrupted ? 1 : 0);
}

} // namespace tessaview
