#include "drivers/linuxdvb/section_reader.h"

#include "drivers/linuxdvb/device.h"
#include "tests/linuxdvb/fake_kernel.h"
#include "tests/support/tests.h"
#include "tools/multiplex/sections.h"

// When reading from a live stream ends, and with what.

namespace {

TableRequest request(unsigned pid, unsigned tableId, CollectionMode mode = {})
{
    TableRequest out{};
    out.PID = pid;
    out.table_id = static_cast<std::uint8_t>(tableId);
    out.collection_mode = static_cast<std::uint32_t>(mode);
    return out;
}

TableRequest pmtRequest(unsigned pid, unsigned program)
{
    TableRequest out = request(pid, 0x02);
    out.match_table_id_extension = 1;
    out.table_id_extension = static_cast<std::uint16_t>(program);
    return out;
}

Bytes otherNit(unsigned network, const Header& header = {})
{
    return nit(kNitOther, network, {}, {}, header);
}

/// A part of an event schedule of two segments: numbers 0 and 1, and 8.
Bytes schedulePart(unsigned number, unsigned lastTable = 0x50, unsigned table = 0x50)
{
    const unsigned segmentLast = number < 8 ? 1 : 8;
    return longSection(table, 0x100, Writer().u16(1).u16(2).u8(segmentLast).u8(lastTable).get(),
                       {.number = number, .last = 8});
}

class SectionReading : public ::testing::Test {
protected:
    Answers read(const std::vector<TableRequest>& requests,
                 const tessaview::StopRequested& stop = {})
    {
        return tessaview::readTables(kernel_, "adapter0/demux0", requests, {30s, 120s}, stop);
    }

    /// A reading of so many sections that ends between these times.
    static void ends(const char* name, const std::vector<Broadcast>& air,
                     const TableRequest& wanted, std::size_t sections, milliseconds earliest,
                     milliseconds latest)
    {
        SCOPED_TRACE(name);
        FakeKernel kernel;
        kernel.air = air;
        const Answers answers =
            tessaview::readTables(kernel, "adapter0/demux0", {{wanted}}, {30s, 120s}, {});
        const milliseconds taken = kernel.elapsed();
        EXPECT_EQ(answers.lists.at(0).size(), sections);
        EXPECT_TRUE(taken >= earliest && taken <= latest) << taken.count();
        EXPECT_EQ(answers.problem.empty(), taken < 120s) << answers.problem;
        EXPECT_EQ(kernel.openFiles(), 0U);
    }

