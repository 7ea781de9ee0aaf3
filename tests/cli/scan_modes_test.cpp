#include "tests/cli/program.h"
#include "tools/multiplex/air.h"
#include "tools/multiplex/sections.h"
#include "tools/multiplex/stream_builder.h"

#include <gmock/gmock.h>

#include <gtest/gtest.h>

// Scans of the test air from the command line: the real program, driver and satellite list.

namespace {

using namespace test;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

const char* const kHarbourMissing =
    "  Harbour 19E  0001  0405  10807 MHz H  the tuner could not be set to it\n"
    "  Harbour 19E  0001  0409  10885 MHz H  the tuner could not be set to it\n"
    "  Harbour 19E  0001  040D  10963 MHz H  the stream carries no SDT\n"
    "  Harbour 19E  0001  0410  11021 MHz V  the stream carries no SDT that can be decoded\n";

struct ShellScan : testing::Test {
    void writeSky(const std::vector<AirSatellite>& sky) const
    {
        writeAir(sky, air);
        const std::filesystem::path data = tool.folder() / "data" / "Tessaview 3";
        std::filesystem::create_directories(data);
        std::filesystem::copy_file(air / "satlist.xml", data / "satlist.xml");
    }

    Outcome run(std::vector<std::string> arguments) const
    {
        arguments.push_back(air.string());
        return tool.run(arguments);
    }

    /// The transport streams of a printed tree, which stand on its third level.
    static std::size_t streamsIn(const std::string& tree)
    {
        std::size_t count = 0;
        std::istringstream lines(tree);
        for (std::string line; std::getline(lines, line);)
            count += line.starts_with("    ") && !line.starts_with("     ") ? 1 : 0;
        return count;
    }

