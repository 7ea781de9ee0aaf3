#include "platform/paths.h"

#include "platform/build_info.h"
#include "tests/support/temporary_folder.h"

#include <string>

#include <gtest/gtest.h>

using namespace tessaview;

namespace {

TEST(Paths, userDataIsBelowTheUsersFolderForData)
{
    const test::Environment home("HOME", "/home/of/mine");
    const test::Environment given("XDG_DATA_HOME", "/data");
    EXPECT_EQ(userDataFolder(), "/data/Tessaview 3");
    const test::Environment none("XDG_DATA_HOME", nullptr);
    EXPECT_EQ(userDataFolder(), "/home/of/mine/.local/share/Tessaview 3");
    const test::Environment relative("HOME", "not/absolute");
    EXPECT_TRUE(userDataFolder().empty() || userDataFolder().is_absolute());
}

TEST(Paths, dataOfAllUsersAreTheUsersWithoutAFolderAndNeedOneThatIsWritable)
{
    const test::TemporaryFolder folder;
    EXPECT_EQ(allUsersDataFolder(folder.path()), folder.path());
    EXPECT_EQ(allUsersDataFolder(folder / "none"), userDataFolder()) << "nothing is wrong";
    test::writeFile(folder / "file", "");
    EXPECT_EQ(allUsersDataFolder(folder / "file"), std::nullopt);
}

TEST(BuildInfo, numberIsTheFourthOfTheVersion)
{
    const std::string version = kVersionText;
    EXPECT_EQ(version.substr(version.rfind('.') + 1), std::to_string(kBuildNumber));
}

} // namespace
