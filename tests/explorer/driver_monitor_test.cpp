#include "explorer/driver_monitor.h"

#include "tests/support/status_driver.h"

#include <condition_variable>

#include <gtest/gtest.h>

namespace {

using namespace tessaview; // NOLINT(google-build-using-namespace)
using std::chrono::hours;
using std::chrono::milliseconds;
using std::chrono::seconds;
using test::StatusDriver;

/// A gate in the driver's calls.
class Gate {
public:
    void waitUntilOpen()
    {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return isOpen_; });
    }
    void open()
    {
        const std::lock_guard lock(mutex_);
        isOpen_ = true;
        changed_.notify_all();
    }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    bool isOpen_ = false;
};

DriverMonitor monitorOf(StatusDriver* driver, DriverMonitor::Pace pace)
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
    const auto driver = StatusDriver::make();
    const DriverMonitor monitor = monitorOf(driver.get(), {});
    const DriverState state = firstAnswer(monitor);
    EXPECT_TRUE(state.isTuner(TunerType::Satellite));
    EXPECT_TRUE(state.isLocked);
    EXPECT_EQ(state.statusText, "61 dB\u00B5V");
}

TEST(DriverMonitor, takesAFailureForNoAnswerWhateverItLeaves)
{
    const auto driver = StatusDriver::make();
    driver->tunerType = -1;
    driver->locked = -1;
    driver->hasStatusText = false;
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
    const auto driver = StatusDriver::make();
    DriverMonitor monitor = monitorOf(driver.get(), {.period = hours(1)});
    firstAnswer(monitor);
    driver->tunerType = 3;
    monitor.askSoon();
    while (!monitor.state().isTuner(TunerType::Terrestrial))
        std::this_thread::yield();
    EXPECT_EQ(driver->rounds, 2);
}

TEST(DriverMonitor, takesAnOverdueAnswerForNone)
{
    Gate gate;
    const auto driver = StatusDriver::make();
    driver->duringRound = [&] {
        if (driver->rounds > 1)
            gate.waitUntilOpen();
    };
    DriverMonitor monitor =
        monitorOf(driver.get(), {.period = milliseconds(0), .overdue = milliseconds(1)});
    while (!monitor.state().wasAsked || monitor.state().tunerType)
        std::this_thread::yield();
    EXPECT_FALSE(monitor.state().isLocked);
    gate.open();
}

TEST(DriverMonitor, asksNothingMoreOnceItIsStopped)
{
    const auto driver = StatusDriver::make();
    DriverMonitor monitor = monitorOf(driver.get(), {.period = milliseconds(0)});
    EXPECT_TRUE(monitor.stop(hours(1)));
    const int rounds = driver->rounds;
    monitor.askSoon();
    EXPECT_TRUE(monitor.stop());
    EXPECT_EQ(driver->rounds, rounds);
}

TEST(DriverMonitor, leavesADriverThatHangsAlone)
{
    Gate gate;
    Gate entered;
    auto driver = StatusDriver::make();
    driver->duringRound = [&] {
        entered.open();
        gate.waitUntilOpen();
    };
    {
        DriverMonitor monitor = monitorOf(driver.get(), {});
        entered.waitUntilOpen();
        EXPECT_FALSE(monitor.stop(milliseconds(1)));
    }
    gate.open();
    // The thread lets go of the driver in the end: ours is the last reference.
    while (driver->AddRef() != 2) {
        driver->Release();
        std::this_thread::yield();
    }
    driver->Release();
    EXPECT_EQ(driver->rounds, 1);
}

} // namespace
