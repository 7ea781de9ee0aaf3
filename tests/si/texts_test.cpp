#include "si/texts/registries.h"
#include "si/texts/registry.h"
#include "si/texts/value_texts.h"
#include "tests/support/worked_cases.h"

#include <array>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

using namespace lib13818;

namespace {

/// How many ranges, texts and keys a registry has.
std::array<std::size_t, 3> extentOf(const Registry& registry)
{
    std::set<std::string_view> texts;
    std::size_t keys = 0;
    for (const RegistryRow& range : registry.ranges()) {
        texts.insert(range.text);
        keys += range.last - range.first + 1;
    }
    return {registry.ranges().size(), texts.size(), keys};
}

} // namespace

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

TEST(Registries, haveTheExtentOfTheAllocations)
{
    using Extent = std::array<std::size_t, 3>;
    EXPECT_EQ(extentOf(originalNetworks()), (Extent{193, 169, 3591}));
    EXPECT_EQ(extentOf(caSystems()), (Extent{46, 46, 9360}));
    EXPECT_EQ(extentOf(dataBroadcasts()), (Extent{38, 36, 279}));
}

using TextOf = std::function<std::string(std::uint32_t)>;

template <class Number>
TextOf textOf(const char* (*text)(Number))
{
    return [text](std::uint32_t number) { return text(static_cast<Number>(number)); };
}

const std::map<std::string, TextOf> kTexts{
    {"caSystemName", textOf(caSystemName)},
    {"dataBroadcastName", textOf(dataBroadcastName)},
    {"originalNetworkName", textOf(originalNetworkName)},
    {"caProviderText", textOf(caProviderText)},
    {"polarizationText", textOf(polarizationText)},
    {"satelliteModulationText", textOf(satelliteModulationText)},
    {"fecInnerText", textOf(fecInnerText)},
    {"serviceTypeText", textOf(serviceTypeText)},
    {"teletextTypeText", textOf(teletextTypeText)},
    {"contentNibble1Text", textOf(contentNibble1Text)},
    {"hierarchyTypeText", textOf(hierarchyTypeText)},
    {"alignmentTypeText", textOf(alignmentTypeText)},
    {"codingTypeText", textOf(codingTypeText)},
    {"contentGenreText",
     [](std::uint32_t nibbles) {
         return contentGenreText(static_cast<int>(nibbles >> 4), static_cast<int>(nibbles & 0x0F));
     }},
};

TEST(ValueTexts, coverWhatIsListedAndWhatIsNot)
{
    test::expectWorked("si/value_texts.txt", [](const std::string& input) {
        const std::size_t blank = input.find(' ');
        const auto number =
            static_cast<std::uint32_t>(std::stoul(input.substr(blank), nullptr, 16));
        return test::printable(kTexts.at(input.substr(0, blank))(number)) + '\n';
    });
}
