#include "app/tessaview3_app.h"
#include "component/bstr.h"
#include "platform/settings.h"
#include "tests/app/installed_components.h"
#include "tests/app/recording_host.h"

#include <gmock/gmock.h>
#include <regex>

#include <gtest/gtest.h>

using namespace tessaview;
using test::readFile;
using test::writeFile;
using testing::HasSubstr;

namespace {

class StartUp : public testing::Test {
protected:
    StartUp() { components_.satelliteList(); }
    ~StartUp() override
    {
        writeFile(journal_ + ".go", ""); // whoever hangs may return now
        while (PendingCall::unfinished() > 0)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        g_log.Close();
    }

    void install(const Guid& clsid) { components_.scriptedDriver(clsid, "Receiver"); }
    void store(const std::string& clsid)
    {
        Settings(settings_).setText(kSettingsKey, "driverclsid", clsid);
    }
    std::optional<std::string> stored() const
    {
        return Settings(settings_).text(kSettingsKey, "driverclsid");
    }

    /// Starts and ends the application; whether it had started.
    bool run(const std::vector<std::string>& captures = {})
    {
        places_.componentFolders = {components_.folder()};
        CTessaview3App application(host_, places_, captures, patience_);
        const bool started = application.InitInstance();
        LogPrint(g_log, 0, started ? "runs" : "has not started");
        application.ExitInstance();
        return started;
    }

    /// The log without numbers and times, with the home as "~".
    std::string log() const
    {
        const std::regex prefix(R"( *\d+ - [^(]*- \([-.0-9]+\) - <(\d)> - ([^\r]*)\r\n)");
        return atHome(std::regex_replace(readFile(places_.logFile), prefix, "$1 $2\n"));
    }
    std::string journal() const { return atHome(readFile(journal_)); }

    std::string atHome(const std::string& text) const
    {
        return std::regex_replace(text, std::regex(home_.path().string()), "~");
    }

