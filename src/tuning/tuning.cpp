#include "tuning/tuning.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace tessaview {

namespace {

/// The whole part as an unsigned number; what lies outside becomes the nearest there is.
template <class Number>
Number saturated(double value)
{
    constexpr Number largest = std::numeric_limits<Number>::max();
    if (!(value > 0)) // not a number, too
        return 0;
    return value < static_cast<double>(largest) ? static_cast<Number>(value) : largest;
}

/// The digits of a number decoded with as many decimals as `scale` has zeros.
std::uint32_t codedDigits(double value, double scale)
{
    return saturated<std::uint32_t>(std::round(value * scale));
}

std::uint8_t narrow(int field)
{
    return static_cast<std::uint8_t>(field);
}

template <class Descriptor>
Tuning firstOf(const lib13818::DescriptorSet& descriptors)
{
    const auto descriptor = descriptors.all<Descriptor>().first();
    return descriptor ? Tuning(tuningOf(*descriptor)) : Tuning();
}

constexpr unsigned kModulationType = 0x03;
constexpr unsigned kModulationSystem = 0x04;
constexpr unsigned kRollOffShift = 3;

} // namespace

std::optional<TunerType> tunerTypeOf(std::uint32_t code)
{
    return code >= 1 && code <= 3 ? std::optional(static_cast<TunerType>(code)) : std::nullopt;
}

std::uint64_t frequencyOf(const Tuning& tuning)
{
    struct {
        std::uint64_t operator()(std::monostate /*none*/) const { return 0; }
        std::uint64_t operator()(const SatelliteTuning& t) const
        {
            return std::uint64_t{t.frequency} * kSatelliteUnit;
        }
        std::uint64_t operator()(const CableTuning& t) const
        {
            return std::uint64_t{t.frequency} * kCableUnit;
        }
        std::uint64_t operator()(const TerrestrialTuning& t) const
        {
            return std::uint64_t{t.centre_frequency} * kTerrestrialUnit;
        }
    } const inHertz;
    return std::visit(inHertz, tuning);
}

std::uint64_t symbolRateOf(const Tuning& tuning)
{
    return std::visit(
        []<class Record>(const Record& record) -> std::uint64_t {
            if constexpr (requires { record.symbol_rate; })
                return std::uint64_t{record.symbol_rate} * kSymbolRateUnit;
            else
                return 0;
        },
        tuning);
}

int innerFecOf(const Tuning& tuning)
{
    return std::visit(
        []<class Record>(const Record& record) -> int {
            if constexpr (requires { record.FEC_inner; })
                return record.FEC_inner;
            else
                return 0;
        },
        tuning);
}

bool hasFrequency(const Tuning& tuning)
{
    constexpr std::uint32_t undefined = 0xFFFFFFFF;
    const auto* const terrestrial = std::get_if<TerrestrialTuning>(&tuning);
    return frequencyOf(tuning) != 0 && !(terrestrial && terrestrial->centre_frequency == undefined);
}

std::optional<std::uint64_t> distanceOf(const Tuning& a, const Tuning& b)
{
    if (a.index() != b.index() || !hasFrequency(a) || !hasFrequency(b))
        return std::nullopt;
    if (const auto* const one = std::get_if<SatelliteTuning>(&a)) {
        const auto& other = std::get<SatelliteTuning>(b);
        const bool tellsOrbit = one->orbital_position != 0 && other.orbital_position != 0;
        if (one->polarization != other.polarization ||
            (tellsOrbit && (one->orbital_position != other.orbital_position ||
                            one->west_east_flag != other.west_east_flag)))
            return std::nullopt;
    }
    const std::uint64_t first = frequencyOf(a);
    const std::uint64_t second = frequencyOf(b);
    return std::max(first, second) - std::min(first, second);
}

SatelliteModulation SatelliteModulation::of(const SatelliteTuning& tuning)
{
    return {.type = tuning.modulation & kModulationType,
            .isS2 = (tuning.modulation & kModulationSystem) != 0,
            .rollOff = static_cast<unsigned>(tuning.modulation) >> kRollOffShift};
}

std::uint8_t SatelliteModulation::code() const
{
    return static_cast<std::uint8_t>(rollOff << kRollOffShift | (isS2 ? kModulationSystem : 0U) |
                                     type);
}

SatelliteTuning tuningOf(const lib13818::DescriptorSatelliteDeliverySystem& descriptor)
{
    SatelliteTuning tuning{};
    tuning.frequency = codedDigits(descriptor.frequency, 1e5);
    tuning.orbital_position = saturated<std::uint16_t>(descriptor.orbital_position);
    tuning.west_east_flag = static_cast<std::uint32_t>(descriptor.west_east_flag);
    tuning.polarization = narrow(descriptor.polarization);
    tuning.modulation = narrow(descriptor.modulation);
    tuning.symbol_rate = codedDigits(descriptor.symbol_rate, 1e4);
    tuning.FEC_inner = narrow(descriptor.FEC_inner);
    return tuning;
}

CableTuning tuningOf(const lib13818::DescriptorCableDeliverySystem& descriptor)
{
    CableTuning tuning{};
    tuning.frequency = codedDigits(descriptor.frequency, 1e4);
    tuning.FEC_outer = narrow(descriptor.FEC_outer);
    tuning.modulation = narrow(descriptor.modulation);
    tuning.symbol_rate = codedDigits(descriptor.symbol_rate, 1e4);
    tuning.FEC_inner = narrow(descriptor.FEC_inner);
    return tuning;
}

TerrestrialTuning tuningOf(const lib13818::DescriptorTerrestrialDeliverySystem& descriptor)
{
    TerrestrialTuning tuning{};
    tuning.centre_frequency = descriptor.centre_frequency;
    tuning.bandwidth = narrow(descriptor.bandwidth);
    tuning.constellation = narrow(descriptor.constellation);
    tuning.hierarchy_information = narrow(descriptor.hierarchy_information);
    tuning.code_rate_HP_stream = narrow(descriptor.code_rate_HP_stream);
    tuning.code_rate_LP_stream = narrow(descriptor.code_rate_LP_stream);
    tuning.guard_interval = narrow(descriptor.guard_interval);
    tuning.transmission_mode = narrow(descriptor.transmission_mode);
    tuning.other_frequency_flag = narrow(descriptor.other_frequency_flag);
    return tuning;
}

Tuning tuningIn(const lib13818::DescriptorSet& descriptors, TunerType type)
{
    switch (type) {
    case TunerType::Satellite:
        return firstOf<lib13818::DescriptorSatelliteDeliverySystem>(descriptors);
    case TunerType::Cable:
        return firstOf<lib13818::DescriptorCableDeliverySystem>(descriptors);
    case TunerType::Terrestrial:
        return firstOf<lib13818::DescriptorTerrestrialDeliverySystem>(descriptors);
    }
    return {};
}

} // namespace tessaview
