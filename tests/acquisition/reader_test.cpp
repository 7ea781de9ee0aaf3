#include "acquisition/reader.h"

#include "component/task_memory.h"
#include "tests/acquisition/recorder.h"
#include "tests/acquisition/task_memory_watch.h"
#include "tests/support/bytes.h"
#include "tests/support/scripted_driver.h"
#include "tests/support/worked_cases.h"
#include "tools/multiplex/descriptors.h"
#include "tools/multiplex/sections.h"

#include <functional>
#include <future>
#include <gmock/gmock.h>
#include <thread>

namespace {

using namespace tessaview; // NOLINT(google-build-using-namespace)
using test::Bytes;
using test::ScriptedDriver;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const Bytes kSatellite = test::satelliteDelivery(
    {.frequency = 1175725, .orbitalPosition = 192, .polarization = 1, .fecInner = 5});

/// A satellite's transport stream 0451 of network 0001 with every table.
test::Air wholeAir()
{
    const test::ListedStream stream{
        .stream = 0x0451, .network = 0x0001, .descriptors = {kSatellite}};
    return {
        {{0x0000, 0x00}, {test::pat(0x0451, {{0, 0x0010}, {0xFFFE, 0x1FFE}, {2, 0x0200}})}},
        {{0x0010, 0x40}, {test::nit(0x40, 0x3001, {}, {stream})}},
        {{0x0011, 0x42}, {test::sdt(0x42, 0x0451, 0x0001, {})}},
        {{0x0001, 0x01}, {test::cat({test::conditionalAccess(0x0500, 0x0123)})}},
        {{0x0011, 0x4A}, {test::bat(0xF0F1, {}, {})}},
        {{0x0014, 0x70}, {test::tdt(0xC079, 124500)}},
        {{0x0014, 0x73}, {test::tot(0xC079, 124500, {})}},
        {{0x0013, 0x71}, {test::rst({{0x0451, 0x0001, 0x0002, 0x0003, 4}})}},
        {{0x0010, 0x41},
         {test::nit(0x41, 0x3002, {}, {}), test::nit(0x41, 0xFFFF, {}, {}, {.number = 0xFF})}},
        {{0x0011, 0x46}, {test::sdt(0x46, 0xFFFF, 0xFFFE, {}, {.number = 0xFF})}},
        {{0x0012, 0x4E}, {test::eit(0x4E, 0x0002, 0x0451, 0x0001, {})}},
        {{0x0012, 0x4F}, {test::eit(0x4F, 0xFFFC, 0xFFFD, 0xFFFE, {}, {.number = 0xFF})}},
        {{0x0012, 0x50}, {test::eit(0x50, 0x0003, 0x0451, 0x0001, {})}},
        {{0x0012, 0x60}, {test::eit(0x60, 0x0004, 0x0452, 0x0001, {})}},
        {{0x1FFE, 0x02, 0xFFFE}, {test::pmt(0xFFFE, 0x1FFE, {}), test::pmt(0xFFFE, 0x0064, {})}},
        {{0x0200, 0x02, 0x0002}, {test::pmt(0x0002, 0x0064, {})}},
    };
}

/// The same section with a bit flipped, so that its CRC_32 fails.
Bytes damaged(Bytes section)
{
    section.back() ^= 1;
    return section;
}

struct Reading : testing::Test {
    ReadOutcome read(SiTableMask tables = 0,
                     IncompleteStreams incomplete = IncompleteStreams::Refuse)
    {
        Reader reader(static_cast<IDriverInfo*>(driver.get()), cancelled,
                      TableSelection::fixed(tables), incomplete);
        return reader.ReadCurrentTransponder(model).outcome;
    }
    const Transponder* stored() const { return model.find(0x0001, 0x0451); }

    /// What was printed and logged, line by line.
    std::string transcript() const
    {
        std::string text;
        for (const std::string& line : recorder.printed())
            text += "    prints: " + line + '\n';
        for (const std::string& line : recorder.logged())
            text += "    logs:   " + line + '\n';
        return text;
    }

    Reading() { driver->air = wholeAir(); }

    void TearDown() override
    {
        model.clear(); // whose tables share the sections of the driver
        EXPECT_EQ(test::liveTaskBlocks(), blocksBefore) << "something was not released";
        EXPECT_EQ(test::wrongReleases(), 0);
        driver->AddRef();
        EXPECT_EQ(driver->Release(), 1) << "the driver is still held";
    }

