#include "si/descriptors/ait_descriptor_set.h"
#include "si/descriptors/descriptor_set.h"
#include "si/error.h"
#include "tests/support/bytes.h"
#include "tests/support/worked_cases.h"

#include <set>

using namespace lib13818;
using test::decode;

namespace {

/// The lines of a descriptor's own fields, in hexadecimal.
std::string linesOf(const Descriptor& descriptor)
{
    std::ostringstream out;
    descriptor.dumpBody(out << std::hex);
    return out.str();
}

/// What is left of the lines by `clear`, where that is less.
template <class Set>
std::string clearedLines(const test::Bytes& bytes)
{
    std::string lines;
    Set::forEachType([&]<class List>() {
        if constexpr (requires { List::kTag; })
            if (List::kTag == bytes[0]) {
                const auto block = test::exactly(bytes);
                List descriptor(block.get());
                const std::string before = linesOf(descriptor);
                descriptor.clear();
                if (const std::string left = linesOf(descriptor); left != before)
                    lines = "cleared: " + test::onOneLine(left);
            }
    });
    return lines;
}

/// What a descriptor's dump writes, also once it is cleared; of one that is not taken why not.
template <class Set>
std::string dumpOf(const std::string& descriptor)
{
    const test::Bytes bytes = test::hex(descriptor);
    const auto block = test::exactly(bytes);
    Set set;
    try {
        set.fill({block.get(), bytes.size()});
    } catch (const error& failure) {
        EXPECT_TRUE(set.empty()) << descriptor;
        return "refused with " + std::to_string(failure.code) + ": " + failure.what();
    }
    std::ostringstream out;
    set.dump(out);
    return test::printable(out.str() + clearedLines<Set>(bytes));
}

} // namespace

TEST(Descriptors, dumpTheirFieldsAndClearTheirLists)
{
    test::expectWorked("support/every_descriptor.txt", dumpOf<DescriptorSet>);
}

/// A class that the text lacks is not looked at by anybody.
TEST(Descriptors, areAllInTheText)
{
    std::set<unsigned> tags;
    for (const std::string& input : test::inputsOf("support/every_descriptor.txt"))
        tags.insert(test::hex(input).at(0));
    DescriptorSet::forEachType([&]<class List>() {
        if constexpr (requires { List::kTag; }) {
            EXPECT_TRUE(tags.contains(List::kTag)) << int{List::kTag};
        }
    });
}

TEST(Descriptors, keepToTheirEnds)
{
    test::expectWorked("si/descriptor_edges.txt", dumpOf<DescriptorSet>);
}

TEST(AitDescriptors, dumpTheirFieldsClearTheirListsAndKeepToTheirEnds)
{
    test::expectWorked("si/ait_descriptors.txt", dumpOf<AitDescriptorSet>);
}

/// Also where the dump does not show them.
TEST(Descriptors, clearSomeListsAndLeaveOthers)
{
    const auto cleared = [](auto descriptor) {
        descriptor.clear();
        return descriptor;
    };
    EXPECT_TRUE(cleared(decode<DescriptorVBITeletext>("46 05 656E67 11 88")).entries.empty());
    EXPECT_TRUE(
        cleared(decode<DescriptorFrequencyList>("62 05 01 00000001")).centre_frequency.empty());
    EXPECT_EQ(cleared(decode<DescriptorVBIData>("45 03 01 01 FF")).entries.size(), 1U);
    EXPECT_EQ(cleared(decode<DescriptorAnnouncementSupport>("6E 03 0001 20")).entries.size(), 1U);
    EXPECT_EQ(cleared(decode<DescriptorDSNG>("68 02 81 82")).byte.size(), 2U);
    EXPECT_EQ(cleared(decode<DescriptorDataBroadcast>("64 09 0001 02 00 656E67 01 41")).text, "A");
}

TEST(SatelliteDeliveryDescriptor, givesItsCodesInWords)
{
    const auto satellite =
        decode<DescriptorSatelliteDeliverySystem>("43 0B 01175725 0192 C1 02750003");
    EXPECT_STREQ(satellite.polarizationText(), "circular - horizontal");
    EXPECT_STREQ(satellite.modulationText(), "QPSK");
    EXPECT_STREQ(satellite.FECInnerText(), "3/4");
}

TEST(TransportProtocolDescriptor, leavesTheOtherSelectorAlone)
{
    const auto carousel = decode<DescriptorTransportProtocol>("02 05 0001 07 00 2A");
    EXPECT_EQ(carousel.objectCarousel.component_tag, 0x2A);
    EXPECT_EQ(carousel.ip.alignment_indicator, 0);
    const auto ip = decode<DescriptorTransportProtocol>("02 0B 0002 07 80 0001 0002 0003 80");
    EXPECT_EQ(ip.ip.service_id, 3);
    EXPECT_EQ(ip.objectCarousel.service_id, 0);
}
