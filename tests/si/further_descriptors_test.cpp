#include "si/descriptors/further_descriptors.h"

#include "tests/support/descriptor_cases.h"

using namespace lib13818;
using test::decode;
using test::dumpOf;
using test::hex;

TEST(TelephoneDescriptor, dumpsItsLengthsAndTexts)
{
    EXPECT_EQ(dumpOf("57 0C F1 A5 98 31 32 33 34 35 36 37 38 39"),
              R"(descriptor_tag: 57 telephone_descriptor
foriegn_availability: 1
connection_type: 11
country_prefix_length: 1
international_area_code_length: 1
operator_code_length: 1
national_area_code_length: 1
core_number_length: 8
country_prefix_char: 1
international_area_code_char: 2
operator_code_char: 3
national_area_code_char: 4
core_number_char: 56789
)");
    const auto d = decode<DescriptorTelephone>("57 0A CF DB C7 31 32 33 34 35 36 37");
    EXPECT_EQ(d.foreign_availability, 0);
    EXPECT_EQ(d.connection_type, 15);
    EXPECT_EQ(d.country_prefix_char, "12");
    EXPECT_EQ(d.international_area_code_char, "34567");
    EXPECT_EQ(d.international_area_code_length, 6);
    EXPECT_EQ(d.operator_code_length, 3);
    EXPECT_EQ(d.national_area_code_length, 4);
    EXPECT_EQ(d.core_number_length, 7);
}

TEST(TelephoneDescriptor, clearEmptiesItsFiveTexts)
{
    EXPECT_EQ(test::clearedDump<DescriptorTelephone>("57 08 00 25 11 31 32 33 34 35"),
              "foriegn_availability: 0\nconnection_type: 0\ncountry_prefix_length: 1\n"
              "international_area_code_length: 1\noperator_code_length: 1\n"
              "national_area_code_length: 1\ncore_number_length: 1\ncountry_prefix_char: \n"
              "international_area_code_char: \noperator_code_char: \n"
              "national_area_code_char: \ncore_number_char: \n");
}

TEST(ShortSmoothingBufferDescriptor, dumpsReservedBytesOnlyWhenItHasSome)
{
    const std::string fourteenGaps(42, ' ');
    EXPECT_EQ(dumpOf("61 03 A1 41 FF"), "descriptor_tag: 61 short_smoothing_buffer_descriptor\n"
                                        "sb_size: 2\nsb_leak_rate: 21\nDVB_reserved:\n41 ff " +
                                            fourteenGaps + " : A.\n");
    const std::string bare = "sb_size: 1\nsb_leak_rate: 3f\n";
    EXPECT_EQ(dumpOf("61 01 7F"), "descriptor_tag: 61 short_smoothing_buffer_descriptor\n" + bare);
    EXPECT_EQ(test::clearedDump<DescriptorShortSmoothingBuffer>("61 02 7F 41"), bare);
}

TEST(FurtherDescriptors, dumpTheirNameAloneOtherwise)
{
    EXPECT_EQ(dumpOf("63 01 FF 64 00 66 02 00 01 67 00 68 00 69 03 F1 23 45 6A 01 00 6B 01 FF "
                     "6C 00 6D 00 6E 02 00 00 6F 00 70 01 01 71 01 41 72 01 80"),
              R"(descriptor_tag: 63 partial_transport_descriptor
descriptor_tag: 64 data_broadcast_descriptor
descriptor_tag: 66 data_broadcast_id_descriptor
descriptor_tag: 67 transport_stream_descriptor
descriptor_tag: 68 DSNG_descriptor
descriptor_tag: 69 PDC_descriptor
descriptor_tag: 6a AC3_descriptor
descriptor_tag: 6b ancillary_data_descriptor
descriptor_tag: 6c cell_list_descriptor
descriptor_tag: 6d cell_frequency_link_descriptor
descriptor_tag: 6e announcement_support_descriptor
descriptor_tag: 6f application_signalling_descriptor
descriptor_tag: 70 adaptation_field_descriptor
descriptor_tag: 71 service_identifier_descriptor
descriptor_tag: 72 service_availability_descriptor
)");
}

TEST(DataBroadcastDescriptor, readsTheSelectorAndTheTextBehind)
{
    const auto d = decode<DescriptorDataBroadcast>("64 0C 80 01 81 02 C1 C2 65 6E 67 02 05 41");
    EXPECT_EQ(d.data_broadcast_id, 0x8001);
    EXPECT_EQ(d.component_tag, 0x81);
    EXPECT_EQ(d.selector_length, 2);
    EXPECT_EQ(d.selector_byte, hex("C1 C2"));
    EXPECT_EQ(d.ISO_639_language_code, (Code{'e', 'n', 'g', 0}));
    EXPECT_EQ(d.text_length, 2);
    EXPECT_EQ(d.text, "\5A");
}

TEST(DataBroadcastDescriptor, isCutAtTheEndOfTheDescriptor)
{
    const auto inSelector = decode<DescriptorDataBroadcast>("64 06 00 01 02 FF C1 C2");
    EXPECT_EQ(inSelector.selector_length, 255);
    EXPECT_EQ(inSelector.selector_byte, hex("C1 C2"));
    EXPECT_EQ(inSelector.ISO_639_language_code, Code{});
    EXPECT_EQ(inSelector.text, "");
    const auto inText = decode<DescriptorDataBroadcast>("64 09 00 01 02 00 65 6E 67 7F 41");
    EXPECT_EQ(inText.text_length, 127);
    EXPECT_EQ(inText.text, "A");
}

