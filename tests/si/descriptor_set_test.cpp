#include "si/descriptors/descriptor_set.h"

#include "si/error.h"
#include "tests/support/bytes.h"

#include <sstream>

#include <gtest/gtest.h>

using namespace lib13818;
using test::hex;

namespace {

std::string dumpOfSet(const DescriptorSet& set)
{
    std::ostringstream out;
    set.dump(out);
    return out.str();
}

} // namespace

TEST(DescriptorSet, sortsByClassAndKeepsTheOrderWithin)
{
    const auto loop = hex("80 01 01 40 01 42 FF 00 00 00 40 01 41 65 00 13 00 73 00");
    DescriptorSet set;
    walkChecked(set, loop);
    std::string names;
    for (const auto& each : set.all<DescriptorNetworkName>())
        names += each.network_name;
    EXPECT_EQ(names, "BA");
    EXPECT_EQ(set.all<HighUserPrivate>().size(), 2U);
    EXPECT_EQ(set.all<LowUserPrivate>().size(), 4U);
    EXPECT_TRUE(set.all<DescriptorService>().empty());
}

/// Also with a class that was never refused behind it.
TEST(DescriptorSet, holdsWhatStandsBeforeARefusedDescriptor)
{
    const auto loop = hex("40 01 42 54 01 00 40 01 41");
    DescriptorSet set;
    EXPECT_THROW(set.fill(loop), error);
    EXPECT_EQ(set.all<DescriptorNetworkName>().size(), 1U);
    EXPECT_EQ(set.bytes().size(), 3U);
    EXPECT_THROW(set.fill(std::span(loop).subspan(3)), error);
    EXPECT_TRUE(set.empty());
}

TEST(DescriptorSet, leavesOneListOutAndKeepsTheOthers)
{
    const auto loop = hex("00 01 41 40 01 42 00 00 80 00 40 01 43");
    DescriptorSet set;
    set.fill(loop);
    set.leaveOut<LowUserPrivate>();
    EXPECT_TRUE(set.all<LowUserPrivate>().empty());
    EXPECT_EQ(set.all<DescriptorNetworkName>().size(), 2U);
    EXPECT_EQ(set.all<HighUserPrivate>().size(), 1U);
    EXPECT_EQ(dumpOfSet(set).find("Reserved"), std::string::npos);
    set.fill(std::span(loop).first(3));
    set.leaveOut<LowUserPrivate>();
    EXPECT_TRUE(set.empty());
}

TEST(DescriptorSet, anOverrunThrowsOnlyWhereTheLoopIsChecked)
{
    for (const char* text : {"53 02 0B 00 48 09 01", "53 02 0B 00 48"}) {
        const auto loop = hex(text);
        DescriptorSet checked;
        EXPECT_THROW(walkChecked(checked, loop), error);
        const DescriptorSet entry = walkEntry(loop);
        EXPECT_EQ(entry.all<DescriptorCAIdentifier>().size(), 1U);
        EXPECT_TRUE(entry.all<DescriptorService>().empty());
    }
}
