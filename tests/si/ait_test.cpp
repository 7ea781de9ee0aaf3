#include "si/ait.h"

#include "tests/support/section_cases.h"

using namespace lib13818;
using test::dumpOfTable;
using test::failureOf;
using test::hex;
using test::parsedBody;

TEST(Ait, readsCommonDescriptorsAndApplications)
{
    const auto ait = parsedBody<Ait>(0x74, "F0 0C 80 00 0E 01 FF 0D 05 01 FF FE FF FD "
                                           "F0 17 FF FF FF FE FF FD FC F0 05 0A 03 01 41 42"
                                           "      00 00 00 01 00 02 01 F0 00");
    EXPECT_EQ(dumpOfTable(ait), R"(application_type: 4660
common_descriptors_length: 12
descriptor_tag: 0d DII_location_descriptor
transport_protocol_label: 1
DII_identification: 7ffe
associatoin_tag: fffd
descriptor_tag: 0e Reserved
data:
ff                                               : .
descriptor_tag: 80 User Private
data:
application_loop_length: 17
organisation_id: fffffffe
application_id: fffd
application_control_code: fc
application_descriptors_loop_length: 5
descriptor_tag: 0a DVB-HTML_application_boundary
label_length: 1
label: A
regular_expression: B
organisation_id: 1
application_id: 2
application_control_code: 1
application_descriptors_loop_length: 0
)");
    EXPECT_STREQ(ait.name(), "");
}

TEST(Ait, takesEveryTableId)
{
    for (unsigned tableId = 0; tableId < 256; ++tableId)
        EXPECT_EQ(parsedBody<Ait>(tableId, "00 00 F0 00").table_id, static_cast<int>(tableId));
}

TEST(Ait, reportsLoopsThatDoNotFit)
{
    const char* descriptors = "3: application common descriptors length mismatch";
    const char* tooLittle = "3: too little data";
    const std::string head = "F0 00 F0 ";
    const std::string application = "00 00 00 01 00 02 01 ";
    const std::vector<std::pair<std::string, std::string>> cases{
        {head + "00", ""},
        {head + "00 FF", ""}, // the loop is bounded by its own length only
        {head + "09" + application + "F0 00", ""},
        {head + "08" + application + "F0", "3: application length to small"},
        {head + "0A" + application + "F0 00 01", "3: application length to small"},
        // An application's descriptors: a ragged end, past the loop's end.
        {head + "0A" + application + "F0 01 0E", descriptors},
        {head + "0B" + application + "F0 02 0E 01", descriptors},
        {head + "0B" + application + "F0 03 0E 00", descriptors},
        // The common ones.
        {"F0 01 0E F0 00", descriptors},
        {"F0 02 0E 01 F0 00", descriptors},
        // Lengths past the body.
        {"", tooLittle},
        {"F0", tooLittle},
        {"F0 03 0E 00", tooLittle},
        {"F0 02 0E 00", tooLittle},
        {"F0 00 F0 01", tooLittle},
        // A descriptor's own failure passes through.
        {"F0 03 06 01 00 F0 00", "3: routing_ipv4_descriptor: 1"}};
    for (const auto& [body, failure] : cases)
        EXPECT_EQ(failureOf<Ait>(test::longSection(0x74, 1, hex(body))), failure) << body;
}

TEST(Ait, clearForgetsApplicationsAndLowRawDescriptors)
{
    auto ait = parsedBody<Ait>(0x74, "F0 07 80 00 0E 01 FF 03 00 F0 09 00 00 00 01 00 02 01 F0 00");
    ait.clear();
    EXPECT_TRUE(ait.applications.empty());
    EXPECT_TRUE(ait.descriptors.all<LowUserPrivate>().empty());
    EXPECT_EQ(ait.descriptors.all<HighUserPrivate>().size(), 1U);
    EXPECT_EQ(ait.descriptors.all<DescriptorDvbJApplication>().size(), 1U);
    EXPECT_EQ(ait.common_descriptors_length, 7);
}
