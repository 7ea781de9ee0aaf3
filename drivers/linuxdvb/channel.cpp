#include "drivers/linuxdvb/channel.h"

#include "platform/format.h"
#include "platform/number.h"

#include <sstream>
#include <vector>

namespace tessaview {

namespace {

/// A frequency without zeros that say nothing: "12187.5", "474".
std::string megahertz(double value)
{
    std::string text = formatted("%.3f", value);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.')
        text.pop_back();
    return text;
}

std::string frequency(const Channel& channel)
{
    struct {
        double operator()(const SatelliteTuning& t) const { return t.frequency / 100.0; }
        double operator()(const CableTuning& t) const { return t.frequency / 10000.0; }
        double operator()(const TerrestrialTuning& t) const
        {
            return t.centre_frequency / 100000.0;
        }
    } const inMegahertz;
    return megahertz(std::visit(inMegahertz, channel.tuning));
}

char polarization(const SatelliteTuning& tuning)
{
    return "HVLR"[tuning.polarization & 3U];
}

using Fields = std::vector<std::uint32_t>;

Fields fieldsOf(const SatelliteTuning& t)
{
    return {1,
            t.frequency,
            t.orbital_position,
            t.west_east_flag,
            t.polarization,
            t.modulation,
            t.symbol_rate,
            t.FEC_inner};
}

Fields fieldsOf(const CableTuning& t)
{
    return {2, t.frequency, t.FEC_outer, t.modulation, t.symbol_rate, t.FEC_inner};
}

Fields fieldsOf(const TerrestrialTuning& t)
{
    return {3,
            t.centre_frequency,
            t.bandwidth,
            t.constellation,
            t.hierarchy_information,
            t.code_rate_HP_stream,
            t.code_rate_LP_stream,
            t.guard_interval,
            t.transmission_mode,
            t.other_frequency_flag};
}

std::uint8_t byteOf(std::uint32_t field)
{
    return static_cast<std::uint8_t>(field);
}

std::optional<Channel> channelOfFields(const Fields& f)
{
    Channel channel;
    if (f.size() == 8 && f[0] == 1)
        channel.tuning = SatelliteTuning{.frequency = f[1],
                                         .orbital_position = static_cast<std::uint16_t>(f[2]),
                                         .padding1 = {},
                                         .west_east_flag = f[3],
                                         .polarization = byteOf(f[4]),
                                         .modulation = byteOf(f[5]),
                                         .padding2 = {},
                                         .symbol_rate = f[6],
                                         .FEC_inner = byteOf(f[7]),
                                         .padding3 = {}};
    else if (f.size() == 6 && f[0] == 2)
        channel.tuning = CableTuning{.frequency = f[1],
                                     .FEC_outer = byteOf(f[2]),
                                     .modulation = byteOf(f[3]),
                                     .padding1 = {},
                                     .symbol_rate = f[4],
                                     .FEC_inner = byteOf(f[5]),
                                     .padding2 = {}};
    else if (f.size() == 10 && f[0] == 3)
        channel.tuning = TerrestrialTuning{.centre_frequency = f[1],
                                           .bandwidth = byteOf(f[2]),
                                           .constellation = byteOf(f[3]),
                                           .hierarchy_information = byteOf(f[4]),
                                           .code_rate_HP_stream = byteOf(f[5]),
                                           .code_rate_LP_stream = byteOf(f[6]),
                                           .guard_interval = byteOf(f[7]),
                                           .transmission_mode = byteOf(f[8]),
                                           .other_frequency_flag = byteOf(f[9])};
    else
        return std::nullopt;
    return channel;
}

} // namespace

std::string channelName(const Channel& channel)
{
    const std::string text = frequency(channel);
    if (const auto* const satellite = std::get_if<SatelliteTuning>(&channel.tuning))
        return formatted("%s MHz %c", text.c_str(), polarization(*satellite));
    return text + " MHz";
}

std::string channelSummary(const Channel& channel)
{
    std::string text = frequency(channel);
    if (const auto* const satellite = std::get_if<SatelliteTuning>(&channel.tuning))
        return formatted("%s %c %u", text.c_str(), polarization(*satellite),
                         satellite->symbol_rate / 10);
    if (const auto* const cable = std::get_if<CableTuning>(&channel.tuning))
        return formatted("%s %u", text.c_str(), cable->symbol_rate / 10);
    return text;
}

std::string storedText(const Channel& channel)
{
    std::string text;
    for (const std::uint32_t field :
         std::visit([](const auto& tuning) { return fieldsOf(tuning); }, channel.tuning))
        text += formatted(text.empty() ? "%u" : " %u", field);
    return text;
}

std::optional<Channel> channelOf(std::string_view stored)
{
    Fields fields;
    std::istringstream words{std::string(stored)};
    for (std::string word; words >> word;) {
        const auto number = wholeNumber<std::uint32_t>(word);
        if (!number)
            return std::nullopt;
        fields.push_back(*number);
    }
    return channelOfFields(fields);
}

} // namespace tessaview
