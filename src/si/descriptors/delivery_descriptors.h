#pragma once

#include "si/descriptors/descriptor.h"
#include "si/descriptors/records.h"

// How a transport stream is delivered (EN 300 468, 6.2.9 and 6.2.13). Digits above 9 in
// binary-coded decimal fields count with their value.

namespace lib13818 {

class DescriptorSatelliteDeliverySystem final
    : public DescriptorOf<0x43, "satellite_delivery_system_descriptor"> {
public:
    explicit DescriptorSatelliteDeliverySystem(DescriptorReader in) noexcept;
    /// Leaves the stream in decimal.
    void dumpBody(std::ostream& out) const override;

    const char* polarizationText() const;
    const char* modulationText() const;
    const char* FECInnerText() const;

    double frequency;        ///< GHz
    double orbital_position; ///< degrees
    int west_east_flag;      ///< 1 = east
    int polarization;
    int modulation;
    double symbol_rate; ///< Msymbol/s
    int FEC_inner;
};

class DescriptorCableDeliverySystem final
    : public DescriptorOf<0x44, "cable_delivery_system_descriptor"> {
public:
    explicit DescriptorCableDeliverySystem(DescriptorReader in) noexcept;
    void dumpBody(std::ostream& out) const override;

    double frequency; ///< MHz
    int FEC_outer;
    int modulation;
    double symbol_rate; ///< Msymbol/s
    int FEC_inner;
};

class DescriptorTerrestrialDeliverySystem final
    : public DescriptorOf<0x5A, "terrestrial_delivery_system_descriptor"> {
public:
    explicit DescriptorTerrestrialDeliverySystem(DescriptorReader in) noexcept;

    uint32_t centre_frequency; ///< 10 Hz
    int bandwidth;
    int constellation;
    int hierarchy_information;
    int code_rate_HP_stream;
    int code_rate_LP_stream;
    int guard_interval;
    int transmission_mode;
    int other_frequency_flag;
};

class DescriptorFrequencyList final : public DescriptorOf<0x62, "frequency_list_descriptor"> {
public:
    explicit DescriptorFrequencyList(DescriptorReader in);
    void clear() override { centre_frequency = {}; }

    int coding_type;
    Records<uint32_t> centre_frequency; ///< the coded words
};

} // namespace lib13818
