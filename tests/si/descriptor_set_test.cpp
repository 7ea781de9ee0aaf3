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

TEST(DescriptorSet, isNotEmptyBehindALoopThatFailed)
{
    DescriptorSet set;
    EXPECT_THROW(walkEntry(set, hex("54 01 00")), error);
    EXPECT_TRUE(set.empty());
    test::Bytes large(257, 0x41);
    large[0] = 0x40;
    large[1] = 0xFF;
    for (int i = 0; i < 3; ++i)
        set.add(large.data());
    EXPECT_FALSE(set.empty());
    EXPECT_EQ(set.all<DescriptorNetworkName>().size(), 3U);
}

TEST(DescriptorSet, forgetsOneListAndKeepsTheOthers)
{
    DescriptorSet set;
    walkEntry(set, hex("00 01 41 40 01 42 00 00 80 00 40 01 43"));
    set.clear<LowUserPrivate>();
    EXPECT_TRUE(set.all<LowUserPrivate>().empty());
    EXPECT_EQ(set.all<DescriptorNetworkName>().size(), 2U);
    EXPECT_EQ(set.all<HighUserPrivate>().size(), 1U);
}

TEST(DescriptorSet, copiesAreTheirOwn)
{
    DescriptorSet set;
    walkEntry(set, hex("4D 08 65 6E 67 01 41 02 42 43 54 02 12 34 80 02 01 02"));
    for (int i = 0; i < 40; ++i) // beyond what was planned for
        set.add(hex("52 01 07").data());
    const std::string dump = dumpOfSet(set);
    DescriptorSet copy = set;
    DescriptorSet moved = std::move(set);
    moved = DescriptorSet();
    EXPECT_EQ(dumpOfSet(copy), dump);
    EXPECT_EQ(copy.all<DescriptorStreamIdentifier>().size(), 40U);
    EXPECT_TRUE(moved.empty());
}

TEST(DescriptorSet, anOverrunThrowsOnlyWhereTheLoopIsChecked)
{
    for (const char* loop : {"53 02 0B 00 48 09 01", "53 02 0B 00 48"}) {
        DescriptorSet checked;
        EXPECT_THROW(walkChecked(checked, hex(loop)), error);
        DescriptorSet entry;
        walkEntry(entry, hex(loop));
        EXPECT_EQ(entry.all<DescriptorCAIdentifier>().size(), 1U);
        EXPECT_TRUE(entry.all<DescriptorService>().empty());
    }
}
