#pragma once

#include "drivers/linuxdvb/kernel.h"

#include <compare>
#include <stdexcept>
#include <string>
#include <sys/ioctl.h> // makes the numbers of the calls
#include <utility>

namespace tessaview {

/// Where a receiver is: "adapter0/frontend0".
struct DeviceId {
    unsigned adapter = 0;
    unsigned frontend = 0;

    // NOLINTNEXTLINE(modernize-use-nullptr): the comparison with zero is the compiler's
    friend auto operator<=>(const DeviceId&, const DeviceId&) = default;
    std::string name() const;
};

/// A device could not do what it was asked for. The text names the device and what to do.
class DeviceError : public std::runtime_error {
public:
    /// `error` is an error number, 0 where there is none.
    DeviceError(const std::string& text, int error) : std::runtime_error(text), error_(error) {}

    int error() const { return error_; }
    /// The device is not there, or not there any more.
    bool isGone() const;

private:
    int error_;
};

/// What an error number means where devices are concerned, and what to do about it.
std::string deviceProblem(int error);

/// A device file that is open.
class Device {
public:
    /// Opens a file below /dev/dvb. Throws DeviceError.
    Device(Kernel& kernel, std::string name, int flags);
    Device(Device&& other) noexcept
        : kernel_(other.kernel_)
        , name_(std::move(other.name_))
        , file_(std::exchange(other.file_, -1))
    {
    }
    Device& operator=(Device&&) = delete;
    ~Device();

    const std::string& name() const { return name_; }
    Kernel& kernel() const { return *kernel_; }
    int file() const { return file_; }

    /// A control call with a record; 0 and above, or the negative error number.
    template <class Record>
    int control(unsigned long request, Record& record) const
    {
        return kernel_->control(file_, request, reinterpret_cast<std::uintptr_t>(&record));
    }
    /// A control call with a plain value.
    int controlValue(unsigned long request, std::uintptr_t value) const
    {
        return kernel_->control(file_, request, value);
    }
    /// What went wrong in a step, with the negative error number of a call.
    DeviceError error(const std::string& step, int result) const;

private:
    Kernel* kernel_;
    std::string name_;
    int file_;
};

} // namespace tessaview
