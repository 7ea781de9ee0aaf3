#pragma once

#include "drivers/linuxdvb/device.h"
#include "tests/linuxdvb/fake_frontend.h"
#include "tools/multiplex/bytes_writer.h"

#include <deque>
#include <functional>
#include <linux/dvb/dmx.h>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace test {

/// A section that comes again and again.
struct Broadcast {
    unsigned pid;
    Bytes section;
    milliseconds interval{100};
    milliseconds first{0};
    int times = -1; ///< how often; below 0 for ever
};

/// Receivers as the kernel shows them, each adapter with one demultiplexer, and a clock that only
/// waiting moves. What is public is a test's to change and to look at while no other thread uses
/// the kernel; while one does, by `at`.
class FakeKernel final : public tessaview::Kernel {
public:
    /// A receiver is unplugged by its `isGone`, and never taken out.
    std::map<tessaview::DeviceId, FakeFrontend> frontends{{{}, {}}};
    bool isDemuxGone = false;
    int demuxOpenProblem = 0;

    std::vector<Broadcast> air;
    std::size_t filterLimit = 32; ///< how many section filters there are
    std::size_t demuxLimit = 32;  ///< how often the demultiplexers can be open at a time
    std::size_t mostFilters = 0;  ///< how many there were at the same time

    /// What reading packets answers, in turn: a size, or a negative error number; then nothing
    /// comes any more. The packets of the n-th size are of bytes n.
    std::deque<long> packets;
    std::map<std::uint16_t, int> refusals; ///< error numbers by the PIDs that cannot be recorded
    std::vector<std::uint16_t> pids;       ///< that were chosen for recording, in their order

    bool isTimeStill = false; ///< what waits then does so for ever
    /// What a wait takes in truth, where threads that go by other clocks need their turn.
    milliseconds trueWait{0};

    /// Does something at a time from the start: with the wait that lasts until then or, when the
    /// time has passed, with the next.
    void at(milliseconds time, std::function<void()> action);
    milliseconds elapsed();
    std::size_t openFiles();

    std::vector<std::string> entries(const std::string& folder) override;
    int open(const std::string& path, int flags) override;
    int control(int file, unsigned long request, std::uintptr_t argument) override;
    long read(int file, std::span<std::uint8_t> buffer) override;
    int wait(std::span<pollfd> files, milliseconds limit) override;
    void close(int file) noexcept override;
    Clock::time_point now() override;

private:
    struct File {
        FakeFrontend* frontend = nullptr; ///< else a demultiplexer
        bool isWriter = false;
        bool isRecording = false;
        std::optional<dmx_sct_filter_params> filter{};
        std::deque<Bytes> sections{};
        bool hasOverflown = false;
    };

    int controlDemultiplexer(File& file, unsigned long request, std::uintptr_t argument);
    int setFilter(File& file, const dmx_sct_filter_params& filter);
    int choosePid(std::uint16_t pid);
    long readPackets(std::span<std::uint8_t> buffer);
    void advance(milliseconds to);
    void send(const Broadcast& broadcast);
    bool showReady(std::span<pollfd> files);

    std::recursive_mutex mutex_; // actions may ask the kernel
    milliseconds now_{0};        // since the start
    std::map<int, File> files_;
    int lastFile_ = 2;
    std::multimap<milliseconds, std::function<void()>> actions_;
    std::uint8_t packetsRead_ = 0;
};

} // namespace test
