#include "drivers/linuxdvb/stream_recorder.h"

#include "drivers/linuxdvb/device.h"
#include "drivers/linuxdvb/pid_list.h"
#include "drivers/linuxdvb/recording_file.h"
#include "platform/format.h"

#include <cerrno>
#include <fcntl.h>
#include <linux/dvb/dmx.h>
#include <stdexcept>
#include <utility>

namespace tessaview {

namespace {

constexpr std::uint16_t kEveryPid = 0x2000; // of the demultiplexer's filters
constexpr std::size_t kPacketSize = 188;
constexpr std::size_t kBlockSize = kPacketSize * 8192;
constexpr std::size_t kBufferSize = std::size_t{8} << 20; // half a second of the fastest streams

/// Packets come one by one; so many of them are fetched at once.
constexpr std::chrono::milliseconds kGathering{50};

DeviceError refusal(const Device& demultiplexer, const std::string& what, int result)
{
    const char* text = nullptr;
    if (result == -EBUSY || result == -ENOMEM || result == -ENOSPC)
        text = "the receiver has no filter left for it";
    else if (result == -EINVAL)
        text = "the receiver cannot do that";
    else
        return demultiplexer.error(what, result);
    return {demultiplexer.name() + ": " + what + ": " + text, -result};
}

void choosePackets(const Device& demultiplexer, const std::vector<std::uint16_t>& pids)
{
    // Without it the usual buffer serves, which may be too small for a busy computer.
    demultiplexer.controlValue(DMX_SET_BUFFER_SIZE, kBufferSize);
    const bool isWhole = pids.empty();
    dmx_pes_filter_params filter{.pid = isWhole ? kEveryPid : pids.front(),
                                 .input = DMX_IN_FRONTEND,
                                 .output = DMX_OUT_TSDEMUX_TAP,
                                 .pes_type = DMX_PES_OTHER,
                                 .flags = DMX_IMMEDIATE_START};
    if (const int result = demultiplexer.control(DMX_SET_PES_FILTER, filter); result < 0)
        throw refusal(demultiplexer,
                      "recording " + (isWhole ? "the whole stream" : pidName(filter.pid)), result);
    for (std::size_t i = 1; i < pids.size(); ++i) {
        std::uint16_t pid = pids[i];
        if (const int result = demultiplexer.control(DMX_ADD_PID, pid); result < 0)
            throw refusal(demultiplexer, "recording " + pidName(pid), result);
    }
}

/// Waits a little for packets. A device that is gone says no more than that something is wrong.
void awaitPackets(const Device& demultiplexer)
{
    pollfd file{.fd = demultiplexer.file(), .events = POLLIN, .revents = 0};
    const int result = demultiplexer.kernel().wait({&file, 1}, kStopInterval);
    if (result < 0 && result != -EINTR)
        throw demultiplexer.error("waiting for the stream", result);
    if (result > 0 && (file.revents & POLLIN) == 0)
        throw demultiplexer.error("recording", -ENODEV);
}

} // namespace

StreamRecorder::StreamRecorder(Kernel& kernel, Recording recording, FreeSpace free)
    : kernel_(kernel)
    , recording_(std::move(recording))
    , spaceIn_(std::move(free))
{
}

void StreamRecorder::checkSpace()
{
    const std::filesystem::path folder = recording_.destination.parent_path();
    free_ = spaceIn_(folder);
    if (free_ < kDiskReserve + kBlockSize)
        throw std::runtime_error(formatted("The disk of %s has only %s free, and %s stay free",
                                           folder.c_str(), sizeText(free_).c_str(),
                                           sizeText(kDiskReserve).c_str()));
}

void StreamRecorder::write(RecordingFile& file, std::span<const std::uint8_t> block)
{
    checkSpace();
    int problem = 0;
    written_ += file.write(block, problem);
    if (problem != 0)
        throw file.problem(problem);
}

void StreamRecorder::recordInto(RecordingFile& file, const std::stop_token& stop)
{
    const Device demultiplexer(kernel_, recording_.demultiplexer, O_RDWR | O_NONBLOCK);
    choosePackets(demultiplexer, recording_.pids);
    std::vector<std::uint8_t> block(kBlockSize);
    while (!stop.stop_requested()) {
        const long size = kernel_.read(demultiplexer.file(), block);
        if (size > 0)
            write(file, std::span(block).first(static_cast<std::size_t>(size)));
        else if (size == -EOVERFLOW)
            ++gaps_;
        else if (size == 0 || size == -EAGAIN || size == -EINTR)
            awaitPackets(demultiplexer);
        else
            throw demultiplexer.error("recording", static_cast<int>(size));
        if (size < static_cast<long>(block.size()))
            kernel_.wait({}, kGathering);
    }
}

/// The closing sentence.
std::string StreamRecorder::outcome(const std::string& problem) const
{
    const std::string name = recording_.destination.string();
    std::string text =
        written_ > 0 ? sizeText(written_) + " were written to " + name + "." : std::string();
    if (problem.empty() && text.empty())
        text = "Nothing was received, and nothing written to " + name + ".";
    else if (!problem.empty())
        text =
            problem + (text.empty() ? "; nothing was recorded." : "; recording stopped: " + text);
    if (gaps_ > 0)
        text += formatted(" Packets are missing in %u place%s: the computer did not keep up.",
                          gaps_.load(), gaps_ == 1 ? "" : "s");
    return text;
}

StreamRecorder::Result StreamRecorder::run(const std::stop_token& stop)
{
    try {
        recording_.destination = std::filesystem::absolute(recording_.destination);
        RecordingFile file(recording_.destination, recording_.mayReplace);
        checkSpace();
        try {
            recordInto(file, stop);
        } catch (...) {
            try {
                file.finish();
            } catch (const std::runtime_error&) { // what came first is told
            }
            throw;
        }
        file.finish();
        return {End::Stopped, outcome("")};
    } catch (const std::exception& e) {
        return {End::Failed, outcome(e.what())};
    }
}

} // namespace tessaview
