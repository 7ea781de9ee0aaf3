#include "acquisition/scanner.h"

#include "tests/acquisition/recorder.h"
#include "tests/acquisition/scripted_driver.h"
#include "tests/acquisition/scripted_satellites.h"
#include "tests/acquisition/task_memory_watch.h"
#include "tests/multiplex/descriptors.h"
#include "tests/multiplex/sections.h"
#include "tests/support/tuning_records.h"

#include <array>
#include <functional>
#include <gmock/gmock.h>
#include <string>

namespace {

using namespace tessaview; // NOLINT(google-build-using-namespace)
using test::Air;
using test::Bytes;
using test::Lines;
using test::ListedStream;
using test::ScriptedDriver;
using test::ScriptedSatellites;
using testing::ElementsAre;

constexpr unsigned kNetwork = 0x0001;

ListedStream listed(unsigned stream, std::uint64_t frequency)
{
    return {.stream = stream,
            .network = kNetwork,
            .descriptors = {test::satelliteDelivery(
                {.frequency = frequency, .orbitalPosition = 192, .polarization = 1})}};
}

/// The NIT of network 3001: streams 0001 and 0002, stream 0003 of cable alone, nothing.
std::vector<Bytes> networkSections()
{
    const ListedStream cable{.stream = 3,
                             .network = kNetwork,
                             .descriptors = {test::cableDelivery({.frequency = 3460000})}};
    const std::vector<std::vector<ListedStream>> sections{
        {listed(1, 1110000), listed(2, 1120099)}, {cable}, {}};
    std::vector<Bytes> out;
    for (unsigned i = 0; i < sections.size(); ++i)
        out.push_back(test::nit(0x40, 0x3001, {}, sections[i], {.number = i, .last = 2}));
    return out;
}

Air streamAir(unsigned stream, std::vector<Bytes> nit = networkSections())
{
    return {{{0x0000, 0x00}, {test::pat(stream, {})}},
            {{0x0010, 0x40}, std::move(nit)},
            {{0x0011, 0x42}, {test::sdt(0x42, stream, kNetwork, {})}}};
}

Bytes damaged(Bytes section)
{
    section.back() ^= 1;
    return section;
}

class ProgressRecorder : public ScanProgress {
public:
    void reached(ScanLevel level, std::size_t number, std::size_t total) override
    {
        constexpr std::array<const char*, kScanLevelCount> names{"satellite", "entry", "section",
                                                                 "stream"};
        lines.push_back(names[static_cast<std::size_t>(level)] + std::string(" ") +
                        scanProgressText(number, total));
    }
    void askForSatellite() override { lines.emplace_back("which satellite?"); }

    Lines lines;
};

struct Scanning : testing::Test {
    Scanning() { setUpAir(); }

    void setUpAir() const
    {
        driver->satellite = "Quay";
        driver->satelliteTuning = test::satelliteRecord(1099900, 0, 220000, 4);
        driver->air = streamAir(1);
        driver->streams = {{1110000, streamAir(1)},
                           {1120099, streamAir(2)},
                           {1218700, streamAir(1)},
                           {1099900, {}}};
    }

    ScanSummary scan(ScanMode mode, std::optional<std::string> satellite = "Harbour")
    {
        ScanContext context{.driver = static_cast<IDriverInfo*>(driver.get()),
                            .satellites = satellites.get(),
                            .model = &model,
                            .selection = TableSelection::fixed(0),
                            .satellite = std::move(satellite),
                            .owner = &model};
        Scanner scanner(context, progress, cancelled);
        return scanner.run(mode);
    }

    /// What the tuner was set to: "Harbour 1110000 V".
    Lines tuned() const
    {
        Lines lines;
        for (const test::TuningCall& call : driver->tunings) {
            EXPECT_EQ(call.owner, &model);
            if (const auto* s = std::get_if<SatelliteTuning>(&call.record))
                lines.push_back(call.satellite + " " + std::to_string(s->frequency));
            else if (const auto* c = std::get_if<CableTuning>(&call.record))
                lines.push_back("cable " + std::to_string(c->frequency));
            else if (const auto* t = std::get_if<TerrestrialTuning>(&call.record))
                lines.push_back("terrestrial " + std::to_string(t->centre_frequency));
        }
        return lines;
    }

    std::vector<unsigned> storedStreams() const
    {
        std::vector<unsigned> streams;
        for (const auto& [id, network] : model)
            for (const auto& [stream, transponder] : network.transponders)
                streams.push_back(stream);
        return streams;
    }

    void TearDown() override
    {
        EXPECT_EQ(test::liveTaskBlocks(), blocksBefore) << "something was not released";
        EXPECT_EQ(test::wrongReleases(), 0);
        driver->AddRef();
        EXPECT_EQ(driver->Release(), 1) << "the driver is still held";
        satellites->AddRef();
        EXPECT_EQ(satellites->Release(), 1) << "the list is still held";
    }

