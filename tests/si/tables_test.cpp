#include "si/ait.h"
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
#include "tests/support/worked_cases.h"

#include <iomanip>
#include <map>
#include <memory>
#include <optional>

// What every table class keeps to: which sections it takes, what it makes of them, and what clear
// and a failure leave.

using namespace lib13818;
using test::hex;
using test::parsed;
using test::parsedBody;

namespace {

template <class Table>
test::Bytes sectionOf(unsigned tableId, std::span<const uint8_t> body)
{
    if constexpr (std::is_base_of_v<LongSection, Table>)
        return test::longSection(tableId, 0x1234, body);
    else
        return test::shortSection(tableId, body);
}

/// The name and the dump of a table, also once it is cleared; of a section that fails why.
template <class Table>
std::string dumpOf(unsigned tableId, std::span<const uint8_t> body)
{
    const test::Bytes section = sectionOf<Table>(tableId, body);
    if (const std::string failure = test::failureOf<Table>(section); !failure.empty())
        return "refused with " + failure;
    auto table = parsed<Table>(section);
    const std::string before = test::dumpOfTable(table);
    table.clear();
    const std::string after = test::dumpOfTable(table);
    return "'" + std::string(table.name()) + "'\n" + before +
           (after == before ? "" : "cleared: " + test::onOneLine(after));
}

const std::map<std::string, std::string (*)(unsigned, std::span<const uint8_t>)> kTables{
    {"Pat", dumpOf<Pat>}, {"Cat", dumpOf<Cat>}, {"Pmt", dumpOf<Pmt>}, {"Nit", dumpOf<Nit>},
    {"Bat", dumpOf<Bat>}, {"Sdt", dumpOf<Sdt>}, {"Eit", dumpOf<Eit>}, {"Ait", dumpOf<Ait>},
    {"Tdt", dumpOf<Tdt>}, {"Rst", dumpOf<Rst>}, {"Tot", dumpOf<Tot>}};

/// Gives a table a section of every table_id with a body that it takes.
template <class Table>
void expectTakes(unsigned first, unsigned last, std::string_view body,
                 std::optional<unsigned> another = {})
{
    for (unsigned tableId = 0; tableId < 256; ++tableId) {
        const bool isTaken = (tableId >= first && tableId <= last) || tableId == another;
        EXPECT_EQ(test::failureOf<Table>(sectionOf<Table>(tableId, hex(body))),
                  isTaken ? "" : "-1: invalid table id")
            << Table().name() << ' ' << tableId;
    }
}

template <class Table>
Table cleared(Table table)
{
    table.clear();
    return table;
}

} // namespace

TEST(Tables, areDumpedClearedOrRefused)
{
    test::expectWorked("si/tables.txt", [](const std::string& input) {
        const test::Bytes bytes = hex(std::string_view(input).substr(4));
        return test::printable(
            kTables.at(input.substr(0, 3))(bytes.at(0), std::span(bytes).subspan(1)));
    });
}

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
    expectTakes<Ait>(0x00, 0xFF, "F0 00 F0 00");
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
    EXPECT_EQ(names(Nit(), {0x42}) + names(Sdt(), {0x40}) + names(Bat(), {0}),
              "ERROR\nERROR\nERROR\n");
    EXPECT_EQ(names(Eit(), {0x4E, 0x4F, 0x50, 0x5F, 0x60, 0x6F, 0x70}),
              "event_information_section - actual_transport_stream, present/following\n"
              "event_information_section - other_transport_stream, present/following\n"
              "event_information_section - actual_transport_stream, schedule\n"
              "event_information_section - actual_transport_stream, schedule\n"
              "event_information_section - other_transport_stream, schedule\n"
              "event_information_section - other_transport_stream, schedule\n<unknown>\n");
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
    const auto parsedTwice = [](auto table, unsigned tableId, const char* first,
                                const char* second) {
        table.parse(*std::make_unique<test::Bytes>(test::longSection(tableId, 1, hex(first))));
        table.parse(*std::make_unique<test::Bytes>(test::longSection(tableId, 1, hex(second))));
        auto copy = table;
        table = {};
        return copy;
    };
    EXPECT_EQ(parsedTwice(Pat(), 0, "00 01 E1 00", "00 02 E2 00").programs.size(), 2U);
    const Pmt pmt =
        parsedTwice(Pmt(), 2, "E1 00 F0 03 52 01 07", "E1 00 F0 03 52 01 08 02 E1 00 F0 00");
    std::string tags;
    for (const auto& each : pmt.descriptors.all<DescriptorStreamIdentifier>())
        tags += std::to_string(each.component_tag);
    EXPECT_EQ(tags, "78");
    EXPECT_EQ(pmt.streams.size(), 1U);
}

/// Also where the dump does not show them.
TEST(Tables, clearEntriesAndLeaveHeadersAndOtherLists)
{
    const auto pat = cleared(parsedBody<Pat>(0x00, "00 01 E1 00"));
    EXPECT_EQ(pat.section_length, 13);
    EXPECT_TRUE(pat.parsed);
    const auto cat = cleared(parsedBody<Cat>(0x01, "09 04 01 00 E1 00"));
    EXPECT_EQ(cat.descriptors.all<DescriptorCA>().size(), 1U);
    const auto nit = cleared(parsedBody<Nit>(0x40, "F0 09 40 01 41 09 04 17 02 E1 00 F0 00"));
    EXPECT_TRUE(nit.caDescriptors.empty());
    EXPECT_EQ(nit.descriptors.all<DescriptorNetworkName>().size(), 1U);
    EXPECT_TRUE(cleared(parsed<Tot>(hex("73 70 0D C0 79 12 45 00 F0 02 00 00 FF FE FD FC")))
                    .descriptors.empty());
}

TEST(Nit, sortsCaDescriptorsOutOfTheFirstLoop)
{
    const auto nit = parsedBody<Nit>(0x41, "F0 09 40 01 41 09 04 17 02 E1 00 F0 00");
    EXPECT_TRUE(nit.descriptors.all<DescriptorCA>().empty());
    EXPECT_EQ(nit.caDescriptors.at(0).CA_system_id, 0x1702);
}

TEST(Pmt, putsTheFormatOfAStreamBackBehindItsDump)
{
    std::ostringstream out;
    out << std::dec << std::setw(7);
    parsedBody<Pmt>(0x02, "E0 AB F0 00").dump(out);
    out << 10;
    EXPECT_TRUE(out.str().ends_with("0000010")) << out.str();
}
