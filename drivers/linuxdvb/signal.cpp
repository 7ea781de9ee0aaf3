#include "drivers/linuxdvb/signal.h"

#include "platform/format.h"

#include <array>
#include <linux/dvb/frontend.h>

namespace tessaview {

namespace {

constexpr double kFullScale = 65535; // of relative values
constexpr double kPerDecibel = 1000;

struct StatusName {
    std::uint32_t bit;
    const char* name;
};
constexpr std::array kStatusNames{
    StatusName{FE_HAS_SIGNAL, "signal"}, StatusName{FE_HAS_CARRIER, "carrier"},
    StatusName{FE_HAS_VITERBI, "FEC"},   StatusName{FE_HAS_SYNC, "sync"},
    StatusName{FE_HAS_LOCK, "lock"},
};

constexpr std::array<std::uint32_t, 7> kStatistics{
    DTV_STAT_SIGNAL_STRENGTH,      DTV_STAT_CNR,
    DTV_STAT_PRE_ERROR_BIT_COUNT,  DTV_STAT_PRE_TOTAL_BIT_COUNT,
    DTV_STAT_POST_ERROR_BIT_COUNT, DTV_STAT_POST_TOTAL_BIT_COUNT,
    DTV_STAT_ERROR_BLOCK_COUNT};

using Statistics = std::array<dtv_property, kStatistics.size()>;

Statistics statisticsOf(const Device& frontend)
{
    Statistics statistics{};
    for (std::size_t i = 0; i < kStatistics.size(); ++i)
        statistics[i].cmd = kStatistics[i];
    dtv_properties properties{.num = kStatistics.size(), .props = statistics.data()};
    if (frontend.control(FE_GET_PROPERTY, properties) < 0)
        statistics = {};
    return statistics;
}

/// The value for the whole channel, which is the first of them.
dtv_stats wholeOf(const dtv_property& property)
{
    const dtv_fe_stats& values = property.u.st;
    return values.len > 0 ? values.stat[0] : dtv_stats{};
}

Level levelOf(const dtv_property& property)
{
    const dtv_stats value = wholeOf(property);
    Level level;
    if (value.scale == FE_SCALE_DECIBEL)
        level.decibel = static_cast<double>(value.svalue) / kPerDecibel;
    else if (value.scale == FE_SCALE_RELATIVE)
        level.relative = static_cast<double>(value.uvalue) * 100 / kFullScale;
    return level;
}

std::optional<std::uint64_t> countOf(const dtv_property& property)
{
    const dtv_stats value = wholeOf(property);
    const std::uint64_t count = value.uvalue; // a copy, as the record packs it at any address
    return value.scale == FE_SCALE_COUNTER ? std::optional(count) : std::nullopt;
}

/// A level by the older call, relative; no answer where the receiver does not know it.
Level olderLevel(const Device& frontend, unsigned long request)
{
    std::uint16_t value = 0;
    Level level;
    if (frontend.control(request, value) >= 0)
        level.relative = value * 100 / kFullScale;
    return level;
}

std::optional<std::uint64_t> olderCount(const Device& frontend, unsigned long request)
{
    std::uint32_t value = 0;
    return frontend.control(request, value) >= 0 ? std::optional<std::uint64_t>(value)
                                                 : std::nullopt;
}

/// Whether the driver keeps a value at all, be it unknown just now.
bool isKept(const dtv_property& property)
{
    return property.u.st.len > 0;
}

} // namespace

std::string Level::text(const char* decibelUnit) const
{
    if (relative)
        return formatted("%.0f %%", *relative);
    return decibel ? formatted("%.1f %s", *decibel, decibelUnit) : "";
}

bool SignalReport::isLocked() const
{
    return (status & FE_HAS_LOCK) != 0;
}

std::string SignalReport::statusText() const
{
    std::string text;
    for (const StatusName& each : kStatusNames)
        if ((status & each.bit) != 0)
            text += (text.empty() ? "" : ", ") + std::string(each.name);
    return text.empty() ? "no signal" : text;
}

/// The share of errors among what came since the last report, or that of before when nothing came.
/// A counter that ran back began anew.
std::optional<double> SignalMeter::rate(Counters& last, std::optional<std::uint64_t> errors,
                                        std::optional<std::uint64_t> total)
{
    if (!errors || !total) {
        last = {};
        return std::nullopt;
    }
    const bool goesOn = last.errors <= *errors && last.total <= *total;
    const std::uint64_t newErrors = goesOn ? *errors - last.errors : *errors;
    const std::uint64_t newTotal = goesOn ? *total - last.total : *total;
    if (newTotal > 0)
        last.rate = static_cast<double>(newErrors) / static_cast<double>(newTotal);
    last.errors = *errors;
    last.total = *total;
    return last.rate;
}

SignalReport SignalMeter::measure(const Device& frontend)
{
    SignalReport report;
    fe_status_t status{};
    if (const int result = frontend.control(FE_READ_STATUS, status); result < 0)
        throw frontend.error("reading the status", result);
    report.status = status;

    const Statistics values = statisticsOf(frontend);
    report.strength = levelOf(values[0]);
    report.quality = levelOf(values[1]);
    {
        const std::lock_guard lock(mutex_);
        report.preBitErrorRate = rate(pre_, countOf(values[2]), countOf(values[3]));
        report.postBitErrorRate = rate(post_, countOf(values[4]), countOf(values[5]));
    }
    report.lostBlocks = countOf(values[6]);

    if (!isKept(values[0]))
        report.strength = olderLevel(frontend, FE_READ_SIGNAL_STRENGTH);
    if (!isKept(values[1]))
        report.quality = olderLevel(frontend, FE_READ_SNR);
    if (!isKept(values[2]) && !isKept(values[4]))
        report.bitErrors = olderCount(frontend, FE_READ_BER);
    if (!isKept(values[6]))
        report.lostBlocks = olderCount(frontend, FE_READ_UNCORRECTED_BLOCKS);
    return report;
}

} // namespace tessaview
