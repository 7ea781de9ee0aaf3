#include "si/descriptors/network_descriptors.h"

#include "si/descriptors/delivery_descriptors.h"
#include "si/descriptors/mpeg_descriptors.h"
#include "tests/support/descriptor_cases.h"

using namespace lib13818;
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
                         {"62 06 01 02 03 04 05 06", -1, "descriptor length mismatch"},
                         {"0A 06 65 6E 67 00 65 6E", -1, "descriptor length mismatch"}});
}

TEST(MpegDescriptors, readTheirBits)
{
    const auto video = decode<DescriptorVideoStream>("02 03 4B 48 5F");
    EXPECT_EQ(video.frame_rate_code, 9);
    EXPECT_TRUE(video.constrained_parameter_flag && video.still_picture_flag);
    EXPECT_EQ(video.profile_and_level_indication, 0x48);
    EXPECT_EQ(video.chroma_format, 1);
    EXPECT_EQ(video.reserved, 0x1F);
    EXPECT_EQ(decode<DescriptorVideoStream>("02 01 4F").profile_and_level_indication, 0);

    const auto grid = decode<DescriptorTargetBackgroundGrid>("07 04 0B 40 24 03");
    EXPECT_EQ(grid.horizontal_size, 720);
    EXPECT_EQ(grid.vertical_size, 576);
    EXPECT_EQ(grid.aspect_ratio_information, 3);

    const auto hierarchy = decode<DescriptorHierarchy>("04 04 F5 EA D5 FF");
    EXPECT_EQ(hierarchy.hierarchy_type, 5);
    EXPECT_EQ(hierarchy.hierarchy_layer_index, 0x2A);
    EXPECT_EQ(hierarchy.hierarchy_embedded_layer_index, 0x15);
    EXPECT_EQ(hierarchy.hierarchy_channel, 0x3F);

    EXPECT_EQ(decode<DescriptorMaximumBitrate>("0E 03 FF FF FE").maximum_bitrate, 0x3FFFFE);
    const auto buffer = decode<DescriptorSmoothingBuffer>("10 06 FF FF FE C0 00 01");
    EXPECT_EQ(buffer.sb_leak_rate, 0x3FFFFE);
    EXPECT_EQ(buffer.sb_size, 1);
    const auto use = decode<DescriptorMultiplexBufferUtilization>("0C 04 FF FE 7F FD");
    EXPECT_EQ(use.LTW_offset_lower_bound, 0x7FFE);
    EXPECT_EQ(use.LTW_offset_upper_bound, 0x7FFD);
    const auto clock = decode<DescriptorSystemClock>("0B 02 D5 BF");
    EXPECT_EQ(clock.external_clock_reference_indicator, 1);
    EXPECT_EQ(clock.clock_accuracy_integer, 0x15);
    EXPECT_EQ(clock.clock_accuracy_exponent, 5);
    EXPECT_EQ(decode<DescriptorIBP>("12 02 7F FE").max_gop_length, 0x3FFE);
    EXPECT_EQ(decode<DescriptorRegistration>("05 03 41 43 2D").format_identifier, 0U);
}

TEST(NetworkDescriptors, dumpTheirFields)
{
    EXPECT_EQ(dumpOf("43 0B 01 17 57 25 01 92 C1 02 75 00 03 5F 04 FF FF FF FE"),
              "descriptor_tag: 43 satellite_delivery_system_descriptor\n"
              "frequency 11.7573\norbital_position 19.2\nwest_east_flag 1\npolarization 2\n"
              "modulation 1\nsymbol_rate 27.5\nFEC_inner 3\n"
              "descriptor_tag: 5f private_data_specifier_descriptor\n"
              "private_data_specifier: fffffffe\n");
    EXPECT_EQ(dumpOf("4A 09 00 01 00 02 00 0A 0B 41 00 09 06 06 04 E1 23 5A 31"),
              "descriptor_tag: 09 CA_Descriptor\nsys_id: 0604 Irdeto\npid: 0123\nprivate data:\n"
              "5a 31                                            : Z.\n"
              "descriptor_tag: 4a linkage_descriptor\ntransport_stream_id: 1\n"
              "original_network_id: 2\nservice_id: a\nlinkage_type: b\nprivate_data_byte:\n"
              "41 00                                            : A.\n");
    EXPECT_EQ(dumpOf("0D 04 00 00 00 FF 0D 05 00 00 00 01 0A"),
              "descriptor_tag: 0d copyright_descriptor\ncopyright_identifier:ff\n"
              "additional_copyright_info: \n"
              "descriptor_tag: 0d copyright_descriptor\ncopyright_identifier:1\n"
              "additional_copyright_info:  a\n");
}
