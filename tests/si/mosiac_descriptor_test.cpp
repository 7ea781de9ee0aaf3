#include "si/descriptors/mosiac_descriptor.h"

#include "tests/support/descriptor_cases.h"

using namespace lib13818;
using test::decode;
using test::dumpOf;

TEST(MosiacDescriptor, dumpsEachCellWithWhatItLeadsTo)
{
    EXPECT_EQ(dumpOf("51 29 D5 86 FA 02 FF C1 01 80 01"
                     "      FF 05 00 02 80 01 90 02 A0 03"
                     "      00 00 00 03 00 01 00 02 00 03"
                     "      00 00 00 04 80 01 90 02 A0 03 B0 04"),
              R"(descriptor_tag: 51 mosiac_descriptor
mosiac_entry_point: 1
number_of_horizontal_elementary_cells: 5
number_of_vertical_elementary_cells: 5
DescriptorMosiac::CellInfo::logical_cell_id: 21
DescriptorMosiac::CellInfo::logical_call_presentation_info: 2
DescriptorMosiac::CellInfo::elementary_cell_field_length: 2
DescriptorMosiac::CellInfo::cell_linkage_info: 1
BouquetInfo::bouquet_id: 8001
DescriptorMosiac::CellInfo::logical_cell_id: 3f
DescriptorMosiac::CellInfo::logical_call_presentation_info: 5
DescriptorMosiac::CellInfo::elementary_cell_field_length: 0
DescriptorMosiac::CellInfo::cell_linkage_info: 2
ServiceInfo::original_network_id: 8001
ServiceInfo::transport_stream_id: 9002
ServiceInfo::service_id: a003
DescriptorMosiac::CellInfo::logical_cell_id: 0
DescriptorMosiac::CellInfo::logical_call_presentation_info: 0
DescriptorMosiac::CellInfo::elementary_cell_field_length: 0
DescriptorMosiac::CellInfo::cell_linkage_info: 3
ServiceInfo::original_network_id: 1
ServiceInfo::transport_stream_id: 2
ServiceInfo::service_id: 3
DescriptorMosiac::CellInfo::logical_cell_id: 0
DescriptorMosiac::CellInfo::logical_call_presentation_info: 0
DescriptorMosiac::CellInfo::elementary_cell_field_length: 0
DescriptorMosiac::CellInfo::cell_linkage_info: 4
EventInfo::original_network_id: 8001
EventInfo::transport_stream_id: 9002
EventInfo::service_id: a003
EventInfo::event_id: b004
)");
}

TEST(MosiacDescriptor, keepsSixBitsOfElementaryCellIds)
{
    const auto d = decode<DescriptorMosiac>("51 0D 2A 04 00 02 FF C1 02 80 01 90 02 A0 03");
    EXPECT_EQ(d.mosiac_entry_point, 0);
    EXPECT_EQ(d.number_of_horizontal_elementary_cells, 2);
    EXPECT_EQ(d.number_of_vertical_elementary_cells, 2);
    ASSERT_EQ(d.entries.size(), 1U);
    EXPECT_EQ(d.entries[0].elementary_cell_id, test::hex("3F 01"));
    EXPECT_EQ(std::get<DescriptorMosiac::ServiceInfo>(d.entries[0].linkage).service_id, 0xA003);
}

TEST(MosiacDescriptor, refusesCellsThatLeadNowhereOrDoNotFit)
{
    test::expectRefused({
        {"51 0D 2A 04 00 02 FF C1 00 80 01 90 02 A0 03", 2, ""},
        {"51 05 2A 04 00 00 05", 2, ""},
        {"51 08 2A 04 00 00 01 00 01 FF", 3, "mosiac_descriptor"}, // half a cell behind
        {"51 0C 2A 04 00 02 FF C1 02 80 01 90 02 A0", 3, "mosiac_descriptor"},
        {"51 04 2A 04 00 00", 3, "mosiac_descriptor"}, // no byte left for the linkage
        {"51 06 2A 04 00 FF 01 01", 3, "mosiac_descriptor"},
        {"51 00", 3, "mosiac_descriptor"}, // its cells would start behind its end
    });
}

TEST(MosiacDescriptor, clearEmptiesTheCells)
{
    EXPECT_EQ(test::clearedDump<DescriptorMosiac>("51 07 FF 04 00 00 01 00 01"),
              "mosiac_entry_point: 1\nnumber_of_horizontal_elementary_cells: 7\n"
              "number_of_vertical_elementary_cells: 7\n");
}
