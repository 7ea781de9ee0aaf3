#include "tests/cli/program.h"
#include "tools/multiplex/air.h"

#include <csignal>
#include <gmock/gmock.h>

#include <gtest/gtest.h>

// Setting the tuner from the command line, and drivers that cannot be tuned or read.

namespace {

using namespace test;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

struct ShellTuning : testing::Test {
    ShellTuning()
    {
        writeAir(testAir(), air);
        std::filesystem::create_directories(data / "components");
        std::filesystem::copy_file(air / "satlist.xml", data / "satlist.xml");
    }

    /// The arguments that choose the deaf driver of that class.
    std::vector<std::string> deaf(const std::string& number,
                                  const std::vector<std::string>& more) const
    {
        const std::string clsid = "{000000" + number + "-0000-0000-0000-000000000000}";
        writeFile(data / "components" / "deaf.component",
                  R"({"clsid": ")" + clsid + R"(", "name": "Deaf", "library": ")" +
                      TESSAVIEW_BUILD_DIR "/tests/scripted/scripted_driver.so" +
                      R"(", "categories": ["{EF0D1518-8E81-4B68-940C-42A0ABF05AA6}"]})");
        std::vector<std::string> arguments{"--driver", "Deaf"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return arguments;
    }

    ShellTool tool;
    std::filesystem::path air = tool.folder() / "air";
    std::filesystem::path data = tool.folder() / "data" / "Tessaview 3";
};

TEST_F(ShellTuning, readsWhatTheTunerWasSetTo)
{
    struct Case {
        std::vector<std::string> arguments;
        const char* progress;
        const char* tree;
    };
    const std::vector<Case> cases{
        {{"--tune", "10748.5 v 22000"},
         "Setting tuner: 10748 MHz V\nScanning current transponder\n",
         "\n    0402 - 10748V"},
        {{"--tune", "10787.5 V 27500 3/4 S2", "--satellite", "Meadow 13E"},
         "Setting tuner: 10787 MHz V\nScanning current transponder\n",
         "\n    2004 - 10787V"},
        {{"--tune", "10729 H 22000", "--satellite", "Meadow 13E", "--mode", "nit"},
         "Setting tuner: 10729 MHz H\nReading current NIT\n",
         "\n    2001 - 10729H"},
    };
    for (const Case& each : cases) {
        std::vector<std::string> arguments = each.arguments;
        arguments.push_back(air);
        const Outcome run = tool.run(arguments);
        EXPECT_EQ(run.status, 0) << each.tree;
        EXPECT_THAT(run.err, StartsWith(each.progress));
        EXPECT_THAT(run.out, HasSubstr(each.tree));
    }
}

TEST_F(ShellTuning, refusesParametersThatAreNoneOfItsTuner)
{
    struct Case {
        std::vector<std::string> arguments;
        const char* complaint;
    };
    const std::vector<Case> cases{
        {{"--tune", "346 6900 64QAM", air},
         "tessaview3-scan: --tune: '346' is no frequency from 500 to 50000 MHz\n"
         "tessaview3-scan: a satellite tuner takes, for example, \"12187.5 H 27500 3/4 S2 8PSK\" "},
        {{"--tune", "", air}, "--tune needs parameters"},
        {{"--tune", "12187.5 H 27500", "--satellite", "Moon", air},
         "no satellite is called 'Moon'; the satellite list has:"},
    };
    for (const auto& [arguments, complaint] : cases) {
        const Outcome run = tool.run(arguments);
        EXPECT_EQ(run.status, 2) << complaint;
        EXPECT_THAT(run.err, HasSubstr(complaint));
        EXPECT_EQ(run.out, "");
    }
}

TEST_F(ShellTuning, saysWhatTheDriverSaysOfItsFailure)
{
    const std::string status =
        "tessaview3-scan: the driver says: receiver 0: in use by another program\n";
    const Outcome untuned = tool.run(deaf("B2", {"--tune", "12187.5 H 27500"}));
    EXPECT_EQ(untuned.status, 1);
    EXPECT_EQ(untuned.err, "Setting tuner: 12187 MHz H\n"
                           "tessaview3-scan: Failed to set tuner\n" +
                               status);
    const Outcome unread = tool.run(deaf("B2", {}));
    EXPECT_EQ(unread.status, 1);
    EXPECT_EQ(unread.err,
              "Scanning current transponder\nFailed to read SI: 0x80004005\n"
              "tessaview3-scan: nothing was stored: the driver could not read the stream: "
              "80004005\n" +
                  status);
}

TEST_F(ShellTuning, saysWithoutAWordOfProgressThatReadingFailedOnTheWay)
{
    const Outcome run = tool.run(deaf("AA", {"--quiet"}));
    EXPECT_EQ(run.status, 4);
    EXPECT_THAT(run.err, StartsWith("The driver reports: the signal was lost\n"));
    EXPECT_THAT(run.out, HasSubstr("0001")) << "what there is";
}

TEST_F(ShellTuning, interruptsADriverThatWaits)
{
    struct Case {
        const char* driver;
        std::vector<std::string> more;
        const char* text; ///< the last before the driver waits
    };
    const std::vector<Case> cases{
        {"B0", {"--tune", "12187.5 H 27500"}, "Setting tuner: 12187 MHz H\n"},
        {"B1", {}, "Scanning current transponder\n"},
    };
    for (const Case& each : cases) {
        const Outcome run = tool.runInterrupted(each.text, deaf(each.driver, each.more));
        EXPECT_EQ(run.status, 1);
        EXPECT_THAT(run.err, HasSubstr(std::string(each.text) +
                                       "tessaview3-scan: nothing was stored: cancelled\n"));
        EXPECT_THAT(run.err, Not(HasSubstr("in use"))) << "that is not why";
    }
}

TEST_F(ShellTuning, endsAtTheSecondInterruptionWhateverTheDriverDoes)
{
    const Outcome run = tool.runInterrupted("Scanning current", deaf("B3", {}), true);
    EXPECT_EQ(run.status, -SIGINT);
}

} // namespace