    test::TemporaryFolder home_;
    std::string journal_ = (home_ / "journal").string();
    const test::Environment environment_{"TESSAVIEW_TEST_JOURNAL", journal_.c_str()};
    std::filesystem::path settings_ = home_ / "config/settings.json";
    test::InstalledComponents components_{home_ / "components"};
    ApplicationPlaces places_{.executable = "/opt/bin/tessaview3",
                              .logFile = (home_ / "log.txt").string(),
                              .settingsFile = settings_,
                              .allUsersFolder = home_ / "all",
                              .userFolder = home_ / "user",
                              .componentFolders = {}};
    DriverPatience patience_;
    test::RecordingHost host_;
};

TEST_F(StartUp, goesThroughItsStepsInOrderAndEndsInOrder)
{
    install(test::scripted::kWorks);
    store(toText(test::scripted::kWorks));
    EXPECT_TRUE(run());
    EXPECT_EQ(log(), "2 Starting Tessaview 3\n"
                     "2 all users application path: ~/all\n"
                     "2 user application path: ~/user\n"
                     "0 framework set up\n"
                     "2 build=5\n"
                     "2 read_driver_clsid()\n"
                     "2 read_driver_clsid() exit\n"
                     "0 window created\n"
                     "0 window shown\n"
                     "0 runs\n");
    EXPECT_EQ(journal(), "Initialize SOFTWARE\\Team Tessaview\\Tessaview3\\drivers "
                         "~/user/drivers ~/all/drivers\n"
                         "SetSatListManager\n"
                         "Shutdown with the list saved\n"
                         "released\n");
    EXPECT_TRUE(std::filesystem::is_directory(home_ / "user"));
}

TEST_F(StartUp, asksForADriverWhenNoneIsStoredAndStoresTheChoice)
{
    install(test::scripted::kWorks);
    host_.choice = toText(test::scripted::kWorks);
    EXPECT_TRUE(run());
    EXPECT_THAT(log(), HasSubstr("2 read_driver_clsid()\n"
                                 "0 driver selection, first start\n"
                                 "2 read_driver_clsid() exit\n"
                                 "0 window created\n"));
    EXPECT_EQ(stored(), host_.choice);
}

TEST_F(StartUp, welcomesOnlyWhoHasNoSettings)
{
    Settings(settings_).setNumber(kSettingsKey, "sitables", 1);
    EXPECT_FALSE(run());
    EXPECT_THAT(log(), HasSubstr("0 driver selection\n"));
}

TEST_F(StartUp, usesAChoiceThatCannotBeRemembered)
{
    install(test::scripted::kWorks);
    writeFile(home_ / "config", "a file where the folder should be");
    host_.choice = toText(test::scripted::kWorks);
    EXPECT_TRUE(run());
    EXPECT_THAT(log(),
                HasSubstr("box: The chosen driver is used now but cannot be remembered.; ~"));
}

TEST_F(StartUp, setsSettingsThatAreNotReadableAsideAndAsks)
{
    install(test::scripted::kWorks);
    std::filesystem::create_directory(home_ / "config");
    writeFile(settings_, "{\"SOFTW");
    host_.choice = toText(test::scripted::kWorks);
    EXPECT_TRUE(run());
    EXPECT_EQ(stored(), host_.choice);
    EXPECT_EQ(readFile(settings_.string() + ".broken-1"), "{\"SOFTW");
}

/// A text as the log shows it.
std::string inLog(const std::string& text)
{
    return std::regex_replace(text, std::regex("\n"), "\xE2\x90\x8A");
}

struct DriverFailure {
    std::string clsid; ///< of the stored choice
    std::string detail;
    std::string journal = "";
};

class DriverFailures : public StartUp, public testing::WithParamInterface<DriverFailure> {};

TEST_P(DriverFailures, endTheStartTellWhyAndForgetTheChoice)
{
    if (const auto clsid = parseGuid(GetParam().clsid))
        if (clsid->data1 != 0)
            install(*clsid);
    store(GetParam().clsid);
    EXPECT_FALSE(run());
    const std::string detail =
        inLog(GetParam().detail + "\nThe next start asks for a driver again.");
    EXPECT_EQ(log(), std::string("2 Starting Tessaview 3\n"
                                 "2 all users application path: ~/all\n"
                                 "2 user application path: ~/user\n"
                                 "0 framework set up\n"
                                 "2 build=5\n"
                                 "2 read_driver_clsid()\n"
                                 "2 read_driver_clsid() exit\n"
                                 "1 Failed to initialize driver: ") +
                         detail + "\n0 box: Failed to initialize driver; " + detail +
                         "\n0 has not started\n");
    EXPECT_EQ(stored(), std::nullopt);
    EXPECT_EQ(journal(), GetParam().journal);
    EXPECT_TRUE(std::filesystem::exists(home_ / "all/satlist.xml"));
}

const std::string kInitialized = "Initialize SOFTWARE\\Team Tessaview\\Tessaview3\\drivers "
                                 "~/user/drivers ~/all/drivers\n";

INSTANTIATE_TEST_SUITE_P(
    StartUp, DriverFailures,
    testing::Values(
        DriverFailure{"", "no driver was chosen"},
        DriverFailure{"x", "x\nthe stored choice 'x' is no class identifier"},
        DriverFailure{"{00000000-0000-0000-0000-000000000000}",
                      "{00000000-0000-0000-0000-000000000000}\n"
                      "no component of the class {00000000-0000-0000-0000-000000000000} is "
                      "installed (CreateInstance: 0x80040154)"},
        DriverFailure{toText(test::scripted::kCreateFails),
                      "Receiver {000000A1-0000-0000-0000-000000000000}\n" + test::kScriptedLibrary +
                          " did not create an object (CreateInstance: 0x80070005)"},
        DriverFailure{toText(test::scripted::kLacksControl),
                      "Receiver {000000A2-0000-0000-0000-000000000000}\n"
                      "the driver lacks its control interface: 0x80004002",
                      "released\n"},
        DriverFailure{toText(test::scripted::kInitializeFails),
                      "Receiver {000000A3-0000-0000-0000-000000000000}\n"
                      "Initialize failed: 0x80070015",
                      kInitialized + "released\n"},
        DriverFailure{toText(test::scripted::kSatListFails),
                      "Receiver {000000A4-0000-0000-0000-000000000000}\n"
                      "SetSatListManager failed: 0x80004005",
                      kInitialized + "SetSatListManager\nreleased\n"}));

TEST_F(StartUp, endsAndForgetsTheChoiceWhenADriverHangsAndTheUserGivesUp)
{
    install(test::scripted::kInitializeHangs);
    store(toText(test::scripted::kInitializeHangs));
    host_.waitsForEver = false;
    EXPECT_FALSE(run());
    EXPECT_EQ(PendingCall::unfinished(), 1);
    EXPECT_EQ(stored(), std::nullopt);
    EXPECT_THAT(log(), HasSubstr("0 gave up Receiver at Initialize\n"
                                 "1 the driver Receiver does not answer Initialize\n"
                                 "0 has not started\n"));
}

TEST_F(StartUp, endsInTimeWhenADriverHangsInShutdown)
{
    install(test::scripted::kShutdownHangs);
    store(toText(test::scripted::kShutdownHangs));
    patience_.exit = std::chrono::milliseconds(50);
    EXPECT_TRUE(run());
    EXPECT_EQ(PendingCall::unfinished(), 1);
    EXPECT_THAT(log(), HasSubstr("0 runs\n1 the driver does not answer Shutdown\n"));
    EXPECT_THAT(journal(), testing::EndsWith("Shutdown with the list saved\n"));
    EXPECT_TRUE(stored());
}

TEST_F(StartUp, endsWithoutASatelliteListComponent)
{
    std::filesystem::remove(components_.folder() / "satellites.component");
    EXPECT_FALSE(run());
    EXPECT_THAT(log(),
                HasSubstr("2 user application path: ~/user\n"
                          "0 box: Failed to create sat list manager: 80040154; no component "
                          "of the class {25DD8117-7C68-4F27-8D64-162767784EC1} is installed\n"
                          "0 has not started\n"));
}

TEST_F(StartUp, usesTheUsersFolderForAllUsersWhenThatIsMissing)
{
    install(test::scripted::kWorks);
    store(toText(test::scripted::kWorks));
    places_.allUsersFolder.reset();
    EXPECT_TRUE(run());
    EXPECT_THAT(log(), HasSubstr("1 Failed to get all users application path\n"
                                 "2 user application path: ~/user\n"));
    EXPECT_THAT(journal(), HasSubstr("~/user/drivers ~/user/drivers\n"));
    EXPECT_TRUE(std::filesystem::exists(home_ / "user/satlist.xml"));
}

TEST_F(StartUp, goesOnWithoutFoldersAndProgramNameAndTellsThatTheListIsLost)
{
    install(test::scripted::kWorks);
    store(toText(test::scripted::kWorks));
    places_.allUsersFolder.reset();
    places_.userFolder.clear();
    places_.executable.clear();
    EXPECT_TRUE(run());
    EXPECT_THAT(log(), HasSubstr("1 Failed to get all users application path\n"
                                 "1 Failed to get user application path\n"
                                 "0 framework set up\n"
                                 "1 Failed to get file name: 2\n"));
    EXPECT_THAT(log(), HasSubstr("0 runs\n0 box: Failed to save sat list: "));
    EXPECT_FALSE(std::filesystem::exists("satlist.xml"));
}

TEST_F(StartUp, loadsTheSatelliteListOfTheLastRun)
{
    install(test::scripted::kWorks);
    store(toText(test::scripted::kWorks));
    EXPECT_TRUE(run());
    const std::string first = readFile(home_ / "all/satlist.xml");
    EXPECT_THAT(first, HasSubstr("Astra 19E"));
    writeFile(home_ / "all/satlist.xml",
              std::regex_replace(first, std::regex("Astra 19E"), "Renamed 19E"));
    g_log.Close();
    EXPECT_TRUE(run());
    EXPECT_THAT(readFile(home_ / "all/satlist.xml"), HasSubstr("Renamed 19E"));
}

TEST_F(StartUp, endsWhenTheWindowCannotBeCreated)
{
    install(test::scripted::kWorks);
    store(toText(test::scripted::kWorks));
    host_.createsWindow = false;
    EXPECT_FALSE(run());
    EXPECT_THAT(log(), HasSubstr("0 window created\n0 has not started\n"));
    EXPECT_THAT(journal(), HasSubstr("Shutdown with the list saved\n"));
    EXPECT_TRUE(stored());
}

const std::string kSample = TESSAVIEW_BUILD_DIR "/share/tessaview3/sample.ts";

TEST_F(StartUp, readsCapturesThroughADriverForThemAndKeepsTheStoredChoice)
{
    install(test::scripted::kWorks);
    components_.captureDriver();
    store(toText(test::scripted::kWorks));
    EXPECT_TRUE(run({kSample, (home_ / "gone.ts").string()}));
    EXPECT_THAT(log(), HasSubstr("2 build=5\n0 window created\n0 window shown\n"
                                 "0 box: Some of these captures cannot be read.; ~/gone.ts"));
    EXPECT_THAT(log(), HasSubstr("0 reads at once\n0 runs\n"));
    EXPECT_EQ(stored(), toText(test::scripted::kWorks));
    // It was created only to see whether it reads files.
    EXPECT_EQ(journal(), "released\n");
}

TEST_F(StartUp, showsAWindowWithoutReadingWhenNoCaptureCanBeUsed)
{
    components_.captureDriver();
    EXPECT_TRUE(run({(home_ / "gone.ts").string()}));
    EXPECT_THAT(log(), HasSubstr("0 window shown\n0 box: None of these captures can be read.; "));
    EXPECT_THAT(log(), testing::Not(HasSubstr("reads at once")));
}

TEST_F(StartUp, failsWithCapturesWhenNoDriverReadsThemButKeepsTheChoice)
{
    install(test::scripted::kWorks);
    store(toText(test::scripted::kWorks));
    EXPECT_FALSE(run({kSample}));
    EXPECT_THAT(log(), HasSubstr("0 box: Failed to initialize driver; no driver that can read "
                                 "captures is installed\n"));
    EXPECT_TRUE(stored());
}

TEST_F(StartUp, letsCapturesTakeThePlaceOfARunningDriver)
{
    install(test::scripted::kWorks);
    components_.captureDriver();
    store(toText(test::scripted::kWorks));
    places_.componentFolders = {components_.folder()};
    CTessaview3App application(host_, places_, {}, patience_);
    ASSERT_TRUE(application.InitInstance());
    IDriverInfo* const receiver = application.driver();
    EXPECT_FALSE(application.openCaptures({(home_ / "gone.ts").string()}));
    EXPECT_EQ(application.driver(), receiver) << "nothing that could be read";
    EXPECT_TRUE(application.openCaptures({kSample}));
    IDriverInfo* const captures = application.driver();
    EXPECT_NE(captures, receiver);
    EXPECT_TRUE(application.openCaptures({kSample}));
    EXPECT_EQ(application.driver(), captures);
    application.ExitInstance();
    EXPECT_THAT(journal(), HasSubstr("Shutdown with the list saved\nreleased\n"));
}

TEST_F(StartUp, refusesALogThatTheUserNamedAndThatCannotBeWritten)
{
    places_.logFile = (home_ / "no/such/folder/log.txt").string();
    places_.isLogNamed = true;
    EXPECT_FALSE(run());
    EXPECT_EQ(readFile(settings_), "");
}

} // namespace
