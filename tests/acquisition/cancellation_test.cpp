#include "driver/cancellation.h"

#include "tests/support/scripted_driver.h"

#include <memory>

#include <gtest/gtest.h>

namespace {

using namespace tessaview; // NOLINT(google-build-using-namespace)

/// What a driver is told: 1 for interrupted, 0 to go on. Steps: '^' raise, 'v' lower, '!' tell the
/// driver, '(' and ')' work.
std::string toldBy(const std::string& steps, const std::vector<Guid>& missing)
{
    const auto driver = test::ScriptedDriver::make();
    driver->missing = missing;
    Cancellation cancellation(static_cast<IDriverInfo*>(driver.get()));
    std::unique_ptr<Cancellation::Work> work;
    for (const char step : steps)
        if (step == '^')
            cancellation.raise();
        else if (step == 'v')
            cancellation.lower();
        else if (step == '!')
            cancellation.tellDriver();
        else
            work = step == '(' ? std::make_unique<Cancellation::Work>(cancellation) : nullptr;
    std::string told;
    for (const std::string& call : driver->calls)
        told += call == "interrupt" ? '1' : '0';
    return told;
}

TEST(Cancellation, keepsTheDriverInterruptedWhileCancelledWorkIsUnderWay)
{
    for (const auto& [steps, told] :
         std::vector<std::pair<const char*, const char*>>{{"()", "00"},
                                                          {"(^!)", "010"},
                                                          {"^()", "10"},
                                                          {"^!()", "10"},
                                                          {"()^!", "00"},
                                                          {"(^)!", "00"},
                                                          {"(^!)()", "01010"},
                                                          {"(^!)v()", "01000"}}) {
        EXPECT_EQ(toldBy(steps, {}), told) << steps;
        EXPECT_EQ(toldBy(steps, {IInterrupt::kId}), "") << steps;
    }
}

} // namespace
