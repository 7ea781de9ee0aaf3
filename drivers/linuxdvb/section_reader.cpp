#include "drivers/linuxdvb/section_reader.h"

#include "drivers/linuxdvb/section_filter.h"
#include "platform/format.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <deque>
#include <list>
#include <poll.h>

namespace tessaview {

namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using TimePoint = Kernel::Clock::time_point;

/// What a filter is given at least that had to wait for its turn.
constexpr milliseconds kTurn{10'000};

/// The longest that tables may take to come round (TR 101 211, 4.4), and a little more.
struct Repetition {
    std::uint8_t first; ///< table_id
    std::uint8_t last;
    milliseconds interval;
};
constexpr std::array kRepetitions{
    Repetition{0x00, 0x02, seconds(3)},  // PAT, CAT, PMT
    Repetition{0x40, 0x46, seconds(12)}, // NIT, SDT
    Repetition{0x4A, 0x4A, seconds(12)}, // BAT
    Repetition{0x4E, 0x4E, seconds(6)},  // EIT present/following of this stream
    Repetition{0x4F, 0x4F, seconds(22)}, // EIT present/following of others
    Repetition{0x50, 0x6F, seconds(32)}, // EIT schedule
    Repetition{0x70, 0x73, seconds(32)}, // TDT, RST, TOT
};
constexpr milliseconds kUnknownRepetition = seconds(12);

milliseconds repetitionOf(std::uint8_t table_id)
{
    const auto* const found =
        std::find_if(kRepetitions.begin(), kRepetitions.end(), [&](const Repetition& r) {
            return table_id >= r.first && table_id <= r.last;
        });
    return found == kRepetitions.end() ? kUnknownRepetition : found->interval;
}

/// The reading of one batch.
class BatchReader {
public:
    BatchReader(Kernel& kernel, const std::string& demultiplexer,
                std::span<const TableRequest> requests, ReadTimes times, const StopRequested& stop)
        : kernel_(kernel)
        , demultiplexer_(demultiplexer)
        , requests_(requests)
        , times_(times)
        , stop_(stop)
        , begin_(kernel.now())
    {
        collectors_.reserve(requests.size());
        for (std::size_t i = 0; i < requests.size(); ++i) {
            collectors_.emplace_back(requests[i], budget_);
            waiting_.push_back(i);
        }
    }

    Answers read();

private:
    struct Running {
        SectionFilter filter;
        std::uint8_t table_id;
    };
    enum class End { NotYet, Finished, AtCeiling };

    void run();
    void start();
    void awaitSections();
    bool finish();
    End endOf(const Running& running, TimePoint now) const;
    void note(std::string problem);

    Kernel& kernel_;
    const std::string& demultiplexer_;
    std::span<const TableRequest> requests_;
    ReadTimes times_;
    const StopRequested& stop_;
    TimePoint begin_;
    SectionBudget budget_{kCollectedBytes};
    std::vector<SectionCollector> collectors_;
    std::deque<std::size_t> waiting_; // requests that have no filter yet
    std::list<Running> running_;
    std::string problem_;
};

/// The first problem is the one that tells most.
void BatchReader::note(std::string problem)
{
    if (problem_.empty())
        problem_ = std::move(problem);
}

/// Starts as many filters as there are to be had.
void BatchReader::start()
{
    while (!waiting_.empty()) {
        const std::size_t index = waiting_.front();
        const TableRequest& request = requests_[index];
        try {
            running_.push_back(
                {{kernel_, demultiplexer_, request, collectors_[index]}, request.table_id});
        } catch (const DeviceError& e) {
            if (SectionFilter::isFull(e) && !running_.empty())
                return; // its turn comes
            if (!SectionFilter::isFull(e) && e.error() != EINVAL)
                throw;
            note(e.what());
        }
        waiting_.pop_front();
    }
}

void BatchReader::awaitSections()
{
    if (stop_ && stop_())
        throw Interrupted();
    std::vector<pollfd> files;
    for (const Running& each : running_)
        files.push_back({.fd = each.filter.file(), .events = POLLIN, .revents = 0});
    const int ready = kernel_.wait(files, kStopInterval);
    if (ready < 0 && ready != -EINTR)
        throw DeviceError(demultiplexer_ + ": waiting for sections: " + deviceProblem(-ready),
                          -ready);
    auto file = files.begin();
    for (Running& each : running_) {
        const auto events = (file++)->revents;
        if (events != 0)
            each.filter.read();
        // Of a device that is gone there is nothing to read, not even the error.
        const bool isError = (events & (POLLERR | POLLHUP | POLLNVAL)) != 0;
        if (isError && (events & POLLIN) == 0)
            throw DeviceError(demultiplexer_ + ": " + deviceProblem(ENODEV), ENODEV);
    }
}

BatchReader::End BatchReader::endOf(const Running& running, TimePoint now) const
{
    const SectionFilter& filter = running.filter;
    const SectionCollector& collector = filter.collector();
    if (collector.isComplete())
        return End::Finished;
    const bool isQuiet = now - filter.lastNew() >= repetitionOf(running.table_id);
    if (isQuiet && collector.looksComplete())
        return End::Finished;
    const TimePoint limit = std::max(begin_ + times_.wait, filter.started() + kTurn);
    if (now >= limit && (isQuiet || collector.keptCount() == 0))
        return End::Finished;
    return now >= begin_ + times_.ceiling ? End::AtCeiling : End::NotYet;
}

/// Lets go of the filters that have got their tables; whether there were any.
bool BatchReader::finish()
{
    const TimePoint now = kernel_.now();
    const std::size_t finished = std::erase_if(running_, [&](const Running& each) {
        const End end = budget_.isSpent() ? End::Finished : endOf(each, now);
        if (end == End::NotYet)
            return false;
        if (end == End::AtCeiling)
            note(formatted("table 0x%02X still brought new sections after %.0f s", each.table_id,
                           std::chrono::duration<double>(now - begin_).count()));
        if (each.filter.overflows() > 0)
            note(formatted("sections of table 0x%02X came too fast, some may be missing",
                           each.table_id));
        return true;
    });
    if (budget_.isSpent())
        note(formatted("reading stopped at %zu MiB of sections", kCollectedBytes >> 20));
    if ((now >= begin_ + times_.ceiling || budget_.isSpent()) && !waiting_.empty()) {
        note(formatted("%zu tables had no free filter", waiting_.size()));
        waiting_.clear();
    }
    return finished > 0;
}

void BatchReader::run()
{
    start();
    while (!running_.empty()) {
        awaitSections();
        if (finish())
            start();
    }
}

Answers BatchReader::read()
{
    const auto isEmpty = [&] {
        return std::all_of(collectors_.begin(), collectors_.end(),
                           [](const SectionCollector& c) { return c.keptCount() == 0; });
    };
    try {
        run();
    } catch (const DeviceError& e) {
        if (isEmpty())
            throw;
        problem_ = e.what();
    }
    running_.clear();
    if (isEmpty() && !problem_.empty())
        throw DeviceError(problem_, 0);
    Answers answers{.lists = {}, .problem = std::move(problem_)};
    answers.lists.reserve(collectors_.size());
    for (SectionCollector& collector : collectors_)
        answers.lists.push_back(collector.answer());
    return answers;
}

} // namespace

Answers readTables(Kernel& kernel, const std::string& demultiplexer,
                   std::span<const TableRequest> requests, ReadTimes times,
                   const StopRequested& stop)
{
    return BatchReader(kernel, demultiplexer, requests, times, stop).read();
}

} // namespace tessaview