TEST(FurtherDescriptors, readOpaquePayloadsWhole)
{
    const auto id = decode<DescriptorDataBroadcastId>("66 04 80 01 C1 C2");
    EXPECT_EQ(id.data_broadcast_id, 0x8001);
    EXPECT_EQ(id.id_selector_byte, hex("C1 C2"));
    EXPECT_EQ(decode<DescriptorTransportStream>("67 03 81 82 83").byte, hex("81 82 83"));
    auto dsng = decode<DescriptorDSNG>("68 02 81 82");
    dsng.clear();
    EXPECT_EQ(dsng.byte, hex("81 82"));
}

TEST(FurtherDescriptors, readSingleFields)
{
    EXPECT_EQ(decode<DescriptorPDC>("69 03 F1 23 45").programme_identification_label, 0x12345);
    EXPECT_EQ(decode<DescriptorPDC>("69 03 08 00 01").programme_identification_label, 0x80001);
    EXPECT_EQ(decode<DescriptorPDC>("69 02 F1 23").programme_identification_label, 0);
    EXPECT_EQ(decode<DescriptorAncillaryData>("6B 01 81").ancillary_data_identifier, 0x81);
    EXPECT_EQ(decode<DescriptorAdaptationFieldData>("70 01 81").adaptation_field_data_identifier,
              0x81);
}

TEST(AC3Descriptor, readsTheBytesWhoseFlagIsSet)
{
    const auto some = decode<DescriptorAC3>("6A 05 5F 81 82 83 84");
    EXPECT_EQ(some.component_type_flag, 0);
    EXPECT_EQ(some.bsid_flag, 1);
    EXPECT_EQ(some.mainid_flag, 0);
    EXPECT_EQ(some.asvc_flag, 1);
    EXPECT_EQ(some.component_type, 0);
    EXPECT_EQ(some.bsid, 0x81);
    EXPECT_EQ(some.mainid, 0);
    EXPECT_EQ(some.asvc, 0x82);
    EXPECT_EQ(some.additional_info_byte, hex("83 84"));

    const auto others = decode<DescriptorAC3>("6A 03 A0 91 92");
    EXPECT_EQ(others.component_type, 0x91);
    EXPECT_EQ(others.bsid, 0);
    EXPECT_EQ(others.mainid, 0x92);
    EXPECT_TRUE(others.additional_info_byte.empty());

    const auto cut = decode<DescriptorAC3>("6A 02 F0 81");
    EXPECT_EQ(cut.component_type, 0x81);
    EXPECT_EQ(cut.bsid_flag, 1);
    EXPECT_EQ(cut.bsid, 0);
}

TEST(AnnouncementSupportDescriptor, readsReferencesOfTheTypesOneToThree)
{
    const auto d = decode<DescriptorAnnouncementSupport>(
        "6E 14 80 01 F9 80 01 90 02 A0 03 81 20 13 00 04 00 05 00 06 07 84");
    EXPECT_EQ(d.announcement_support_indicator, 0x8001);
    ASSERT_EQ(d.entries.size(), 4U);
    EXPECT_EQ(d.entries[0].announcement_type, 15);
    EXPECT_EQ(d.entries[0].reference_type, 1); // bit 3 is reserved
    EXPECT_EQ(d.entries[0].original_network_id, 0x8001);
    EXPECT_EQ(d.entries[0].transport_stream_id, 0x9002);
    EXPECT_EQ(d.entries[0].service_id, 0xA003);
    EXPECT_EQ(d.entries[0].component_tag, 0x81);
    EXPECT_EQ(d.entries[1].announcement_type, 2);
    EXPECT_EQ(d.entries[1].service_id, 0);
    EXPECT_EQ(d.entries[2].component_tag, 7);
    EXPECT_EQ(d.entries[3].reference_type, 4);
}

TEST(ApplicationSignallingDescriptor, namesTheApplicationTypes)
{
    const auto d = decode<DescriptorApplicationSignalling>("6F 0C 00 00 F1 00 01 E0 00 02 FF "
                                                           "80 03 00");
    std::string texts;
    for (const auto& entry : d.entries)
        texts +=
            entry.applicationTypeText() + ('/' + std::to_string(entry.AIT_version_number)) + '\n';
    EXPECT_EQ(texts, "reserved_future_use/17\nDVB-J application/0\nDVB-HTML application/31\n"
                     "subject to registration with DVB/0\n");
    EXPECT_EQ(d.entries.at(3).application_type, 0x8003);
}

TEST(FurtherDescriptors, refuseEntriesThatDoNotFit)
{
    test::expectRefused({
        {"6E 09 00 01 11 80 01 90 02 A0 03", 2, ""},
        {"6E 01 00", 2, ""}, // its entries would start behind its end
        {"6F 02 00 01", -1, ""},
        {"6F 04 00 01 E0 00", -1, ""},
    });
}

TEST(FurtherDescriptors, clearLeavesListsWhereNothingIsToBeEmptied)
{
    auto announcements = decode<DescriptorAnnouncementSupport>("6E 03 00 01 20");
    announcements.clear();
    EXPECT_EQ(announcements.entries.size(), 1U);
    auto broadcast = decode<DescriptorDataBroadcast>("64 09 00 01 02 00 65 6E 67 01 41");
    broadcast.clear();
    EXPECT_EQ(broadcast.text, "A");
}
