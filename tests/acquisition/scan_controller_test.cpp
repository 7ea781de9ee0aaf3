#include "acquisition/scan_controller.h"

#include "tests/acquisition/recorder.h"
#include "tests/acquisition/scripted_satellites.h"
#include "tests/acquisition/task_memory_watch.h"
#include "tests/support/no_threads.h"
#include "tests/support/scripted_driver.h"
#include "tools/multiplex/descriptors.h"
#include "tools/multiplex/sections.h"

#include <condition_variable>
#include <filesystem>
#include <gmock/gmock.h>
#include <iterator>
#include <mutex>
#include <system_error>

namespace {

using namespace tessaview; // NOLINT(google-build-using-namespace)
using namespace std::chrono_literals;
using test::ScriptedDriver;
using testing::ElementsAre;
using State = ScanController::State;

/// What arrives at the window's thread.
class Window : public ScanEvents {
public:
    void reached(ScanLevel, std::size_t, std::size_t) override { ++steps; }
    void hasRead(std::optional<unsigned> percent) override
    {
        read = percent ? static_cast<int>(*percent) : -1;
        read.notify_all();
    }
    void askForSatellite() override { ++questions; }
    void tunerKnown() override { arrive(openings_); }
    void scanFinished() override { arrive(scans_); }

    void waitForOpening() { wait(openings_); }
    void waitForScan() { wait(scans_); }

    std::atomic<int> steps = 0;
    std::atomic<int> questions = 0;
    std::atomic<int> read = -1; ///< per cent; -1 for none

private:
    void arrive(int& events)
    {
        const std::lock_guard lock(mutex_);
        ++events;
        arrived_.notify_all();
    }
    void wait(int& events)
    {
        std::unique_lock lock(mutex_);
        arrived_.wait(lock, [&] { return events > 0; });
        --events;
    }

    std::mutex mutex_;
    std::condition_variable arrived_;
    int openings_ = 0;
    int scans_ = 0;
};

/// A place where the driver's thread waits in mid-call until the test has done its part.
class Gate {
public:
    void stopHere()
    {
        reached_.set_value();
        opened_.get_future().wait();
    }
    void waitUntilReached() { reached_.get_future().wait(); }
    void open() { opened_.set_value(); }

private:
    std::promise<void> reached_;
    std::promise<void> opened_;
};

struct Control : testing::Test {
    Control()
    {
        driver->tunerType = 2;
        driver->air = {
            {{0x0000, 0x00}, {test::pat(1, {})}},
            {{0x0010, 0x40},
             {test::nit(0x40, 0x3001, {},
                        {{.stream = 1,
                          .network = 1,
                          .descriptors = {test::cableDelivery({.frequency = 3460000})}}})}},
            {{0x0011, 0x42}, {test::sdt(0x42, 1, 1, {})}}};
    }

    std::unique_ptr<ScanController> controller(ScanMode mode) { return controller(mode, window); }
    std::unique_ptr<ScanController> controller(ScanMode mode, ScanEvents& events)
    {
        return std::make_unique<ScanController>(
            ScanContext{.driver = static_cast<IDriverInfo*>(driver.get()),
                        .satellites = satellites.get(),
                        .model = &model,
                        .selection = TableSelection::fixed(0)},
            mode, events);
    }

    /// Lets the driver wait in the middle of its first call of an operation.
    void stopIn(const std::string& operation)
    {
        driver->duringCall = [this, operation](std::string_view called, int time) {
            if (called == operation && time == 0)
                gate.stopHere();
        };
    }

