#include "component/bstr.h"
#include "component/class_registry.h"
#include "platform/settings.h"
#include "satlist/list_access.h"
#include "satlist/list_storage.h"
#include "tests/app/installed_components.h"

#include <csignal>
#include <gmock/gmock.h>
#include <random>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include <gtest/gtest.h>

using namespace tessaview;
using std::chrono::milliseconds;

namespace {

const std::string kProgram = TESSAVIEW_BUILD_DIR "/bin/tessaview3";
const std::string kSample = TESSAVIEW_BUILD_DIR "/share/tessaview3/sample.ts";

/// How often the program is killed; tools/kill-test.sh asks for more.
int rounds()
{
    const char* const given = std::getenv("TESSAVIEW_KILLS"); // NOLINT(concurrency-mt-unsafe)
    return given ? std::atoi(given) : 6;
}

class Killed : public testing::Test {
protected:
    Killed()
    {
        components_.satelliteList();
        components_.captureDriver();
        components_.scriptedDriver(test::scripted::kInitializeFails, "Failing");
        Settings(settings_).setNumber(kSettingsKey, "sitables", 0x41B);
        const ComPtr<ISatListManager> list = manager();
        loadSatelliteList(*list.get(), satellites_);
        ComPtr<ISatellite> kept;
        createSatellite(*list.get(), Bstr(std::string_view("Kept")), kept);
        list->PutSatellite(kept.get());
        std::filesystem::create_directories(satellites_.parent_path());
        EXPECT_EQ(saveSatelliteList(*list.get(), satellites_), status::kOk);
    }

    ComPtr<ISatListManager> manager() const
    {
        ComPtr<ISatListManager> list;
        EXPECT_EQ(ClassRegistry({components_.folder()}).create(kSatListManagerClass, list),
                  status::kOk);
        return list;
    }

    pid_t start(const std::vector<std::string>& arguments) const
    {
        const pid_t child = fork();
        if (child != 0)
            return child;
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
        std::vector<const char*> texts{kProgram.c_str()};
        for (const std::string& argument : arguments)
            texts.push_back(argument.c_str());
        texts.push_back(nullptr);
        execv(kProgram.c_str(), const_cast<char**>(texts.data()));
        _exit(127);
    }

    void expectEverythingReadable() const
    {
        EXPECT_EQ(Settings(settings_).number(kSettingsKey, "sitables"), 0x41BU);
        const ComPtr<ISatListManager> list = manager();
        EXPECT_EQ(list->Load(Bstr(satellites_.string()).get()), status::kOk);
        EXPECT_THAT(satelliteNames(list.get(), false), testing::Contains("Kept"));
    }

    milliseconds upTo(int most)
    {
        return milliseconds(std::uniform_int_distribution(0, most)(random_));
    }

    test::TemporaryFolder home_;
    test::InstalledComponents components_{home_ / "components"};
    const test::Environment environment_[5] = {
        {"XDG_STATE_HOME", nullptr},
        {"TESSAVIEW_COMPONENT_PATH", components_.folder().c_str()},
        {"XDG_CONFIG_HOME", (home_ / "config").c_str()},
        {"XDG_DATA_HOME", (home_ / "data").c_str()},
        {"HOME", home_.path().c_str()}};
    std::filesystem::path settings_ = home_ / "config/tessaview3/settings.json";
    std::filesystem::path satellites_ = home_ / "data/Tessaview 3/satlist.xml";
    std::filesystem::path mark_ = home_ / ".local/state/tessaview3/start-under-way";
    std::string log_ = (home_ / "log.txt").string();
    std::mt19937 random_{std::random_device{}()};
};

TEST_F(Killed, leavesTheCallOfTheDriverThatEndedItsStart)
{
    const std::string crashing = toText(test::scripted::kCrashes);
    components_.scriptedDriver(test::scripted::kCrashes, "Crashing");
    Settings(settings_).setText(kSettingsKey, "driverclsid", crashing);
    for (const char* const call :
         {"Initialize", "SetSatListManager", "GetTunerType", "IsLocked", "GetStatusText"}) {
        const test::Environment crash("TESSAVIEW_TEST_CRASH", call);
        std::filesystem::remove(mark_); // else it would be asked for
        int status = 0;
        const pid_t child = start({"--log", log_});
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFSIGNALED(status)) << status;
        EXPECT_EQ(test::readFile(mark_), crashing + "\nCrashing\n" + call + "\n");
        EXPECT_THAT(test::readFile(log_), testing::HasSubstr("starting the driver Crashing"));
    }
}

TEST_F(Killed, leavesNothingThatCannotBeReadWheneverItIsKilled)
{
    for (int round = 0; round < rounds(); ++round) {
        const bool failsToStart = round % 3 == 2; // and forgets the choice, a write of the settings
        if (failsToStart)
            Settings(settings_).setText(kSettingsKey, "driverclsid",
                                        toText(test::scripted::kInitializeFails));
        std::filesystem::remove(mark_); // else it would be asked for
        const pid_t child = failsToStart ? start({"--log", log_}) : start({"--log", log_, kSample});
        std::this_thread::sleep_for(upTo(700));
        if (round % 3 == 1) { // saves the satellite list
            kill(child, SIGTERM);
            std::this_thread::sleep_for(upTo(60));
        }
        kill(child, SIGKILL);
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_FALSE(WIFEXITED(status) && WEXITSTATUS(status) == 127) << "it did not start";
        expectEverythingReadable();
        if (HasFailure())
            break;
    }
}

} // namespace
