#include "tests/acquisition/scanning.h"
#include "tests/support/worked_cases.h"

#include <gmock/gmock.h>

namespace test {

namespace {

/// A network of a cable or terrestrial tuner.
std::function<void(Scanning&)> otherTuner(std::uint16_t type, const Bytes& descriptor)
{
    return [=](Scanning& s) {
        s.driver->tunerType = type;
        s.driver->cableTuning = test::cableRecord(1000);
        s.driver->terrestrialTuning = test::terrestrialRecord(2000);
        s.driver->air = streamAir(
            1, {test::nit(0x40, 0x3001, {},
                          {{.stream = 1, .network = kNetwork, .descriptors = {descriptor}}})});
        s.driver->streams.clear();
    };
}
const auto kCable = otherTuner(2, test::cableDelivery({.frequency = 3461239}));

std::function<void(Scanning&)> nitOf(const std::vector<Bytes>& sections)
{
    return [=](Scanning& s) { s.driver->air[{0x0010, 0x40}] = sections; };
}

/// Fails from one call of an operation on, twice.
std::function<void(Scanning&)> failingTwice(const char* operation, int time)
{
    return [=](Scanning& s) {
        failing(operation, time)(s);
        failing(operation, time + 1)(s);
    };
}

std::function<void(Scanning&)> listMute(const char* operation)
{
    return [=](Scanning& s) { s.satellites->mute = {operation}; };
}

constexpr auto kTransponder = ScanMode::CurrentTransponder;
constexpr auto kNit = ScanMode::CurrentNit;
constexpr auto kOne = ScanMode::SingleSatellite;
constexpr auto kAll = ScanMode::AllSatellites;

const std::vector<ScanCase> kCases{
    {"currentTransponder", kTransponder},
    {"network", kNit},
    {"networkWithoutSatellite", kNit, [](Scanning&) {}, std::nullopt},
    {"networkNitNotRead", kNit, failing("ReadTables")},
    {"networkNoReaderInterface", kNit,
     [](Scanning& s) { s.driver->missing = {ISectionReader::kId}; }},
    {"networkNoNitSection", kNit, nitOf({})},
    {"networkNoNitDecodes", kNit, nitOf({damaged(networkSections()[0])})},
    {"networkTunerTypeFails", kNit, failing("GetTunerType")},
    {"networkTunerOfUnknownKind", kNit, [](Scanning& s) { s.driver->tunerType = 4; }},
    {"networkSetFailsOnce", kNit, failing("SetSatelliteTuning")},
    {"networkOtherStreamsThanTheNitSays", kNit,
     [](Scanning& s) {
         s.driver->streams[1110000] = streamAir(0x64);
         s.driver->streams[1120099][{0x0011, 0x42}] = {test::sdt(0x42, 2, 0x3001, {})};
     }},
    {"networkCurrentTuningFails", kNit, failing("GetSatelliteTuning")},
    {"networkCurrentTuningSucceedsButNotExactly", kNit,
     [](Scanning& s) { s.driver->failAt("GetSatelliteTuning", status::kFalse); }},
    {"networkOfCable", kNit, kCable, ""},
    {"networkOfTerrestrial", kNit, otherTuner(3, test::terrestrialDelivery(47400000)), ""},
    {"networkOfUnknownFrequency", kNit,
     [](Scanning& s) {
         otherTuner(3, test::terrestrialDelivery(0xFFFFFFFF))(s);
         failing("SetTerrestrialTuning")(s);
     },
     ""},
    {"networkOfCableSetFails", kNit,
     [](Scanning& s) {
         kCable(s);
         failing("SetCableTuning")(s);
     },
     ""},
    {"networkCancelledWhileTheNitIsRead", kNit, cancelDuring("ReadTables", 0)},
    {"networkCancelledWhileTheTunerIsSet", kNit, cancelDuring("SetSatelliteTuning", 0)},
    {"networkCancelledWhileAStreamIsRead", kNit, cancelDuring("ReadTables", 2)},

    {"satelliteNotChosen", kOne, [](Scanning&) {}, std::nullopt},
    {"satelliteUnknown", kOne},
    {"satelliteNotGiven", kOne, listMute("GetSatellite"), "Astra"},
    {"satelliteWithOneTransponder", kOne, [](Scanning&) {}, "Astra"},
    {"satelliteTranspondersNotListed", kOne, listFailing("EnumTransponders"), "Astra"},
    {"satelliteTranspondersNotCounted", kOne, listFailing("GetTransponderCount"), "Astra"},
    {"satelliteTranspondersThatCannotBeTuned", kOne, failingTwice("SetSatelliteTuning", 0), "Quay"},
    {"satelliteTransponderThatTellsNothing", kOne, listFailing("get_SymbolRate"), "Astra"},

    {"all", kAll, failingTwice("SetSatelliteTuning", 4), std::nullopt},
    {"allNoneSelected", kAll, [](Scanning& s) { s.satellites->list.clear(); }},
    {"allSatellitesNotListed", kAll, listFailing("EnumSatellites")},
    {"allWithoutList", kAll, listMute("EnumSatellites")},
    {"allSatellitesNotCounted", kAll, listFailing("GetSatelliteCount")},
    {"allWithoutTransponders", kAll, listFailing("EnumTransponders")},
    {"allTranspondersNotCounted", kAll, listFailing("GetTransponderCount")},
    {"allCancelled", kAll, cancelDuring("ReadTables", 1)},
};

struct OneScan : Scanning {
    void TestBody() override {}
};

TEST(Scans, sayAndDoWhatTheyShould)
{
    std::string transcripts;
    for (const ScanCase& each : kCases) {
        OneScan scan;
        each.script(scan);
        scan.scan(each.mode, each.satellite);
        transcripts += each.name + ('\n' + scan.transcript());
        scan.TearDown();
    }
    expectText("acquisition/scans.txt", transcripts);
}

TEST_F(Scanning, tunesWithTheWholeRecordOfTheNitAndRestoresTheTuners)
{
    scan(ScanMode::CurrentNit);
    const auto& first = std::get<SatelliteTuning>(driver->tunings.front().record);
    EXPECT_EQ(first.orbital_position, 19);
    EXPECT_EQ(first.west_east_flag, 1);
    EXPECT_EQ(first.polarization, 1);
    EXPECT_EQ(first.symbol_rate, 275000);
    EXPECT_EQ(std::get<SatelliteTuning>(driver->tunings.back().record).symbol_rate, 220000);
}

TEST_F(Scanning, asksForTheNitAloneFirst)
{
    scan(ScanMode::CurrentNit);
    const std::vector<TableRequest>& batch = driver->batches.front();
    ASSERT_EQ(batch.size(), 1);
    EXPECT_EQ(batch[0].PID, 0x0010);
    EXPECT_EQ(batch[0].table_id, 0x40);
    EXPECT_EQ(batch[0].collection_mode, 0);
    EXPECT_EQ(driver->waitLimits.front(), 30);
}

TEST_F(Scanning, neitherTunesNorReadsOnceItIsCancelled)
{
    scan(ScanMode::AllSatellites);
    const std::size_t calls = driver->calls.size();
    ASSERT_GT(calls, 20);
    for (std::size_t during = 0; during < calls; ++during) {
        model.clear();
        driver = ScriptedDriver::make();
        setUpAir();
        cancelled = false;
        driver->duringCall = [&](std::string_view, int) {
            cancelled = driver->calls.size() > during;
        };
        scan(ScanMode::AllSatellites);
        for (std::size_t later = during + 1; later < driver->calls.size(); ++later)
            EXPECT_THAT(driver->calls[later], testing::StartsWith("Get"))
                << "cancelled in " << driver->calls[during] << ", call " << during;
    }
}

TEST_F(Scanning, countsAStreamThatSeveralNitsListOnce)
{
    satellites->list[0].transponders = {{.frequency = 1218700}, {.frequency = 1120099}};
    EXPECT_EQ(
        scan(ScanMode::SingleSatellite, "Astra").lines(),
        (Lines{"Transport streams: 2 stored, 0 already there, 1 not stored",
               "  Astra  0001  0003    the NIT has no parameters of this kind of tuner for it"}));
    EXPECT_EQ(scan(ScanMode::SingleSatellite, "Astra").lines().front(),
              "Transport streams: 0 stored, 2 already there, 1 not stored");
}

} // namespace

} // namespace test
