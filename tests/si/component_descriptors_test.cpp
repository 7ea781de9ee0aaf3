#include "si/descriptors/component_descriptors.h"

#include "tests/support/descriptor_cases.h"

using namespace lib13818;
using test::clearedDump;
using test::decode;
using test::dumpOf;

TEST(ComponentDescriptors, dumpTheirFieldsInHexadecimal)
{
    EXPECT_EQ(dumpOf("50 09 F9 81 92 65 6E 67 01 41 42"), R"(descriptor_tag: 50 component_descriptor
stream_content: 9
component_type: 81
component_tag: 92
language_code: eng
text: AB
)");
    EXPECT_EQ(dumpOf("52 01 81"), R"(descriptor_tag: 52 stream_identifier_descriptor
component_tag: 81
)");
    EXPECT_EQ(dumpOf("56 0A 65 6E 67 11 88 64 65 75 8F 01"),
              R"(descriptor_tag: 56 teletext_descriptor
language_code eng
teletext_type 2
teletext_magazine_number 1
teletext_page_number 88
language_code deu
teletext_type 11
teletext_magazine_number 7
teletext_page_number 1
)");
    EXPECT_EQ(dumpOf("59 08 65 6E 67 81 80 01 90 02"), R"(descriptor_tag: 59 subtitling_descriptor
DescriptorSubtitling::ISO_639_language_code: eng
DescriptorSubtitling::subtitling_type: 81
DescriptorSubtitling::composition_page_id: 8001
DescriptorSubtitling::antcillary_page_id: 9002
)");
    EXPECT_EQ(dumpOf("45 03 01 01 FF 46 05 65 6E 67 11 88"),
              R"(descriptor_tag: 45 VBI_data_descriptor
descriptor_tag: 46 VBI_teletext_descriptor
)");
}

TEST(ComponentDescriptor, takesTheRestAsItsText)
{
    EXPECT_EQ(decode<DescriptorComponent>("50 06 01 01 01 65 6E 67").text, StrippedText{});
    EXPECT_EQ(decode<DescriptorComponent>("50 09 01 01 01 65 6E 67 41 42 43").text.text, "ABC");
    EXPECT_EQ(decode<DescriptorComponent>("50 09 01 01 01 65 6E 67 1F 42 43").text,
              (StrippedText{"BC", 0x1F}));
    EXPECT_EQ(decode<DescriptorComponent>("50 04 01 01 01 65").ISO_639_language_code,
              (Code{'e', 0, 0, 0}));
}

TEST(VBITeletextDescriptor, readsEntriesAsTheTeletextDescriptor)
{
    const auto d = decode<DescriptorVBITeletext>("46 0A 65 6E 67 11 88 64 65 75 FC 01");
    ASSERT_EQ(d.entries.size(), 2U);
    EXPECT_EQ(d.entries[0].teletext_type, 2);
    EXPECT_EQ(d.entries[0].teletext_magazine_number, 1);
    EXPECT_EQ(d.entries[0].teletext_page_number, 0x88);
    EXPECT_EQ(d.entries[1].ISO_639_language_code, (Code{'d', 'e', 'u', 0}));
    EXPECT_EQ(d.entries[1].teletext_type, 31);
    EXPECT_EQ(d.entries[1].teletext_magazine_number, 4);
}

TEST(VBIDataDescriptor, keepsTheBytesOfEachService)
{
    const auto d = decode<DescriptorVBIData>("45 07 81 03 C1 02 03 FF 00");
    ASSERT_EQ(d.entries.size(), 2U);
    EXPECT_EQ(d.entries[0].data_service_id, 0x81);
    EXPECT_EQ(d.entries[0].data_service_descriptor_length, 3);
    EXPECT_EQ(d.entries[0].data_service_descriptor, test::hex("C1 02 03"));
    EXPECT_EQ(d.entries[1].data_service_id, 0xFF);
    EXPECT_TRUE(d.entries[1].data_service_descriptor.empty());
    EXPECT_TRUE(decode<DescriptorVBIData>("45 00").entries.empty());
}

TEST(ComponentDescriptors, refuseEntriesThatDoNotFit)
{
    test::expectRefused({
        {"45 04 01 03 00 00", 2, ""},
        {"45 01 01", 2, ""},
        {"46 04 65 6E 67 11", -1, "descriptor length mismatch"},
        {"56 06 65 6E 67 11 88 00", -1, "descriptor length mismatch"},
        {"59 09 65 6E 67 01 00 01 00 02 00", 3, "subtitling_descriptor"},
    });
}

TEST(ComponentDescriptors, clearEmptiesListsButNotTheServicesOfVBIData)
{
    EXPECT_EQ(clearedDump<DescriptorTeletext>("56 05 65 6E 67 11 88"), "");
    EXPECT_EQ(clearedDump<DescriptorSubtitling>("59 08 65 6E 67 01 00 01 00 02"), "");
    auto teletext = decode<DescriptorVBITeletext>("46 05 65 6E 67 11 88");
    teletext.clear();
    EXPECT_TRUE(teletext.entries.empty());
    auto data = decode<DescriptorVBIData>("45 03 01 01 FF");
    data.clear();
    EXPECT_EQ(data.entries.size(), 1U);
}
