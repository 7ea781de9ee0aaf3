#include "si/descriptors/event_descriptors.h"

#include "tests/support/descriptor_cases.h"

using namespace lib13818;
using test::clearedDump;
using test::decode;
using test::dumpOf;

TEST(EventDescriptors, dumpTheirFieldsInHexadecimal)
{
    EXPECT_EQ(dumpOf("4B 06 80 01 90 02 A0 03"), R"(descriptor_tag: 4b NVOD_reference_descriptor
DescriptorNVODReference::service::transport_stream_id: 8001
DescriptorNVODReference::service::original_network_id: 9002
DescriptorNVODReference::service::service_id: a003
)");
    EXPECT_EQ(dumpOf("4C 02 80 01"), R"(descriptor_tag: 4c time_shifted_service_descriptor
reference_service_id: 8001
)");
    EXPECT_EQ(dumpOf("4D 08 65 6E 67 03 05 41 42 00"),
              "descriptor_tag: 4d short_event_descriptor\n"
              "language_code: eng\nevent_name: AB\ntext: \n");
    EXPECT_EQ(dumpOf("4E 0F 81 64 65 75 08 02 41 42 04 10 00 02 43 01 44"),
              "descriptor_tag: 4e extended_event_descriptor\n"
              "descriptor_number: 8\nlast_descriptor_number: 1\nlanguage_code: deu\ntext: D\n"
              "description: AB\nitem: " +
                  std::string("\0\2C\n", 4));
    EXPECT_EQ(dumpOf("4F 04 80 01 90 02"), R"(descriptor_tag: 4f time_shifted_event_descriptor
reference_service_id: 8001
reference_event_id: 9002
)");
    EXPECT_EQ(dumpOf("54 04 81 92 F0 0F"), R"(descriptor_tag: 54 content_descriptor
content_nibble_level1: 8
content_nibble_level2: 1
user_nibble1: 9
user_nibble2: 2
content_nibble_level1: f
content_nibble_level2: 0
user_nibble1: 0
user_nibble2: f
)");
    EXPECT_EQ(dumpOf("55 04 47 42 52 81"), R"(descriptor_tag: 55 parental_rating_descriptor
DescriptorParentalRating::RatingInfo::country_code: GBR
DescriptorParentalRating::RatingInfo::rating: 81
)");
}

TEST(LocalTimeOffsetDescriptor, dumpTurnsDecimalWithTheFirstTime)
{
    EXPECT_EQ(dumpOf("58 1A 44 45 55 0D 01 00 C0 79 12 45 00 02 30"
                     "      47 42 52 BC 23 59 C0 79 01 02 03 00 00"),
              R"(descriptor_tag: 58 local_time_offset_descriptor
country_code: DEU
country_region_id: 3
local_time_offset_polarity: 1
local_time_offset: 1:0
time_of_change: 13/10-1993 12:45:0
next_time_offset: 2:30
country_code: GBR
country_region_id: 47
local_time_offset_polarity: 0
local_time_offset: 23:59
time_of_change: 13/10-1993 1:2:3
next_time_offset: 0:0
)");
}

TEST(ShortEventDescriptor, keepsTheSelectorItStrips)
{
    const auto d = decode<DescriptorShortEvent>("4D 09 65 6E 67 02 05 41 02 20 41");
    EXPECT_EQ(d.event_name, (StrippedText{"A", 0x05}));
    EXPECT_EQ(d.text, (StrippedText{" A", std::nullopt}));
}

TEST(ShortEventDescriptor, cutsTextsAtTheEndOfTheDescriptor)
{
    const auto inName = decode<DescriptorShortEvent>("4D 06 65 6E 67 FF 41 42");
    EXPECT_EQ(inName.event_name.text, "AB");
    EXPECT_EQ(inName.text.text, "");
    const auto inText = decode<DescriptorShortEvent>("4D 07 65 6E 67 01 41 03 42");
    EXPECT_EQ(inText.event_name.text, "A");
    EXPECT_EQ(inText.text.text, "B");
}

