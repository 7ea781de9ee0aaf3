#include "component/guid.h"

#include "tests/support/bytes.h"

#include <cstring>

#include <gtest/gtest.h>

using namespace tessaview;

namespace {

TEST(Guid, liesInMemoryAsItCrossesTheBoundary)
{
    const Guid guid = "{F209EF9A-660B-4D77-A54F-AD659FF97175}"_guid;
    std::vector<std::uint8_t> bytes(sizeof guid);
    std::memcpy(bytes.data(), &guid, sizeof guid);
    EXPECT_EQ(bytes, test::hex("9AEF09F2 0B66 774D A54F AD659FF97175"));
}

TEST(Guid, isReadInEitherCaseAndPrintedInUpperCase)
{
    const auto guid = parseGuid("{f209ef9a-660B-4d77-a54f-ad659ff97175}");
    ASSERT_TRUE(guid);
    EXPECT_EQ(toText(*guid), "{F209EF9A-660B-4D77-A54F-AD659FF97175}");
}

TEST(Guid, refusesAnyOtherText)
{
    for (const char* text :
         {"", "F209EF9A-660B-4D77-A54F-AD659FF97175", "{F209EF9A-660B-4D77-A54F-AD659FF9717}",
          "{F209EF9A-660B-4D77-A54F-AD659FF971755}", "{F209EF9A-660B-4D77-A54F-AD659FF9717G}",
          "{F209EF9A0660B-4D77-A54F-AD659FF97175}", "{+209EF9A-660B-4D77-A54F-AD659FF97175}",
          "(F209EF9A-660B-4D77-A54F-AD659FF97175)"})
        EXPECT_FALSE(parseGuid(text)) << text;
}

} // namespace
