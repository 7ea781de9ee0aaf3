#include "app/tessaview3_app.h"
#include "component/bstr.h"
#include "platform/build_info.h"
#include "platform/settings.h"
#include "tests/app/installed_components.h"
#include "tests/app/recording_host.h"
#include "tests/support/worked_cases.h"

#include <functional>
#include <gmock/gmock.h>
#include <regex>

#include <gtest/gtest.h>

using namespace tessaview;
using test::readFile;
using test::writeFile;
using testing::HasSubstr;

namespace {

struct StartUp : testing::Test {
    StartUp()
    {
        components.satelliteList();
        std::filesystem::create_directory(places.stateFolder);
    }
    void TearDown() override
    {
        writeFile(journal + ".go", ""); // whoever hangs may return now
        while (PendingCall::unfinished() > 0)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        g_log.Close();
    }

    void install(const Guid& clsid) const { components.scriptedDriver(clsid, "Receiver"); }
    void store(const std::string& clsid) const
    {
        Settings(settings).setText(kSettingsKey, "driverclsid", clsid);
    }
    void choose(const Guid& clsid) const
    {
        install(clsid);
        store(toText(clsid));
    }
    /// As a start leaves it that did not come back from a call.
    void leaveMark(const Guid& clsid) const
    {
        writeFile(mark, toText(clsid) + "\nReceiver\nIsLocked\n");
    }
    std::optional<std::string> stored() const
    {
        return Settings(settings).text(kSettingsKey, "driverclsid");
    }

    /// Starts and ends the application; whether it had started.
    bool run(const std::vector<std::string>& captures = {})
    {
        places.componentFolders = {components.folder()};
        CTessaview3App application(host, places, captures, patience);
        const bool started = application.InitInstance();
        LogPrint(g_log, 0, started ? "runs" : "has not started");
        application.ExitInstance();
        return started;
    }

    /// What was logged, without numbers and times, how the driver was called, and what is left.
    std::string transcript() const
    {
        const std::regex prefix(R"( *\d+ - [^(]*- \([-.0-9]+\) - <(\d)> - ([^\r]*)\r)");
        std::string text = std::regex_replace(readFile(places.logFile), prefix, "$1 $2");
        std::istringstream calls(readFile(journal));
        for (std::string call; std::getline(calls, call);)
            text += "driver: " + call + '\n';
        if (PendingCall::unfinished() > 0)
            text += "a call of the driver has not ended\n";
        text += "stored: " + stored().value_or("nothing") + '\n';
        for (const auto& [folder, name] : std::vector<std::pair<std::string, std::string>>{
                 {home.path().string(), "~"},
                 {TESSAVIEW_BUILD_DIR, "BUILD"},
                 {"build=" + std::to_string(kBuildNumber), "build=NUMBER"}})
            text = std::regex_replace(text, std::regex(folder), name);
        if (!readFile(mark).empty())
            text += "a call is still noted\n";
        for (const char* const file : {"all/satlist.xml", "user/satlist.xml", "satlist.xml"})
            if (std::filesystem::exists(home / file))
                text += std::string("left: ") + file + '\n';
        return text;
    }

