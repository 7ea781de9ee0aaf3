#include "si/texts/registries.h"
#include "si/texts/registry.h"
#include "si/texts/value_texts.h"

#include <array>
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

TEST(Registries, nameKeysAtTheEdgesOfTheirRanges)
{
    struct Case {
        const char* (*name)(uint32_t);
        uint32_t key;
        const char* text;
    };
    constexpr const char* kGerman = "German Digital Terrestrial Television";
    constexpr const char* kDanish = "Danish Digital Terrestrial Television";
    for (const auto& [name, key, text] :
         std::initializer_list<Case>{{originalNetworkName, 0x0000, "Reserved"},
                                     {originalNetworkName, 0x0001,
                                      "Astra Satellite Network 19,2\xB0"
                                      "E"},
                                     {originalNetworkName, 0x0003, "Astra 1"},
                                     {originalNetworkName, 0x0019, "Astra 23"},
                                     {originalNetworkName, 0x0029, "Hispasat 30\xB0W"},
                                     {originalNetworkName, 0x0042, "<unknown>"},
                                     {originalNetworkName, 0x0045, "<unknown>"},
                                     {originalNetworkName, 0x0085, ""},
                                     {originalNetworkName, 0x00CD, "Canal +"},
                                     {originalNetworkName, 0x1200, "<unknown>"},
                                     {originalNetworkName, 0x1FFF, "<unknown>"},
                                     // One country's range after the other's.
                                     {originalNetworkName, 0x3001, kGerman},
                                     {originalNetworkName, 0x30BB, kGerman},
                                     {originalNetworkName, 0x30BD, kGerman},
                                     {originalNetworkName, 0x3100, kGerman},
                                     {originalNetworkName, 0x3201, kDanish},
                                     {originalNetworkName, 0x3300, kDanish},
                                     {originalNetworkName, 0xA00F, "Tele Denmark"},
                                     {originalNetworkName, 0xFCFF, "France Telecom Cable"},
                                     {originalNetworkName, 0xFD00, "National Cable Network"},
                                     {originalNetworkName, 0xFFFF, "Private_temporary_use"},
                                     {originalNetworkName, 0x10000, "<unknown>"},
                                     {caSystemName, 0x00FF, "Standardized systems"},
                                     {caSystemName, 0x0B00, "Norwegian Telekom"},
                                     {caSystemName, 0x1A00, "<unknown>"},
                                     {caSystemName, 0x4A90, "<unknown>"},
                                     {dataBroadcastName, 0x000A, "Reserved for future use by DVB"},
                                     {dataBroadcastName, 0x00EF, "Reserved for future use by DVB"},
                                     {dataBroadcastName, 0x0106, "The Digital Network\xA0"},
                                     {dataBroadcastName, 0x0117, "<unknown>"},
                                     {dataBroadcastName, 0xFFFF, "Reserved for future use"}})
        EXPECT_STREQ(name(key), text) << key;
}

TEST(ValueTexts, coverWhatIsNotListed)
{
    constexpr const char* kReserved = "reserved for future use";
    constexpr const char* kNoGenre = "undefined/user defined/reserved for future use";
    struct Case {
        const char* (*text)(int);
        int value;
        const char* expected;
    };
    for (const auto& [text, value, expected] :
         std::initializer_list<Case>{{caProviderText, 0x05FF, "France Telecom"},
                                     {caProviderText, 0x0600, "Irdeto"},
                                     {caProviderText, 0x0200, "unknown provider"},
                                     {polarizationText, 3, "circular - vertical"},
                                     {polarizationText, 4, "<unknown>"},
                                     {satelliteModulationText, 0, "not defined"},
                                     {satelliteModulationText, 2, "reserved"},
                                     {fecInnerText, 0, "not defined"},
                                     {fecInnerText, 6, "reserved"},
                                     {fecInnerText, 7, "no conv. coding"},
                                     {fecInnerText, 15, "reserved"},
                                     {serviceTypeText, 0, kReserved},
                                     {serviceTypeText, 12, kReserved},
                                     {serviceTypeText, 127, kReserved},
                                     {serviceTypeText, 128, "user defined"},
                                     {serviceTypeText, 254, "user defined"},
                                     {serviceTypeText, 255, kReserved},
                                     {teletextTypeText, 0, kReserved},
                                     {teletextTypeText, 5, kReserved},
                                     {contentNibble1Text, 0, kNoGenre},
                                     {contentNibble1Text, 12, kNoGenre},
                                     {hierarchyTypeText, 7, "reserved"},
                                     {hierarchyTypeText, 15, "Base Layer"},
                                     {alignmentTypeText, 0, "reserved"},
                                     {alignmentTypeText, 5, "reserved"},
                                     {codingTypeText, 0, "undefined"}})
        EXPECT_STREQ(text(value), expected) << value;
    EXPECT_STREQ(contentGenreText(12, 0), kNoGenre);
    EXPECT_STREQ(contentGenreText(1, 9), kNoGenre);
    EXPECT_STREQ(contentGenreText(11, 3), "live broadcast");
}