    FakeKernel kernel_;
};

TEST_F(SectionReading, endsWhenNothingMoreIsToBeExpected)
{
    const TableRequest nitOther = request(0x10, kNitOther, CollectionMode::OtherNetworks);
    const TableRequest schedule = request(0x12, 0x50, CollectionMode::AllEvents);
    std::vector<Broadcast> manyNetworks;
    for (unsigned i = 0; i < 60; ++i) // a new one every five seconds
        manyNetworks.push_back({0x10, otherNit(i), 10'000s, i * 5s, 1});
    ends("whenTheOneInstanceIsComplete",
         {{0x00, pat(1, {}, {.number = 0, .last = 1}), 500ms},
          {0x00, pat(1, {}, {.number = 1, .last = 1}), 500ms, 2s}},
         request(0, 0), 2, 2s, 2500ms);
    ends("atTheWaitLimitWhenNothingComes", {}, request(0x11, 0x4A), 0, 30s, 31s);
    ends("atTheWaitLimitWhenAPartIsMissing",
         {{0x11, bat(1, {}, {}, {.number = 0, .last = 1}), 500ms}}, request(0x11, 0x4A), 1, 30s,
         31s);
    ends("whenNothingNewCameForARound", {{0x10, otherNit(1), 2s}, {0x10, otherNit(2), 2s, 7s}},
         nitOther, 2, 19s, 20s);
    ends("notBeforeAPartIsThere",
         {{0x10, otherNit(1, {.number = 0, .last = 1}), 2s},
          {0x10, otherNit(1, {.number = 1, .last = 1}), 100s, 15s}},
         nitOther, 2, 27s, 28s);
    ends("atTheCeilingWhenNewSectionsStillCome", manyNetworks, nitOther, 24, 120s, 121s);
    ends("whenAllSegmentsOfAScheduleAreThere",
         {{0x12, schedulePart(0), 5s},
          {0x12, schedulePart(1), 5s, 1s},
          {0x12, schedulePart(8), 5s, 20s}},
         schedule, 3, 52s, 53s);
    ends("notBeforeTheTableThatAScheduleAnnounces",
         {{0x12, schedulePart(0, 0x51), 5s},
          {0x12, schedulePart(1, 0x51), 5s},
          {0x12, schedulePart(8, 0x51), 5s},
          {0x12, schedulePart(0, 0x51, 0x51), 500s, 31s}},
         schedule, 4, 63s, 64s);
}

class FewFilters : public SectionReading,
                   public ::testing::WithParamInterface<std::size_t FakeKernel::*> {};

TEST_P(FewFilters, takeTurns)
{
    kernel_.*GetParam() = 2;
    std::vector<TableRequest> requests;
    for (unsigned program = 1; program <= 7; ++program) {
        requests.push_back(pmtRequest(0x100, program));
        if (program != 3) // this one is not on air
            kernel_.air.push_back({0x100, pmt(program, 0x1FFF, {}), 400ms});
    }
    const Answers answers = read(requests);
    for (std::size_t i = 0; i < requests.size(); ++i)
        EXPECT_EQ(answers.lists.at(i).size(), i == 2 ? 0U : 1U) << i;
    EXPECT_EQ(kernel_.mostFilters, 2U);
    EXPECT_LE(kernel_.elapsed(), 31s);
    EXPECT_EQ(answers.problem, "");
}

INSTANTIATE_TEST_SUITE_P(SectionReading, FewFilters,
                         ::testing::Values(&FakeKernel::filterLimit, &FakeKernel::demuxLimit));

TEST_F(SectionReading, keepsWhatCameBeforeTheDeviceWasRemoved)
{
    kernel_.air = {{0x00, pat(1, {}), 100ms}};
    kernel_.at(3s, [this] { kernel_.isDemuxGone = true; });
    const Answers answers = read({request(0, 0), request(1, 1)});
    EXPECT_EQ(answers.lists.at(0).size(), 1U);
    EXPECT_THAT(answers.problem, HasSubstr("adapter0/demux0: the device was removed"));
    EXPECT_LE(kernel_.elapsed(), 4s);
}

TEST_F(SectionReading, failsWhenNothingCouldBeRead)
{
    kernel_.at(3s, [this] { kernel_.isDemuxGone = true; });
    EXPECT_THROW(read({request(0, 0)}), DeviceError);
    kernel_.isDemuxGone = false;
    kernel_.demuxOpenProblem = EBUSY;
    EXPECT_THROW(read({request(0, 0), request(1, 1)}), DeviceError);
    EXPECT_EQ(kernel_.openFiles(), 0U);
}

TEST_F(SectionReading, endsSoonWhenItIsInterrupted)
{
    bool isStopped = false;
    kernel_.at(5s, [&] { isStopped = true; });
    EXPECT_THROW(read({request(0, 0)}, [&] { return isStopped; }), tessaview::Interrupted);
    EXPECT_LE(kernel_.elapsed(), 5200ms);
    EXPECT_EQ(kernel_.openFiles(), 0U);
}

TEST_F(SectionReading, saysWhenSectionsWereLost)
{
    for (unsigned i = 0; i < 3000; ++i) // more than a filter holds between two looks
        kernel_.air.push_back({0x10, otherNit(i), 10s, 50ms});
    const Answers answers = read({request(0x10, kNitOther, CollectionMode::OtherNetworks)});
    EXPECT_THAT(answers.problem, HasSubstr("came too fast"));
}

TEST_F(SectionReading, takesNoSectionThatClaimsToBeLongerThanItIs)
{
    Bytes cut = pat(1, {{1, 0x100}});
    cut.pop_back();
    kernel_.air = {{0x00, cut, 100ms}, {0x00, Bytes{0x00, 0xB0}, 100ms}};
    EXPECT_TRUE(read({request(0, 0)}).lists.at(0).empty());
}

} // namespace
