#include "tests/cli/program.h"

#include <gmock/gmock.h>
#include <string_view>

#include <gtest/gtest.h>

using testing::HasSubstr;

namespace {

std::string table(const test::ShellTool& tool, const std::string& name, std::string_view content)
{
    return tool.file(name, {content.begin(), content.end()});
}

TEST(ImportScanTable, addsToTheSavedList)
{
    const test::ShellTool tool;
    const std::string good = table(tool, "New-1.0W", "S 11000000 H 27500000\nS 11 H 27500000\n");
    test::Outcome run = tool.run({"--import-scan-table", good, "nowhere"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "Imported 1 transponder from 1 file.\n");
    EXPECT_THAT(run.err, HasSubstr("New-1.0W:2: '11' is no frequency"));
    EXPECT_THAT(run.err, HasSubstr("nowhere: there is no such file"));
    run = tool.run({"--import-scan-table", good});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "Imported 0 transponders from 1 file; 1 more had the frequency and "
                       "polarization of one in the list.\n");
}

TEST(ImportScanTable, failsWhenNoFileCanBeUsed)
{
    const test::ShellTool tool;
    const std::string cable = table(tool, "cable", "C 330000000 6900000 NONE QAM256\n");
    const test::Outcome run = tool.run({"--import-scan-table", cable});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.err, HasSubstr("cable:1: the channel's system 'C' is not for the satellite"));
}

} // namespace
