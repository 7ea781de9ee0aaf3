#include "si/descriptors/mpeg_descriptors.h"

#include "tests/support/descriptor_cases.h"

using namespace lib13818;
using test::clearedDump;
using test::decode;
using test::dumpOf;

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
    const auto audio = decode<DescriptorAudioStream>("03 01 AF");
    EXPECT_EQ(audio.free_format_flag, 1);
    EXPECT_EQ(audio.ID, 0);
    EXPECT_EQ(audio.layer, 2);
    EXPECT_EQ(audio.variable_rate_audio_indicator, 1);
    EXPECT_EQ(decode<DescriptorDataStreamAlignment>("06 01 FE").alignment_type, 0xFE);
    const auto window = decode<DescriptorVideoWindow>("08 04 FF F8 00 1F");
    EXPECT_EQ(window.horizontal_offset, 0x3FFE);
    EXPECT_EQ(window.vertical_offset, 1);
    EXPECT_EQ(window.window_priority, 15);
    const auto registration = decode<DescriptorRegistration>("05 06 FF FE FD FC 01 02");
    EXPECT_EQ(registration.format_identifier, 0xFFFEFDFCU);
    EXPECT_EQ(registration.additional_identification_info, test::hex("01 02"));
    EXPECT_EQ(decode<DescriptorIBP>("12 02 7F FE").closed_gop_flag, 0);
    EXPECT_EQ(decode<DescriptorIBP>("12 02 7F FE").identical_gop_flag, 1);
}

TEST(MpegDescriptors, dumpTheirFields)
{
    EXPECT_EQ(dumpOf("02 01 04 03 01 D8"),
              "descriptor_tag: 02 video_stream_descriptor\nTO IMPLEMENT!!!\n"
              "descriptor_tag: 03 audio_stream_descriptor\nfree_format_flag: 1\nID: 1\n"
              "layer: 1\nvariable_rate_audio_indicator: 1\n");
    EXPECT_EQ(dumpOf("09 06 06 04 E1 23 5A 31 09 04 02 00 FF FF"),
              "descriptor_tag: 09 CA_Descriptor\nsys_id: 0604 Irdeto\npid: 0123\nprivate data:\n"
              "5a 31                                            : Z.\n"
              "descriptor_tag: 09 CA_Descriptor\nsys_id: 0200 unknown provider\npid: 1fff\n");
    EXPECT_EQ(dumpOf("0A 08 65 6E 67 00 64 65 75 FE"),
              "descriptor_tag: 0a ISO_639_language_descriptor\nISO_639_language_code: eng\n"
              "audio_type: 0\nISO_639_language_code: deu\naudio_type: fe\n");
    EXPECT_EQ(dumpOf("0D 04 00 00 00 FF 0D 06 FF FF FF FE 0A 0B"),
              "descriptor_tag: 0d copyright_descriptor\ncopyright_identifier:ff\n"
              "additional_copyright_info: \n"
              "descriptor_tag: 0d copyright_descriptor\ncopyright_identifier:fffffffe\n"
              "additional_copyright_info:  a b\n");
    EXPECT_EQ(dumpOf("0F 04 FF FF FF FE 11 01 FF"),
              "descriptor_tag: 0f private_data__indicatordescriptor\n"
              "private_data_indicator: fffffffe\n"
              "descriptor_tag: 11 STD_descriptor\nleak_valid_flag: 1\n");
    EXPECT_EQ(dumpOf("04 00 05 00 06 00 07 00 08 00 0B 00 0C 00 0E 00 10 00 12 00"),
              R"(descriptor_tag: 04 hierachy_descriptor
descriptor_tag: 05 registration_descriptor
descriptor_tag: 06 data_stream_alignment_descriptor
descriptor_tag: 07 target_background_grid_descriptor
descriptor_tag: 08 video_window_descriptor
descriptor_tag: 0b system_clock_descriptor
descriptor_tag: 0c multiplex_buffer_utilization_descriptor
descriptor_tag: 0e maximum_bitrate_descriptor
descriptor_tag: 10 smoothing_buffer_descriptor
descriptor_tag: 12 IBP_descriptor
)");
}

TEST(MpegDescriptors, refuseAndClear)
{
    test::expectRefused({{"0A 06 65 6E 67 00 65 6E", -1, "descriptor length mismatch"}});
    EXPECT_TRUE(decode<DescriptorISO639Language>("0A 00").entries.empty());
    EXPECT_EQ(clearedDump<DescriptorISO639Language>("0A 04 65 6E 67 00"), "");
    EXPECT_EQ(clearedDump<DescriptorCA>("09 05 06 04 E1 23 5A"),
              "sys_id:  604 Irdeto\npid:  123\n");
    EXPECT_EQ(clearedDump<DescriptorCopyright>("0D 05 00 00 00 01 02"),
              "copyright_identifier:1\nadditional_copyright_info: \n");
}
