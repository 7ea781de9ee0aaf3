#include "drivers/linuxdvb/pid_list.h"
#include "drivers/linuxdvb/stream_recorder.h"
#include "tests/linuxdvb/fake_kernel.h"
#include "tests/support/small_disk.h"
#include "tests/support/tests.h"

#include <cerrno>
#include <sys/stat.h>

// What is recorded, and what becomes of it when something goes wrong.

namespace {

using testing::ThrowsMessage;

TEST(PidList, takesNumbersAndRangesOnly)
{
    const struct {
        const char* text;
        std::vector<std::uint16_t> pids;
        const char* problem; // empty: the text is taken
    } cases[] = {
        {"0x100, 256, 17-20", {17, 18, 19, 20, 256}, ""},
        {" 0x1FFF ,0,", {0, 0x1FFF}, ""},
        {"0x10 - 0x11", {16, 17}, ""},
        {"8192", {}, "\"8192\" is no PID"},
        {"0x2000", {}, "\"0x2000\" is no PID"},
        {"65537", {}, "no PID"},
        {"1,video", {}, "\"video\" is no PID"},
        {"-5", {}, "\"-5\" is no PID"},
        {"5-", {}, "\"5-\" is no PID"},
        {"1-2-3", {}, "\"1-2-3\" is no PID"},
        {"20-17", {}, "runs backwards"},
        {" , ", {}, "name the PIDs"},
        {"", {}, "name the PIDs"},
    };
    for (const auto& each : cases) {
        if (*each.problem == '\0') {
            EXPECT_EQ(parsePids(each.text), each.pids) << each.text;
            continue;
        }
        EXPECT_THAT([&] { parsePids(each.text); },
                    ThrowsMessage<std::invalid_argument>(HasSubstr(each.problem)))
            << each.text;
    }
    EXPECT_EQ(parsePids("0-8191").size(), 8192U);
}

class Recorder : public testing::Test {
protected:
    static constexpr std::uintmax_t kPlenty = std::uintmax_t{1} << 50;
    static constexpr long kSize = 188L * 10;

    /// Records for a second.
    StreamRecorder::Result record(StreamRecorder::FreeSpace free = [](const fs::path&) {
        return kPlenty;
    })
    {
        StreamRecorder recorder(kernel_, {"adapter0/demux0", pids_, destination_, mayReplace_},
                                std::move(free));
        std::stop_source stop;
        kernel_.at(kernel_.elapsed() + 1s, [stop]() mutable { stop.request_stop(); });
        auto result = recorder.run(stop.get_token());
        written_ = recorder.written();
        gaps_ = recorder.gaps();
        return result;
    }

