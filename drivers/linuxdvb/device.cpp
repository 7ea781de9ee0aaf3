#include "drivers/linuxdvb/device.h"

#include <cerrno>
#include <system_error>

namespace tessaview {

std::string DeviceId::name() const
{
    return "adapter" + std::to_string(adapter) + "/frontend" + std::to_string(frontend);
}

bool DeviceError::isGone() const
{
    return error_ == ENODEV || error_ == ENXIO || error_ == ENOENT;
}

std::string deviceProblem(int error)
{
    switch (error) {
    case EBUSY:
        return "in use by another program";
    case EACCES:
    case EPERM:
        return "no permission; add your user to the group 'video' and log in again";
    case ENOENT:
        return "no such device; plug it in, or choose another under Device, Settings...";
    case ENODEV:
    case ENXIO:
        return "the device was removed";
    default:
        return std::generic_category().message(error);
    }
}

Device::Device(Kernel& kernel, std::string name, int flags)
    : kernel_(&kernel)
    , name_(std::move(name))
    , file_(kernel.open("/dev/dvb/" + name_, flags))
{
    if (file_ < 0)
        throw DeviceError(name_ + ": " + deviceProblem(-file_), -file_);
}

Device::~Device()
{
    if (file_ >= 0)
        kernel_->close(file_);
}

DeviceError Device::error(const std::string& step, int result) const
{
    return {name_ + ": " + step + ": " + deviceProblem(-result), -result};
}

} // namespace tessaview
