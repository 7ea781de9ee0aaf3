#include "tests/linuxdvb/fake_kernel.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <thread>

namespace test {

namespace {

constexpr std::size_t kQueue = 2000; // sections that a filter holds

bool matches(const dmx_sct_filter_params& wanted, const Broadcast& broadcast)
{
    if (wanted.pid != broadcast.pid)
        return false;
    for (std::size_t i = 0; i < DMX_FILTER_SIZE; ++i) {
        const std::size_t at = i == 0 ? 0 : i + 2; // the length is left out
        const unsigned byte = at < broadcast.section.size() ? broadcast.section[at] : 0;
        if (((byte ^ wanted.filter.filter[i]) & wanted.filter.mask[i]) != 0)
            return false;
    }
    return true;
}

template <class Record>
Record& recordAt(std::uintptr_t argument)
{
    return *reinterpret_cast<Record*>(argument);
}

} // namespace

FakeKernel::FakeKernel() : frontends(1) {}

void FakeKernel::at(milliseconds time, std::function<void()> action)
{
    const std::lock_guard lock(mutex_);
    actions_.emplace_back(begin_ + time, std::move(action));
}

milliseconds FakeKernel::elapsed()
{
    return std::chrono::duration_cast<milliseconds>(now() - begin_);
}

std::size_t FakeKernel::openFiles()
{
    const std::lock_guard lock(mutex_);
    return files_.size();
}

std::vector<std::string> FakeKernel::entries(const std::string& folder)
{
    if (folder == "/dev/dvb")
        return {"adapter0"};
    std::vector<std::string> names{"demux0", "dvr0"};
    for (std::size_t i = 0; i < frontends.size(); ++i)
        if (!frontends[i].isGone)
            names.push_back("frontend" + std::to_string(i));
    return folder == "/dev/dvb/adapter0" ? names : std::vector<std::string>();
}

int FakeKernel::openFrontend(std::size_t index, bool isWriter)
{
    if (index >= frontends.size() || frontends[index].isGone)
        return -ENOENT;
    FakeFrontend& frontend = frontends[index];
    if (frontend.openProblem != 0)
        return -frontend.openProblem;
    if (isWriter && std::exchange(frontend.isInUse, true))
        return -EBUSY;
    files_[nextFile_] = {.frontend = index, .isWriter = isWriter, .filter = {}, .ready = {}};
    return nextFile_++;
}

int FakeKernel::open(const std::string& path, int flags)
{
    const std::lock_guard lock(mutex_);
    unsigned index = 0;
    if (std::sscanf(path.c_str(), "/dev/dvb/adapter0/frontend%u", &index) == 1)
        return openFrontend(index, (flags & O_ACCMODE) == O_RDWR);
    if (path != "/dev/dvb/adapter0/demux0" || isDemuxGone)
        return -ENOENT;
    if (demuxOpenProblem != 0)
        return -demuxOpenProblem;
    files_[nextFile_] = {};
    return nextFile_++;
}

void FakeKernel::close(int file) noexcept
{
    const std::lock_guard lock(mutex_);
    const File& closed = files_.at(file);
    if (closed.frontend && closed.isWriter)
        frontends[*closed.frontend].isInUse = false;
    files_.erase(file);
}

tessaview::Kernel::Clock::time_point FakeKernel::now()
{
    const std::lock_guard lock(mutex_);
    return now_;
}

bool FakeKernel::isLocked(const FakeFrontend& frontend) const
{
    return !frontend.tunings.empty() && now_ >= frontend.tunedAt + frontend.lockTime &&
           frontend.receives(frontend.tunings.back());
}

int FakeKernel::setProperties(FakeFrontend& frontend, const dtv_properties& properties)
{
    Tuned tuned;
    for (std::size_t i = 0; i < properties.num; ++i)
        tuned[properties.props[i].cmd] = properties.props[i].u.data;
    const auto system = static_cast<fe_delivery_system>(tuned[DTV_DELIVERY_SYSTEM]);
    if (std::find(frontend.systems.begin(), frontend.systems.end(), system) ==
            frontend.systems.end() ||
        tuned[DTV_FREQUENCY] == 0)
        return -EINVAL;
    if (frontend.tuneProblem != 0)
        return -frontend.tuneProblem;
    frontend.tunings.push_back(tuned);
    frontend.tunedAt = now_;
    return 0;
}

int FakeKernel::getProperties(const FakeFrontend& frontend, const dtv_properties& properties)
{
    for (std::size_t i = 0; i < properties.num; ++i) {
        dtv_property& property = properties.props[i];
        if (property.cmd == DTV_ENUM_DELSYS) {
            property.u.buffer.len = static_cast<__u32>(frontend.systems.size());
            std::copy(frontend.systems.begin(), frontend.systems.end(), property.u.buffer.data);
        } else if (const auto kept = frontend.statistics.find(property.cmd);
                   kept != frontend.statistics.end()) {
            property.u.st.len = 1;
            property.u.st.stat[0] = kept->second;
        }
    }
    return 0;
}

int FakeKernel::controlFrontend(FakeFrontend& frontend, unsigned long request,
                                std::uintptr_t argument)
{
    switch (request) {
    case FE_GET_INFO: {
        auto& info = recordAt<dvb_frontend_info>(argument);
        frontend.name.copy(info.name, sizeof info.name);
        info.caps = static_cast<fe_caps>(frontend.capabilities);
        return 0;
    }
    case FE_GET_PROPERTY:
        return getProperties(frontend, recordAt<dtv_properties>(argument));
    case FE_SET_PROPERTY:
        return setProperties(frontend, recordAt<dtv_properties>(argument));
    case FE_READ_STATUS:
        recordAt<fe_status_t>(argument) =
            isLocked(frontend) ? static_cast<fe_status_t>(0x1F) : FE_NONE;
        return 0;
    case FE_READ_SIGNAL_STRENGTH:
        recordAt<std::uint16_t>(argument) = 0x8000;
        return 0;
    case FE_SET_TONE:
        frontend.lineCalls.emplace_back(argument == SEC_TONE_ON ? "tone on" : "tone off");
        return 0;
    case FE_SET_VOLTAGE:
        frontend.lineCalls.emplace_back(argument == SEC_VOLTAGE_18 ? "18 V" : "13 V");
        return -frontend.voltageProblem;
    case FE_DISEQC_SEND_MASTER_CMD: {
        const auto& command = recordAt<dvb_diseqc_master_cmd>(argument);
        std::string text;
        for (std::size_t i = 0; i < command.msg_len; ++i) {
            char byte[3];
            std::snprintf(byte, sizeof byte, "%02X", static_cast<unsigned>(command.msg[i]));
            text += byte;
        }
        frontend.lineCalls.push_back(text);
        return 0;
    }
    default:
        return -ENOTTY;
    }
}

int FakeKernel::setFilter(File& file, const dmx_sct_filter_params& filter)
{
    const auto used = std::count_if(files_.begin(), files_.end(), [](const auto& each) {
        return each.second.filter.has_value();
    });
    if (static_cast<std::size_t>(used) >= filterLimit)
        return -EBUSY;
    mostFilters = std::max(mostFilters, static_cast<std::size_t>(used) + 1);
    file.filter = filter;
    return 0;
}

int FakeKernel::control(int file, unsigned long request, std::uintptr_t argument)
{
    const std::lock_guard lock(mutex_);
    File& asked = files_.at(file);
    if (asked.frontend) {
        FakeFrontend& frontend = frontends[*asked.frontend];
        return frontend.isGone ? -ENODEV : controlFrontend(frontend, request, argument);
    }
    if (isDemuxGone)
        return -ENODEV;
    return request == DMX_SET_FILTER ? setFilter(asked, recordAt<dmx_sct_filter_params>(argument))
                                     : 0;
}

long FakeKernel::read(int file, std::span<std::uint8_t> buffer)
{
    const std::lock_guard lock(mutex_);
    File& asked = files_.at(file);
    if (isDemuxGone)
        return 0;
    if (std::exchange(asked.hasOverflown, false))
        return -EOVERFLOW;
    if (asked.ready.empty())
        return -EAGAIN;
    const Bytes section = asked.ready.front();
    asked.ready.pop_front();
    const std::size_t size = std::min(section.size(), buffer.size());
    std::copy_n(section.begin(), size, buffer.begin());
    return static_cast<long>(size);
}

void FakeKernel::send(const Broadcast& broadcast)
{
    for (auto& [number, file] : files_) {
        if (!file.filter || !matches(*file.filter, broadcast))
            continue;
        if (file.ready.size() < kQueue) {
            file.ready.push_back(broadcast.section);
        } else {
            file.ready.clear();
            file.hasOverflown = true;
        }
    }
}

/// Lets everything happen that happens until then.
void FakeKernel::advance(Clock::time_point to)
{
    for (const Broadcast& broadcast : air) {
        const auto before = (now_ - begin_ - broadcast.first) / broadcast.interval;
        for (auto n = std::max<decltype(before)>(before, 0); n != broadcast.times; ++n) {
            const auto due = begin_ + broadcast.first + n * broadcast.interval;
            if (due > to)
                break;
            if (due > now_)
                send(broadcast);
        }
    }
    now_ = to;
}

bool FakeKernel::showReady(std::span<pollfd> files)
{
    bool isReady = false;
    for (pollfd& each : files) {
        const File& file = files_.at(each.fd);
        each.revents = isDemuxGone                                ? POLLERR
                       : file.ready.empty() && !file.hasOverflown ? 0
                                                                  : POLLIN;
        isReady = isReady || each.revents != 0;
    }
    return isReady;
}

int FakeKernel::wait(std::span<pollfd> files, milliseconds limit)
{
    std::vector<std::function<void()>> due;
    int ready = 0;
    {
        const std::lock_guard lock(mutex_);
        if (!showReady(files)) {
            advance(now_ + limit);
            std::erase_if(actions_, [&](auto& each) {
                if (each.first > now_)
                    return false;
                due.push_back(std::move(each.second));
                return true;
            });
        }
    }
    for (const auto& action : due)
        action();
    const std::lock_guard lock(mutex_);
    ready = showReady(files) ? 1 : 0;
    std::this_thread::yield();
    return ready;
}

} // namespace test
