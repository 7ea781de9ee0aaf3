#include "si/descriptors/network_descriptors.h"

#include "si/descriptors/delivery_descriptors.h"
#include "tests/support/descriptor_cases.h"

using namespace lib13818;
using test::clearedDump;
using test::decode;
using test::dumpOf;
using Bytes = std::vector<uint8_t>;

TEST(DeliveryDescriptors, readTheirDecimalDigits)
{
    const auto satellite =
        decode<DescriptorSatelliteDeliverySystem>("43 0B 01 17 57 25 01 92 C1 02 75 00 03");
    EXPECT_EQ(satellite.frequency, 11.75725);
    EXPECT_EQ(satellite.orbital_position, 19.2);
    EXPECT_EQ(satellite.west_east_flag, 1);
    EXPECT_EQ(satellite.polarization, 2);
    EXPECT_EQ(satellite.modulation, 1);
    EXPECT_EQ(satellite.symbol_rate, 27.5);
    EXPECT_EQ(satellite.FEC_inner, 3);
    EXPECT_STREQ(satellite.polarizationText(), "circular - horizontal");
    EXPECT_STREQ(satellite.modulationText(), "QPSK");
    EXPECT_STREQ(satellite.FECInnerText(), "3/4");

    const auto cable =
        decode<DescriptorCableDeliverySystem>("44 0B 03 46 00 00 FF F2 05 00 69 00 03");
    EXPECT_EQ(cable.frequency, 346.0);
    EXPECT_EQ(cable.FEC_outer, 2);
    EXPECT_EQ(cable.modulation, 5);
    EXPECT_EQ(cable.symbol_rate, 6.9);
    EXPECT_EQ(cable.FEC_inner, 3);

    const auto terrestrial =
        decode<DescriptorTerrestrialDeliverySystem>("5A 0B FF FF FF FE DF B5 75 FF FF FF FF");
    EXPECT_EQ(terrestrial.centre_frequency, 0xFFFFFFFEU);
    EXPECT_EQ(terrestrial.bandwidth, 6);
    EXPECT_EQ(terrestrial.constellation, 2);
    EXPECT_EQ(terrestrial.hierarchy_information, 6);
    EXPECT_EQ(terrestrial.code_rate_HP_stream, 5);
    EXPECT_EQ(terrestrial.code_rate_LP_stream, 3);
    EXPECT_EQ(terrestrial.guard_interval, 2);
    EXPECT_EQ(terrestrial.transmission_mode, 2);
    EXPECT_EQ(terrestrial.other_frequency_flag, 1);
}

TEST(DeliveryDescriptors, keepZeroBeyondTheirEnd)
{
    const auto cut = decode<DescriptorSatelliteDeliverySystem>("43 06 01 17 57 25 01 92");
    EXPECT_EQ(cut.frequency, 11.75725);
    EXPECT_EQ(cut.orbital_position, 19.2);
    EXPECT_EQ(cut.symbol_rate, 0.0);
    EXPECT_EQ(cut.west_east_flag, 0);
}

TEST(NetworkDescriptors, cutTextsAtTheirEnd)
{
    const auto whole = decode<DescriptorService>("48 08 01 02 05 42 03 41 42 43");
    EXPECT_EQ(whole.provider_name, "\x05"
                                   "B"); // the selector stays
    EXPECT_EQ(whole.service_name, "ABC");
    const auto cut = decode<DescriptorService>("48 04 01 7F 42 43");
    EXPECT_EQ(cut.provider_name, "BC");
    EXPECT_EQ(cut.service_name, "");
    EXPECT_EQ(decode<DescriptorService>("48 00").service_type, 0);
}

TEST(NetworkDescriptors, readTheirLists)
{
    EXPECT_EQ(decode<DescriptorServiceList>("41 06 00 01 02 FF FF FE").services.at(1).service_id,
              0xFFFF);
    EXPECT_EQ(decode<DescriptorCAIdentifier>("53 05 FF FE 01 02 03").CA_system_id,
              (std::vector<int>{0xFFFE, 0x0102}));
    EXPECT_EQ(decode<DescriptorFrequencyList>("62 09 FE FF FF FF FF 00 00 00 01").centre_frequency,
              (std::vector<uint32_t>{0xFFFFFFFF, 1}));
    EXPECT_EQ(decode<DescriptorCountryAvailability>("49 04 80 47 42 52").country_code.at(0), "GBR");
    const auto linkage = decode<DescriptorLinkage>("4A 08 FF FE FF FD FF FC FB 01");
    EXPECT_EQ(linkage.transport_stream_id, 0xFFFE);
    EXPECT_EQ(linkage.service_id, 0xFFFC);
    EXPECT_EQ(linkage.linkage_type, 0xFB);
    EXPECT_EQ(linkage.private_data_byte, Bytes{1});
    EXPECT_EQ(decode<DescriptorServiceMove>("60 06 FF FE FF FD FF FC").new_service_id, 0xFFFC);
}

