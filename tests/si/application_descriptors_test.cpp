#include "si/descriptors/ait_descriptor_set.h"
#include "tests/support/descriptor_cases.h"

using namespace lib13818;
using test::clearedDump;
using test::decode;

namespace {

std::string dumpOf(std::string_view loop)
{
    return test::dumpOf<AitDescriptorSet>(loop);
}

} // namespace

TEST(ApplicationDescriptors, dumpWhatAnApplicationIs)
{
    EXPECT_EQ(dumpOf("00 0F 0A FF FE FD FC FB 00 01 01 00 00 DF FE 41 81"),
              R"(descriptor_tag: 00 application_descriptor
application_profiles_length: a
application_profile: fffe
version_major: fd
version_minor: fc
version_micro: fb
application_profile: 1
version_major: 1
version_minor: 0
version_micro: 0
service_bound_flag: 1
visibility: 2
application_priority: fe
transport_protocol_label: A
transport_protocol_label: )"
              "\x81\n");
    EXPECT_EQ(dumpOf("01 0A 65 6E 67 02 41 42 64 65 75 00"),
              R"(descriptor_tag: 01 application_name_descriptor
ISO_639_language_code: eng
application_name_length: 2
application_name: AB
ISO_639_language_code: deu
application_name_length: 0
application_name: 
)");
    EXPECT_EQ(dumpOf("0B 07 02 69 63 FF FE 41 02"),
              R"(descriptor_tag: 0b application_icons_descriptor
icon_locator_length: 2
icon_locator: ic
icon_flags: fffe
reserved_future_use:
41 02                                            : A.
)");
    EXPECT_EQ(dumpOf("05 0E FF FF FF FE FF FD FC 00 00 00 01 00 02 03"),
              R"(descriptor_tag: 05 external_application_authorisation_descriptor
organisation_id: fffffffe
application_id: fffd
application_priority: fc
organisation_id: 1
application_id: 2
application_priority: 3
)");
}

TEST(ApplicationDescriptors, dumpWhereAnApplicationBegins)
{
    EXPECT_EQ(dumpOf("03 05 02 2D 61 01 62 03 00"),
              R"(descriptor_tag: 03 DVB-J_application_descriptor
parameter_info_length: 2
parameter_info: -a
parameter_info_length: 1
parameter_info: b
descriptor_tag: 03 DVB-J_application_descriptor
)");
    EXPECT_EQ(dumpOf("04 07 01 2F 02 2F 78 41 42"),
              R"(descriptor_tag: 04 DVB-J_application_location_descriptor
base_directory_length: 1
base_directory: /
classpath_extension_length: 2
classpath_extension: /x
initial_class: AB
)");
    EXPECT_EQ(dumpOf("08 05 02 40 41 70 3D"), R"(descriptor_tag: 08 DVB-HTML_application_descriptor
application_id_length: 2
application_id: @A
parameter:
70 3d                                            : p.
)");
    EXPECT_EQ(dumpOf("09 04 01 2F 69 68"), R"(descriptor_tag: 09 DVB-HTML_application_location
physical_root_length: 1
physical_root: /
initial_path: ih
)");
    EXPECT_EQ(dumpOf("0A 05 02 61 62 5E 2E"), R"(descriptor_tag: 0a DVB-HTML_application_boundary
label_length: 2
label: ab
regular_expression: ^.
)");
}

