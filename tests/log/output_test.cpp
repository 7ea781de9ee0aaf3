#include "log/output.h"

#include <atomic>
#include <gmock/gmock.h>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

using namespace tessaview;

namespace {

class Recorder : public OutputSink {
public:
    void print(std::string_view line) override { lines.emplace_back(line); }
    void clear() override { lines.clear(); }

    std::vector<std::string> lines;
};

TEST(Output, reachesTheInstalledSinkOnlyAndUncut)
{
    OutputPrint("before %d", 1);
    OutputClear();
    Recorder first;
    Recorder second;
    installOutputSink(&first);
    OutputPrint("network_id=%#x", 0xFFFF);
    const std::string longLine(10'000, 'x');
    OutputPrint("<%s>", longLine.c_str());
    installOutputSink(&second);
    OutputPrint("gone");
    OutputClear();
    OutputPrint("%s", "left");
    installOutputSink(nullptr);
    OutputPrint("after");
    EXPECT_THAT(first.lines, testing::ElementsAre("network_id=0xffff", "<" + longLine + ">"));
    EXPECT_THAT(second.lines, testing::ElementsAre("left"));
}

/// A sink whose calls take their time.
class Slow : public OutputSink {
public:
    void print(std::string_view /*line*/) override
    {
        ++calls;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
        --calls;
    }
    void clear() override {}

    std::atomic<int> calls = 0;
};

TEST(Output, leavesNoCallRunningWhenASinkIsTakenAway)
{
    std::atomic<bool> done = false;
    std::vector<std::jthread> printers;
    for (int i = 0; i < 3; ++i)
        printers.emplace_back([&] {
            while (!done) {
                OutputPrint("line");
                std::this_thread::yield();
            }
        });
    for (int i = 0; i < 20; ++i) {
        Slow sink;
        installOutputSink(&sink);
        std::this_thread::sleep_for(std::chrono::milliseconds(3));
        installOutputSink(nullptr);
        EXPECT_EQ(sink.calls, 0);
    }
    done = true;
}

/// A sink that, like a window, needs another thread to print before its own call can end.
class Window : public OutputSink {
public:
    void print(std::string_view line) override
    {
        if (line == "worker")
            std::jthread([] { OutputPrint("window"); }).join();
        else
            windowPrinted = true;
    }
    void clear() override {}

    std::atomic<bool> windowPrinted = false;
};

TEST(Output, letsAnotherThreadPrintWhileASinkWaitsForIt)
{
    Window sink;
    installOutputSink(&sink);
    OutputPrint("worker");
    installOutputSink(nullptr);
    EXPECT_TRUE(sink.windowPrinted);
}

} // namespace
