#include "si/bat.h"
#include "si/cat.h"
#include "si/eit.h"
#include "si/nit.h"
#include "si/pat.h"
#include "si/pmt.h"
#include "si/rst.h"
#include "si/sdt.h"
#include "si/tdt.h"
#include "si/tot.h"
#include "tests/support/section_cases.h"

#include <optional>

// What every table class keeps to: which sections it takes, and what clear and a failure leave.

using namespace lib13818;
using test::hex;
using test::parsed;
using test::parsedBody;

namespace {

/// Gives a table a section of every table_id with a body that it takes.
template <class Table>
void expectTakes(unsigned first, unsigned last, std::string_view body,
                 std::optional<unsigned> another = {})
{
    constexpr bool isLong = std::is_base_of_v<LongSection, Table>;
    for (unsigned tableId = 0; tableId < 256; ++tableId) {
        const bool isTaken = (tableId >= first && tableId <= last) || tableId == another;
        const auto section = isLong ? test::longSection(tableId, 1, hex(body))
                                    : test::shortSection(tableId, hex(body));
        EXPECT_EQ(test::failureOf<Table>(section), isTaken ? "" : "-1: invalid table id")
            << Table().name() << ' ' << tableId;
    }
}

/// The offset in the section of the byte that a failed header check names.
template <class Table>
std::ptrdiff_t failingByte(const test::Bytes& section)
{
    Table table;
    try {
        table.parse(section.data());
    } catch (const error& failure) {
        EXPECT_EQ(failure.code, kMalformedHeader);
        return failure.position - section.data();
    }
    return -1;
}

template <class Table>
Table cleared(Table table)
{
    table.clear();
    return table;
}

} // namespace

TEST(Tables, takeTheirTableIdsOnly)
{
    expectTakes<Pat>(0x00, 0x00, "");
    expectTakes<Cat>(0x01, 0x01, "");
    expectTakes<Pmt>(0x02, 0x02, "E1 00 F0 00");
    expectTakes<Nit>(0x40, 0x41, "F0 00 F0 00");
    expectTakes<Bat>(0x4A, 0x4A, "F0 00 F0 00");
    expectTakes<Sdt>(0x42, 0x42, "00 01 FF", 0x46);
    expectTakes<Eit>(0x4E, 0x6F, "00 01 00 02 00 4E");
    expectTakes<Tdt>(0x70, 0x70, "C0 79 12 45 00");
    expectTakes<Rst>(0x71, 0x71, "");
    expectTakes<Tot>(0x73, 0x73, "C0 79 12 45 00 F0 00 FF FE FD FC");
}

TEST(Tables, areNamedByTheirTableId)
{
    const auto names = [](auto table, std::initializer_list<int> tableIds) {
        std::string all;
        for (const int tableId : tableIds) {
            table.table_id = tableId;
            all += std::string(table.name()) + '\n';
        }
        return all;
    };
    EXPECT_EQ(names(Nit(), {0x40, 0x41, 0x42}),
              "network_information_section - actual_transport_network\n"
              "network_information_section - other_transport_network\nERROR\n");
    EXPECT_EQ(names(Sdt(), {0x42, 0x46, 0x40}),
              "service_description_section - actual_transport_stream\n"
              "service_description_section - other_transport_stream\nERROR\n");
    EXPECT_EQ(names(Bat(), {0x4A, 0}), "bouquet_association_section\nERROR\n");
    EXPECT_EQ(names(Eit(), {0x4E, 0x4F, 0x50, 0x5F, 0x60, 0x6F, 0x70}),
              "event_information_section - actual_transport_stream, present/following\n"
              "event_information_section - other_transport_stream, present/following\n"
              "event_information_section - actual_transport_stream, schedule\n"
              "event_information_section - actual_transport_stream, schedule\n"
              "event_information_section - other_transport_stream, schedule\n"
              "event_information_section - other_transport_stream, schedule\n<unknown>\n");
}

