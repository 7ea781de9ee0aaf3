#include "si/descriptors/cell_descriptors.h"

#include "tests/support/descriptor_cases.h"

using namespace lib13818;
using test::decode;

TEST(CellListDescriptor, readsCellsAndTheirSubcells)
{
    const auto d = decode<DescriptorCellList>("6C 24 80 01 90 02 A0 03 80 1F FE 10"
                                              "      81 80 04 90 05 80 19 02 "
                                              "      01 00 00 00 00 00 00 00 "
                                              "      FF FF 00 00 00 00 00 00 00 00");
    ASSERT_EQ(d.entries.size(), 2U);
    const auto& cell = d.entries[0];
    EXPECT_EQ(cell.cell_id, 0x8001);
    EXPECT_EQ(cell.cell_latitude, 0x9002);
    EXPECT_EQ(cell.cell_longitude, 0xA003);
    EXPECT_EQ(cell.cell_extent_of_latitude, 0x801);
    EXPECT_EQ(cell.cell_extent_of_longitude, 0xFFE);
    EXPECT_EQ(cell.subcell_info_loop_length, 16);
    ASSERT_EQ(cell.subcells.size(), 2U);
    EXPECT_EQ(cell.subcells[0].cell_id_extension, 0x81);
    EXPECT_EQ(cell.subcells[0].subcell_latitude, 0x8004);
    EXPECT_EQ(cell.subcells[0].subcell_longitude, 0x9005);
    EXPECT_EQ(cell.subcells[0].subcell_extent_of_latitude, 0x801);
    EXPECT_EQ(cell.subcells[0].subcell_extent_of_longitude, 0x902);
    EXPECT_EQ(d.entries[1].cell_id, 0xFFFF);
    EXPECT_TRUE(d.entries[1].subcells.empty());
}

TEST(CellFrequencyLinkDescriptor, readsCellsAndTheirTransposers)
{
    const auto d = decode<DescriptorCellFrequencyLink>("6D 13 80 01 80 00 00 01 05 81 90 00 00 02"
                                                       "      00 02 00 00 00 03 00");
    ASSERT_EQ(d.entries.size(), 2U);
    EXPECT_EQ(d.entries[0].cell_id, 0x8001);
    EXPECT_EQ(d.entries[0].frequency, 0x80000001U);
    EXPECT_EQ(d.entries[0].subcell_info_loop_length, 5);
    ASSERT_EQ(d.entries[0].subcells.size(), 1U);
    EXPECT_EQ(d.entries[0].subcells[0].cell_id_extension, 0x81);
    EXPECT_EQ(d.entries[0].subcells[0].transposer_frequency, 0x90000002U);
    EXPECT_EQ(d.entries[1].frequency, 3U);
}

TEST(ServiceAvailabilityDescriptor, readsTheFlagAndTheCells)
{
    const auto d = decode<DescriptorServiceAvailability>("72 05 80 80 01 00 02");
    EXPECT_EQ(d.availability_flag, 1);
    EXPECT_EQ(d.cell_id, (std::vector{0x8001, 2}));
    EXPECT_EQ(decode<DescriptorServiceAvailability>("72 01 7F").availability_flag, 0);
}

TEST(CellDescriptors, refuseCellsThatDoNotFit)
{
    const char* mismatch = "descriptor length mismatch";
    test::expectRefused({
        {"6C 0B 00 01 00 00 00 00 00 00 00 01 00", -1, mismatch},
        {"6C 09 00 01 00 00 00 00 00 00 00", 2, ""},
        {"6C 0B 00 01 00 00 00 00 00 00 00 08 00", 2, ""},
        {"6C 0B 00 01 00 00 00 00 00 00 00 09 00", 2, ""}, // too long before broken
        {"6D 08 00 01 00 00 00 00 01 00", -1, mismatch},
        {"6D 06 00 01 00 00 00 00", 2, ""},
        {"6D 0B 00 01 00 00 00 00 05 00 00 00 00", 2, ""},
        {"72 02 80 00", -1, mismatch},
        {"72 00", -1, mismatch},
    });
}
