#include "tuning/tuning.h"

#include "tests/support/bytes.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <limits>

#include <gtest/gtest.h>

namespace {

using namespace tessaview; // NOLINT(google-build-using-namespace)
using lib13818::DescriptorCableDeliverySystem;
using lib13818::DescriptorSatelliteDeliverySystem;
using lib13818::DescriptorTerrestrialDeliverySystem;

std::string digits(unsigned number, int count)
{
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%0*u", count, number);
    return text.data();
}

/// Many a binary fraction times a power of ten falls just short of the number that was coded.
TEST(Tuning, holdsTheDigitsAsCoded)
{
    constexpr unsigned step = 9973; // a prime, to meet all kinds of fractions
    for (unsigned n = 0; n < 100'000'000; n += step) {
        const unsigned rate = n / 10;
        const std::string frequency = digits(n, 8);
        const std::string rest = digits(rate, 7) + "F";
        const auto satellite = tuningOf(
            test::decode<DescriptorSatelliteDeliverySystem>("430B" + frequency + "9999 FF" + rest));
        const auto cable = tuningOf(
            test::decode<DescriptorCableDeliverySystem>("440B" + frequency + "FFFF FF" + rest));
        ASSERT_EQ(satellite.frequency, n);
        ASSERT_EQ(satellite.symbol_rate, rate);
        ASSERT_EQ(cable.frequency, n);
        ASSERT_EQ(cable.symbol_rate, rate);
    }
}

TEST(Tuning, copiesTheCodesOfADescriptor)
{
    const auto satellite =
        tuningOf(test::decode<DescriptorSatelliteDeliverySystem>("430B 01175725 1799 BF 0275000F"));
    EXPECT_EQ(satellite.orbital_position, 179) << "cut, not rounded";
    EXPECT_EQ(satellite.west_east_flag, 1);
    EXPECT_EQ(satellite.polarization, 1);
    EXPECT_EQ(satellite.modulation, 31);
    EXPECT_EQ(satellite.FEC_inner, 15);

    const auto cable =
        tuningOf(test::decode<DescriptorCableDeliverySystem>("440B 03460000 FFF2 FF 0690000E"));
    EXPECT_EQ(cable.FEC_outer, 2);
    EXPECT_EQ(cable.modulation, 255);
    EXPECT_EQ(cable.FEC_inner, 14);

    const auto terrestrial = tuningOf(
        test::decode<DescriptorTerrestrialDeliverySystem>("5A0B FFFFFFFE DF B3 95 FFFFFFFF"));
    EXPECT_EQ(terrestrial.centre_frequency, 0xFFFFFFFE);
    EXPECT_EQ(terrestrial.bandwidth, 6);
    EXPECT_EQ(terrestrial.constellation, 2);
    EXPECT_EQ(terrestrial.hierarchy_information, 6);
    EXPECT_EQ(terrestrial.code_rate_HP_stream, 3);
    EXPECT_EQ(terrestrial.code_rate_LP_stream, 4);
    EXPECT_EQ(terrestrial.guard_interval, 2);
    EXPECT_EQ(terrestrial.transmission_mode, 2);
    EXPECT_EQ(terrestrial.other_frequency_flag, 1);
}

TEST(Tuning, takesTheNearestForANumberThatDoesNotFit)
{
    auto descriptor =
        test::decode<DescriptorSatelliteDeliverySystem>("430B FFFFFFFF FFFF FF FFFFFFFF");
    EXPECT_EQ(tuningOf(descriptor).frequency, 166'666'665) << "digits above nine count";
    EXPECT_EQ(tuningOf(descriptor).orbital_position, 1666);
    for (const auto& [value, expected] :
         {std::pair(1e9, 0xFFFFFFFFU), {-1.0, 0U}, {std::nan(""), 0U}}) {
        descriptor.frequency = value;
        EXPECT_EQ(tuningOf(descriptor).frequency, expected);
    }
}

} // namespace
