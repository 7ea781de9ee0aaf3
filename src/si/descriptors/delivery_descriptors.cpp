#include "si/descriptors/delivery_descriptors.h"

#include "si/dump.h"
#include "si/texts/value_texts.h"

namespace lib13818 {

namespace {

/// A number of decimal digits with the point before the last `decimals`.
double bcd(BitReader& in, int digits, int decimals)
{
    // Whole digits first and one division last: the nearest double to the coded number.
    double value = 0;
    for (int i = 0; i < digits; ++i)
        value = 10 * value + in.bits(4);
    double scale = 1;
    for (int i = 0; i < decimals; ++i)
        scale *= 10;
    return value / scale;
}

} // namespace

DescriptorSatelliteDeliverySystem::DescriptorSatelliteDeliverySystem(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , frequency(bcd(in, 8, 5))
    , orbital_position(bcd(in, 4, 1))
    , west_east_flag(in.bits(1))
    , polarization(in.bits(2))
    , modulation(in.bits(5))
    , symbol_rate(bcd(in, 7, 4))
    , FEC_inner(in.bits(4))
{
}

void DescriptorSatelliteDeliverySystem::dumpBody(std::ostream& out) const
{
    out << std::dec;
    line(out, "frequency ", frequency);
    line(out, "orbital_position ", orbital_position);
    line(out, "west_east_flag ", west_east_flag);
    line(out, "polarization ", polarization);
    line(out, "modulation ", modulation);
    line(out, "symbol_rate ", symbol_rate);
    line(out, "FEC_inner ", FEC_inner);
}

const char* DescriptorSatelliteDeliverySystem::polarizationText() const
{
    return lib13818::polarizationText(polarization);
}

const char* DescriptorSatelliteDeliverySystem::modulationText() const
{
    return satelliteModulationText(modulation);
}

const char* DescriptorSatelliteDeliverySystem::FECInnerText() const
{
    return fecInnerText(FEC_inner);
}

DescriptorCableDeliverySystem::DescriptorCableDeliverySystem(DescriptorReader in) noexcept
    : DescriptorOf(in)
    , frequency(bcd(in, 8, 4))
    , FEC_outer(in.skip(12).bits(4))
    , modulation(in.u8())
    , symbol_rate(bcd(in, 7, 4))
    , FEC_inner(in.bits(4))
{
}

void DescriptorCableDeliverySystem::dumpBody(std::ostream& out) const
{
    line(out, "frequency: ", frequency);
    line(out, "FEC_outer: ", FEC_outer);
    line(out, "modulation: ", modulation);
    line(out, "symbol_rate: ", symbol_rate);
    line(out, "FEC_inner: ", FEC_inner);
}

DescriptorTerrestrialDeliverySystem::DescriptorTerrestrialDeliverySystem(
    DescriptorReader in) noexcept
    : DescriptorOf(in)
    , centre_frequency(in.u32())
    , bandwidth(in.bits(3))
    , constellation(in.skip(5).bits(2))
    , hierarchy_information(in.bits(3))
    , code_rate_HP_stream(in.bits(3))
    , code_rate_LP_stream(in.bits(3))
    , guard_interval(in.bits(2))
    , transmission_mode(in.bits(2))
    , other_frequency_flag(in.bits(1))
{
}

DescriptorFrequencyList::DescriptorFrequencyList(DescriptorReader in)
    : DescriptorOf(in)
    , coding_type(in.skip(6).bits(2))
{
    in.requireRecordsOf(4, 1);
    centre_frequency = Records<uint32_t>(in.rest());
}

} // namespace lib13818
