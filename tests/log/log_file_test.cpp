#include "log/log_file.h"

#include "tests/support/temporary_folder.h"

#include <array>
#include <gmock/gmock.h>
#include <regex>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include <gtest/gtest.h>

using namespace tessaview;
using test::readFile;
using test::TemporaryFolder;
using test::writeFile;

namespace {

constexpr std::uint32_t kAllPrefixes = 0x0F;
constexpr std::uint32_t kFileAndDebugger = 0x41;

LogTime now{};

LogTime testTime()
{
    return now;
}

/// A log whose clock stands at a Sunday of July, 3 o'clock UTC, unless a test moves it.
class Log : public testing::Test {
protected:
    Log()
    {
        tzset();
        now = {.seconds = 1783220400, .milliseconds = 7};
    }
    ~Log() override { log_.Close(); }

    int open(std::uint32_t prefixes, std::int32_t level = 4)
    {
        return log_.Open(file_.string(), kFileAndDebugger, prefixes, level);
    }
    std::string written() const { return readFile(file_); }

    const test::Environment zone_{"TZ", "UTC0"};
    TemporaryFolder folder_;
    std::filesystem::path file_ = folder_ / "run.txt";
    CLogFile log_{testTime};
};

TEST_F(Log, writesNumberTimeElapsedSecondsAndLevelBeforeTheMessage)
{
    writeFile(file_, "an earlier run\n");
    now = {.seconds = 1783220410, .milliseconds = 900};
    ASSERT_EQ(open(kAllPrefixes), 0);
    LogPrint(log_, 2, "Starting %s %d", "Tessaview", 3);
    now = {.seconds = 1783220411, .milliseconds = 100};
    LogPrint(log_, 1, "Failed to read NIT");
    now = {.seconds = 1783220535, .milliseconds = 7};
    LogPrint(log_, 0, "%s", "");
    now = {.seconds = 1783220409, .milliseconds = 700}; // the clock was set back
    LogPrint(log_, 1, "x");
    // On disk while the log is still open.
    EXPECT_EQ(written(), "   1 - Jul  5 03:00:10.900 - (0.000) - <2> - Starting Tessaview 3\r\n"
                         "   2 - Jul  5 03:00:11.100 - (0.200) - <1> - Failed to read NIT\r\n"
                         "   3 - Jul  5 03:02:15.  7 - (124.107) - <0> - \r\n"
                         "   4 - Jul  5 03:00:09.700 - (-1.200) - <1> - x\r\n");
}

TEST_F(Log, neitherWritesNorCountsALineAboveTheLevel)
{
    ASSERT_EQ(open(log_prefix::kLevel | log_prefix::kLineNumber, 0), 0);
    LogPrint(log_, 1, "above 0");
    LogPrint(log_, 0, "at 0");
    log_.SetLevel(4);
    LogPrint(log_, 5, "above 4");
    LogPrint(log_, 4, "at 4");
    log_.SetLevel(-1);
    LogPrint(log_, -1, "a negative level drops everything");
    EXPECT_EQ(written(), "   1 - <0> - at 0\r\n   2 - <4> - at 4\r\n");
}

TEST_F(Log, isOpenedOnceAndTellsWhyNot)
{
    EXPECT_EQ(log_.Close(), 2);
    EXPECT_EQ(log_.Open(file_.string(), 0, kAllPrefixes, 4), 6);
    EXPECT_EQ(log_.Open(file_.string(), 0x02, kAllPrefixes, 4), 5);
    EXPECT_EQ(log_.Open((folder_ / "no/such/folder").string(), 0x41, kAllPrefixes, 4), 1);
    EXPECT_EQ(LogPrint(log_, 1, "dropped"), 0);
    EXPECT_FALSE(std::filesystem::exists(file_));
    EXPECT_EQ(open(kAllPrefixes), 0);
    EXPECT_EQ(open(0), 4);
    LogPrint(log_, 1, "still with prefixes");
    EXPECT_THAT(written(), testing::StartsWith("   1 - "));
    EXPECT_EQ(log_.Close(), 0);
    EXPECT_EQ(log_.Close(), 2);
    EXPECT_EQ(open(log_prefix::kLineNumber), 0);
    LogPrint(log_, 1, "counted afresh");
    EXPECT_EQ(written(), "   1 - counted afresh\r\n");
}

TEST_F(Log, hasAtMost1023BytesInALineAndCutsBetweenCharacters)
{
    struct Case {
        std::uint32_t prefixes;
        std::string message;
        std::size_t kept;
    };
    std::string euros;
    std::string dishes;
    for (int i = 0; i < 600; ++i) {
        euros += "\xE2\x82\xAC";
        dishes += "\xF0\x9F\x93\xA1";
    }
    for (const Case& each :
         {Case{0, std::string(1022, 'x'), 1022}, Case{0, std::string(1023, 'x'), 1022},
          Case{log_prefix::kLevel, std::string(5000, 'x'), 1022 - 6},
          Case{0, "x" + euros, 1 + 340UL * 3}, Case{0, "xx" + euros, 2 + 340UL * 3},
          Case{0, "xxx" + euros, 3 + 339UL * 3}, Case{0, dishes, 255UL * 4},
          // Not UTF-8 at all: no place is better than another.
          Case{0, std::string(2000, '\x80'), 1022}}) {
        ASSERT_EQ(open(each.prefixes), 0);
        LogPrint(log_, 1, "%s", each.message.c_str());
        const std::string prefix = each.prefixes == 0 ? "" : "<1> - ";
        EXPECT_EQ(written(), prefix + each.message.substr(0, each.kept) + "\r\n");
        log_.Close();
    }
}

TEST_F(Log, keepsAMessageOnOneLine)
{
    ASSERT_EQ(open(0), 0);
    log_.WriteLine("a\r\n   9 - forged\t\x1B[2J\x7F\xC2\x85 caf\xC3\xA9\xE2\x80\xAE\xE2\x81\xA6",
                   1);
    EXPECT_EQ(written(), "a\xE2\x90\x8D\xE2\x90\x8A   9 - forged\xE2\x90\x89\xE2\x90\x9B[2J"
                         "\xE2\x90\xA1\xEF\xBF\xBD caf\xC3\xA9\xEF\xBF\xBD\xEF\xBF\xBD\r\n");
}

TEST_F(Log, mirrorsItsLinesOnStandardErrorForDebugging)
{
    {
        const test::Environment debug("TESSAVIEW_DEBUG", "1");
        testing::internal::CaptureStderr();
        ASSERT_EQ(log_.Open("", log_open::kDebugger, log_prefix::kLevel, 4), 0);
        LogPrint(log_, 2, "seen");
        log_.Close();
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "<2> - seen\n");
    }
    const test::Environment debug("TESSAVIEW_DEBUG", nullptr);
    testing::internal::CaptureStderr();
    ASSERT_EQ(open(log_prefix::kLevel), 0);
    LogPrint(log_, 2, "not seen");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(Log, numbersTheLinesOfSeveralThreadsWithoutGapOrMixture)
{
    ASSERT_EQ(open(log_prefix::kLineNumber), 0);
    std::vector<std::jthread> threads;
    threads.reserve(4);
    for (int thread = 0; thread < 4; ++thread)
        threads.emplace_back([&] {
            for (int i = 0; i < 250; ++i)
                LogPrint(log_, 1, "%s", "one whole message");
        });
    threads.clear();
    std::string expected;
    for (int i = 1; i <= 1000; ++i) {
        std::string number = std::to_string(i);
        expected += std::string(4 - number.size(), ' ') + number + " - one whole message\r\n";
    }
    EXPECT_EQ(written(), expected);
}

TEST(LogPath, liesBesideTheExecutable)
{
    const TemporaryFolder folder;
    const std::string base = folder.path().string() + "/";
    EXPECT_EQ(logPathFor(base + "siexp.exe"), base + "siexp.txt");
    EXPECT_EQ(logPathFor(base + "tessaview3"), base + "tessaview3.txt");
    EXPECT_EQ(logPathFor(base + "tool-3.0.1"), base + "tool-3.0.1.txt");
    EXPECT_EQ(logPathFor("/a.b"), "quorva.txt");
    EXPECT_EQ(logPathFor(""), "quorva.txt");
}

TEST(LogPath, isTheUsersStateFolderWhereTheExecutablesCannotBeWrittenOrIsInstalled)
{
    const TemporaryFolder folder;
    const test::Environment state("XDG_STATE_HOME", folder.path().c_str());
    const std::filesystem::path program = folder / "bin/tessaview3";
    std::filesystem::create_directory(folder / "bin");
    EXPECT_EQ(logPathFor(program), folder / "tessaview3/tessaview3.txt");
    writeFile(folder / "CMakeCache.txt", "");
    EXPECT_EQ(logPathFor(program), program.string() + ".txt");
    EXPECT_EQ(logPathFor("/proc/self/tessaview3"), folder / "tessaview3/tessaview3.txt");
    EXPECT_TRUE(std::filesystem::is_directory(folder / "tessaview3"));
    const test::Environment ignored("XDG_STATE_HOME", "relative");
    const test::Environment home("HOME", folder.path().c_str());
    EXPECT_EQ(logPathFor("/proc/self/tessaview3"),
              folder / ".local/state/tessaview3/tessaview3.txt");
}

TEST(ApplicationLog, startsWithItsFirstLine)
{
    const TemporaryFolder folder;
    ASSERT_EQ(openApplicationLog((folder / "run.txt").string()), 0);
    LogPrint(g_log, 4, "detail");
    LogPrint(g_log, 5, "too much detail");
    g_log.Close();
    EXPECT_TRUE(std::regex_match(
        readFile(folder / "run.txt"),
        std::regex(
            "   1 - [A-Z][a-z]{2} [ 123][0-9] [0-9:]{8}\\.[ 0-9]{3} - \\([0-9]+\\.[0-9]{3}\\)"
            " - <2> - Starting Tessaview 3\r\n"
            "   2 - .{19} - \\([0-9]+\\.[0-9]{3}\\) - <4> - detail\r\n")))
        << readFile(folder / "run.txt");
    EXPECT_EQ(openApplicationLog((folder / "no/such/folder").string()), 1);
}

TEST(ApplicationLog, takesTheFirstFreeNameWhileOthersWriteAndSaysSo)
{
    const TemporaryFolder folder;
    const std::string path = (folder / "run.txt").string();
    const std::uint32_t flags = log_open::kFile | log_open::kUnshared;
    std::array<CLogFile, 2> others;
    ASSERT_EQ(others[0].Open(path, flags, 0, 4), 0);
    ASSERT_EQ(others[1].Open((folder / "run-2.txt").string(), flags, 0, 4), 0);
    LogPrint(others[0], 1, "not lost");
    testing::internal::CaptureStderr();
    ASSERT_EQ(openApplicationLog(path), 0);
    const std::string saying = "another explorer writes the log " + path + "; this one writes " +
                               (folder / "run-3.txt").string();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), saying + "\n");
    EXPECT_THAT(readFile(folder / "run-3.txt"),
                testing::ContainsRegex("1 - .*Starting Tessaview 3\r\n   2 - .*" + saying));
    EXPECT_EQ(readFile(path), "not lost\r\n");
    g_log.Close();
    others[0].Close();
    // Only what is a log, or empty, is emptied.
    ASSERT_EQ(openApplicationLog(path), kForeignLog);
    EXPECT_EQ(readFile(path), "not lost\r\n");
    g_log.Close();
    writeFile(path, "   1 - Starting Tessaview 3\r\nold\r\n");
    ASSERT_EQ(openApplicationLog(path), 0);
    EXPECT_THAT(readFile(path), testing::Not(testing::HasSubstr("old")));
    g_log.Close();
}

} // namespace
