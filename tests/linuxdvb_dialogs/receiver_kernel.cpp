#include "tests/linuxdvb_dialogs/receiver_kernel.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <linux/dvb/dmx.h>
#include <thread>

namespace test {

using tessaview::Kernel;

namespace {

template <class Record>
Record& at(std::uintptr_t argument)
{
    // NOLINTNEXTLINE(performance-no-int-to-ptr): that is how records reach a kernel
    return *reinterpret_cast<Record*>(argument);
}

void setStatistic(dtv_property& property, std::uint8_t scale, std::int64_t value)
{
    property.u.st.len = 1;
    property.u.st.stat[0].scale = scale;
    property.u.st.stat[0].svalue = value;
}

} // namespace

void ReceiverKernel::setLocking(bool locks)
{
    const std::lock_guard lock(mutex_);
    locks_ = locks;
}

void ReceiverKernel::setTimeStill(bool isStill)
{
    const std::lock_guard lock(mutex_);
    isStill_ = isStill;
}

std::vector<ReceiverKernel::Tuning> ReceiverKernel::tunings() const
{
    const std::lock_guard lock(mutex_);
    return tunings_;
}

std::vector<std::uint16_t> ReceiverKernel::pids() const
{
    const std::lock_guard lock(mutex_);
    return pids_;
}

bool ReceiverKernel::isOpen(const std::string& path) const
{
    const std::lock_guard lock(mutex_);
    return std::any_of(open_.begin(), open_.end(),
                       [&](const auto& each) { return each.second == path; });
}

const ReceiverKernel::Receiver* ReceiverKernel::receiverOf(const std::string& path) const
{
    const auto found = std::find_if(receivers.begin(), receivers.end(), [&](const Receiver& each) {
        return path == "/dev/dvb/" + each.id.name();
    });
    return found == receivers.end() ? nullptr : &*found;
}

std::vector<std::string> ReceiverKernel::entries(const std::string& folder)
{
    std::vector<std::string> names;
    for (const Receiver& each : receivers) {
        const std::string adapter = "adapter" + std::to_string(each.id.adapter);
        if (folder == "/dev/dvb")
            names.push_back(adapter);
        else if (folder == "/dev/dvb/" + adapter)
            names.push_back("frontend" + std::to_string(each.id.frontend));
    }
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

int ReceiverKernel::open(const std::string& path, int /*flags*/)
{
    const Receiver* const receiver = receiverOf(path);
    if (!receiver && path.find("demux") == std::string::npos)
        return -ENOENT;
    if (receiver && receiver->problem != 0)
        return -receiver->problem;
    const std::lock_guard lock(mutex_);
    open_[++lastFile_] = path;
    return lastFile_;
}

int ReceiverKernel::tune(const dtv_properties& list)
{
    Tuning tuning;
    for (const dtv_property& each : std::span(list.props, list.num))
        tuning[each.cmd] = each.u.data;
    tunings_.push_back(std::move(tuning));
    return 0;
}

int ReceiverKernel::properties(const Receiver& receiver, dtv_properties& list)
{
    for (dtv_property& each : std::span(list.props, list.num)) {
        if (each.cmd == DTV_ENUM_DELSYS) {
            each.u.buffer.len = static_cast<std::uint32_t>(receiver.systems.size());
            std::transform(receiver.systems.begin(), receiver.systems.end(), each.u.buffer.data,
                           [](fe_delivery_system system) { return static_cast<uint8_t>(system); });
        } else if (each.cmd == DTV_STAT_SIGNAL_STRENGTH) {
            setStatistic(each, FE_SCALE_RELATIVE, 46530);
        } else if (each.cmd == DTV_STAT_CNR) {
            setStatistic(each, FE_SCALE_DECIBEL, 12400);
        } else if (each.cmd == DTV_STAT_ERROR_BLOCK_COUNT) {
            setStatistic(each, FE_SCALE_COUNTER, 7);
        }
    }
    return 0;
}

int ReceiverKernel::control(int file, unsigned long request, std::uintptr_t argument)
{
    const std::lock_guard lock(mutex_);
    const auto refusal = [this](std::uint16_t pid) {
        const auto found = refusals.find(pid);
        if (found != refusals.end())
            return -found->second;
        pids_.push_back(pid);
        return 0;
    };
    switch (request) {
    case DMX_SET_PES_FILTER:
        return refusal(at<dmx_pes_filter_params>(argument).pid);
    case DMX_ADD_PID:
        return refusal(at<std::uint16_t>(argument));
    case FE_GET_INFO:
        std::strncpy(at<dvb_frontend_info>(argument).name, receiverOf(open_.at(file))->name.c_str(),
                     sizeof(dvb_frontend_info::name) - 1);
        at<dvb_frontend_info>(argument).caps = FE_CAN_FEC_AUTO;
        return 0;
    case FE_GET_PROPERTY:
        return properties(*receiverOf(open_.at(file)), at<dtv_properties>(argument));
    case FE_SET_PROPERTY:
        return tune(at<dtv_properties>(argument));
    case FE_READ_STATUS:
        at<fe_status_t>(argument) = static_cast<fe_status_t>(
            locks_ ? FE_HAS_SIGNAL | FE_HAS_CARRIER | FE_HAS_LOCK : FE_HAS_SIGNAL);
        return 0;
    case FE_SET_TONE:
    case FE_SET_VOLTAGE:
    case FE_DISEQC_SEND_MASTER_CMD:
    case DMX_SET_BUFFER_SIZE:
        return 0;
    default:
        return -ENOTTY;
    }
}

long ReceiverKernel::read(int /*file*/, std::span<std::uint8_t> buffer)
{
    std::unique_lock lock(mutex_);
    if (reads.empty()) {
        lock.unlock();
        if (whenIdle)
            whenIdle();
        return -EAGAIN;
    }
    const long next = reads.front();
    reads.pop_front();
    if (next > 0)
        std::fill_n(buffer.begin(), next, ++packet_);
    return next;
}

int ReceiverKernel::wait(std::span<pollfd> files, std::chrono::milliseconds limit)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(1)); // others get their turn
    const std::lock_guard lock(mutex_);
    if (!isStill_)
        now_ += limit;
    if (files.empty() || idleEvents == 0)
        return 0;
    files[0].revents = idleEvents;
    return 1;
}

void ReceiverKernel::close(int file) noexcept
{
    const std::lock_guard lock(mutex_);
    open_.erase(file);
}

Kernel::Clock::time_point ReceiverKernel::now()
{
    const std::lock_guard lock(mutex_);
    return now_;
}

} // namespace test