    ShellTool tool;
    std::filesystem::path air = tool.folder() / "air";
};

TEST_F(ShellScan, readsTheNetworkAroundTheCurrentStream)
{
    writeSky(testAir());
    const Outcome scan = run({"--mode", "nit"});
    EXPECT_EQ(scan.status, 0);
    EXPECT_EQ(streamsIn(scan.out), 16);
    EXPECT_THAT(scan.err, StartsWith("Reading current NIT\nRead 3 NIT sections\n"
                                     "NIT section 1 of 3\n10 entries in NIT section\n"
                                     "transport stream 1 of 10\nSetting tuner: 10729\n"
                                     "Got SI tables\n"));
    EXPECT_THAT(scan.err, EndsWith(std::string("0 entries in NIT section\nTransport streams: 16 "
                                               "stored, 0 already there, 4 not stored\n") +
                                   kHarbourMissing));
}

TEST_F(ShellScan, readsOneSatelliteThoughOthersUseItsFrequencies)
{
    writeSky(testAir());
    const Outcome scan = run({"--mode", "satellite", "--satellite", "Meadow 13E", "--quiet"});
    EXPECT_EQ(scan.status, 0);
    EXPECT_EQ(streamsIn(scan.out), 12);
    EXPECT_THAT(scan.out, HasSubstr("\n    2004 - 10787V 3/4 27500\n"));
    EXPECT_EQ(scan.err,
              "Transport streams: 12 stored, 0 already there, 2 not stored\n"
              "  Meadow 13E  013F  2008               "
              "the NIT has no parameters of this kind of tuner for it\n"
              "  Meadow 13E  013F  200E  10982 MHz V  the tuner could not be set to it\n");
}

TEST_F(ShellScan, readsEverySelectedSatellite)
{
    writeSky(testAir());
    const Outcome scan = run({"--mode", "all"});
    EXPECT_EQ(scan.status, 0);
    EXPECT_EQ(streamsIn(scan.out), 38);
    EXPECT_THAT(scan.out, HasSubstr("\n    0501 - 10729L 3/4 27500\n"));
    EXPECT_THAT(scan.err, HasSubstr("satellite 3 of 3\nScanning Quay 5W\nNIT entry 1 of 2\n"));
    EXPECT_THAT(scan.err, HasSubstr("Scanned all satellites\nTransport streams: 38 stored, 0 "
                                    "already there, 8 not stored\n"));
    EXPECT_THAT(scan.err, HasSubstr(kHarbourMissing));
}

TEST_F(ShellScan, needsNoSatelliteForACableNetwork)
{
    writeAir({}, air);
    std::vector<ListedStream> streams;
    for (unsigned i = 1; i <= 3; ++i)
        streams.push_back({.stream = i,
                           .network = 1,
                           .descriptors = {cableDelivery({.frequency = 3460000 + i * 80000})}});
    for (unsigned i = 1; i <= 2; ++i) {
        const Bytes stream = StreamBuilder()
                                 .put(0x00, pat(i, {}))
                                 .put(0x10, nit(0x40, 1, {}, streams))
                                 .put(0x11, sdt(0x42, i, 1, {}))
                                 .build();
        tool.file("air/" + std::to_string(i) + ".ts", stream);
    }
    const Outcome scan = run({"--mode", "nit", "--quiet"});
    EXPECT_EQ(scan.status, 0);
    EXPECT_EQ(streamsIn(scan.out), 2);
    EXPECT_EQ(scan.err, "Transport streams: 2 stored, 0 already there, 1 not stored\n"
                        "    0001  0003  370.000 MHz  the tuner could not be set to it\n");
}

TEST_F(ShellScan, endsWithWhatWasReadWhenInterrupted)
{
    std::vector<AirSatellite> sky = testAir();
    for (int i = 0; i < 400; ++i) // far more than there is time for
        sky[2].transponders.push_back(sky[2].transponders.back());
    writeSky(sky);
    const Outcome scan = tool.runInterrupted(
        "NIT entry 4 of", {"--mode", "satellite", "--satellite", "Quay 5W", air.string()});
    EXPECT_EQ(scan.status, 0);
    EXPECT_EQ(streamsIn(scan.out), 10);
    EXPECT_THAT(scan.err, Not(HasSubstr("NIT entry 402 of 402")));
    EXPECT_THAT(scan.err,
                EndsWith("tessaview3-scan: cancelled; what was read until then is shown\n"));
}

TEST_F(ShellScan, refusesWhatItCannotScan)
{
    writeSky(testAir());
    const std::string list = "; the satellite list has:\n"
                             "tessaview3-scan:   Harbour 19E\n"
                             "tessaview3-scan:   Meadow 13E\n"
                             "tessaview3-scan:   Quay 5W\n";
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases{
        {{"--mode", "satellite"},
         "tessaview3-scan: You must select a satellite to scan: name it with --satellite" + list},
        {{"--mode", "satellite", "--satellite", "Meadow"},
         "tessaview3-scan: no satellite is called 'Meadow'" + list},
        {{"--mode", "nit", "--satellite", "Meadow"},
         "tessaview3-scan: no satellite is called 'Meadow'" + list},
        {{"--mode", "all", "--satellite", "Meadow 13E"},
         "tessaview3-scan: --satellite goes with --mode nit, --mode satellite and --tune\n"},
    };
    for (const auto& [arguments, complaint] : cases) {
        const Outcome scan = run(arguments);
        EXPECT_EQ(scan.status, 2);
        EXPECT_EQ(scan.err, complaint);
        EXPECT_THAT(scan.out, IsEmpty());
    }
}

TEST_F(ShellScan, saysWhyNothingWasStored)
{
    std::vector<AirSatellite> sky = testAir();
    for (AirStream& stream : sky[2].streams)
        stream.fault = AirFault::NoSdt;
    writeSky(sky);
    const Outcome scan = run({"--mode", "satellite", "--satellite", "Quay 5W", "--quiet"});
    EXPECT_EQ(scan.status, 1);
    EXPECT_THAT(
        scan.err,
        EndsWith(
            "tessaview3-scan: nothing was stored; --incomplete "
            "shows what there is\ntessaview3-scan: the driver says: capture 050A.ts 10904 MHz R "
            "27500 kS/s locked\n"));
}

} // namespace
