#include "drivers/linuxdvb/linuxdvb_driver.h"

#include "drivers/linuxdvb/status_text.h"

#include <cerrno>

namespace tessaview {

/// What a failure of the device means to the caller; the text is in the status.
Status LinuxDvbDriver::statusOf(const DeviceError& error)
{
    switch (error.error()) {
    case EACCES:
    case EPERM:
        return status::kAccessDenied;
    case EBUSY:
        return status::kNotReady;
    default:
        return error.isGone() ? status::kNotFound : status::kFail;
    }
}

Status LinuxDvbDriver::tune(const Tuning& tuning, const std::string& satellite)
{
    tuner_.tune({.satellite = satellite, .tuning = tuning, .s2 = {}});
    return status::kOk;
}

std::optional<Tuning> LinuxDvbDriver::tunedTo(std::string& satellite) const
{
    const DvbState now = tuner_.state();
    if (!now.channel)
        return std::nullopt;
    satellite = now.channel->satellite;
    return now.channel->tuning;
}

Status LinuxDvbDriver::read(std::span<const TableRequest> requests, std::chrono::seconds waitLimit,
                            Answers& answers)
{
    answers = tuner_.read(requests, waitLimit);
    return status::kOk;
}

bool LinuxDvbDriver::isLocked()
{
    const auto signal = tuner_.signal();
    return tuner_.state().system && signal && signal->isLocked();
}

std::string LinuxDvbDriver::statusLine()
{
    const auto signal = tuner_.signal();
    return statusText(tuner_.state(), signal);
}

} // namespace tessaview
