#include "component/guid.h"

#include <gtest/gtest.h>

using namespace tessaview;

namespace {

TEST(Guid, isReadInEitherCasePrintedInUpperCaseAndNothingElse)
{
    const auto guid = parseGuid("{f209ef9a-660B-4d77-a54f-ad659ff97175}");
    ASSERT_TRUE(guid);
    EXPECT_EQ(toText(*guid), "{F209EF9A-660B-4D77-A54F-AD659FF97175}");
    for (const char* text :
         {"", "F209EF9A-660B-4D77-A54F-AD659FF97175", "{F209EF9A-660B-4D77-A54F-AD659FF9717}",
          "{F209EF9A-660B-4D77-A54F-AD659FF971755}", "{F209EF9A-660B-4D77-A54F-AD659FF9717G}",
          "{F209EF9A0660B-4D77-A54F-AD659FF97175}", "{+209EF9A-660B-4D77-A54F-AD659FF97175}",
          "(F209EF9A-660B-4D77-A54F-AD659FF97175)"})
        EXPECT_FALSE(parseGuid(text)) << text;
}

} // namespace