TEST(ExtendedEventDescriptor, readsItemsUpToLengthOfItemsAndTheTextBehind)
{
    const auto none = decode<DescriptorExtendedEvent>("4E 08 1F 65 6E 67 00 02 41 42");
    EXPECT_EQ(none.descriptor_number, 1);
    EXPECT_EQ(none.last_descriptor_number, 15);
    EXPECT_TRUE(none.items.empty());
    EXPECT_EQ(none.text.text, "AB");

    const auto two =
        decode<DescriptorExtendedEvent>("4E 0F 00 65 6E 67 07 01 44 02 06 49 00 00 05 54 58");
    ASSERT_EQ(two.items.size(), 2U);
    EXPECT_EQ(two.items[0].item_description.text, "D");
    EXPECT_EQ(two.items[0].item, (StrippedText{"I", 0x06}));
    EXPECT_EQ(two.items[1].item.text, "");
    EXPECT_EQ(two.text.text, "TX");

    const auto cut = decode<DescriptorExtendedEvent>("4E 09 00 65 6E 67 FF 01 44 01 49");
    EXPECT_EQ(cut.items.at(0).item.text, "I");
    EXPECT_EQ(cut.text.text, "");
}

TEST(EventDescriptors, refuseEntriesThatDoNotFit)
{
    test::expectRefused({
        // An item's description, its item, its second length byte, the descriptor.
        {"4E 0B 00 65 6E 67 05 0A 41 42 43 44 00", -1, "data length mismatch"},
        {"4E 0B 00 65 6E 67 05 01 41 03 43 44 45", -1, "data length mismatch"},
        {"4E 08 00 65 6E 67 02 01 41 00", -1, "data length mismatch"},
        {"4E 08 00 65 6E 67 FF 01 41 01", -1, "data length mismatch"},
        {"4B 07 00 00 00 00 00 00 00", 3, "NVOD_reference_descriptor"},
        {"54 01 10", -1, "descriptor length mismatch"},
        {"55 06 47 42 52 01 00 00", 3, "parental_rating_descriptor"},
        {"58 0C 44 45 55 0D 01 00 C0 79 12 45 00 02", -1, "descriptor start end mismatch"},
    });
    EXPECT_TRUE(decode<DescriptorParentalRating>("55 00").entries.empty());
}

TEST(EventDescriptors, readZerosPastTheirEnd)
{
    EXPECT_EQ(decode<DescriptorTimeShiftedService>("4C 01 80").reference_service_id, 0);
    const auto event = decode<DescriptorTimeShiftedEvent>("4F 03 80 01 90");
    EXPECT_EQ(event.reference_service_id, 0x8001);
    EXPECT_EQ(event.reference_event_id, 0);
}

TEST(EventDescriptors, clearEmptiesListsAndLeavesTexts)
{
    EXPECT_EQ(clearedDump<DescriptorNVODReference>("4B 06 80 01 90 02 A0 03"), "");
    EXPECT_EQ(clearedDump<DescriptorContent>("54 02 81 92"), "");
    EXPECT_EQ(clearedDump<DescriptorParentalRating>("55 04 47 42 52 01"), "");
    EXPECT_EQ(
        clearedDump<DescriptorLocalTimeOffset>("58 0D 44 45 55 0D 01 00 C0 79 12 45 00 02 30"), "");
    EXPECT_EQ(clearedDump<DescriptorExtendedEvent>("4E 0A 12 65 6E 67 02 00 00 02 41 42"),
              "descriptor_number: 1\nlast_descriptor_number: 2\nlanguage_code: eng\ntext: AB\n");
    EXPECT_EQ(clearedDump<DescriptorShortEvent>("4D 07 65 6E 67 01 41 01 42"),
              "language_code: eng\nevent_name: A\ntext: B\n");
}
