#include "si/descriptors/descriptor_set.h"

#include "si/texts/registries.h"
#include "si/texts/registry.h"
#include "si/texts/value_texts.h"
#include "tests/support/descriptor_cases.h"

#include <random>

using namespace lib13818;
using test::dumpOf;
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

TEST(DescriptorSet, everyTagOfTheTableHasItsClass)
{
    int own = 0;
    for (std::size_t tag = 0; tag < 256; ++tag) {
        const auto list = DescriptorSet::kListOfTag[tag];
        own += list != DescriptorSet::kIndex<LowUserPrivate> &&
                       list != DescriptorSet::kIndex<HighUserPrivate>
                   ? 1
                   : 0;
    }
    EXPECT_EQ(own, 67);
    EXPECT_EQ(DescriptorSet::kCount, 69U);
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

TEST(DescriptorUserPrivate, dumpsItsBytesInRows)
{
    EXPECT_EQ(dumpOf("00 00 65 11 41 5A 61 7A 30 00 01 02 03 04 05 06 07 08 09 0A 5B"),
              "descriptor_tag: 00 Reserved\ndata:\n"
              "descriptor_tag: 65 User Private\ndata:\n"
              "41 5a 61 7a 30 00 01 02 03 04 05 06 07 08 09 0a  : AZaz............\n"
              "5b                                               : .\n");
}

/// Every tag at every length, in blocks that hide nothing from the address sanitizer: it throws,
/// or what it decoded can be copied and dumped.
TEST(DescriptorSet, readsNothingBeyondADescriptor)
{
    std::mt19937 random(300468);
    for (unsigned tag = 0; tag < 256; ++tag)
        for (unsigned length = 0; length < 256; ++length)
            for (const unsigned range : {256U, 8U}) {
                test::Bytes bytes(2 + length);
                for (uint8_t& byte : bytes)
                    byte = static_cast<uint8_t>(random() % range);
                bytes[0] = static_cast<uint8_t>(tag);
                bytes[1] = static_cast<uint8_t>(length);
                DescriptorSet set;
                try {
                    set.add(test::exactly(bytes).get());
                } catch (const error&) {
                    ASSERT_TRUE(set.empty());
                    continue;
                }
                const std::string dump = dumpOfSet(DescriptorSet(set));
                ASSERT_EQ(dump, dumpOfSet(set));
                ASSERT_LT(dump.size(), 60'000U);
            }
}

TEST(Registries, holdTheLastRowOfAKey)
{
    constexpr RegistryRow kRows[] = {{1, 9, "a"}, {3, 4, "b"}, {5, 5, "b"}, {9, 12, "c"}};
    const Registry registry(kRows);
    std::string texts;
    for (uint32_t key = 0; key < 14; ++key)
        texts += registry.name(key)[0];
    EXPECT_EQ(texts, "<aabbbaaacccc<");
    EXPECT_EQ(registry.ranges().size(), 4U);
}

TEST(Registries, nameKeysAtTheEdgesOfTheirRanges)
{
    EXPECT_STREQ(originalNetworkName(0x0085), "");
    EXPECT_STREQ(originalNetworkName(0x0042), "<unknown>");
    EXPECT_STREQ(originalNetworkName(0x0019), "Astra 23");
    EXPECT_STREQ(originalNetworkName(0x30BC), "<unknown>");
    EXPECT_STREQ(originalNetworkName(0xFFFF), "Private_temporary_use");
    EXPECT_STREQ(caSystemName(0x0B00), "Norwegian Telekom");
    EXPECT_STREQ(caSystemName(0x1A00), "<unknown>");
    EXPECT_STREQ(caSystemName(0x4A90), "<unknown>");
    EXPECT_EQ(caSystems().ranges().size(), 46U);
    EXPECT_STREQ(dataBroadcastName(0x00EF), "Reserved for future use by DVB");
    EXPECT_STREQ(dataBroadcastName(0x0117), "<unknown>");
}

TEST(ValueTexts, coverWhatIsNotListed)
{
    EXPECT_STREQ(caProviderText(0x0604), "Irdeto");
    EXPECT_STREQ(caProviderText(0x0200), "unknown provider");
    EXPECT_STREQ(fecInnerText(7), "no conv. coding");
    EXPECT_STREQ(fecInnerText(6), "reserved");
    EXPECT_STREQ(fecInnerText(15), "reserved");
    EXPECT_STREQ(serviceTypeText(0x80), "user defined");
    EXPECT_STREQ(serviceTypeText(0xFF), "reserved for future use");
    EXPECT_STREQ(contentGenreText(12, 0), "undefined/user defined/reserved for future use");
}