    test::TemporaryFolder home;
    std::string journal = (home / "journal").string();
    const test::Environment environment{"TESSAVIEW_TEST_JOURNAL", journal.c_str()};
    std::filesystem::path settings = home / "config/settings.json";
    test::InstalledComponents components{home / "components"};
    ApplicationPlaces places{.executable = "/opt/bin/tessaview3",
                             .logFile = (home / "log.txt").string(),
                             .settingsFile = settings,
                             .allUsersFolder = home / "all",
                             .userFolder = home / "user",
                             .stateFolder = home / "state",
                             .componentFolders = {}};
    std::filesystem::path mark = places.stateFolder / "start-under-way";
    DriverPatience patience;
    test::RecordingHost host;
};

/// A start of its own, to which a case does something first.
struct OneStart : StartUp {
    void TestBody() override {}
};

constexpr Guid kCaptureClass = "{8F6E0A52-3B1D-4C7E-9A64-D20B71C5E3F8}"_guid;
const std::string kSample = TESSAVIEW_BUILD_DIR "/share/tessaview3/sample.ts";

struct Case {
    const char* name;
    std::function<void(OneStart&)> prepare;
    std::vector<std::string> captures = {};
};

std::function<void(OneStart&)> chosen(const Guid& clsid)
{
    return [=](OneStart& s) { s.choose(clsid); };
}

std::function<void(OneStart&)> storedOnly(const char* clsid)
{
    return [=](OneStart& s) { s.store(clsid); };
}

const std::vector<Case> kCases{
    {"driverThatWorks", chosen(test::scripted::kWorks)},
    {"noDriverStored",
     [](OneStart& s) {
         s.install(test::scripted::kWorks);
         s.host.choice = toText(test::scripted::kWorks);
     }},
    {"noDriverStoredButSettings",
     [](OneStart& s) { Settings(s.settings).setNumber(kSettingsKey, "sitables", 1); }},
    {"choiceThatCannotBeRemembered",
     [](OneStart& s) {
         s.install(test::scripted::kWorks);
         writeFile(s.home / "config", "a file where the folder should be");
         s.host.choice = toText(test::scripted::kWorks);
     }},

    // Drivers that fail: the start ends, tells why and forgets the choice.
    {"emptyChoice", storedOnly("")},
    {"choiceThatIsNoClass", storedOnly("x")},
    {"driverThatIsNotInstalled", storedOnly("{00000000-0000-0000-0000-000000000000}")},
    {"driverThatIsNotCreated", chosen(test::scripted::kCreateFails)},
    {"driverWithoutControl", chosen(test::scripted::kLacksControl)},
    {"driverNotInitialized", chosen(test::scripted::kInitializeFails)},
    {"driverThatTakesNoSatellites", chosen(test::scripted::kSatListFails)},
    {"driverThatHangsAndTheUserGivesUp",
     [](OneStart& s) {
         s.choose(test::scripted::kInitializeHangs);
         s.host.waitsForEver = false;
     }},
    {"driverThatHangsInShutdown",
     [](OneStart& s) {
         s.choose(test::scripted::kShutdownHangs);
         s.patience.exit = std::chrono::milliseconds(50);
     }},

    // The last start did not come back from a driver.
    {"driverThatDidNotComeBackIsTriedAgain",
     [](OneStart& s) {
         s.choose(test::scripted::kWorks);
         s.leaveMark(test::scripted::kWorks);
     }},
    {"driverThatDidNotComeBackIsLeftOut",
     [](OneStart& s) {
         s.components.captureDriver();
         s.store(toText(kCaptureClass));
         s.install(test::scripted::kWorks);
         s.leaveMark(kCaptureClass);
         s.host.triesAgain = false;
         s.host.choice = toText(test::scripted::kWorks);
     }},
    {"theProgramIsEndedWhenItAsksForTheDriver",
     [](OneStart& s) {
         s.choose(test::scripted::kWorks);
         s.leaveMark(test::scripted::kWorks);
         s.host.triesAgain.reset();
     }},
    {"driverThatDidNotComeBackIsNotTheChosenOne",
     [](OneStart& s) {
         s.components.captureDriver();
         s.choose(test::scripted::kWorks);
         s.leaveMark(kCaptureClass);
     }},

    // Other things that are missing.
    {"noSatelliteListComponent",
     [](OneStart& s) { std::filesystem::remove(s.components.folder() / "satellites.component"); }},
    {"noFolderOfAllUsers",
     [](OneStart& s) {
         s.choose(test::scripted::kWorks);
         s.places.allUsersFolder.reset();
     }},
    {"satelliteListThatIsNone",
     [](OneStart& s) {
         s.choose(test::scripted::kWorks);
         std::filesystem::create_directories(s.home / "all/satlist.xml.lock");
         writeFile(s.home / "all/satlist.xml", "rubbish");
     }},
    {"noFoldersAndNoProgramName",
     [](OneStart& s) {
         s.choose(test::scripted::kWorks);
         s.places.allUsersFolder.reset();
         s.places.userFolder.clear();
         s.places.executable.clear();
     }},
    {"noWindow",
     [](OneStart& s) {
         s.choose(test::scripted::kWorks);
         s.host.createsWindow = false;
     }},
    {"logThatTheUserNamedAndThatCannotBeWritten",
     [](OneStart& s) {
         s.places.logFile = (s.home / "no/such/folder/log.txt").string();
         s.places.isLogNamed = true;
     }},

    // Captures on the command line, of which /gone.ts is not there.
    {"captures",
     [](OneStart& s) {
         s.choose(test::scripted::kWorks);
         s.components.captureDriver();
     },
     {"/gone.ts", kSample}},
    {"noCaptureThatCanBeRead", [](OneStart& s) { s.components.captureDriver(); }, {"/gone.ts"}},
    {"driverForCapturesThatDidNotComeBackIsLeftOut",
     [](OneStart& s) {
         s.components.captureDriver();
         s.leaveMark(kCaptureClass);
         s.host.triesAgain = false;
     },
     {kSample}},
    {"noDriverThatReadsCaptures", chosen(test::scripted::kWorks), {kSample}},
};

TEST(StartUps, goThroughTheirStepsAndEndInOrder)
{
    std::string transcripts;
    for (const Case& each : kCases) {
        OneStart start;
        each.prepare(start);
        start.run(each.captures);
        std::istringstream lines(start.transcript());
        transcripts += std::string(each.name) + '\n';
        for (std::string line; std::getline(lines, line);)
            transcripts += "    " + line + '\n';
        start.TearDown();
    }
    test::expectText("app/start_ups.txt", transcripts);
    EXPECT_FALSE(std::filesystem::exists("satlist.xml")) << "saved where it happened to be";
}

TEST_F(StartUp, setsSettingsThatAreNotReadableAsideAndAsks)
{
    install(test::scripted::kWorks);
    std::filesystem::create_directory(home / "config");
    writeFile(settings, "{\"SOFTW");
    host.choice = toText(test::scripted::kWorks);
    EXPECT_TRUE(run());
    EXPECT_EQ(stored(), host.choice);
    EXPECT_EQ(readFile(settings.string() + ".broken-1"), "{\"SOFTW");
}

TEST_F(StartUp, loadsTheSatelliteListOfTheLastRun)
{
    choose(test::scripted::kWorks);
    EXPECT_TRUE(run());
    const std::string first = readFile(home / "all/satlist.xml");
    EXPECT_THAT(first, HasSubstr("Astra 19E"));
    writeFile(home / "all/satlist.xml",
              std::regex_replace(first, std::regex("Astra 19E"), "Renamed 19E"));
    g_log.Close();
    EXPECT_TRUE(run());
    EXPECT_THAT(readFile(home / "all/satlist.xml"), HasSubstr("Renamed 19E"));
}

TEST_F(StartUp, letsCapturesTakeThePlaceOfARunningDriver)
{
    choose(test::scripted::kWorks);
    components.captureDriver();
    places.componentFolders = {components.folder()};
    CTessaview3App application(host, places, {}, patience);
    ASSERT_TRUE(application.InitInstance());
    IDriverInfo* const receiver = application.driver();
    EXPECT_FALSE(application.openCaptures({"/gone.ts"}));
    EXPECT_EQ(application.driver(), receiver) << "nothing that could be read";
    EXPECT_TRUE(application.openCaptures({kSample}));
    IDriverInfo* const captures = application.driver();
    EXPECT_NE(captures, receiver);
    EXPECT_TRUE(application.openCaptures({kSample}));
    EXPECT_EQ(application.driver(), captures);
    application.ExitInstance();
    EXPECT_THAT(readFile(journal), HasSubstr("Shutdown with the list saved\nreleased\n"));
}

} // namespace
