#include "tests/acquisition/scanning.h"

#include <gmock/gmock.h>

namespace test {

namespace {

using testing::ElementsAre;

TEST_F(Scanning, readsEveryStreamOfTheNetworkAndRestoresTheTuner)
{
    scan(ScanMode::CurrentNit);
    EXPECT_EQ(recorder.printed(), networkLines() + kCableOnly);
    EXPECT_EQ(recorder.logged(), networkLog());
    EXPECT_THAT(progress.lines, ElementsAre("section 1 of 3", "stream 1 of 2", "stream 2 of 2",
                                            "section 2 of 3", "stream 1 of 1", "section 3 of 3"));
    EXPECT_THAT(tuned(), ElementsAre("Harbour 1110000", "Harbour 1120099", "Quay 1099900"));
    EXPECT_THAT(storedStreams(), ElementsAre(1, 2));
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

struct NetworkScan : Scanning, testing::WithParamInterface<ScanCase> {};

TEST_P(NetworkScan, saysAndDoesWhatItShould)
{
    GetParam().script(*this);
    scan(GetParam().mode, GetParam().satellite);
    EXPECT_EQ(recorder.printed(), GetParam().printed);
    EXPECT_EQ(recorder.logged(), GetParam().logged);
    EXPECT_EQ(tuned(), GetParam().tuned);
    EXPECT_EQ(progress.lines, GetParam().progress);
}

/// Three sections of a network of a cable or terrestrial tuner.
void otherTuner(Scanning& s, std::uint16_t type, const Bytes& descriptor)
{
    s.driver->tunerType = type;
    s.driver->cableTuning = test::cableRecord(1000);
    s.driver->terrestrialTuning = test::terrestrialRecord(2000);
    s.driver->air = streamAir(
        1, {test::nit(0x40, 0x3001, {},
                      {{.stream = 1, .network = kNetwork, .descriptors = {descriptor}}})});
    s.driver->streams.clear();
}

const Lines kOneEntry{"Got SI tables", "Got 1 PAT sections", "Got 1 NIT sections",
                      "Got 1 SDT sections"};
const Lines kOneStored{"Transport streams: 1 stored, 0 already there, 0 not stored"};
const Lines kOneEntryLog{"<4> - Reading current NIT", "<4> - Read 1 NIT sections",
                         "<4> - scan network",        "<4> - restoring tuner",
                         "<4> - scanned network",     "<1> - exit"};

const std::vector<ScanCase> kNitCases{
    {.name = "noSatelliteChosen",
     .mode = ScanMode::CurrentNit,
     .script = [](Scanning&) {},
     .printed = {"No satellite selected"},
     .logged = {"<2> - No satellite selected"},
     .satellite = std::nullopt},
    {.name = "nitNotRead",
     .mode = ScanMode::CurrentNit,
     .script = failing("ReadTables"),
     .printed = kNitFailed + kNoNit,
     .logged = kNitFailedLog},
    {.name = "noReaderInterface",
     .mode = ScanMode::CurrentNit,
     .script = [](Scanning& s) { s.driver->missing = {ISectionReader::kId}; },
     .printed = kNitFailed + kNoNit,
     .logged = kNitFailedLog},
    {.name = "noNitSection",
     .mode = ScanMode::CurrentNit,
     .script =
         [](Scanning& s) {
             s.driver->air.erase({0x0010, 0x40});
         },
     .printed = kNitFailed + kNoNit,
     .logged = kNitFailedLog},
    {.name = "noNitDecodes",
     .mode = ScanMode::CurrentNit,
     .script =
         [](Scanning& s) {
             s.driver->air[{0x0010, 0x40}] = {damaged(networkSections()[0])};
         },
     .printed = Lines{"Reading current NIT", "Read 1 NIT sections", "Error parsing NIT section",
                      "Failed to read NIT"} +
                kNoNit,
     .logged = {"<4> - Reading current NIT", "<4> - Read 1 NIT sections",
                "<1> - Error parsing NIT section", "<1> - Failed to read NIT"}},
    {.name = "tunerTypeFails",
     .mode = ScanMode::CurrentNit,
     .script = failing("GetTunerType"),
     .printed =
         kReadNit + kNothing +
         Lines{"  Harbour  -     -       the driver does not tell what kind of tuner it has"},
     .logged = kCancelledLog},
    {.name = "tunerOfUnknownKind",
     .mode = ScanMode::CurrentNit,
     .script = [](Scanning& s) { s.driver->tunerType = 4; },
     .printed = kReadNit + Lines{"2 entries in NIT section"} + kNothing +
                Lines{"  Harbour  -     -       the tuner is of an unknown kind"},
     .logged = kCancelledLog,
     .progress = {"section 1 of 3", "stream 1 of 2"}},
    {.name = "setFailsOnce",
     .mode = ScanMode::CurrentNit,
     .script = failing("SetSatelliteTuning"),
     .printed = kReadNit +
                Lines{"2 entries in NIT section", "Setting tuner: 11100", "Failed to set tuner",
                      "Setting tuner: 11200"} +
                kStream +
                Lines{"1 entries in NIT section", "0 entries in NIT section",
                      "Transport streams: 1 stored, 0 already there, 2 not stored",
                      "  Harbour  0001  0001  11100 MHz V  the tuner could not be set to it",
                      std::string("  Harbour  0001  0003               ") +
                          unstoredReasonText(UnstoredReason::NoParameters)},
     .logged = {"<4> - Reading current NIT", "<4> - Read 3 NIT sections", "<4> - scan network",
                "<1> - Failed to set tuner", "<4> - restoring tuner", "<4> - scanned network",
                "<1> - exit"},
     .tuned = {"Harbour 1110000", "Harbour 1120099", "Quay 1099900"},
     .progress = kNitSteps},
    {.name = "currentTuningFails",
     .mode = ScanMode::CurrentNit,
     .script = failing("GetSatelliteTuning"),
     .printed = networkLines() + kCableOnly,
     .logged = networkLog(),
     .tuned = {"Harbour 1110000", "Harbour 1120099"},
     .progress = kNitSteps},
    {.name = "currentTuningSucceedsButNotExactly",
     .mode = ScanMode::CurrentNit,
     .script = [](Scanning& s) { s.driver->failAt("GetSatelliteTuning", status::kFalse); },
     .printed = networkLines() + kCableOnly,
     .logged = networkLog(),
     .tuned = {"Harbour 1110000", "Harbour 1120099"},
     .progress = kNitSteps},
    {.name = "cable",
     .mode = ScanMode::CurrentNit,
     .script = [](Scanning& s) { otherTuner(s, 2, test::cableDelivery({.frequency = 3461239})); },
     .printed = Lines{"Reading current NIT", "Read 1 NIT sections", "1 entries in NIT section",
                      "Setting tuner: 346123"} +
                kOneEntry + kOneStored,
     .logged = kOneEntryLog,
     .tuned = {"cable 3461239", "cable 1000"},
     .progress = {"section 1 of 1", "stream 1 of 1"},
     .satellite = ""},
    {.name = "terrestrial",
     .mode = ScanMode::CurrentNit,
     .script = [](Scanning& s) { otherTuner(s, 3, test::terrestrialDelivery(47400000)); },
     .printed = Lines{"Reading current NIT", "Read 1 NIT sections", "1 entries in NIT section"} +
                kOneEntry + kOneStored,
     .logged = kOneEntryLog,
     .tuned = {"terrestrial 47400000", "terrestrial 2000"},
     .progress = {"section 1 of 1", "stream 1 of 1"},
     .satellite = ""},
    {.name = "cableSetFails",
     .mode = ScanMode::CurrentNit,
     .script =
         [](Scanning& s) {
             otherTuner(s, 2, test::cableDelivery({.frequency = 3461239}));
             failing("SetCableTuning")(s);
         },
     .printed = Lines{"Reading current NIT", "Read 1 NIT sections", "1 entries in NIT section",
                      "Setting tuner: 346123", "Failed to set tuner"} +
                kNothing + Lines{"    0001  0001  346.124 MHz  the tuner could not be set to it"},
     .logged = kOneEntryLog,
     .tuned = {"cable 3461239", "cable 1000"},
     .progress = {"section 1 of 1", "stream 1 of 1"},
     .satellite = ""},
    {.name = "cancelledWhileTheNitIsRead",
     .mode = ScanMode::CurrentNit,
     .script = cancelDuring("ReadTables", 0),
     .printed = kReading,
     .logged = kNitLog},
    {.name = "cancelledWhileTheTunerIsSet",
     .mode = ScanMode::CurrentNit,
     .script = cancelDuring("SetSatelliteTuning", 0),
     .printed = kReadNit + Lines{"2 entries in NIT section", "Setting tuner: 11100"},
     .logged = kCancelledLog,
     .tuned = {"Harbour 1110000"},
     .progress = {"section 1 of 3", "stream 1 of 2"}},
    {.name = "cancelledWhileAStreamIsRead",
     .mode = ScanMode::CurrentNit,
     .script = cancelDuring("ReadTables", 2),
     .printed = kReadNit + Lines{"2 entries in NIT section", "Setting tuner: 11100"} + kStream +
                Lines{"Setting tuner: 11200"} + kOneStored,
     .logged = kCancelledLog,
     .tuned = {"Harbour 1110000", "Harbour 1120099"},
     .progress = {"section 1 of 3", "stream 1 of 2", "stream 2 of 2"}},
};

INSTANTIATE_TEST_SUITE_P(, NetworkScan, testing::ValuesIn(kNitCases),
                         [](const auto& each) { return each.param.name; });

TEST_F(Scanning, saysWhatItScans)
{
    scan(ScanMode::CurrentTransponder);
    EXPECT_EQ(recorder.printed(), Lines{"Scanning current transponder"} + kStream);
    EXPECT_THAT(storedStreams(), ElementsAre(1));
}

} // namespace

} // namespace test