TEST(Tables, nameTheByteOfAHeaderThatFails)
{
    const auto recoded = [](test::Bytes section, uint8_t second) {
        section[1] = second;
        section.resize(section.size() - 4);
        return test::Writer().bytes(section).u32(test::crc32(section)).get();
    };
    EXPECT_EQ(failingByte<Pat>(recoded(test::pat(1, {}), 0x30)), 0);
    EXPECT_EQ(failingByte<Tdt>(hex("70 F0 05 C0 79 12 45 00")), 0);
    EXPECT_EQ(failingByte<Tdt>(hex("70 74 05 C0 79 12 45 00")), 1);
    EXPECT_EQ(failingByte<Tdt>(hex("70 78 05 C0 79 12 45 00")), 1);
    // The header bits come before the table_id.
    EXPECT_EQ(failingByte<Tdt>(hex("73 F0 05 C0 79 12 45 00")), 0);
}

TEST(Tables, keepWhatStoodBeforeAFailure)
{
    const auto section = test::longSection(0x42, 7, hex("00 01 FF 00 02 FD 90 00 00 03 FD 90 01"));
    Sdt sdt;
    EXPECT_THROW(sdt.parse(section.data()), error);
    EXPECT_FALSE(sdt.parsed);
    EXPECT_EQ(sdt.table_id_extension, 7);
    EXPECT_EQ(sdt.original_network_id, 1);
    EXPECT_EQ(sdt.services.at(0).service_id, 2);

    auto damaged = test::longSection(0x00, 7, hex("00 01 E1 00"));
    damaged.back() ^= 1;
    Pat pat;
    EXPECT_THROW(pat.parse(damaged.data()), error);
    EXPECT_EQ(pat.section_length, 13);
    EXPECT_EQ(pat.table_id_extension, 0);
}

TEST(Tables, addASecondSectionToTheFirst)
{
    Pat pat;
    pat.parse(test::pat(1, {{1, 0x100}}).data());
    pat.parse(test::pat(1, {{2, 0x200}}).data());
    EXPECT_EQ(pat.programs.size(), 2U);
}

TEST(Tables, clearEmptiesEntriesAndLeavesTheHeader)
{
    const auto pat = cleared(parsedBody<Pat>(0x00, "00 01 E1 00"));
    EXPECT_TRUE(pat.programs.empty());
    EXPECT_EQ(pat.section_length, 13);
    EXPECT_TRUE(pat.parsed);
    const auto cat = cleared(parsedBody<Cat>(0x01, "09 04 01 00 E1 00"));
    EXPECT_EQ(cat.descriptors.all<DescriptorCA>().size(), 1U);
    const auto pmt = cleared(parsedBody<Pmt>(0x02, "E1 00 F0 02 11 00 02 E1 00 F0 00"));
    EXPECT_TRUE(pmt.streams.empty());
    EXPECT_EQ(pmt.descriptors.all<DescriptorSTD>().size(), 1U);
    const auto nit =
        cleared(parsedBody<Nit>(0x40, "F0 09 40 01 41 09 04 17 02 E1 00 F0 06 00 01 00 02 F0 00"));
    EXPECT_TRUE(nit.caDescriptors.empty());
    EXPECT_TRUE(nit.transportStreams.empty());
    EXPECT_EQ(nit.descriptors.all<DescriptorNetworkName>().size(), 1U);
    EXPECT_TRUE(cleared(parsedBody<Sdt>(0x42, "00 01 FF 00 02 FD 90 00")).services.empty());
    EXPECT_TRUE(cleared(parsedBody<Eit>(0x4E, "00 01 00 02 00 4E C0 01 C0 79 12 45 00 01 30 00 "
                                              "80 00"))
                    .events.empty());
    EXPECT_TRUE(cleared(parsed<Tot>(hex("73 70 0D C0 79 12 45 00 F0 02 00 00 FF FE FD FC")))
                    .descriptors.empty());
    EXPECT_TRUE(cleared(parsed<Rst>(hex("71 70 09 00 01 00 85 FF FE FF FD FC"))).entries.empty());
}