TEST(NetworkDescriptors, refuseLengthsThatDoNotFit)
{
    test::expectRefused({{"41 07 00 01 02 00 03 04 05", -1, "descriptor length mismatch"},
                         {"49 05 80 47 42 52 00", 3, "country_availability_descriptor"},
                         {"49 00", 3, "country_availability_descriptor"},
                         {"62 00", -1, "descriptor length mismatch"},
                         {"62 06 01 02 03 04 05 06", -1, "descriptor length mismatch"}});
}

TEST(NetworkDescriptors, dumpTheirFields)
{
    EXPECT_EQ(dumpOf("43 0B 01 17 57 25 01 92 C1 02 75 00 03 5F 04 FF FF FF FE"),
              "descriptor_tag: 43 satellite_delivery_system_descriptor\n"
              "frequency 11.7573\norbital_position 19.2\nwest_east_flag 1\npolarization 2\n"
              "modulation 1\nsymbol_rate 27.5\nFEC_inner 3\n"
              "descriptor_tag: 5f private_data_specifier_descriptor\n"
              "private_data_specifier: fffffffe\n");
    EXPECT_EQ(dumpOf("4A 09 00 01 00 02 00 0A 0B 41 00 4A 07 00 01 00 02 00 0A 0B"),
              "descriptor_tag: 4a linkage_descriptor\ntransport_stream_id: 1\n"
              "original_network_id: 2\nservice_id: a\nlinkage_type: b\nprivate_data_byte:\n"
              "41 00                                            : A.\n"
              "descriptor_tag: 4a linkage_descriptor\ntransport_stream_id: 1\n"
              "original_network_id: 2\nservice_id: a\nlinkage_type: b\n");
    EXPECT_EQ(dumpOf("40 02 05 41 47 01 42"),
              "descriptor_tag: 40 network_name_descriptor\nnetwork_name: \5A\n"
              "descriptor_tag: 47 bouquet_name_descriptor\nbouquet_name: B\n");
    EXPECT_EQ(dumpOf("41 03 FF FE FD 48 06 FE 01 41 02 05 42"),
              "descriptor_tag: 41 service_list_descriptor\nservice_id fffe\nservice_type fd\n"
              "descriptor_tag: 48 service_descriptor\nservice_type fe\nprovider_name A\n"
              "service_name \5B\n");
    EXPECT_EQ(dumpOf("42 00 42 02 FF 5A"),
              "descriptor_tag: 42 stuffing_descriptor\n"
              "descriptor_tag: 42 stuffing_descriptor\nstuffing_byte:\n"
              "ff 5a                                            : .Z\n");
    EXPECT_EQ(dumpOf("44 0B 03 46 00 00 FF FA 1F 00 69 00 0C 49 04 80 47 42 52"),
              "descriptor_tag: 44 cable_delivery_system_descriptor\nfrequency: 346\n"
              "FEC_outer: a\nmodulation: 1f\nsymbol_rate: 6.9\nFEC_inner: c\n"
              "descriptor_tag: 49 country_availability_descriptor\n"
              "country_availability_flag: 1\ncountry_code: GBR\n");
    EXPECT_EQ(dumpOf("53 04 FF FE 00 0A 60 06 FF FE FF FD FF FC"),
              "descriptor_tag: 60 service_move_descriptor\nnew_original_network_id: fffe\n"
              "new_transport_stream_id: fffd\nnew_service_id: fffc\n"
              "descriptor_tag: 53 CA_system_id_descriptor\nCA_system_id: fffe\n"
              "CA_system_id: a\n");
    EXPECT_EQ(dumpOf("5A 01 00 62 01 01"),
              "descriptor_tag: 5a terrestrial_delivery_system_descriptor\n"
              "descriptor_tag: 62 frequency_list_descriptor\n");
}

TEST(NetworkDescriptors, clearEmptiesWhatVariesInSome)
{
    EXPECT_EQ(clearedDump<DescriptorNetworkName>("40 01 41"), "network_name: \n");
    EXPECT_EQ(clearedDump<DescriptorBouquetName>("47 01 41"), "bouquet_name: \n");
    EXPECT_EQ(clearedDump<DescriptorStuffing>("42 01 41"), "");
    EXPECT_EQ(clearedDump<DescriptorCAIdentifier>("53 02 0B 00"), "");
    EXPECT_EQ(clearedDump<DescriptorLinkage>("4A 08 00 01 00 02 00 03 04 05"),
              "transport_stream_id: 1\noriginal_network_id: 2\nservice_id: 3\nlinkage_type: 4\n");
    auto frequencies = decode<DescriptorFrequencyList>("62 05 01 00 00 00 01");
    frequencies.clear();
    EXPECT_TRUE(frequencies.centre_frequency.empty());
    // These keep what they hold.
    EXPECT_EQ(clearedDump<DescriptorServiceList>("41 03 00 01 02"),
              "service_id 1\nservice_type 2\n");
    EXPECT_EQ(clearedDump<DescriptorCountryAvailability>("49 04 80 47 42 52"),
              "country_availability_flag: 1\ncountry_code: GBR\n");
    EXPECT_EQ(clearedDump<DescriptorService>("48 05 01 01 41 01 42"),
              "service_type 1\nprovider_name A\nservice_name B\n");
}
