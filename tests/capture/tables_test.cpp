#include "drivers/capture/section_answers.h"
#include "drivers/common/interrupted.h"
#include "tests/capture/loaded_driver.h"
#include "tests/support/tests.h"
#include "tools/multiplex/sections.h"
#include "tools/multiplex/stream_builder.h"

// Which sections answer a request, of all that a PID carries.

namespace {

constexpr unsigned kPid = 0x0011;

Bytes streamOf(const std::vector<Bytes>& sections)
{
    StreamBuilder stream;
    for (const Bytes& section : sections)
        stream.put(kPid, section);
    return stream.build();
}

/// One bit of the CRC_32, or of another byte, is wrong.
Bytes damaged(Bytes section, std::size_t byte = 0)
{
    section[byte == 0 ? section.size() - 1 : byte] ^= 0x80;
    return section;
}

Bytes table(unsigned tableId, unsigned extension, const Header& header, unsigned mark = 0)
{
    // Stream and network of an SDT and an EIT are the same everywhere; the mark tells copies apart.
    return longSection(tableId, extension, Writer().u16(0xFFFE).u16(0x7FFF).u16(mark).u16(0).get(),
                       header);
}

Bytes sdtPart(unsigned number, unsigned last, unsigned version = 0, unsigned mark = 0)
{
    return table(0x42, 0x8001, {.version = version, .number = number, .last = last}, mark);
}

Bytes eitPart(unsigned tableId, unsigned service, unsigned number, unsigned version = 0)
{
    return table(tableId, service, {.version = version, .number = number, .last = 248});
}

/// A whole table of one section.
Bytes single(unsigned tableId, unsigned extension, unsigned mark = 0)
{
    return table(tableId, extension, {}, mark);
}

struct CaptureTables : testing::Test {
    void answers(const char* name, const std::vector<Bytes>& aired, const TableRequest& wanted,
                 const std::vector<Bytes>& seen) const
    {
        EXPECT_EQ(driver.sectionsOf(streamOf(aired), wanted), seen) << name;
    }

