#include "tests/linuxdvb/fake_kernel.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <set>
#include <thread>

namespace test {

using tessaview::Kernel;

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

} // namespace

void FakeKernel::at(milliseconds time, std::function<void()> action)
{
    const std::lock_guard lock(mutex_);
    actions_.emplace(time, std::move(action));
}

milliseconds FakeKernel::elapsed()
{
    const std::lock_guard lock(mutex_);
    return now_;
}

std::size_t FakeKernel::openFiles()
{
    const std::lock_guard lock(mutex_);
    return files_.size();
}

std::vector<std::string> FakeKernel::entries(const std::string& folder)
{
    const std::lock_guard lock(mutex_);
    std::set<std::string> names;
    for (const auto& [id, frontend] : frontends) {
        const std::string adapter = "adapter" + std::to_string(id.adapter);
        if (frontend.isGone)
            continue;
        if (folder == "/dev/dvb")
            names.insert(adapter);
        else if (folder == "/dev/dvb/" + adapter)
            names.insert({"demux0", "dvr0", "frontend" + std::to_string(id.frontend)});
    }
    return {names.begin(), names.end()};
}

int FakeKernel::open(const std::string& path, int flags)
{
    const std::lock_guard lock(mutex_);
    File file{.isWriter = (flags & O_ACCMODE) == O_RDWR};
    int result = -ENOENT;
    const auto found = std::find_if(frontends.begin(), frontends.end(), [&](const auto& each) {
        return path == "/dev/dvb/" + each.first.name();
    });
    if (path.ends_with("/demux0") && !isDemuxGone) {
        const auto open = std::count_if(files_.begin(), files_.end(), [](const auto& each) {
            return each.second.frontend == nullptr;
        });
        const bool isFull = static_cast<std::size_t>(open) >= demuxLimit;
        result = isFull ? -EMFILE : -demuxOpenProblem;
    } else if (found != frontends.end()) {
        file.frontend = &found->second;
        result = file.frontend->open(file.isWriter);
    }
    if (result < 0)
        return result;
    files_[++lastFile_] = std::move(file);
    return lastFile_;
}

void FakeKernel::close(int file) noexcept
{
    const std::lock_guard lock(mutex_);
    const File& closed = files_.at(file);
    if (closed.frontend && closed.isWriter)
        closed.frontend->isInUse = false;
    files_.erase(file);
}

Kernel::Clock::time_point FakeKernel::now()
{
    return Clock::time_point(elapsed());
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

int FakeKernel::choosePid(std::uint16_t pid)
{
    const auto refusal = refusals.find(pid);
    if (refusal != refusals.end())
        return -refusal->second;
    pids.push_back(pid);
    return 0;
}

int FakeKernel::controlDemultiplexer(File& file, unsigned long request, std::uintptr_t argument)
{
    if (isDemuxGone)
        return -ENODEV;
    switch (request) {
    case DMX_SET_BUFFER_SIZE:
        return 0;
    case DMX_SET_FILTER:
        return setFilter(file, recordAt<dmx_sct_filter_params>(argument));
    case DMX_SET_PES_FILTER:
        file.isRecording = true;
        return choosePid(recordAt<dmx_pes_filter_params>(argument).pid);
    case DMX_ADD_PID:
        return choosePid(recordAt<std::uint16_t>(argument));
    default:
        return -ENOTTY;
    }
}

int FakeKernel::control(int file, unsigned long request, std::uintptr_t argument)
{
    const std::lock_guard lock(mutex_);
    File& asked = files_.at(file);
    return asked.frontend ? asked.frontend->control(request, argument, now_)
                          : controlDemultiplexer(asked, request, argument);
}

long FakeKernel::readPackets(std::span<std::uint8_t> buffer)
{
    if (packets.empty())
        return -EAGAIN;
    const long next = packets.front();
    packets.pop_front();
    if (next > 0)
        std::fill_n(buffer.begin(), next, ++packetsRead_);
    return next;
}

long FakeKernel::read(int file, std::span<std::uint8_t> buffer)
{
    const std::lock_guard lock(mutex_);
    File& asked = files_.at(file);
    if (isDemuxGone)
        return 0;
    if (asked.isRecording)
        return readPackets(buffer);
    if (std::exchange(asked.hasOverflown, false))
        return -EOVERFLOW;
    if (asked.sections.empty())
        return -EAGAIN;
    const Bytes section = std::move(asked.sections.front());
    asked.sections.pop_front();
    const std::size_t size = std::min(section.size(), buffer.size());
    std::copy_n(section.begin(), size, buffer.begin());
    return static_cast<long>(size);
}

void FakeKernel::send(const Broadcast& broadcast)
{
    for (auto& [number, file] : files_) {
        if (!file.filter || !matches(*file.filter, broadcast))
            continue;
        if (file.sections.size() < kQueue) {
            file.sections.push_back(broadcast.section);
        } else {
            file.sections.clear();
            file.hasOverflown = true;
        }
    }
}

/// Lets everything happen that happens until then.
void FakeKernel::advance(milliseconds to)
{
    for (const Broadcast& each : air) {
        auto n = std::max<long>((now_ - each.first) / each.interval, 0);
        for (auto due = each.first + n * each.interval; n != each.times && due <= to; ++n) {
            if (due > now_)
                send(each);
            due += each.interval;
        }
    }
    now_ = to;
}

bool FakeKernel::showReady(std::span<pollfd> files)
{
    bool isReady = false;
    for (pollfd& each : files) {
        const File& file = files_.at(each.fd);
        const bool isEmpty =
            file.isRecording ? packets.empty() : file.sections.empty() && !file.hasOverflown;
        each.revents = static_cast<short>(isDemuxGone ? POLLERR : isEmpty ? 0 : POLLIN);
        isReady = isReady || each.revents != 0;
    }
    return isReady;
}

int FakeKernel::wait(std::span<pollfd> files, milliseconds limit)
{
    std::this_thread::yield();
    std::this_thread::sleep_for(trueWait);
    const std::lock_guard lock(mutex_);
    if (!showReady(files) && !isTimeStill)
        advance(now_ + limit);
    while (!actions_.empty() && actions_.begin()->first <= now_)
        actions_.extract(actions_.begin()).mapped()();
    return showReady(files) ? 1 : 0;
}

} // namespace test