TEST(ApplicationDescriptors, dumpHowAnApplicationIsCarried)
{
    EXPECT_EQ(dumpOf("02 05 00 01 07 7F FE 02 0B 00 01 07 80 80 01 90 02 A0 03 FD"
                     "02 05 00 02 07 7F 80 02 0B 00 02 07 80 00 01 00 02 00 03 7F 02 03 00 03 07"),
              R"(descriptor_tag: 02 transport_protocol_descriptor
protocol_id: 1
remote_connection: 0
component_tag: fe
descriptor_tag: 02 transport_protocol_descriptor
protocol_id: 1
remote_connection: 1
original_network_id: 8001
transport_stream_id: 9002
service_id: a003
component_tag: fd
descriptor_tag: 02 transport_protocol_descriptor
protocol_id: 2
remote_connection: 0
alignment_indicator: 1
descriptor_tag: 02 transport_protocol_descriptor
protocol_id: 2
remote_connection: 1
original_network_id: 1
transport_stream_id: 2
service_id: 3
alignment_indicator: 0
descriptor_tag: 02 transport_protocol_descriptor
protocol_id: 3
)");
    EXPECT_EQ(dumpOf("06 0B FE E0 00 00 01 FF FD FF FF FF FC"),
              R"(descriptor_tag: 06 routing_IPv4_descriptor
component_tag: fe
address: e0000001
port_number: fffd
address_mask: fffffffc
)");
    EXPECT_EQ(dumpOf("07 23 FE 41 02 00 00 00 00 00 00 00 00 00 00 00 00 00 01 FF FD "
                     "5A FF FF FF FF FF FF FF FF FF FF FF FF FF FF FE"),
              R"(descriptor_tag: 07 routing_IPv4_descriptor
component_tag: fe
address:
41 02 00 00 00 00 00 00 00 00 00 00 00 00 00 01  : A...............
port_number: fffd
address_mask:
5a ff ff ff ff ff ff ff ff ff ff ff ff ff ff fe  : Z...............
)");
}

TEST(ApplicationDescriptors, dumpWhatToFetchFirst)
{
    EXPECT_EQ(dumpOf("0C 07 81 02 41 42 FE 00 01"), R"(descriptor_tag: 0c prefetch_descriptor
transport_protocol_label: 81
label_length: 2
label: AB
prefetch_priority: fe
label_length: 0
label: 
prefetch_priority: 1
)");
    EXPECT_EQ(dumpOf("0D 05 81 80 05 FF FE"), R"(descriptor_tag: 0d DII_location_descriptor
transport_protocol_label: 81
DII_identification: 5
associatoin_tag: fffe
)");
}

TEST(TransportProtocolDescriptor, leavesTheOtherSelectorAlone)
{
    const auto carousel = decode<DescriptorTransportProtocol>("02 05 00 01 07 00 2A");
    EXPECT_EQ(carousel.transport_protocol_label, 7);
    EXPECT_EQ(carousel.objectCarousel.component_tag, 0x2A);
    EXPECT_EQ(carousel.ip.alignment_indicator, 0);
    const auto ip = decode<DescriptorTransportProtocol>("02 0B 00 02 07 80 00 01 00 02 00 03 80");
    EXPECT_EQ(ip.ip.service_id, 3);
    EXPECT_EQ(ip.ip.alignment_indicator, 1);
    EXPECT_EQ(ip.objectCarousel.remote_connection, 0);
    EXPECT_EQ(ip.objectCarousel.service_id, 0);
}

TEST(ApplicationDescriptors, refuseEntriesThatDoNotFit)
{
    const char* profiles = "application_descriptor: application_profiles_length length mismatch";
    test::expectRefused<AitDescriptorSet>({
        {"00 09 04 00 01 01 00 00 80 05 03", 3, profiles},
        {"00 05 05 00 01 01 00", 3, profiles}, // past the end of the descriptor
        {"01 03 65 6E 67", 3, "application_name_descriptor: 1"},
        {"01 05 65 6E 67 02 41", 3, "application_name_descriptor: 1"},
        {"05 08 00 00 00 01 00 02 03 00", 3, "external_application_authorisation_descriptor: 1"},
        {"06 0A 00 00 00 00 00 00 00 00 00 00", 3, "routing_ipv4_descriptor: 1"},
        {"07 01 00", 3, "routing_ipv4_descriptor: 1"},
        {"0C 06 01 02 41 42 07 00", 3, "prefetch_descriptor: 1"},
        {"0C 03 01 02 41", 3, "prefetch_descriptor: 1"},
        {"0C 00", 3, "prefetch_descriptor: 1"}, // its entries would start behind its end
        {"0D 04 01 80 05 00", 3, "dii_location_descriptor: 1"},
        {"0D 00", 3, "dii_location_descriptor: 1"},
    });
    test::Bytes ipv6(36, 0);
    ipv6[0] = 0x07;
    ipv6[1] = 34;
    EXPECT_THROW(DescriptorRoutingIPv6(test::exactly(ipv6).get()), error);
}

