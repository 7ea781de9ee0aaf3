#pragma once

#include "drivers/linuxdvb/kernel.h"
#include "tests/multiplex/bytes_writer.h"

#include <deque>
#include <functional>
#include <linux/dvb/dmx.h>
#include <linux/dvb/frontend.h>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace test {

using std::chrono::milliseconds;

/// What a fake receiver was tuned with, by the commands of the API.
using Tuned = std::map<std::uint32_t, std::uint32_t>;

/// A receiver that the fake kernel has, and what it was told.
struct FakeFrontend {
    std::string name = "Fake receiver";
    std::vector<fe_delivery_system> systems{SYS_DVBS, SYS_DVBS2};
    std::uint32_t capabilities = FE_CAN_FEC_AUTO;
    int openProblem = 0;    ///< an error number
    int voltageProblem = 0; ///< likewise
    int tuneProblem = 0;    ///< likewise
    milliseconds lockTime{300};
    /// Whether there is a signal under these parameters.
    std::function<bool(const Tuned&)> receives = [](const Tuned&) { return true; };
    std::map<std::uint32_t, dtv_stats> statistics; ///< by DTV_STAT_...; none: the older calls
    bool isGone = false;

    std::vector<Tuned> tunings;         ///< in their order
    std::vector<std::string> lineCalls; ///< "tone off", "18 V", "E01038F3"
    tessaview::Kernel::Clock::time_point tunedAt{};
    bool isInUse = false;
};

/// A section that comes again and again.
struct Broadcast {
    unsigned pid;
    Bytes section;
    milliseconds interval{100};
    milliseconds first{0};
    int times = -1; ///< how often; below 0 for ever
};

/// Devices of adapter 0 as the kernel shows them, and a clock that only waiting moves.
class FakeKernel final : public tessaview::Kernel {
public:
    FakeKernel();

    std::vector<FakeFrontend> frontends;
    std::vector<Broadcast> air;
    std::size_t filterLimit = 32; ///< how many section filters there are
    std::size_t mostFilters = 0;  ///< how many there were at the same time
    bool isDemuxGone = false;
    int demuxOpenProblem = 0;

    /// Does something at a time from the start.
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
        std::optional<std::size_t> frontend; ///< else a demultiplexer
        bool isWriter = false;
        std::optional<dmx_sct_filter_params> filter;
        std::deque<Bytes> ready;
        bool hasOverflown = false;
    };

    int openFrontend(std::size_t index, bool isWriter);
    int controlFrontend(FakeFrontend& frontend, unsigned long request, std::uintptr_t argument);
    int setProperties(FakeFrontend& frontend, const dtv_properties& properties);
    static int getProperties(const FakeFrontend& frontend, const dtv_properties& properties);
    int setFilter(File& file, const dmx_sct_filter_params& filter);
    bool isLocked(const FakeFrontend& frontend) const;
    void advance(Clock::time_point to);
    void send(const Broadcast& broadcast);
    bool showReady(std::span<pollfd> files);

    mutable std::recursive_mutex mutex_;
    Clock::time_point begin_{};
    Clock::time_point now_{};
    std::map<int, File> files_;
    std::vector<std::pair<Clock::time_point, std::function<void()>>> actions_;
    int nextFile_ = 3;
};

} // namespace test