    LoadedDriver driver;
};

TEST_F(CaptureTables, answerWithTheInstanceThatIsAskedFor)
{
    const TableRequest sdtActual = request(kPid, 0x42);
    const Bytes next = longSection(0x42, 1, Bytes(8), {.currentNext = 0});
    const Bytes shortened = Writer().u8(0x42).u16(0xF003).bytes(Bytes(3)).get();
    const Bytes noSyntax = damaged(sdtPart(0, 0), 1);
    answers("inNumericalOrder", {sdtPart(1, 2), sdtPart(2, 2), sdtPart(0, 2)}, sdtActual,
            {sdtPart(0, 2), sdtPart(1, 2), sdtPart(2, 2)});
    answers("numbersUpToTheLastOfAByte", {sdtPart(255, 255), sdtPart(0, 255)}, sdtActual,
            {sdtPart(0, 255), sdtPart(255, 255)});
    answers("firstCompleteInstance",
            {table(0x42, 1, {.last = 1}), single(0x42, 2), single(0x42, 3)}, sdtActual,
            {single(0x42, 2)});
    answers("firstCompleteVersion", {sdtPart(0, 1, 31), sdtPart(0, 0, 1), sdtPart(1, 1, 31)},
            sdtActual, {sdtPart(0, 0, 1)});
    answers("versionOfWhichMostCame", {sdtPart(0, 3, 1), sdtPart(1, 3, 2), sdtPart(0, 3, 2)},
            sdtActual, {sdtPart(0, 3, 2), sdtPart(1, 3, 2)});
    answers("firstCopy", {sdtPart(0, 1, 0, 1), sdtPart(0, 1, 0, 2)}, sdtActual,
            {sdtPart(0, 1, 0, 1)});
    answers("nothingThatIsToCome", {next}, sdtActual, {});
    answers("currentBehindNext", {next, single(0x42, 1)}, sdtActual, {single(0x42, 1)});
    answers("damagedOnly", {damaged(sdtPart(0, 0)), damaged(sdtPart(0, 0))}, sdtActual,
            {damaged(sdtPart(0, 0))});
    answers("intactBehindDamaged", {damaged(sdtPart(0, 1)), sdtPart(1, 1), sdtPart(0, 1)},
            sdtActual, {sdtPart(0, 1), sdtPart(1, 1)});
    answers("damagedWhereNothingIntactCame", {sdtPart(0, 1), damaged(sdtPart(1, 1))}, sdtActual,
            {sdtPart(0, 1), damaged(sdtPart(1, 1))});
    answers("damagedVersionNumber", {damaged(sdtPart(0, 0), 5), sdtPart(0, 0)}, sdtActual,
            {sdtPart(0, 0)});
    answers("noSyntaxIndicator", {noSyntax, sdtPart(0, 0)}, sdtActual, {sdtPart(0, 0)});
    answers("numberAboveTheLast", {sdtPart(9, 0), sdtPart(0, 0)}, sdtActual,
            {sdtPart(0, 0), sdtPart(9, 0)});
    answers("tooShortForAHeader", {shortened, sdtPart(0, 0)}, sdtActual, {sdtPart(0, 0)});
    answers("otherTable", {single(0x46, 1)}, sdtActual, {});
    answers("otherPid", {single(0x42, 1)}, request(kPid + 1, 0x42), {});
    answers("pidThatCannotBe", {single(0x42, 1)}, request(kPid + 0x2000, 0x42), {});
    answers("extension", {single(2, 0x0101), single(2, 0x8001)}, requestOf(kPid, 2, 0x8001),
            {single(2, 0x8001)});
    answers("shortSections", {tdt(0xC0FF, 112233), tdt(0xC0FF, 112234)}, request(kPid, 0x70),
            {tdt(0xC0FF, 112233)});
    answers("TdtOfAnotherSize", {shortSection(0x70, Bytes(4)), tdt(0xC0FF, 112233)},
            request(kPid, 0x70), {tdt(0xC0FF, 112233)});
    answers("TotWithAWrongCrc", {damaged(tot(0xC0FF, 112233, {})), tot(0xC0FF, 112234, {})},
            request(kPid, 0x73), {tot(0xC0FF, 112234, {})});
    answers("TotWithAWrongCrcOnly", {damaged(tot(0xC0FF, 112233, {}))}, request(kPid, 0x73),
            {damaged(tot(0xC0FF, 112233, {}))});
    answers("RstOfAnotherSize", {shortSection(0x71, Bytes(10)), rst({{1, 2, 3, 4, 5}})},
            request(kPid, 0x71), {rst({{1, 2, 3, 4, 5}})});
}

TEST_F(CaptureTables, answerWithEveryInstance)
{
    const std::vector<Bytes> schedule{eitPart(0x50, 1, 0), eitPart(0x5F, 1, 0),
                                      eitPart(0x50, 1, 248), eitPart(0x50, 0xFFFF, 8)};
    std::vector<Bytes> events = schedule;
    for (const unsigned other : {0x4EU, 0x4FU, 0x60U, 0x6FU})
        events.push_back(eitPart(other, 1, 0));
    answers("otherNetworks", {single(0x41, 1), single(0x40, 1), single(0x41, 0xFFFF)},
            request(kPid, 0x41, CollectionMode::OtherNetworks),
            {single(0x41, 1), single(0x41, 0xFFFF)});
    answers("streamsOfOneIdInTwoNetworks",
            {sdt(0x46, 1, 0x0001, {}), sdt(0x46, 1, 0x8001, {}), sdt(0x46, 1, 0x0001, {})},
            request(kPid, 0x46, CollectionMode::OtherStreams),
            {sdt(0x46, 1, 0x0001, {}), sdt(0x46, 1, 0x8001, {})});
    answers("eachInstanceInItsVersion",
            {table(0x46, 1, {.version = 1}), table(0x46, 1, {.version = 2}),
             table(0x46, 2, {.version = 9})},
            request(kPid, 0x46, CollectionMode::OtherStreams),
            {table(0x46, 1, {.version = 1}), table(0x46, 2, {.version = 9})});
    answers("presentFollowing", events, request(kPid, 0x4E, CollectionMode::AllEvents),
            {eitPart(0x4E, 1, 0)});
    answers("scheduleActual", events, request(kPid, 0x50, CollectionMode::AllEvents),
            {eitPart(0x50, 1, 0), eitPart(0x50, 1, 248), eitPart(0x5F, 1, 0),
             eitPart(0x50, 0xFFFF, 8)});
    answers("scheduleOther", events, request(kPid, 0x60, CollectionMode::AllEvents),
            {eitPart(0x60, 1, 0), eitPart(0x6F, 1, 0)});
    answers("eventsOfOneServiceInTwoStreams",
            {eit(0x4E, 1, 1, 1, {}), eit(0x4E, 1, 2, 1, {}), eit(0x4E, 1, 1, 2, {})},
            request(kPid, 0x4E, CollectionMode::AllEvents),
            {eit(0x4E, 1, 1, 1, {}), eit(0x4E, 1, 2, 1, {}), eit(0x4E, 1, 1, 2, {})});
}

TEST_F(CaptureTables, ofABatchAreAnsweredInTheOrderOfTheRequests)
{
    driver.use({driver.file("a.ts", streamOf({single(0x42, 1), single(2, 7), single(2, 8)}))});
    const std::vector<std::vector<Bytes>> expected{
        {single(2, 8)}, {}, {single(0x42, 1)}, {single(2, 7)}, {single(2, 7)}};
    EXPECT_EQ(driver.read({requestOf(kPid, 2, 8), requestOf(kPid, 2, 9), request(kPid, 0x42),
                           requestOf(kPid, 2, 7), request(kPid, 2)}),
              expected);
}

TEST_F(CaptureTables, ofAStreamThatMakesThemUpWithoutEndAreNotAllKept)
{
    const TemporaryFolder folder;
    std::vector<Bytes> sections;
    for (unsigned i = 0; i < 1000; ++i)
        sections.push_back(single(0x46, i));
    const Bytes stream = streamOf(sections);
    writeFile(folder / "a.ts", {reinterpret_cast<const char*>(stream.data()), stream.size()});
    const std::vector wanted{request(kPid, 0x46, CollectionMode::OtherStreams)};

    const auto all = tessaview::readSections(folder / "a.ts", wanted);
    EXPECT_TRUE(std::ranges::equal(all.lists[0], sections, [](const auto& a, const auto& b) {
        return std::ranges::equal(a, b);
    }));
    EXPECT_EQ(all.problem, "");

    const auto some = tessaview::readSections(folder / "a.ts", wanted, 100'000);
    EXPECT_GT(some.lists[0].size(), 100U);
    EXPECT_LT(some.lists[0].size(), 1000U);
    EXPECT_NE(some.problem, "");
}

TEST_F(CaptureTables, areReadInBlocksBetweenWhichReadingMayEnd)
{
    const TemporaryFolder folder;
    const Bytes stream = StreamBuilder().nullPackets(20'000).build();
    writeFile(folder / "a.ts", {reinterpret_cast<const char*>(stream.data()), stream.size()});
    std::vector<std::uintmax_t> positions;
    const auto observer = [&](std::uintmax_t position, std::uintmax_t total) {
        EXPECT_EQ(total, stream.size());
        positions.push_back(position);
        if (positions.size() == 3)
            throw tessaview::Interrupted();
    };
    EXPECT_THROW(tessaview::readSections(folder / "a.ts", {{request(kPid, 0x42)}},
                                         tessaview::kCollectedBytes, observer),
                 tessaview::Interrupted);
    ASSERT_EQ(positions.size(), 3U);
    EXPECT_EQ(positions[0], 0U);
    EXPECT_GT(positions[1], 0U);
    EXPECT_GT(positions[2], positions[1]);
    EXPECT_LT(positions[2], stream.size());
}

} // namespace
