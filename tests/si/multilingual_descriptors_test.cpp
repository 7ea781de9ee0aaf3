#include "si/descriptors/multilingual_descriptors.h"

#include "tests/support/descriptor_cases.h"

using namespace lib13818;
using test::clearedDump;
using test::decode;
using test::dumpOf;

TEST(MultilingualDescriptors, dumpTheirNamesWithTheSelector)
{
    const std::string names = "MultilingualNameInfo::ISO_639_language_code: eng\n"
                              "MultilingualNameInfo::text_len: 3\n"
                              "MultilingualNameInfo::name: \5AB\n"
                              "MultilingualNameInfo::ISO_639_language_code: deu\n"
                              "MultilingualNameInfo::text_len: 0\n"
                              "MultilingualNameInfo::name: \n";
    EXPECT_EQ(dumpOf("5B 0B 65 6E 67 03 05 41 42 64 65 75 00"),
              "descriptor_tag: 5b multilingual_network_name_descriptor\n" + names);
    EXPECT_EQ(dumpOf("5C 0B 65 6E 67 03 05 41 42 64 65 75 00"),
              "descriptor_tag: 5c multilingual_bouquet_name_descriptor\n" + names);
    EXPECT_EQ(dumpOf("5E 0C 81 65 6E 67 03 05 41 42 64 65 75 00"),
              "descriptor_tag: 5e multilingual_component_name_descriptor\ncomponent_tag: 81\n" +
                  names);
    EXPECT_EQ(dumpOf("5D 08 65 6E 67 01 41 02 05 42"),
              "descriptor_tag: 5d multilingual_service_name_descriptor\n"
              "DescriptorMultilingualServiceName::MultilingualServiceNameInfo::"
              "ISO_639_language_code: eng\n"
              "DescriptorMultilingualServiceName::MultilingualServiceNameInfo::provider_len: 1\n"
              "DescriptorMultilingualServiceName::MultilingualServiceNameInfo::providername: A\n"
              "DescriptorMultilingualServiceName::MultilingualServiceNameInfo::service_len: 2\n"
              "DescriptorMultilingualServiceName::MultilingualServiceNameInfo::servicename: \5B\n");
}

TEST(MultilingualDescriptors, sayWhichPartOfAnEntryDoesNotFit)
{
    test::expectRefused({
        {"5B 03 65 6E 67", 3, "multilingual_name_info_descriptor"},
        {"5B 0A 65 6E 67 0A 41 42 43 44 45 46", 3, "multilingual_name_info_descriptor:2"},
        {"5C 05 65 6E 67 00 64", 3, "multilingual_name_info_descriptor"},
        {"5C 05 65 6E 67 02 41", 3, "multilingual_name_info_descriptor:2"},
        {"5E 04 01 65 6E 67", 3, "multilingual_name_info_descriptor"},
        {"5E 06 01 65 6E 67 02 41", 3, "multilingual_name_info_descriptor:2"},
        {"5E 00", 2, ""}, // its entries would start behind its end
        {"5D 04 65 6E 67 00", 3, "multilingual_service_name_info_descriptor"},
        {"5D 06 65 6E 67 02 41 42", 3, "multilingual_service_name_info_descriptor:2"},
        {"5D 06 65 6E 67 01 41 01", 3, "multilingual_service_name_info_descriptor:3"},
    });
}

TEST(MultilingualDescriptors, holdNamesThatJustFit)
{
    EXPECT_EQ(decode<DescriptorMultilingualServiceName>("5D 07 65 6E 67 01 41 01 42")
                  .entries.at(0)
                  .servicename,
              "B");
    EXPECT_TRUE(decode<DescriptorMultilingualNetworkName>("5B 00").entries.empty());
    EXPECT_TRUE(decode<DescriptorMultilingualComponent>("5E 01 81").entries.empty());
}

TEST(MultilingualDescriptors, clearLeavesTheComponentTag)
{
    EXPECT_EQ(clearedDump<DescriptorMultilingualNetworkName>("5B 04 65 6E 67 00"), "");
    EXPECT_EQ(clearedDump<DescriptorMultilingualBouquetName>("5C 04 65 6E 67 00"), "");
    EXPECT_EQ(clearedDump<DescriptorMultilingualServiceName>("5D 05 65 6E 67 00 00"), "");
    EXPECT_EQ(clearedDump<DescriptorMultilingualComponent>("5E 05 81 65 6E 67 00"),
              "component_tag: 81\n");
}