    TemporaryFolder folder_;
    FakeKernel kernel_;
    fs::path destination_ = folder_ / "stream.ts";
    std::vector<std::uint16_t> pids_;
    bool mayReplace_ = false;
    std::uintmax_t written_ = 0;
    unsigned gaps_ = 0;
};

TEST_F(Recorder, writesWhatComesAndCountsWhatWasLost)
{
    kernel_.packets = {kSize, -EAGAIN, kSize, -EOVERFLOW, -EINTR, kSize};
    const auto result = record();
    EXPECT_EQ(result.end, StreamRecorder::End::Stopped);
    EXPECT_EQ(result.text, "5.6 kB were written to " + destination_.string() +
                               ". Packets are missing in 1 place: the computer did not keep up.");
    const std::string content = readFile(destination_);
    EXPECT_EQ(content, std::string(kSize, 1) + std::string(kSize, 2) + std::string(kSize, 3));
    EXPECT_EQ(written_, content.size());
    EXPECT_EQ(gaps_, 1U);
    EXPECT_THAT(kernel_.pids, ElementsAre(0x2000));
    EXPECT_EQ(kernel_.openFiles(), 0U);
}

TEST_F(Recorder, keepsWhatWasWrittenWhateverEndsIt)
{
    const struct {
        const char* what;
        long last;           // that reading answers
        bool isRemoved;      // while nothing comes
        std::uintmax_t free; // once something was written
        const char* text;
    } cases[] = {
        {"reading", -ENODEV, false, kPlenty, "the device was removed; recording stopped"},
        {"waiting", -EAGAIN, true, kPlenty, "the device was removed"},
        {"disk full", kSize, false, kDiskReserve, "only 268.4 MB free, and 268.4 MB stay free"},
    };
    for (const auto& each : cases) {
        kernel_.packets = {kSize, each.last};
        if (each.isRemoved)
            kernel_.at(kernel_.elapsed() + 200ms, [this] { kernel_.isDemuxGone = true; });
        int asked = 0; // at the start, and before each block
        const auto result =
            record([&](const fs::path&) { return ++asked > 2 ? each.free : kPlenty; });
        EXPECT_EQ(result.end, StreamRecorder::End::Failed) << each.what;
        EXPECT_THAT(result.text, HasSubstr(each.text)) << each.what;
        EXPECT_THAT(result.text,
                    EndsWith(": 1.9 kB were written to " + destination_.string() + "."));
        EXPECT_EQ(readFile(destination_).size(), kSize) << each.what;
        fs::remove(destination_);
        kernel_.isDemuxGone = false;
    }
}

TEST_F(Recorder, keepsWhatADiskTookThatCannotTakeMore)
{
    kernel_.packets = {kSize, kSize};
    const SmallDisk disk(kSize + 500);
    const auto result = record();
    EXPECT_EQ(result.end, StreamRecorder::End::Failed);
    EXPECT_THAT(result.text, HasSubstr("File too large; recording stopped: 2.4 kB were written"));
    EXPECT_EQ(readFile(destination_).size(), kSize + 500);
    EXPECT_EQ(written_, static_cast<std::uintmax_t>(kSize + 500));
}

TEST_F(Recorder, refusesDestinationsBeforeAnythingStarts)
{
    fs::create_directory(folder_ / "folder");
    writeFile(folder_ / "old.ts", "old");
    fs::create_symlink(folder_ / "old.ts", folder_ / "link.ts");
    ASSERT_EQ(mkfifo((folder_ / "pipe.ts").c_str(), 0600), 0);
    const struct {
        const char* name;
        bool mayReplace;
        const char* text;
    } cases[] = {
        {"old.ts", false, "is there already"},   {"link.ts", true, "is a link"},
        {"folder", true, "is a folder"},         {"pipe.ts", true, "is no file that can be"},
        {"missing/a.ts", false, "No such file"}, {"old.ts/a.ts", false, "Not a directory"},
    };
    kernel_.packets = {kSize};
    for (const auto& each : cases) {
        destination_ = folder_ / each.name;
        mayReplace_ = each.mayReplace;
        const auto result = record();
        EXPECT_EQ(result.end, StreamRecorder::End::Failed) << each.name;
        EXPECT_THAT(result.text, HasSubstr(each.text)) << each.name;
        EXPECT_THAT(result.text, EndsWith("; nothing was recorded.")) << each.name;
    }
    EXPECT_TRUE(kernel_.pids.empty()) << "the receiver was started";
    EXPECT_EQ(readFile(folder_ / "old.ts"), "old");
}

TEST_F(Recorder, replacesAFileOnceSomethingComes)
{
    mayReplace_ = true;
    writeFile(destination_, std::string(3 * kSize, 'o'));
    EXPECT_THAT(record().text, HasSubstr("Nothing was received"));
    EXPECT_EQ(readFile(destination_).size(), 3 * kSize);
    kernel_.packets = {kSize};
    EXPECT_EQ(record().end, StreamRecorder::End::Stopped);
    EXPECT_EQ(readFile(destination_), std::string(kSize, 1));
}

TEST_F(Recorder, namesThePidThatTheReceiverDoesNotTake)
{
    pids_ = {0x11, 0x12, 0x100};
    kernel_.refusals[0x12] = EBUSY;
    kernel_.packets = {kSize};
    EXPECT_EQ(record().text, "adapter0/demux0: recording PID 0x0012: the receiver has no filter "
                             "left for it; nothing was recorded.");
    EXPECT_FALSE(fs::exists(destination_)) << "an empty file is left";
    kernel_.refusals.clear();
    EXPECT_EQ(record().end, StreamRecorder::End::Stopped);
    EXPECT_THAT(kernel_.pids, ElementsAre(0x11, 0x11, 0x12, 0x100));
}

} // namespace
