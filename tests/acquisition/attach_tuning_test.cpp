#include "acquisition/attach_tuning.h"

#include "tests/acquisition/recorder.h"
#include "tests/support/scripted_driver.h"
#include "tests/support/tuning_records.h"
#include "tools/multiplex/descriptors.h"
#include "tools/multiplex/sections.h"

#include <gmock/gmock.h>

namespace {

using namespace tessaview; // NOLINT(google-build-using-namespace)
using test::Bytes;
using testing::ElementsAre;
using testing::IsEmpty;

const Bytes kSatelliteEntry = test::satelliteDelivery(
    {.frequency = 1175725, .orbitalPosition = 192, .polarization = 1, .fecInner = 5});
const Bytes kOtherSatellite = test::satelliteDelivery(
    {.frequency = 1000000, .orbitalPosition = 192, .symbolRate = 220000, .fecInner = 3});
const Bytes kCable = test::cableDelivery({.frequency = 3460000});
const Bytes kTerrestrial = test::terrestrialDelivery(50000000);
constexpr const char* kNotFound = "current TS not found in NIT - using tuner parameters";

struct TuningOfStream : testing::Test {
    /// Reads the entries as the NIT of network 0x3000 and attaches the tuning of stream 0x0451.
    std::string attach(int tuner, const std::vector<test::ListedStream>& entries)
    {
        lib13818::Nit nit;
        nit.parse(test::nit(0x40, 0x3000, {}, entries));
        transponder.nitActual[0x3000][0] = std::move(nit);
        transponder.transport_stream_id = 0x0451;
        driver->tunerType = tuner;
        EXPECT_EQ(attachTuning(transponder, DriverAccess(static_cast<IDriverInfo*>(driver.get()))),
                  status::kOk);
        return transponderText(transponder);
    }

    TuningOfStream()
    {
        driver->satelliteTuning = test::satelliteRecord(1270000, 9, 220000, 1);
        driver->satellite = "T\xC3\xBCrksat";
        driver->cableTuning = test::cableRecord(7300000);
        driver->terrestrialTuning = test::terrestrialRecord(0xFFFFFFFF);
    }

    test::Recorder recorder;
    ComPtr<test::ScriptedDriver> driver = test::ScriptedDriver::make();
    Transponder transponder;
};

TEST_F(TuningOfStream, isThatOfTheNitForTheTunersKind)
{
    const std::vector<test::ListedStream> entries{
        {0x0450, 1, {kOtherSatellite}},
        {0x0451, 0xFFFF, {kCable, kSatelliteEntry, kTerrestrial, kOtherSatellite}}};
    EXPECT_EQ(attach(1, entries), "0451 - 11757V 7/8 27500");
    EXPECT_EQ(transponder.satelliteName, "");
    EXPECT_EQ(attach(2, entries), "0451 - 346000");
    EXPECT_EQ(attach(3, entries), "0451 - 500000");
    EXPECT_THAT(driver->calls, ElementsAre("GetTunerType", "GetTunerType", "GetTunerType"));
    EXPECT_THAT(recorder.printed(), IsEmpty());
}

TEST_F(TuningOfStream, isTheTunersOwnWhenTheNitHasNone)
{
    EXPECT_EQ(attach(1, {{0x0450, 1, {kSatelliteEntry}}}), "0451 - 12700U 1/2 22000");
    EXPECT_EQ(transponder.satelliteName, "T\xC3\xBCrksat");
    EXPECT_EQ(attach(2, {{0x0451, 1, {kSatelliteEntry}}}), "0451 - 730000");
    EXPECT_EQ(attach(3, {}), "0451 - 42949672");
    EXPECT_THAT(recorder.printed(), ElementsAre(kNotFound, kNotFound, kNotFound));
    EXPECT_THAT(recorder.logged(), testing::Each("<2> - " + std::string(kNotFound)));
    EXPECT_THAT(recorder.logged(), testing::SizeIs(3));
}

TEST_F(TuningOfStream, ofTwoEntriesIsThatOfTheFirst)
{
    EXPECT_EQ(attach(1, {{0x0451, 1, {}}, {0x0451, 1, {kSatelliteEntry}}}),
              "0451 - 12700U 1/2 22000");
}

TEST_F(TuningOfStream, isThatOfTheLowestNetworkAndSection)
{
    transponder.nitActual[0x2FFF][5].parse(
        test::nit(0x40, 0x2FFF, {}, {{0x0451, 1, {kOtherSatellite}}}, {.number = 5}));
    transponder.nitActual[0x2FFF][6].parse(
        test::nit(0x40, 0x2FFF, {}, {{0x0451, 1, {kSatelliteEntry}}}, {.number = 6}));
    EXPECT_EQ(attach(1, {{0x0451, 1, {kSatelliteEntry}}}), "0451 - 10000H 3/4 22000");
}

TEST_F(TuningOfStream, isUnknownForAnUnknownTunerWithoutAWord)
{
    for (const int type : {0, 4, 0xFFFF})
        EXPECT_EQ(attach(type, {{0x0451, 1, {kSatelliteEntry}}}), "0451 - Unknown");
    EXPECT_THAT(recorder.printed(), IsEmpty());
}

TEST_F(TuningOfStream, isUnknownWhenTheTunerDoesNotTell)
{
    driver->failAt("GetSatelliteTuning", status::kFail);
    driver->failAt("GetCableTuning", status::kFail);
    driver->failAt("GetTerrestrialTuning", status::kFail);
    for (const int type : {1, 2, 3})
        EXPECT_EQ(attach(type, {}), "0451 - Unknown");
    driver->missing = {ISetTuner::kId};
    for (const int type : {1, 2, 3})
        EXPECT_EQ(attach(type, {}), "0451 - Unknown");
}

} // namespace