    std::size_t blocksBefore = test::liveTaskBlocks();
    std::atomic<bool> cancelled = false;
    NetworkMap model;
    ProgressRecorder progress;
    test::Recorder recorder;
    ComPtr<ScriptedDriver> driver = ScriptedDriver::make();
    ComPtr<ScriptedSatellites> satellites = ScriptedSatellites::make(
        {{.name = "Astra", .transponders = {{.frequency = 1218700}}},
         {.name = "Quay", .transponders = {{.frequency = 900}, {.frequency = 800}}},
         {.name = "Not this one", .isSelected = false}});
};

Lines operator+(Lines lines, const Lines& more)
{
    lines.insert(lines.end(), more.begin(), more.end());
    return lines;
}

const Lines kReading{"Reading current NIT"};
const Lines kReadNit{"Reading current NIT", "Read 3 NIT sections"};
const Lines kStream{"Got SI tables", "Got 1 PAT sections", "Got 3 NIT sections",
                    "Got 1 SDT sections"};
const Lines kNotInNit{"current TS not found in NIT - using tuner parameters"};

/// The lines of a network scan that meets no trouble.
Lines networkLines()
{
    return kReadNit + Lines{"2 entries in NIT section", "Setting tuner: 11100"} + kStream +
           Lines{"Setting tuner: 11200"} + kStream +
           Lines{"1 entries in NIT section", "0 entries in NIT section"};
}

Lines networkLog()
{
    return {"<4> - Reading current NIT", "<4> - Read 3 NIT sections", "<4> - scan network",
            "<4> - restoring tuner",     "<4> - scanned network",     "<1> - exit"};
}

const Lines kCableOnly{
    "Transport streams: 2 stored, 0 already there, 1 not stored",
    "  Harbour  0001  0003    the NIT has no parameters of this kind of tuner for it"};

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

struct Case {
    const char* name;
    ScanMode mode;
    std::function<void(Scanning&)> script;
    Lines printed;
    Lines logged = {};
    Lines tuned = {};
    Lines progress = {};
    std::optional<std::string> satellite = "Harbour";
};

struct ScanWithTrouble : Scanning, testing::WithParamInterface<Case> {};

TEST_P(ScanWithTrouble, saysAndDoesWhatItShould)
{
    GetParam().script(*this);
    scan(GetParam().mode, GetParam().satellite);
    EXPECT_EQ(recorder.printed(), GetParam().printed);
    EXPECT_EQ(recorder.logged(), GetParam().logged);
    EXPECT_EQ(tuned(), GetParam().tuned);
    EXPECT_EQ(progress.lines, GetParam().progress);
}

std::function<void(Scanning&)> failing(const char* operation, int time = 0)
{
    return [=](Scanning& s) { s.driver->failAt(operation, status::kFail, time); };
}

std::function<void(Scanning&)> listFailing(const char* operation)
{
    return [=](Scanning& s) { s.satellites->failing.insert(operation); };
}

std::function<void(Scanning&)> cancelDuring(const char* operation, int time)
{
    return [=](Scanning& s) {
        s.driver->duringCall = [&s, operation, time](std::string_view called, int before) {
            if (called == operation && before == time)
                s.cancelled = true;
        };
    };
}

const Lines kNitLog{"<4> - Reading current NIT"};
const Lines kNitFailed = kReading + Lines{"Failed to read current NIT"};
const Lines kNitFailedLog = kNitLog + Lines{"<1> - Failed to read current NIT", "<1> - exit"};
const Lines kNothing{"Transport streams: 0 stored, 0 already there, 1 not stored"};
const Lines kNoNit = kNothing + Lines{"  Harbour  -     -       "
                                      "the stream carries no NIT of the actual network"};
const Lines kNitSteps{"section 1 of 3", "stream 1 of 2", "stream 2 of 2",
                      "section 2 of 3", "stream 1 of 1", "section 3 of 3"};
const Lines kCancelledLog{"<4> - Reading current NIT", "<4> - Read 3 NIT sections",
                          "<4> - scan network", "<4> - scanned network", "<1> - exit"};
const Lines kScanAll{"Scanning all satellites"};
const Lines kScannedAll{"Scanned all satellites"};
const Lines kQuayEntries{"entry 1 of 2", "entry 2 of 2"};

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

const std::vector<Case> kNitCases{
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
                      "  Harbour  0001  0003               "
                      "the NIT has no parameters of this kind of tuner for it"},
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

INSTANTIATE_TEST_SUITE_P(OfTheNetwork, ScanWithTrouble, testing::ValuesIn(kNitCases),
                         [](const auto& each) { return each.param.name; });

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

const std::vector<Case> kSatelliteCases{
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

INSTANTIATE_TEST_SUITE_P(OfASatellite, ScanWithTrouble, testing::ValuesIn(kSatelliteCases),
                         [](const auto& each) { return each.param.name; });

const Lines kAstraLog = Lines{"<4> - Scanning all satellites"} + networkLog();
const std::function<void(Scanning&)> kQuayNotTuned = [](Scanning& s) {
    s.driver->failAt("SetSatelliteTuning", status::kFail, 4);
    s.driver->failAt("SetSatelliteTuning", status::kFail, 5);
};
const Lines kQuayMissing{"  Quay   -     -     8 MHz H  the tuner could not be set to it",
                         "  Quay   -     -     9 MHz H  the tuner could not be set to it"};

const std::vector<Case> kAllCases{
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

INSTANTIATE_TEST_SUITE_P(OfAllSatellites, ScanWithTrouble, testing::ValuesIn(kAllCases),
                         [](const auto& each) { return each.param.name; });

TEST_F(Scanning, saysWhatItScans)
{
    scan(ScanMode::CurrentTransponder);
    EXPECT_EQ(recorder.printed(), Lines{"Scanning current transponder"} + kStream);
    EXPECT_THAT(storedStreams(), ElementsAre(1));
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
    EXPECT_EQ(scan(ScanMode::SingleSatellite, "Astra").lines(), kAstraSummary);
    EXPECT_EQ(scan(ScanMode::SingleSatellite, "Astra").lines().front(),
              "Transport streams: 0 stored, 2 already there, 1 not stored");
}

} // namespace
