#include "tests/acquisition/scanning.h"

#include <gmock/gmock.h>

namespace test {

namespace {

struct SatelliteScan : Scanning, testing::WithParamInterface<ScanCase> {};

TEST_P(SatelliteScan, saysAndDoesWhatItShould)
{
    GetParam().script(*this);
    scan(GetParam().mode, GetParam().satellite);
    EXPECT_EQ(recorder.printed(), GetParam().printed);
    EXPECT_EQ(recorder.logged(), GetParam().logged);
    EXPECT_EQ(tuned(), GetParam().tuned);
    EXPECT_EQ(progress.lines, GetParam().progress);
}

/// The lines of a satellite whose one transponder leads to a network that is read.
Lines behindOneTransponder(const Lines& stored)
{
    return kReadNit + Lines{"2 entries in NIT section", "Setting tuner: 11100"} + kStream +
           Lines{"Setting tuner: 11200"} + kStream +
           Lines{"1 entries in NIT section", "0 entries in NIT section"} + stored;
}

const Lines kAstraTuned{"Astra 1218700", "Astra 1110000", "Astra 1120099", "Astra 1218700"};
const Lines kAstraSummary{
    "Transport streams: 2 stored, 0 already there, 1 not stored",
    "  Astra  0001  0003    the NIT has no parameters of this kind of tuner for it"};

const std::vector<ScanCase> kSatelliteCases{
    {.name = "noSatelliteChosen",
     .mode = ScanMode::SingleSatellite,
     .script = [](Scanning&) {},
     .printed = {},
     .progress = {"which satellite?"},
     .satellite = std::nullopt},
    {.name = "unknownSatellite",
     .mode = ScanMode::SingleSatellite,
     .script = [](Scanning&) {},
     .printed =
         kNothing +
         Lines{"  Harbour  -     -       the satellite list does not tell its transponders"}},
    {.name = "satelliteThatIsNotGiven",
     .mode = ScanMode::SingleSatellite,
     .script = [](Scanning& s) { s.satellites->mute = {"GetSatellite"}; },
     .printed = kNothing +
                Lines{"  Astra  -     -       the satellite list does not tell its transponders"},
     .satellite = "Astra"},
    {.name = "oneTransponder",
     .mode = ScanMode::SingleSatellite,
     .script = [](Scanning&) {},
     .printed = Lines{"Scanning Astra"} + behindOneTransponder(kAstraSummary),
     .logged = networkLog(),
     .tuned = kAstraTuned,
     .progress = Lines{"entry 1 of 1"} + kNitSteps,
     .satellite = "Astra"},
    {.name = "transpondersNotListed",
     .mode = ScanMode::SingleSatellite,
     .script = listFailing("EnumTransponders"),
     .printed = Lines{"Scanning Astra"} + kNothing +
                Lines{"  Astra  -     -       the satellite list does not tell its transponders"},
     .satellite = "Astra"},
    {.name = "transpondersNotCounted",
     .mode = ScanMode::SingleSatellite,
     .script = listFailing("GetTransponderCount"),
     .printed = Lines{"Scanning Astra"} + kNothing +
                Lines{"  Astra  -     -       the satellite list does not tell its transponders"},
     .satellite = "Astra"},
    {.name = "transpondersThatCannotBeTuned",
     .mode = ScanMode::SingleSatellite,
     .script =
         [](Scanning& s) {
             failing("SetSatelliteTuning", 0)(s);
             failing("SetSatelliteTuning", 1)(s);
         },
     .printed = {"Scanning Quay", "Transport streams: 0 stored, 0 already there, 2 not stored",
                 "  Quay  -     -     8 MHz H  the tuner could not be set to it",
                 "  Quay  -     -     9 MHz H  the tuner could not be set to it"},
     .tuned = {"Quay 900", "Quay 800"},
     .progress = kQuayEntries,
     .satellite = "Quay"},
    {.name = "transponderThatTellsNothing",
     .mode = ScanMode::SingleSatellite,
     .script = listFailing("get_SymbolRate"),
     .printed = Lines{"Scanning Astra"} + kNothing +
                Lines{"  Astra  -     -       the satellite list does not tell its transponders"},
     .progress = {"entry 1 of 1"},
     .satellite = "Astra"},
};

INSTANTIATE_TEST_SUITE_P(OfASatellite, SatelliteScan, testing::ValuesIn(kSatelliteCases),
                         [](const auto& each) { return each.param.name; });

const Lines kAstraLog = Lines{"<4> - Scanning all satellites"} + networkLog();
const std::function<void(Scanning&)> kQuayNotTuned = [](Scanning& s) {
    s.driver->failAt("SetSatelliteTuning", status::kFail, 4);
    s.driver->failAt("SetSatelliteTuning", status::kFail, 5);
};
const Lines kQuayMissing{"  Quay   -     -     8 MHz H  the tuner could not be set to it",
                         "  Quay   -     -     9 MHz H  the tuner could not be set to it"};

const std::vector<ScanCase> kAllCases{
    {.name = "allOfThem",
     .mode = ScanMode::AllSatellites,
     .script = kQuayNotTuned,
     .printed = kScanAll + Lines{"Scanning Astra"} + networkLines() + Lines{"Scanning Quay"} +
                kScannedAll +
                Lines{"Transport streams: 2 stored, 0 already there, 3 not stored",
                      "  Astra  0001  0003           "
                      "the NIT has no parameters of this kind of tuner for it"} +
                kQuayMissing,
     .logged = kAstraLog + Lines{"<4> - Scanned all satellites"},
     .tuned = kAstraTuned + Lines{"Quay 900", "Quay 800"},
     .progress = Lines{"satellite 1 of 3", "entry 1 of 1"} + kNitSteps + Lines{"satellite 2 of 3"} +
                 kQuayEntries,
     .satellite = std::nullopt},
    {.name = "noneSelected",
     .mode = ScanMode::AllSatellites,
     .script = [](Scanning& s) { s.satellites->list.clear(); },
     .printed = kScanAll + kScannedAll,
     .logged = {"<4> - Scanning all satellites", "<4> - Scanned all satellites"}},
    {.name = "satellitesNotListed",
     .mode = ScanMode::AllSatellites,
     .script = listFailing("EnumSatellites"),
     .printed = kScanAll,
     .logged = {"<4> - Scanning all satellites"}},
    {.name = "noList",
     .mode = ScanMode::AllSatellites,
     .script = [](Scanning& s) { s.satellites->mute = {"EnumSatellites"}; },
     .printed = kScanAll,
     .logged = {"<4> - Scanning all satellites"}},
    {.name = "satellitesNotCounted",
     .mode = ScanMode::AllSatellites,
     .script = listFailing("GetSatelliteCount"),
     .printed = kScanAll,
     .logged = {"<4> - Scanning all satellites"}},
    {.name = "aSatelliteWithoutTransponders",
     .mode = ScanMode::AllSatellites,
     .script = listFailing("EnumTransponders"),
     .printed = kScanAll + Lines{"Scanning Astra", "Scanning Quay"} + kScannedAll +
                Lines{"Transport streams: 0 stored, 0 already there, 2 not stored",
                      "  Astra  -     -       the satellite list does not tell its transponders",
                      "  Quay   -     -       the satellite list does not tell its transponders"},
     .logged = {"<4> - Scanning all satellites", "<4> - Scanned all satellites"},
     .progress = {"satellite 1 of 3", "satellite 2 of 3"}},
    {.name = "transpondersNotCounted",
     .mode = ScanMode::AllSatellites,
     .script = listFailing("GetTransponderCount"),
     .printed = kScanAll + Lines{"Scanning Astra"} + kNothing +
                Lines{"  Astra  -     -       the satellite list does not tell its transponders"},
     .logged = {"<4> - Scanning all satellites"},
     .progress = {"satellite 1 of 3"}},
    {.name = "cancelled",
     .mode = ScanMode::AllSatellites,
     .script = cancelDuring("ReadTables", 1),
     .printed = kScanAll + Lines{"Scanning Astra"} + kReadNit +
                Lines{"2 entries in NIT section", "Setting tuner: 11100"},
     .logged = Lines{"<4> - Scanning all satellites"} + kCancelledLog,
     .tuned = {"Astra 1218700", "Astra 1110000"},
     .progress = {"satellite 1 of 3", "entry 1 of 1", "section 1 of 3", "stream 1 of 2"}},
};

INSTANTIATE_TEST_SUITE_P(OfAllSatellites, SatelliteScan, testing::ValuesIn(kAllCases),
                         [](const auto& each) { return each.param.name; });

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
    EXPECT_EQ(scan(ScanMode::SingleSatellite, "Astra").lines(), kAstraSummary);
    EXPECT_EQ(scan(ScanMode::SingleSatellite, "Astra").lines().front(),
              "Transport streams: 0 stored, 2 already there, 1 not stored");
}

} // namespace

} // namespace test
