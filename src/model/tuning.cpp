#include "model/tuning.h"

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

} // namespace

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

} // namespace tessaview
