#include "drivers/linuxdvb/attempts.h"

#include <algorithm>
#include <array>
#include <limits>
#include <span>

namespace tessaview {

namespace {

// The codes of the delivery system descriptors (EN 300 468, 6.2.13) as the API has them; a code
// behind the end of its table is reserved, and left to the receiver like one that is not defined.

constexpr std::array kInnerFec{FEC_AUTO, FEC_1_2, FEC_2_3, FEC_3_4, FEC_5_6,
                               FEC_7_8,  FEC_8_9, FEC_3_5, FEC_4_5, FEC_9_10};
constexpr unsigned kNoInnerFec = 15;
constexpr std::array kCableModulations{QAM_AUTO, QAM_16, QAM_32, QAM_64, QAM_128, QAM_256};
constexpr std::array kS2Modulations{PSK_8, QPSK, PSK_8, APSK_16, APSK_32};
constexpr std::array kRollOffs{ROLLOFF_35, ROLLOFF_25, ROLLOFF_20};
constexpr std::array kBandwidths{8000000U, 7000000U, 6000000U, 5000000U};
constexpr std::array kConstellations{QPSK, QAM_16, QAM_64};
constexpr std::array kHierarchies{HIERARCHY_NONE, HIERARCHY_1, HIERARCHY_2, HIERARCHY_4};
constexpr std::array kCodeRates{FEC_1_2, FEC_2_3, FEC_3_4, FEC_5_6, FEC_7_8};
constexpr std::array kGuardIntervals{GUARD_INTERVAL_1_32, GUARD_INTERVAL_1_16, GUARD_INTERVAL_1_8,
                                     GUARD_INTERVAL_1_4};
constexpr std::array kTransmissionModes{TRANSMISSION_MODE_2K, TRANSMISSION_MODE_8K,
                                        TRANSMISSION_MODE_4K};

template <class Table>
std::uint32_t valueOf(const Table& table, std::size_t code, std::uint32_t otherwise)
{
    return code < table.size() ? static_cast<std::uint32_t>(table[code]) : otherwise;
}

/// Frequencies and rates come from the air and may be anything.
std::uint32_t narrowed(std::uint64_t value)
{
    return static_cast<std::uint32_t>(
        std::min<std::uint64_t>(value, std::numeric_limits<std::uint32_t>::max()));
}

/// Receivers that find the code rate themselves are left to it: what lists and NITs say of it is
/// often out of date, and nothing is gained by saying it.
std::uint32_t innerFec(unsigned code, const FrontendFacts& facts)
{
    if ((facts.capabilities & FE_CAN_FEC_AUTO) != 0)
        return FEC_AUTO;
    return code == kNoInnerFec ? static_cast<std::uint32_t>(FEC_NONE)
                               : valueOf(kInnerFec, code, FEC_AUTO);
}

Attempt dvbS(const SatelliteTuning& tuning, const FrontendFacts& facts, std::uint32_t frequency)
{
    // "No coding" of a satellite list has the code of 3/5, which DVB-S does not know either.
    const unsigned fec = tuning.FEC_inner == 7 ? 0U : tuning.FEC_inner;
    return {SYS_DVBS,
            {{DTV_FREQUENCY, frequency},
             {DTV_SYMBOL_RATE, narrowed(symbolRateOf(tuning))},
             {DTV_INNER_FEC, innerFec(fec, facts)},
             {DTV_INVERSION, INVERSION_AUTO},
             {DTV_MODULATION, QPSK}}};
}

std::uint32_t streamIdOf(const S2Parameters& s2)
{
    return s2.streamId >= 0 ? static_cast<std::uint32_t>(s2.streamId) : NO_STREAM_ID_FILTER;
}

/// `isDescribed`: the description is one of DVB-S2, so that its codes mean what they say.
Attempt dvbS2(const Channel& channel, const SatelliteTuning& tuning, const FrontendFacts& facts,
              std::uint32_t frequency, bool isDescribed)
{
    const S2Parameters& s2 = channel.s2;
    const auto described = SatelliteModulation::of(tuning);
    const std::size_t modulation = s2.modulation >= 0 ? static_cast<std::size_t>(s2.modulation)
                                   : isDescribed      ? described.type
                                                      : 0U;
    const std::size_t rollOff = s2.rollOff >= 0 ? static_cast<std::size_t>(s2.rollOff)
                                : isDescribed   ? described.rollOff
                                                : kRollOffs.size();
    const fe_pilot pilot = s2.pilot < 0 ? PILOT_AUTO : s2.pilot > 0 ? PILOT_ON : PILOT_OFF;
    return {SYS_DVBS2,
            {{DTV_FREQUENCY, frequency},
             {DTV_SYMBOL_RATE, narrowed(symbolRateOf(tuning))},
             {DTV_INNER_FEC, innerFec(tuning.FEC_inner, facts)},
             {DTV_INVERSION, INVERSION_AUTO},
             {DTV_MODULATION, valueOf(kS2Modulations, modulation, PSK_8)},
             {DTV_ROLLOFF, valueOf(kRollOffs, rollOff, ROLLOFF_AUTO)},
             {DTV_PILOT, pilot},
             {DTV_STREAM_ID, streamIdOf(s2)}}};
}

std::vector<Attempt> attempts(const Channel& /*channel*/, std::monostate /*none*/,
                              const FrontendFacts& /*facts*/, std::uint32_t /*frequency*/)
{
    return {};
}

std::vector<Attempt> attempts(const Channel& channel, const SatelliteTuning& tuning,
                              const FrontendFacts& facts, std::uint32_t frequency)
{
    const bool isS2 =
        channel.s2.system >= 0 ? channel.s2.system > 0 : SatelliteModulation::of(tuning).isS2;
    std::vector<Attempt> both{dvbS(tuning, facts, frequency),
                              dvbS2(channel, tuning, facts, frequency, isS2)};
    if (isS2)
        std::swap(both[0], both[1]);
    return both;
}

/// The modulations to try: the one that is described, else what the receiver finds, else the
/// usual ones.
std::vector<std::uint32_t> cableModulations(unsigned code, const FrontendFacts& facts)
{
    const std::uint32_t described = valueOf(kCableModulations, code, QAM_AUTO);
    if (described != QAM_AUTO || (facts.capabilities & FE_CAN_QAM_AUTO) != 0)
        return {described};
    return {QAM_256, QAM_64, QAM_128};
}

std::vector<Attempt> attempts(const Channel& /*channel*/, const CableTuning& tuning,
                              const FrontendFacts& facts, std::uint32_t /*frequency*/)
{
    std::vector<Attempt> all;
    for (const auto system : {SYS_DVBC_ANNEX_A, SYS_DVBC_ANNEX_C, SYS_DVBC_ANNEX_B})
        for (const std::uint32_t modulation : cableModulations(tuning.modulation, facts))
            all.push_back({system,
                           {{DTV_FREQUENCY, narrowed(frequencyOf(tuning))},
                            {DTV_SYMBOL_RATE, narrowed(symbolRateOf(tuning))},
                            {DTV_INNER_FEC, innerFec(tuning.FEC_inner, facts)},
                            {DTV_INVERSION, INVERSION_AUTO},
                            {DTV_MODULATION, modulation}}});
    return all;
}

/// Whether the description tells more than the frequency and the bandwidth.
bool isDescribed(const TerrestrialTuning& tuning)
{
    return tuning.constellation != 0 || tuning.hierarchy_information != 0 ||
           tuning.code_rate_HP_stream != 0 || tuning.code_rate_LP_stream != 0 ||
           tuning.guard_interval != 0 || tuning.transmission_mode != 0;
}

/// DVB-T signals its own parameters, so a receiver that reads them knows better than what a NIT
/// says.
Attempt dvbT(const TerrestrialTuning& tuning, const FrontendFacts& facts, std::uint32_t frequency,
             std::uint32_t bandwidth)
{
    const auto told = [&](std::uint32_t canFind, const auto& table, std::size_t code,
                          std::uint32_t automatic) {
        const bool isLeft = (facts.capabilities & canFind) != 0 || !isDescribed(tuning);
        return isLeft ? automatic : valueOf(table, code, automatic);
    };
    return {
        SYS_DVBT,
        {{DTV_FREQUENCY, frequency},
         {DTV_BANDWIDTH_HZ, bandwidth},
         {DTV_INVERSION, INVERSION_AUTO},
         {DTV_MODULATION, told(FE_CAN_QAM_AUTO, kConstellations, tuning.constellation, QAM_AUTO)},
         {DTV_HIERARCHY, told(FE_CAN_HIERARCHY_AUTO, kHierarchies,
                              tuning.hierarchy_information & 3U, HIERARCHY_AUTO)},
         {DTV_CODE_RATE_HP,
          told(FE_CAN_FEC_AUTO, kCodeRates, tuning.code_rate_HP_stream, FEC_AUTO)},
         {DTV_CODE_RATE_LP,
          told(FE_CAN_FEC_AUTO, kCodeRates, tuning.code_rate_LP_stream, FEC_AUTO)},
         {DTV_GUARD_INTERVAL, told(FE_CAN_GUARD_INTERVAL_AUTO, kGuardIntervals,
                                   tuning.guard_interval, GUARD_INTERVAL_AUTO)},
         {DTV_TRANSMISSION_MODE, told(FE_CAN_TRANSMISSION_MODE_AUTO, kTransmissionModes,
                                      tuning.transmission_mode, TRANSMISSION_MODE_AUTO)}}};
}

Attempt dvbT2(const Channel& channel, std::uint32_t frequency, std::uint32_t bandwidth)
{
    return {SYS_DVBT2,
            {{DTV_FREQUENCY, frequency},
             {DTV_BANDWIDTH_HZ, bandwidth},
             {DTV_INVERSION, INVERSION_AUTO},
             {DTV_MODULATION, QAM_AUTO},
             {DTV_INNER_FEC, FEC_AUTO},
             {DTV_GUARD_INTERVAL, GUARD_INTERVAL_AUTO},
             {DTV_TRANSMISSION_MODE, TRANSMISSION_MODE_AUTO},
             {DTV_STREAM_ID, streamIdOf(channel.s2)}}};
}

std::vector<Attempt> attempts(const Channel& channel, const TerrestrialTuning& tuning,
                              const FrontendFacts& facts, std::uint32_t /*frequency*/)
{
    const std::uint32_t frequency = narrowed(frequencyOf(tuning));
    const std::uint32_t bandwidth = valueOf(kBandwidths, tuning.bandwidth, kBandwidths.front());
    return {dvbT(tuning, facts, frequency, bandwidth), dvbT2(channel, frequency, bandwidth)};
}

} // namespace

std::vector<Attempt> attemptsFor(const Channel& channel, const FrontendFacts& facts,
                                 std::uint32_t frequency)
{
    std::vector<Attempt> all =
        std::visit([&](const auto& tuning) { return attempts(channel, tuning, facts, frequency); },
                   channel.tuning);
    std::erase_if(all, [&](const Attempt& each) { return !facts.supports(each.system); });
    return all;
}

} // namespace tessaview
