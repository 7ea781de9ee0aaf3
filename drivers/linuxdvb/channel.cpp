#include "drivers/linuxdvb/channel.h"

#include "platform/number.h"

#include <sstream>
#include <type_traits>

namespace tessaview {

namespace {

// The fields of a record in the order in which the settings keep them, behind its tuner type.

template <class Visit>
void forEachField(std::monostate& /*none*/, Visit /*visit*/)
{
}

template <class Visit>
void forEachField(SatelliteTuning& t, Visit visit)
{
    visit(t.frequency);
    visit(t.orbital_position);
    visit(t.west_east_flag);
    visit(t.polarization);
    visit(t.modulation);
    visit(t.symbol_rate);
    visit(t.FEC_inner);
}

template <class Visit>
void forEachField(CableTuning& t, Visit visit)
{
    visit(t.frequency);
    visit(t.FEC_outer);
    visit(t.modulation);
    visit(t.symbol_rate);
    visit(t.FEC_inner);
}

template <class Visit>
void forEachField(TerrestrialTuning& t, Visit visit)
{
    visit(t.centre_frequency);
    visit(t.bandwidth);
    visit(t.constellation);
    visit(t.hierarchy_information);
    visit(t.code_rate_HP_stream);
    visit(t.code_rate_LP_stream);
    visit(t.guard_interval);
    visit(t.transmission_mode);
    visit(t.other_frequency_flag);
}

/// A record of a kind with all fields 0.
Tuning emptyTuning(std::uint32_t type)
{
    switch (tunerTypeOf(type).value_or(TunerType{})) {
    case TunerType::Satellite:
        return SatelliteTuning{};
    case TunerType::Cable:
        return CableTuning{};
    case TunerType::Terrestrial:
        return TerrestrialTuning{};
    }
    return {};
}

} // namespace

std::string storedText(const Channel& channel)
{
    std::string text = std::to_string(channel.tuning.index());
    Tuning tuning = channel.tuning;
    std::visit(
        [&](auto& record) {
            forEachField(record,
                         [&](auto field) { text.append(" ").append(std::to_string(field)); });
        },
        tuning);
    return text;
}

std::optional<Channel> channelOf(std::string_view stored)
{
    std::istringstream words{std::string(stored)};
    bool isWhole = true;
    const auto take = [&](auto& field) {
        std::string word;
        words >> word;
        const auto number = wholeNumber<std::uint32_t>(word);
        isWhole = isWhole && number;
        field = static_cast<std::remove_reference_t<decltype(field)>>(number.value_or(0));
    };
    std::uint32_t type = 0;
    take(type);
    Channel channel{.satellite = {}, .tuning = emptyTuning(type), .s2 = {}};
    std::visit([&](auto& record) { forEachField(record, take); }, channel.tuning);
    std::string more;
    if (!isWhole || !isGiven(channel.tuning) || words >> more)
        return std::nullopt;
    return channel;
}

} // namespace tessaview
