#include "explorer/driver_monitor.h"

#include "tests/support/scripted_driver.h"
#include "tests/support/tests.h"

#include <latch>

namespace {

DriverMonitor monitorOf(ScriptedDriver* driver, DriverMonitor::Pace pace)
{
    return {ComPtr<IDriverControl>::share(driver), ComPtr<ITunerStatus>::share(driver), pace};
}

DriverState firstAnswer(const DriverMonitor& monitor)
{
    while (!monitor.state().wasAsked)
        std::this_thread::yield();
    return monitor.state();
}

TEST(DriverMonitor, tellsWhatTheDriverAnswered)
{
    const auto driver = ScriptedDriver::make();
    const DriverMonitor monitor = monitorOf(driver.get(), {});
    const DriverState state = firstAnswer(monitor);
    EXPECT_TRUE(state.isTuner(TunerType::Satellite));
    EXPECT_TRUE(state.isLocked);
    EXPECT_EQ(state.statusText, "61 dB\u00B5V");
}

TEST(DriverMonitor, takesAFailureForNoAnswerWhateverItLeaves)
{
    const auto driver = ScriptedDriver::make();
    for (const char* const question : {"GetTunerType", "IsLocked", "GetStatusText"})
        driver->failAlways(question, status::kFail);
    const DriverMonitor failing = monitorOf(driver.get(), {});
    const DriverMonitor absent = monitorOf(nullptr, {});
    for (const DriverMonitor* monitor : {&failing, &absent}) {
        const DriverState state = firstAnswer(*monitor);
        EXPECT_FALSE(state.tunerType);
        EXPECT_FALSE(state.isLocked);
        EXPECT_FALSE(state.statusText);
    }
}

TEST(DriverMonitor, asksAgainWhenItIsTold)
{
    const auto driver = ScriptedDriver::make();
    DriverMonitor monitor = monitorOf(driver.get(), {.period = 1h});
    firstAnswer(monitor);
    driver->tunerType = 3;
    monitor.askSoon();
    while (!monitor.state().isTuner(TunerType::Terrestrial))
        std::this_thread::yield();
    EXPECT_EQ(driver->rounds, 2);
}

TEST(DriverMonitor, takesAnOverdueAnswerForNone)
{
    std::latch goesOn{1};
    const auto driver = ScriptedDriver::make();
    driver->duringCall = [&](std::string_view, int time) {
        if (time > 0)
            goesOn.wait();
    };
    DriverMonitor monitor = monitorOf(driver.get(), {.period = 0ms, .overdue = 1ms});
    while (!monitor.state().wasAsked || monitor.state().tunerType)
        std::this_thread::yield();
    EXPECT_FALSE(monitor.state().isLocked);
    goesOn.count_down();
}

TEST(DriverMonitor, asksNothingMoreOnceItIsStopped)
{
    const auto driver = ScriptedDriver::make();
    DriverMonitor monitor = monitorOf(driver.get(), {.period = 0ms});
    EXPECT_TRUE(monitor.stop(1h));
    const int rounds = driver->rounds;
    monitor.askSoon();
    EXPECT_TRUE(monitor.stop());
    EXPECT_EQ(driver->rounds, rounds);
}

TEST(DriverMonitor, leavesADriverThatHangsAlone)
{
    std::latch goesOn{1};
    std::latch entered{1};
    auto driver = ScriptedDriver::make();
    driver->duringCall = [&](std::string_view call, int) {
        if (call != "GetTunerType")
            return;
        entered.count_down();
        goesOn.wait();
    };
    {
        DriverMonitor monitor = monitorOf(driver.get(), {});
        entered.wait();
        EXPECT_FALSE(monitor.stop(1ms));
    }
    goesOn.count_down();
    // The thread lets go of the driver in the end: ours is the last reference.
    while (driver->AddRef(), driver->Release() != 1)
        std::this_thread::yield();
    EXPECT_EQ(driver->rounds, 1);
}

} // namespace
