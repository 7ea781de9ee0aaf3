#include "acquisition/section_batch.h"

#include "component/task_memory.h"
#include "tests/acquisition/recorder.h"
#include "tests/acquisition/task_memory_watch.h"
#include "tests/support/bytes.h"
#include "tests/support/scripted_driver.h"

#include <gmock/gmock.h>
#include <limits>

namespace {

using namespace tessaview; // NOLINT(google-build-using-namespace)
using testing::Contains;
using testing::ElementsAreArray;

struct Batch : testing::Test {
    Status read(std::size_t requests = 1)
    {
        return batch.read(*driver.get(), std::vector<TableRequest>(requests));
    }
    std::size_t live() const { return test::liveTaskBlocks() - before; }

    void TearDown() override { EXPECT_EQ(test::wrongReleases(), 0); }

    std::size_t before = test::liveTaskBlocks();
    test::Recorder recorder;
    ComPtr<test::ScriptedDriver> driver = test::ScriptedDriver::make();
    SectionBatch batch;
};

TEST_F(Batch, ownsItsSectionsUntilReleased)
{
    driver->air[{0, 0}] = {test::hex("00 B0 01 42 99"), test::hex("00 30 00")};
    ASSERT_EQ(read(2), status::kOk);
    EXPECT_EQ(batch.usable(0), 2);
    EXPECT_THAT(batch.section(0, 0).get(), ElementsAreArray(test::hex("00 B0 01 42")))
        << "no further than its section_length";
    EXPECT_EQ(live(), 6);
    batch.release(0);
    EXPECT_EQ(live(), 3);
    EXPECT_EQ(batch.count(0), 0);
    ASSERT_EQ(read(1), status::kOk) << "releases what is left of the batch before";
    EXPECT_EQ(live(), 3);
    auto kept = batch.section(0, 1);
    batch.releaseAll();
    EXPECT_EQ(live(), 3) << "as long as somebody keeps one";
    kept = {};
    EXPECT_EQ(live(), 0);
}

TEST_F(Batch, releasesOnlyTheArrayWhenNothingIsInIt)
{
    for (const std::int32_t count : {0, -1, std::numeric_limits<std::int32_t>::min()}) {
        driver->spoil = [count](std::span<SectionList> answers) {
            answers[0] = {.count = count,
                          .sections = static_cast<std::uint8_t**>(TessaviewTaskMemAlloc(8))};
            answers[0].sections[0] = reinterpret_cast<std::uint8_t*>(0x10);
        };
        ASSERT_EQ(read(), status::kOk);
        EXPECT_EQ(batch.count(0), count);
        EXPECT_EQ(batch.usable(0), 0);
        batch.releaseAll();
        EXPECT_EQ(live(), 0);
    }
}

TEST_F(Batch, reportsSectionsThatCannotBe)
{
    std::uint8_t* rubbish = nullptr;
    const std::vector<SectionList> lies{
        {.count = 3, .sections = nullptr},
        {.count = SectionBatch::kMaxSections + 1, .sections = &rubbish},
        {.count = std::numeric_limits<std::int32_t>::max(), .sections = &rubbish}};
    for (const SectionList& lie : lies) {
        driver->spoil = [&lie](std::span<SectionList> answers) { answers[0] = lie; };
        ASSERT_EQ(read(), status::kOk);
        EXPECT_EQ(batch.usable(0), 0);
        const std::string report = "Ignoring an answer of the driver: it claims " +
                                   std::to_string(lie.count) + " sections";
        EXPECT_THAT(recorder.printed(), Contains(report));
        EXPECT_THAT(recorder.logged(), Contains("<1> - " + report));
    }
}

TEST_F(Batch, leavesAFailedAnswerAlone)
{
    driver->failAt("ReadTables", status::kFail);
    driver->spoil = [](std::span<SectionList> answers) {
        answers[0] = {.count = 2, .sections = reinterpret_cast<std::uint8_t**>(0x10)};
    };
    EXPECT_EQ(read(), status::kFail);
    EXPECT_EQ(batch.count(0), 0);
    EXPECT_EQ(batch.usable(0), 0);
}

TEST_F(Batch, givesAMissingSectionAsEmpty)
{
    driver->spoil = [](std::span<SectionList> answers) {
        answers[0] = {.count = 1,
                      .sections = static_cast<std::uint8_t**>(TessaviewTaskMemAlloc(8))};
        answers[0].sections[0] = nullptr;
    };
    ASSERT_EQ(read(), status::kOk);
    EXPECT_EQ(batch.usable(0), 1);
    EXPECT_TRUE(batch.section(0, 0).empty());
}

} // namespace
