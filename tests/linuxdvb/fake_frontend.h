#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <linux/dvb/frontend.h>
#include <map>
#include <string>
#include <vector>

namespace test {

using std::chrono::milliseconds;

/// The record that a control call comes with.
template <class Record>
Record& recordAt(std::uintptr_t argument)
{
    // NOLINTNEXTLINE(performance-no-int-to-ptr): that is how records reach a kernel
    return *reinterpret_cast<Record*>(argument);
}

/// What a fake receiver was tuned with, by the commands of the API.
using Tuned = std::map<std::uint32_t, std::uint32_t>;

inline bool receivesNothing(const Tuned& /*tuned*/)
{
    return false;
}

struct FakeStatistic {
    std::uint8_t scale; ///< FE_SCALE_...
    std::int64_t value;
};

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
    std::map<std::uint32_t, FakeStatistic> statistics{}; ///< by DTV_STAT_...; none: the older calls
    bool isGone = false;

    std::vector<Tuned> tunings{};         ///< in their order
    std::vector<std::string> lineCalls{}; ///< "tone off", "18 V", "E01038F3"
    milliseconds tunedAt{0};
    bool isInUse = false; ///< by somebody who may tune it

    /// Answer as the kernel does.
    int open(bool toTune);
    int control(unsigned long request, std::uintptr_t argument, milliseconds now);
};

} // namespace test
