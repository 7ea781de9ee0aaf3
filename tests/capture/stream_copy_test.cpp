#include "drivers/capture/stream_copy.h"

#include "tests/support/small_disk.h"
#include "tests/support/tests.h"

#include <sys/stat.h>
#include <unistd.h>

namespace {

class StreamCopyTest : public testing::Test {
protected:
    StreamCopyTest()
    {
        // More than two blocks, so that something can happen in between.
        for (std::size_t i = 0; i < content_.size(); ++i)
            content_[i] = static_cast<char>(i * 7 + i / 251);
        writeFile(source_, content_);
    }

    StreamCopy::Result copyTo(
        const fs::path& destination,
        StreamCopy::FreeSpace free = [](const fs::path&) { return kPlenty; })
    {
        return StreamCopy(source_, destination, std::move(free)).run({});
    }

    std::vector<std::string> filesLeft() const
    {
        std::vector<std::string> names;
        for (const auto& each : fs::directory_iterator(folder_.path()))
            names.push_back(each.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    static constexpr std::uintmax_t kPlenty = std::uintmax_t{1} << 50;
    TemporaryFolder folder_;
    std::string content_ = std::string(10'000'000, '\0');
    fs::path source_ = folder_ / "source.ts";
    fs::path destination_ = folder_ / "copy.ts";
};

TEST_F(StreamCopyTest, writesTheWholeStreamInPlaceOfWhatWasThere)
{
    writeFile(destination_, "old");
    StreamCopy copy(source_, destination_, [](const fs::path&) { return kPlenty; });
    const auto result = copy.run({});
    EXPECT_EQ(result.end, StreamCopy::End::Done);
    EXPECT_EQ(result.text, "10.0 MB were written to " + destination_.string() + ".");
    EXPECT_EQ(copy.copied(), content_.size());
    EXPECT_EQ(copy.total(), content_.size());
    EXPECT_TRUE(readFile(destination_) == content_);
    EXPECT_EQ(filesLeft(), (std::vector<std::string>{"copy.ts", "source.ts"}));
}

TEST_F(StreamCopyTest, refusesDestinationsAndLeavesEverythingAsItWas)
{
    fs::create_directory(folder_ / "folder");
    fs::create_symlink(source_, folder_ / "link.ts");
    fs::create_hard_link(source_, folder_ / "hard.ts");
    ASSERT_EQ(mkfifo((folder_ / "pipe.ts").c_str(), 0600), 0);
    writeFile(folder_ / "busy.ts.part", "another copy");
    const auto before = filesLeft();
    const struct {
        const char* name;
        const char* text;
    } cases[] = {
        {"source.ts", "is the capture itself"},
        {"folder/../source.ts", "is the capture itself"},
        {"link.ts", "is the capture itself"},
        {"hard.ts", "is the capture itself"},
        {"folder", "is no file that can be replaced"},
        {"pipe.ts", "is no file that can be replaced"},
        {"busy.ts", "busy.ts.part cannot be opened: File exists"},
        {"missing/copy.ts", "No such file or directory"},
    };
    for (const auto& each : cases) {
        const auto result = copyTo(folder_ / each.name);
        EXPECT_EQ(result.end, StreamCopy::End::Failed) << each.name;
        EXPECT_THAT(result.text, HasSubstr(each.text)) << each.name;
    }
    EXPECT_EQ(filesLeft(), before);
    EXPECT_TRUE(readFile(source_) == content_);
}

TEST_F(StreamCopyTest, respectsWriteProtection)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "nothing is write-protected for root";
    writeFile(destination_, "old");
    fs::permissions(destination_, fs::perms::owner_read);
    EXPECT_THAT(copyTo(destination_).text, HasSubstr("copy.ts is write-protected"));
    fs::permissions(folder_.path(), fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_THAT(copyTo(folder_ / "new.ts").text, HasSubstr("Permission denied"));
    fs::permissions(folder_.path(), fs::perms::owner_all);
}

TEST_F(StreamCopyTest, neverFillsTheDisk)
{
    const auto enough = content_.size() + tessaview::kDiskReserve;
    EXPECT_EQ(copyTo(destination_, [&](const fs::path&) { return enough; }).end,
              StreamCopy::End::Done);
    const auto refused = copyTo(destination_, [&](const fs::path&) { return enough - 1; });
    EXPECT_EQ(refused.end, StreamCopy::End::Failed);
    EXPECT_THAT(refused.text, HasSubstr("the copy needs 10.0 MB more and leaves 268.4 MB free"));

    // Others write to the disk too.
    int asked = 0;
    const auto ended = copyTo(destination_, [&](const fs::path&) {
        return ++asked <= 2 ? enough : tessaview::kDiskReserve;
    });
    EXPECT_EQ(ended.end, StreamCopy::End::Failed);
    EXPECT_THAT(ended.text, HasSubstr("Nothing of the copy is left."));
    EXPECT_EQ(asked, 3);
    EXPECT_TRUE(readFile(destination_) == content_);
    EXPECT_EQ(filesLeft(), (std::vector<std::string>{"copy.ts", "source.ts"}));
}

TEST_F(StreamCopyTest, endsWhenItIsAskedTo)
{
    std::stop_source stop;
    int asked = 0;
    StreamCopy copy(source_, destination_, [&](const fs::path&) {
        if (++asked == 2)
            stop.request_stop();
        return kPlenty;
    });
    const auto result = copy.run(stop.get_token());
    EXPECT_EQ(result.end, StreamCopy::End::Cancelled);
    EXPECT_EQ(result.text, "Cancelled. Nothing of the copy is left.");
    EXPECT_LT(copy.copied(), content_.size());
    EXPECT_EQ(filesLeft(), std::vector<std::string>{"source.ts"});
}

TEST_F(StreamCopyTest, saysThatTheSourceShrankOrCannotBeRead)
{
    const auto shrunk = copyTo(destination_, [&](const fs::path&) {
        fs::resize_file(source_, 1000);
        return kPlenty;
    });
    EXPECT_EQ(shrunk.end, StreamCopy::End::Failed);
    EXPECT_THAT(shrunk.text, HasSubstr("became shorter"));
    fs::remove(source_);
    EXPECT_THAT(copyTo(destination_).text, HasSubstr("source.ts cannot be opened"));
    EXPECT_EQ(filesLeft(), std::vector<std::string>{});
}

TEST_F(StreamCopyTest, saysThatWritingFailedAndLeavesNothing)
{
    const SmallDisk disk(5'000'000);
    const auto result = copyTo(destination_);
    EXPECT_EQ(result.end, StreamCopy::End::Failed);
    EXPECT_THAT(result.text, HasSubstr("the copy cannot be written: File too large. Nothing"));
    EXPECT_EQ(filesLeft(), std::vector<std::string>{"source.ts"});
}

} // namespace