TEST(ApplicationDescriptors, areCutAtTheirEnd)
{
    const auto empty = decode<DescriptorApplication>("00 00");
    EXPECT_EQ(empty.application_priority, 0);
    EXPECT_TRUE(empty.transport_protocol_label.empty());
    const auto icons = decode<DescriptorApplicationIcons>("0B 03 05 69 63");
    EXPECT_EQ(icons.icon_locator, "ic");
    EXPECT_EQ(icons.icon_locator_length, 5);
    EXPECT_EQ(icons.icon_flags, 0);
    const auto java = decode<DescriptorDvbJApplicationLocation>("04 02 7F 2F");
    EXPECT_EQ(java.base_directory.text, "/");
    EXPECT_EQ(java.classpath_extension.length, 0);
    EXPECT_EQ(decode<DescriptorDvbJApplication>("03 02 02 61").parameters.at(0).text, "a");
    EXPECT_EQ(decode<DescriptorTransportProtocol>("02 04 00 01 07 80").objectCarousel.service_id,
              0);
}

TEST(ApplicationDescriptors, clearEmptiesListsAndRawBytes)
{
    EXPECT_EQ(clearedDump<DescriptorApplication>("00 08 05 00 01 01 00 00 80 05"),
              "application_profiles_length: 5\nservice_bound_flag: 1\nvisibility: 0\n"
              "application_priority: 5\n");
    EXPECT_EQ(clearedDump<DescriptorApplicationName>("01 04 65 6E 67 00"), "");
    EXPECT_EQ(clearedDump<DescriptorApplicationIcons>("0B 06 02 69 63 00 11 01"),
              "icon_locator_length: 2\nicon_locator: \nicon_flags: 11\nreserved_future_use:\n");
    EXPECT_EQ(clearedDump<DescriptorExternalApplicationAuthorisation>("05 07 00 00 00 01 00 02 03"),
              "");
    EXPECT_EQ(clearedDump<DescriptorRoutingIPv4>("06 0B 01 E0 00 00 01 00 02 FF FF FF FF"), "");
    EXPECT_EQ(clearedDump<DescriptorPrefetch>("0C 03 01 00 02"), "transport_protocol_label: 1\n");
    EXPECT_EQ(clearedDump<DescriptorDIILocation>("0D 05 01 00 05 00 0B"),
              "transport_protocol_label: 1\n");
    EXPECT_EQ(clearedDump<DescriptorDvbJApplication>("03 02 01 61"), "");
    EXPECT_EQ(clearedDump<DescriptorDvbHtmlApplication>("08 03 01 40 70"),
              "application_id_length: 1\napplication_id: @\nparameter:\n");
    // These keep what they hold.
    EXPECT_EQ(clearedDump<DescriptorDvbHtmlApplicationLocation>("09 03 01 2F 69"),
              "physical_root_length: 1\nphysical_root: /\ninitial_path: i\n");
    EXPECT_EQ(clearedDump<DescriptorDvbHtmlApplicationBoundary>("0A 03 01 61 5E"),
              "label_length: 1\nlabel: a\nregular_expression: ^\n");
    EXPECT_EQ(clearedDump<DescriptorDvbJApplicationLocation>("04 03 00 00 41"),
              "base_directory_length: 0\nbase_directory: \nclasspath_extension_length: 0\n"
              "classpath_extension: \ninitial_class: A\n");
    EXPECT_EQ(clearedDump<DescriptorTransportProtocol>("02 05 00 01 07 00 2A"),
              "protocol_id: 1\nremote_connection: 0\ncomponent_tag: 2a\n");
}