    test::Recorder recorder;
    NetworkMap model;
    Window window;
    Gate gate;
    ComPtr<ScriptedDriver> driver = ScriptedDriver::make();
    ComPtr<test::ScriptedSatellites> satellites = test::ScriptedSatellites::make({});
};

TEST_F(Control, knowsTheTunerBeforeItStarts)
{
    struct Case {
        const char* failing;
        std::uint16_t type;
        const char* satellite;
        bool isSatellite;
        bool isCableOrTerrestrial;
        const char* logged;
    };
    const std::vector<Case> cases{
        {"", 1, "Qu\xC3\xA9", true, false, "<4> - current satellite: Qu\xC3\xA9"},
        {"", 1, "", true, false, "<4> - current satellite: "},
        {"GetSatelliteTuning", 1, "", true, false,
         "<2> - failed to get current satellite: 0X80004005"},
        {"", 3, "", false, true, nullptr},
        {"", 4, "", false, false, nullptr},
        {"GetTunerType", 1, "", false, false, nullptr},
    };
    for (const Case& each : cases) {
        driver = ScriptedDriver::make();
        driver->tunerType = each.type;
        driver->satellite = each.satellite;
        driver->failAt(each.failing, status::kFail);
        const std::size_t before = recorder.logged().size();
        const auto control = controller(ScanMode::CurrentNit);
        window.waitForOpening();
        EXPECT_EQ(control->state(), State::Opening);
        EXPECT_TRUE(control->completeOpening());
        EXPECT_FALSE(control->completeOpening()) << "once is enough";
        EXPECT_EQ(control->state(), State::Idle);
        EXPECT_EQ(control->tuner().isSatellite(), each.isSatellite);
        EXPECT_EQ(control->tuner().isCableOrTerrestrial(), each.isCableOrTerrestrial);
        EXPECT_EQ(control->tuner().satellite, each.satellite);
        test::Lines logged = recorder.logged();
        logged.erase(logged.begin(), logged.begin() + static_cast<std::ptrdiff_t>(before));
        EXPECT_EQ(logged, each.logged ? test::Lines{each.logged} : test::Lines{});
    }
}

TEST_F(Control, doesNotWaitForASlowDriver)
{
    stopIn("GetTunerType");
    const auto control = controller(ScanMode::CurrentTransponder);
    gate.waitUntilReached();
    EXPECT_FALSE(control->openedWithin(0ms));
    control->start({});
    EXPECT_EQ(control->state(), State::Opening) << "nothing is started yet";
    EXPECT_FALSE(control->requestClose());
    gate.open();
    window.waitForOpening();
    EXPECT_TRUE(control->completeOpening());
    EXPECT_TRUE(control->isCloseRequested());
    EXPECT_TRUE(control->endsWithOk());
}

TEST_F(Control, scansAsOftenAsItIsAsked)
{
    const auto control = controller(ScanMode::CurrentNit);
    EXPECT_TRUE(control->openedWithin(1h));
    for (int i = 0; i < 2; ++i) {
        control->start({});
        EXPECT_EQ(control->state(), State::Scanning);
        window.waitForScan();
        control->completeScan();
        EXPECT_EQ(control->state(), State::Idle);
    }
    EXPECT_EQ(window.steps, 4);
    EXPECT_EQ(recorder.printed().front(), "Reading current NIT") << "each begins with no lines";
    EXPECT_EQ(recorder.printed().back(),
              "Transport streams: 0 stored, 1 already there, 0 not stored");
    EXPECT_TRUE(control->requestClose());
    EXPECT_TRUE(control->endsWithOk());
}

TEST_F(Control, endsWithCancelAfterACancelledScanOnly)
{
    const auto control = controller(ScanMode::CurrentTransponder);
    EXPECT_TRUE(control->openedWithin(1h));
    stopIn("ReadTables");
    control->start({});
    gate.waitUntilReached();
    EXPECT_FALSE(control->requestClose()) << "the scan has to end first";
    EXPECT_EQ(control->state(), State::Cancelling);
    gate.open();
    window.waitForScan();
    control->completeScan();
    EXPECT_FALSE(control->endsWithOk());
    EXPECT_TRUE(model.empty());

    control->start({});
    window.waitForScan();
    control->completeScan();
    EXPECT_TRUE(control->endsWithOk());
    EXPECT_FALSE(model.empty());
}

TEST_F(Control, tellsHowMuchTheDriverHasRead)
{
    const auto control = controller(ScanMode::CurrentTransponder);
    EXPECT_TRUE(control->openedWithin(1h));
    driver->total = 200;
    driver->position = 85;
    stopIn("ReadTables");
    control->start({});
    window.read.wait(-1);
    EXPECT_EQ(window.read, 42);
    driver->position = 300;
    window.read.wait(42);
    EXPECT_EQ(window.read, 100) << "never more than all";
    gate.open();
    window.waitForScan();
    control->completeScan();
    EXPECT_EQ(window.read, -1) << "nothing is read any more";
}

TEST_F(Control, interruptsTheCallThatIsUnderWay)
{
    struct Case {
        const char* stuckIn;
        test::Lines calls;
        test::Lines printed;
    };
    const std::vector<Case> cases{
        {"ReadTables",
         {"go on", "ReadTables", "interrupt", "go on"},
         {"Reading current NIT", "Cancelled"}},
        {"SetCableTuning",
         {"go on", "ReadTables", "GetTunerType", "GetCableTuning", "SetCableTuning", "interrupt",
          "go on"},
         {"Reading current NIT", "Read 1 NIT sections", "1 entries in NIT section",
          "Setting tuner: 346000", "Failed to set tuner", "Cancelled"}},
    };
    const auto control = controller(ScanMode::CurrentNit);
    EXPECT_TRUE(control->openedWithin(1h));
    for (const Case& each : cases) {
        std::promise<void> isStuck;
        driver->calls.clear();
        driver->duringCall = [&](std::string_view called, int) {
            if (called != each.stuckIn)
                return;
            isStuck.set_value();
            driver->waitForInterrupt();
        };
        control->start({});
        isStuck.get_future().wait();
        control->cancel();
        window.waitForScan();
        control->completeScan();
        EXPECT_EQ(driver->calls, each.calls);
        EXPECT_EQ(recorder.printed(), each.printed) << "what was given up was no failure to count";
        EXPECT_TRUE(model.empty());
    }
    driver->duringCall = {};
    control->start({});
    window.waitForScan();
    control->completeScan();
    EXPECT_FALSE(model.empty()) << "the next scan is not interrupted";
}

TEST_F(Control, doesNotWaitForADriverThatDoesNotReturnFromItsInterruption)
{
    const auto control = controller(ScanMode::CurrentTransponder);
    EXPECT_TRUE(control->openedWithin(1h));
    std::promise<void> isReading;
    driver->duringCall = [&](std::string_view called, int) {
        if (called == "interrupt")
            gate.stopHere();
        if (called != "ReadTables")
            return;
        isReading.set_value();
        driver->waitForInterrupt();
    };
    control->start({});
    isReading.get_future().wait();
    control->cancel();
    gate.waitUntilReached();
    EXPECT_EQ(control->state(), State::Cancelling);
    gate.open();
    window.waitForScan();
    control->completeScan();
    EXPECT_EQ(control->state(), State::Idle);
}

TEST_F(Control, needsASatelliteOfASatelliteTunerOnly)
{
    driver->tunerType = 1;
    const auto control = controller(ScanMode::CurrentNit);
    EXPECT_TRUE(control->openedWithin(1h));
    control->start({});
    window.waitForScan();
    control->completeScan();
    EXPECT_THAT(recorder.printed(), ElementsAre("No satellite selected"));
}

TEST_F(Control, staysIdleWhenThereCanBeNoThread)
{
    const auto control = controller(ScanMode::CurrentNit);
    EXPECT_TRUE(control->openedWithin(1h));
    {
        const test::NoThreads noThreads;
        EXPECT_THROW(control->start({}), std::system_error);
    }
    EXPECT_FALSE(control->isBusy());
    control->start({});
    window.waitForScan();
    control->completeScan();
    EXPECT_FALSE(model.empty());
}

std::ptrdiff_t threads()
{
    return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
}

TEST_F(Control, startsAndCancelsAThousandTimes)
{
    std::jthread([] {}).join(); // a sanitizer starts a thread of its own with the first one
    const std::ptrdiff_t threadsBefore = threads();
    const std::size_t blocksBefore = test::liveTaskBlocks();
    for (int i = 0; i < 1000; ++i) {
        Window own;
        const auto control = controller(ScanMode::CurrentNit, own);
        if (i % 4 == 3)
            continue; // goes while the driver is asked
        EXPECT_TRUE(control->openedWithin(1h));
        control->start({});
        if (i % 4 == 2)
            continue; // goes in mid-scan
        if (i % 4 == 1)
            control->cancel();
        own.waitForScan();
        control->completeScan();
        EXPECT_EQ(control->state(), State::Idle);
        model.clear();
    }
    model.clear();
    EXPECT_EQ(test::liveTaskBlocks(), blocksBefore);
    while (threads() > threadsBefore) // a joined thread is listed a moment longer
        std::this_thread::sleep_for(1ms);
    driver->AddRef();
    EXPECT_EQ(driver->Release(), 1);
}

} // namespace