    std::size_t blocksBefore = test::liveTaskBlocks();
    std::atomic<bool> cancelled = false;
    NetworkMap model;
    test::Recorder recorder;
    ComPtr<ScriptedDriver> driver = ScriptedDriver::make();
};

TEST_F(Reading, storesEveryTableWhereItBelongs)
{
    ASSERT_EQ(read(kAllTables), ReadOutcome::Stored);
    ASSERT_TRUE(stored());
    const Transponder& t = *stored();

    EXPECT_EQ(model.begin()->second.original_network_id, 0x0001);
    EXPECT_EQ(t.transport_stream_id, 0x0451);
    EXPECT_EQ(t.pat.programs.size(), 3);
    EXPECT_TRUE(t.nitActual.at(0x3001).at(0x00).parsed);
    EXPECT_TRUE(t.nitOther.at(0x3002).at(0x00).parsed && t.nitOther.at(0xFFFF).at(0xFF).parsed);
    EXPECT_TRUE(t.sdtActual.at(0x0001).at(0x0451).at(0x00).parsed);
    EXPECT_TRUE(t.sdtOther.at(0xFFFE).at(0xFFFF).at(0xFF).parsed);
    EXPECT_TRUE(t.cat.parsed && t.rst.parsed && t.tot.parsed && t.tdt.parsed);
    EXPECT_EQ(t.bat.table_id_extension, 0xF0F1);
    EXPECT_TRUE(t.eitPfActual.at(0x0001).at(0x0451).at(0x0002).at(0x00).parsed);
    EXPECT_TRUE(t.eitPfOther.at(0xFFFE).at(0xFFFD).at(0xFFFC).at(0xFF).parsed);
    EXPECT_TRUE(t.eitScheduleActual.at(0x0001).at(0x0451).at(0x0003).at(0x00).parsed);
    EXPECT_TRUE(t.eitScheduleOther.at(0x0001).at(0x0452).at(0x0004).at(0x00).parsed);
    ASSERT_THAT(t.pmts, SizeIs(2));
    EXPECT_EQ(t.pmts[0].PCR_PID, 0x1FFE) << "the first section counts";
    EXPECT_EQ(t.pmts[1].table_id_extension, 0x0002);
    EXPECT_EQ(transponderText(t), "0451 - 11757V 7/8 27500");
}

TEST_F(Reading, asksForTheProgramsInASecondBatchWhenPmtIsChosen)
{
    read(si_table::kPmt);
    EXPECT_THAT(driver->calls, ElementsAre("ReadTables", "GetTunerType", "ReadTables"));
    EXPECT_THAT(driver->waitLimits, ElementsAre(30, 30));
    EXPECT_THAT(driver->batches, ElementsAre(SizeIs(3), SizeIs(2)));
    driver->batches.clear();
    model.clear();
    EXPECT_EQ(read(kAllTables & ~si_table::kPmt), ReadOutcome::Stored);
    EXPECT_THAT(driver->batches, SizeIs(1));
    EXPECT_THAT(stored()->pmts, IsEmpty());
}

TEST_F(Reading, asksForAnEmptyBatchWhenThereIsNoProgram)
{
    driver->air[{0x0000, 0x00}] = {test::pat(0x0451, {{0, 0x0010}})};
    EXPECT_EQ(read(si_table::kPmt), ReadOutcome::Stored);
    EXPECT_THAT(driver->batches, ElementsAre(SizeIs(3), IsEmpty()));
    EXPECT_THAT(stored()->pmts, IsEmpty());
}

struct Ending {
    const char* name;
    ReadOutcome outcome;
    std::function<void(Reading&)> script;
    SiTableMask tables = si_table::kPmt;
};

std::function<void(Reading&)> answering(test::Wanted wanted, const std::vector<Bytes>& sections)
{
    return [=](Reading& reading) { reading.driver->air[wanted] = sections; };
}

std::function<void(Reading&)> failing(const char* operation, Status answer, int time = 0)
{
    return [=](Reading& reading) { reading.driver->failAt(operation, answer, time); };
}

std::function<void(Reading&)> missing(const Guid& interface)
{
    return [=](Reading& reading) { reading.driver->missing = {interface}; };
}

std::function<void(Reading&)> cancelDuring(int call)
{
    return [=](Reading& reading) {
        reading.driver->duringCall = [&reading, call](std::string_view operation, int time) {
            if (operation == "ReadTables" && time == call)
                reading.cancelled = true;
        };
    };
}

/// Of each table from the NIT to the EIT a damaged section more; CAT and TDT are damaged alone.
void damageMuch(Reading& reading)
{
    test::Air& air = reading.driver->air;
    for (auto& [wanted, sections] : air)
        if (wanted.table_id >= 0x40 && wanted.table_id < 0x70)
            sections.push_back(damaged(sections.front()));
    air[{0x0001, 0x01}] = {damaged(test::cat({}))};
    air[{0x0014, 0x70}] = {test::hex("71 70 05 C0 79 12 45 00")};
    air[{0x0012, 0x50}].push_back(test::hex("50 30 00"));
}

using enum ReadOutcome;
const std::vector<Ending> kEndings{
    {"everyTable", Stored, [](Reading&) {}, kAllTables},
    {"damagedSections", Stored, damageMuch, kAllTables},
    {"batchFails", ReadFailed, failing("ReadTables", status::kFail)},
    {"driverSaysThatSomethingIsMissing", Stored,
     [](Reading& r) { r.driver->readProblem = "the signal was lost"; }},
    {"noReaderInterface", ReadFailed, missing(ISectionReader::kId)},
    {"cancelledInFirstBatch", Cancelled, cancelDuring(0)},
    {"cancelledInFailingBatch", Cancelled,
     [](Reading& r) {
         cancelDuring(0)(r);
         failing("ReadTables", status::kFail)(r);
     }},
    {"noPat", Incomplete, answering({0x0000, 0x00}, {})},
    {"noPatDecodes", Incomplete, answering({0x0000, 0x00}, {damaged(test::pat(0x0451, {}))})},
    {"noNit", Incomplete, answering({0x0010, 0x40}, {})},
    {"noNitDecodes", Stored, answering({0x0010, 0x40}, {damaged(test::nit(0x40, 1, {}, {}))})},
    {"noSdt", Incomplete, answering({0x0011, 0x42}, {})},
    {"noSdtDecodes", Incomplete,
     answering({0x0011, 0x42}, {damaged(test::sdt(0x42, 0x0451, 1, {}))})},
    {"tunerTypeFails", TunerFailed, failing("GetTunerType", status::kNotReady)},
    {"noControlInterface", TunerFailed, missing(IDriverControl::kId)},
    {"cancelledInProgramBatch", Cancelled, cancelDuring(1)},
    {"programBatchFails", Stored, failing("ReadTables", status::kFail, 1)},
    {"onePmtMissingOneDamaged", Stored,
     [](Reading& r) {
         r.driver->air.erase({0x1FFE, 0x02, 0xFFFE});
         r.driver->air[{0x0200, 0x02, 0x0002}] = {damaged(test::pmt(2, 100, {})),
                                                  test::pmt(2, 100, {})};
     }},
};

struct OneReading : Reading {
    void TestBody() override {}
};

TEST(Readings, sayHowTheyEndAndStoreAccordingly)
{
    std::string transcripts;
    for (const Ending& each : kEndings) {
        OneReading reading;
        each.script(reading);
        EXPECT_EQ(reading.read(each.tables), each.outcome) << each.name;
        EXPECT_EQ(reading.stored() != nullptr, each.outcome == Stored) << each.name;
        transcripts += each.name + ('\n' + reading.transcript());
        reading.TearDown();
    }
    test::expectText("acquisition/readings.txt", transcripts);
}

TEST_F(Reading, leavesAStreamThatIsAlreadyThereAlone)
{
    ASSERT_EQ(read(), ReadOutcome::Stored);
    const Transponder* const first = stored();
    EXPECT_EQ(read(kAllTables), ReadOutcome::AlreadyThere);
    EXPECT_EQ(stored(), first);
    EXPECT_FALSE(first->cat.parsed);
    EXPECT_THAT(recorder.printed(), SizeIs(8)) << "without a message";
    EXPECT_THAT(driver->batches, SizeIs(2)) << "its programs are not read again";
}

TEST_F(Reading, keepsOneStreamIdentifierOfTwoNetworksApart)
{
    read();
    driver->air[{0x0011, 0x42}] = {test::sdt(0x42, 0x0451, 0xFFFE, {})};
    EXPECT_EQ(read(), ReadOutcome::Stored);
    EXPECT_EQ(model.size(), 2);
    EXPECT_TRUE(model.find(0xFFFE, 0x0451));
}

TEST_F(Reading, takesTheFirstPatThatDecodesAndTheNetworkOfTheLastSdt)
{
    driver->air[{0x0000, 0x00}] = {damaged(test::pat(0x0450, {})), test::pat(0x0451, {{1, 0x0100}}),
                                   test::pat(0x0452, {{2, 0x0200}}, {.number = 1})};
    driver->air[{0x0011, 0x42}] = {test::sdt(0x42, 0x0451, 2, {}),
                                   test::sdt(0x42, 0x0451, 1, {}, {.number = 1}),
                                   damaged(test::sdt(0x42, 0x0451, 3, {}))};
    EXPECT_EQ(read(), ReadOutcome::Stored);
    ASSERT_TRUE(stored());
    EXPECT_THAT(stored()->pat.programs, SizeIs(1));
    EXPECT_THAT(stored()->sdtActual, SizeIs(2));
}

TEST_F(Reading, countsADamagedSectionOnlyAgainstItself)
{
    damageMuch(*this);
    ASSERT_EQ(read(kAllTables), ReadOutcome::Stored);
    EXPECT_FALSE(stored()->cat.parsed || stored()->tdt.parsed);
    EXPECT_TRUE(stored()->rst.parsed && stored()->bat.parsed);
    EXPECT_THAT(stored()->eitPfOther, SizeIs(1));
}

TEST_F(Reading, replacesAnEarlierSectionOfTheSameScheduleAndNumber)
{
    driver->air[{0x0012, 0x50}] = {test::eit(0x50, 3, 0x0451, 1, {}),
                                   test::eit(0x51, 3, 0x0451, 1, {}),
                                   test::eit(0x50, 3, 0x0451, 1, {}, {.number = 1})};
    read(si_table::kEitScheduleActual);
    const EitSections& sections = stored()->eitScheduleActual.at(0x0001).at(0x0451).at(0x0003);
    EXPECT_THAT(sections, SizeIs(2));
    EXPECT_EQ(sections.at(0).table_id, 0x51);
}

TEST_F(Reading, survivesAnswersThatAreNotTrue)
{
    driver->spoil = [](std::span<SectionList> answers) {
        if (answers.size() == 2)
            return;
        TessaviewTaskMemFree(answers[3].sections[0]);
        answers[3].sections[0] = nullptr; // CAT: a section that is missing
        for (std::int32_t i = 0; i < answers[4].count; ++i)
            TessaviewTaskMemFree(answers[4].sections[i]);
        answers[4].count = -7; // BAT: an array, but a count below zero
    };
    EXPECT_EQ(read(si_table::kCat | si_table::kBat | si_table::kPmt), ReadOutcome::Stored);
    EXPECT_THAT(recorder.printed(),
                testing::IsSupersetOf(
                    {"Got 1 CAT sections", "Error parsing CAT section", "Got -7 BAT sections"}));
}

/// The flag of another thread, raised while the driver is busy.
TEST_F(Reading, endsWhenAnotherThreadCancels)
{
    for (const int batch : {0, 1}) {
        std::promise<void> inCall;
        std::promise<void> raised;
        cancelled = false;
        driver = ScriptedDriver::make();
        driver->air = wholeAir();
        driver->duringCall = [&](std::string_view operation, int time) {
            if (operation != "ReadTables" || time != batch)
                return;
            inCall.set_value();
            raised.get_future().wait();
        };
        ReadOutcome outcome{};
        std::jthread worker([&] { outcome = read(kAllTables); });
        inCall.get_future().wait();
        cancelled = true;
        raised.set_value();
        worker.join();
        EXPECT_EQ(outcome, ReadOutcome::Cancelled);
        EXPECT_TRUE(model.empty());
    }
}

TEST_F(Reading, placesIncompleteStreamsByWhatTheyCarry)
{
    const std::pair<std::uint32_t, std::uint8_t> pat{0x0000, 0x00};
    const std::pair<std::uint32_t, std::uint8_t> nit{0x0010, 0x40};
    const std::pair<std::uint32_t, std::uint8_t> sdt{0x0011, 0x42};
    const std::pair<std::uint32_t, std::uint8_t> events{0x0012, 0x4E};
    const std::pair<std::uint32_t, std::uint8_t> schedule{0x0012, 0x50};
    struct Case {
        std::vector<std::pair<std::uint32_t, std::uint8_t>> absent;
        std::uint32_t network;
        std::uint32_t stream;
        const char* lack;
    };
    const std::uint32_t none = kLastIdentifier + 1;
    for (const Case& each :
         {Case{{nit}, 0x0001, 0x0451, "no NIT"}, Case{{sdt}, 0x0001, 0x0451, "no SDT"},
          Case{{nit, sdt}, 0x0001, 0x0451, "no NIT and no SDT"},
          Case{{nit, sdt, events, schedule}, none, 0x0451, "no NIT and no SDT"},
          Case{{pat}, 0x0001, 0x0451, "no PAT"},
          Case{{pat, nit, sdt, events, schedule}, none, none, "no PAT, no NIT and no SDT"}}) {
        SCOPED_TRACE(each.lack);
        model.clear();
        driver->air = wholeAir();
        for (const auto& [pid, table_id] : each.absent)
            driver->air[{pid, table_id}] = {};
        EXPECT_EQ(read(kAllTables), ReadOutcome::Incomplete);
        EXPECT_TRUE(model.empty());
        ASSERT_EQ(read(kAllTables, IncompleteStreams::Store), ReadOutcome::Stored);
        const Transponder* const found = model.find(each.network, each.stream);
        ASSERT_TRUE(found);
        EXPECT_EQ(found->needed.lack(), each.lack);
        // A complete reading of the same stream takes its place, where its PAT tells that it is.
        driver->air = wholeAir();
        EXPECT_EQ(read(kAllTables), ReadOutcome::Stored);
        ASSERT_TRUE(stored());
        EXPECT_TRUE(stored()->needed.areThere());
        EXPECT_EQ(model.size(), each.stream == none ? 2 : 1);
    }
}

} // namespace
