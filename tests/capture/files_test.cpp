#include "component/path_text.h"
#include "drivers/capture/capture_index.h"
#include "platform/settings.h"
#include "tests/capture/loaded_driver.h"
#include "tests/support/tests.h"
#include "tools/multiplex/descriptors.h"
#include "tools/multiplex/sections.h"
#include "tools/multiplex/stream_builder.h"

#include <sys/stat.h>

// Which files and folders make captures, and what is said of the others.

namespace {

Bytes stream(unsigned id)
{
    return StreamBuilder().put(0x0000, pat(id, {})).build();
}

TEST(CaptureFiles, thatCannotBeUsedAreReportedLineByLine)
{
    const LoadedDriver driver;
    const fs::path& folder = driver.folder();
    const Bytes good = stream(0x8001);
    driver.file("empty.ts", {});
    driver.file("text.ts", Bytes(1000, 'A'));
    driver.file("cut.ts", Bytes(good.begin(), good.begin() + 187));
    driver.file("good.ts", good);
    driver.file("bare/notes.txt", good);
    driver.file("set/Astra/deeper/x.ts", good);
    driver.file("set/Astra/y.TS", stream(0x8002));
    ASSERT_EQ(mkfifo((folder / "pipe.ts").c_str(), 0600), 0);
    fs::create_symlink(folder / "gone", folder / "dangling.ts");
    const struct {
        const char* name;
        const char* problem; // null: it is used
    } cases[] = {
        {"empty.ts", "is empty"},
        {"text.ts", "is no MPEG-2 transport stream"},
        {"cut.ts", "is no MPEG-2 transport stream"},
        {"pipe.ts", "is not a regular file"},
        {"missing.ts", "cannot be opened: No such file or directory"},
        {"dangling.ts", "cannot be opened: No such file or directory"},
        {"bare", "holds no transport streams"},
        {"good.ts", nullptr},
    };
    std::vector<fs::path> all;
    std::string lines;
    for (const auto& each : cases) {
        all.push_back(folder / each.name);
        tessaview::Status status = 1;
        const std::string line =
            each.problem ? (folder / each.name).string() + ": " + each.problem : "";
        EXPECT_EQ(driver.use({folder / each.name}, &status), line);
        EXPECT_EQ(tessaview::failed(status), each.problem != nullptr) << each.name;
        if (each.problem)
            lines += (lines.empty() ? "" : "\n") + line;
    }
    all.push_back(folder / "set");
    lines += "\n" + (folder / "set/Astra/deeper").string() +
             ": is not looked into: a satellite's folder holds only files";
    EXPECT_EQ(driver.use(all), lines);
    EXPECT_EQ(driver.stream(), 0x8001U);
    driver.use({folder / "missing.ts"});
    driver.use({});
    EXPECT_EQ(driver.stream(), 0x8001U) << "what fails leaves the tuner as it was";
}

TEST(CaptureFiles, ofAFolderAreTakenByNameAndOnlyOnce)
{
    const LoadedDriver driver;
    driver.file("set/b.ts", stream(2));
    driver.file("set/A.m2ts", stream(1));
    driver.file("set/Astra/c.trp", stream(3));
    driver.file("set/.hidden", stream(4));
    const auto set = tessaview::openCaptures(
        {driver.folder() / "set/b.ts", driver.folder() / "set", driver.folder() / "set/../set"});
    std::string found;
    for (const auto& each : set.captures)
        found += std::to_string(each.source) + " " + each.file.filename().string() + " " +
                 each.satellite + " " + std::to_string(each.transport_stream_id.value_or(0)) + "\n";
    EXPECT_EQ(found, "0 b.ts  2\n"
                     "1 A.m2ts  1\n"
                     "1 c.trp Astra 3\n");
    EXPECT_TRUE(set.problems.empty());
}

TEST(CaptureFiles, areOpenedAndStoredWhateverTheBytesOfTheirNames)
{
    const LoadedDriver driver;
    for (const char* const name :
         {"caf\xE9 100%.ts", "file:/\xFF/\xED\xA0\x80.ts", "caf\xC3\xA9.ts"}) {
        const fs::path file = driver.file(name, stream(1));
        EXPECT_EQ(tessaview::pathFromText(tessaview::pathText(file)), file);
        EXPECT_EQ(driver.use({file}), "") << name;
        EXPECT_TRUE(driver.isLocked());
        tessaview::Settings(tessaview::defaultSettingsFile())
            .setTexts("drivers", "captures", {tessaview::pathText(file)});
        driver.initialize();
        EXPECT_EQ(driver.read({request(0, 0)}).front().size(), 1U) << name;
    }
    for (const char* const text : {"file://a%4", "file://a%zz", "/a%41"})
        EXPECT_EQ(tessaview::pathFromText(text), text);
}

TEST(CaptureFiles, areIndexedWithProgressAndUntilAskedToStop)
{
    const LoadedDriver driver;
    for (const char* name : {"set/a.ts", "set/b.ts", "set/c.ts"})
        driver.file(name, stream(1));
    std::stop_source stop;
    std::vector<std::pair<std::size_t, std::size_t>> steps;
    const auto set = tessaview::openCaptures(
        {driver.folder() / "set"},
        [&](std::size_t done, std::size_t total) {
            steps.emplace_back(done, total);
            if (done == 2)
                stop.request_stop();
        },
        [&] { return stop.stop_requested(); });
    EXPECT_EQ(steps, (std::vector<std::pair<std::size_t, std::size_t>>{{0, 3}, {1, 3}, {2, 3}}));
    EXPECT_EQ(set.captures.size(), 2U);
}

TEST(CaptureFiles, thatGoAwayOrShrinkLaterAreAFailedReadOrAShorterOne)
{
    const LoadedDriver driver;
    StreamBuilder builder;
    builder.put(0x0000, pat(1, {})).nullPackets(20'000).put(0x0011, sdt(0x42, 1, 1, {}));
    const fs::path file = driver.file("a.ts", builder.build());
    driver.use({file});
    const auto sdtActual = request(0x0011, 0x42);
    EXPECT_EQ(driver.read({sdtActual}).front().size(), 1U);
    fs::resize_file(file, 1'000'000);
    EXPECT_EQ(driver.read({sdtActual}).front().size(), 0U);
    fs::remove(file);
    EXPECT_THROW(driver.read({sdtActual}), std::runtime_error);
    EXPECT_EQ(driver.statusText(),
              "capture a.ts locked (cannot be opened: No such file or directory)");
}

} // namespace
