#include "acquisition/table_requests.h"

#include "tests/multiplex/sections.h"

#include <array>
#include <cstring>
#include <gmock/gmock.h>

namespace {

using namespace tessaview; // NOLINT(google-build-using-namespace)
using test::Bytes;

/// The hundred bytes of a request, little-endian, by the offsets of its layout.
Bytes layout(int PID, int table_id, int mode, int program_number = -1)
{
    Bytes bytes(100, 0);
    bytes[0] = static_cast<std::uint8_t>(PID);
    bytes[1] = static_cast<std::uint8_t>(PID >> 8);
    bytes[4] = static_cast<std::uint8_t>(table_id);
    bytes[8] = static_cast<std::uint8_t>(mode);
    if (program_number >= 0) {
        bytes[28] = 1;
        bytes[32] = static_cast<std::uint8_t>(program_number);
        bytes[33] = static_cast<std::uint8_t>(program_number >> 8);
    }
    return bytes;
}

std::vector<Bytes> bytesOf(const std::vector<TableRequest>& requests)
{
    std::vector<Bytes> all;
    for (const TableRequest& request : requests) {
        Bytes bytes(sizeof request);
        std::memcpy(bytes.data(), &request, sizeof request);
        all.push_back(bytes);
    }
    return all;
}

struct Optional {
    SiTableMask bit;
    int PID;
    int table_id;
    int mode;
};

const std::vector<Bytes> kAlways{layout(0x00, 0x00, 0), layout(0x10, 0x40, 0),
                                 layout(0x11, 0x42, 0)};
constexpr std::array<Optional, 11> kOptional{{{0x0002, 0x01, 0x01, 0},
                                              {0x0004, 0x11, 0x4A, 0},
                                              {0x2000, 0x14, 0x70, 0},
                                              {0x4000, 0x14, 0x73, 0},
                                              {0x1000, 0x13, 0x71, 0},
                                              {0x0020, 0x10, 0x41, 3},
                                              {0x0800, 0x11, 0x46, 4},
                                              {0x0040, 0x12, 0x4E, 5},
                                              {0x0080, 0x12, 0x4F, 5},
                                              {0x0100, 0x12, 0x50, 5},
                                              {0x0200, 0x12, 0x60, 5}}};

std::vector<Bytes> requested(SiTableMask mask)
{
    return bytesOf(TableRequests(TableSelection::fixed(mask)).requests());
}

TEST(TableRequests, areTheThreeThatAreAlwaysReadWhenNothingIsChosen)
{
    EXPECT_EQ(requested(0), kAlways);
    const SiTableMask without = kAllTables & ~(0x0001U | 0x0010U | 0x0400U);
    EXPECT_EQ(requested(without), requested(kAllTables)) << "their own bits gate nothing";
}

TEST(TableRequests, holdEachChosenTable)
{
    for (const Optional& table : kOptional) {
        std::vector<Bytes> expected = kAlways;
        expected.push_back(layout(table.PID, table.table_id, table.mode));
        EXPECT_EQ(requested(table.bit), expected) << table.bit;
    }
    EXPECT_EQ(requested(0x0008), kAlways) << "PMTs are a batch of their own";
}

TEST(TableRequests, areFourteenInOrderWhenAllIsChosen)
{
    std::vector<Bytes> expected = kAlways;
    for (const Optional& table : kOptional)
        expected.push_back(layout(table.PID, table.table_id, table.mode));
    EXPECT_EQ(requested(kAllTables), expected);
    const TableRequests all(TableSelection::fixed(kAllTables));
    EXPECT_EQ(all.place(SiTable::EitScheduleOther), 13);
}

TEST(TableRequests, tellWhereAnAnswerStands)
{
    const TableRequests some(TableSelection::fixed(si_table::kRst | si_table::kEitScheduleOther));
    EXPECT_EQ(some.place(SiTable::Rst), 3);
    EXPECT_EQ(some.place(SiTable::EitScheduleOther), 4);
    EXPECT_EQ(some.place(SiTable::Cat), std::nullopt);
}

TEST(PmtRequests, nameEveryProgramInThePatsOrder)
{
    lib13818::Pat pat;
    pat.parse(test::pat(1, {{0xFFFF, 0x1FFE}, {0, 0x0010}, {1, 0x0100}}));
    EXPECT_EQ(bytesOf(pmtRequests(pat)),
              (std::vector{layout(0x1FFE, 2, 0, 0xFFFF), layout(0x0100, 2, 0, 0x0001)}));
}

} // namespace
