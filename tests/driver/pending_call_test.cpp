#include "driver/pending_call.h"

#include <future>
#include <stdexcept>

#include <gtest/gtest.h>

using namespace tessaview;
using namespace std::chrono_literals;

namespace {

TEST(PendingCall, namesTheOperationAndEndsWithItsWork)
{
    std::promise<void> answer;
    std::promise<void> isInside;
    auto result = std::make_shared<int>(0);
    const std::weak_ptr<int> shared = result;
    const PendingCall call([&, result](const CallObserver& observer) {
        observer("CreateInstance");
        observer("Initialize");
        isInside.set_value();
        answer.get_future().wait();
        *result = 7;
    });
    isInside.get_future().wait();
    EXPECT_FALSE(call.waitFor(0ms));
    EXPECT_EQ(call.operation(), "Initialize");
    answer.set_value();
    EXPECT_TRUE(call.waitFor(1h));
    EXPECT_EQ(*result, 7);
    result.reset();
    EXPECT_TRUE(shared.expired()) << "the work is let go of before its end is told";
}

TEST(PendingCall, isUnfinishedAsLongAsNobodyWaitsAndTheDriverDoesNotReturn)
{
    const auto answer = std::make_shared<std::promise<void>>();
    {
        const PendingCall call([answer](const CallObserver&) { answer->get_future().wait(); });
        EXPECT_EQ(PendingCall::unfinished(), 0);
    }
    EXPECT_EQ(PendingCall::unfinished(), 1);
    answer->set_value();
    while (PendingCall::unfinished() > 0)
        std::this_thread::sleep_for(1ms);
}

TEST(PendingCall, endsWhenItsWorkThrows)
{
    const PendingCall call([](const CallObserver&) { throw std::runtime_error("lost"); });
    EXPECT_TRUE(call.waitFor(1h));
}

} // namespace
