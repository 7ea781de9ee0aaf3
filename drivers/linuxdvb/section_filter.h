#pragma once

#include "drivers/common/section_collector.h"
#include "drivers/linuxdvb/device.h"

#include <optional>

namespace tessaview {

/// A section filter of the kernel that collects what one request asks for.
class SectionFilter {
public:
    /// Starts it. Throws DeviceError; `isFull` tells whether that may be for want of filters.
    SectionFilter(Kernel& kernel, const std::string& demultiplexer, const TableRequest& request,
                  SectionCollector& collector);

    /// Whether a filter could not be started because others take all there is.
    static bool isFull(const DeviceError& error);

    int file() const { return device_.file(); }
    /// Takes what has come. Throws DeviceError when the device fails.
    void read();

    const SectionCollector& collector() const { return *collector_; }
    Kernel::Clock::time_point started() const { return started_; }
    /// When something new came last, or the start.
    Kernel::Clock::time_point lastNew() const { return lastNew_; }
    /// How often sections were lost because they came faster than they were read.
    std::size_t overflows() const { return overflows_; }

private:
    Device device_;
    SectionCollector* collector_;
    Kernel::Clock::time_point started_;
    Kernel::Clock::time_point lastNew_;
    std::size_t overflows_ = 0;
};

} // namespace tessaview
