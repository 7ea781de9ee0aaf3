#include "tests/cli/program.h"
#include "tests/export/read_back.h"
#include "tools/multiplex/descriptors.h"
#include "tools/multiplex/sections.h"
#include "tools/multiplex/stream_builder.h"

#include <gmock/gmock.h>

#include <gtest/gtest.h>

// The shell tool exporting what it has read.

namespace {

using namespace test; // NOLINT(google-build-using-namespace)
using testing::ElementsAre;
using testing::HasSubstr;

Bytes smallStream(const std::string& serviceName = "One")
{
    const std::vector<Bytes> tuning{
        satelliteDelivery({.frequency = 1218750, .orbitalPosition = 0})};
    return StreamBuilder()
        .put(0x00, pat(0x0451, {{0x1001, 0x100}}))
        .put(0x10, nit(0x40, 0x3002, {}, {{0x0451, 0x3001, tuning}}))
        .put(0x11, sdt(0x42, 0x0451, 0x3001, {{0x1001, {service(1, "Co", serviceName)}}}))
        .build();
}

TEST(ShellToolExport, writesADatabaseBesidesTheTree)
{
    const ShellTool tool;
    const std::string database = tool.folder() / "a.sqlite";
    const std::string capture = tool.file("hill.ts", smallStream());
    const Outcome first = tool.run({"--quiet", "--export-db", database, capture});
    EXPECT_EQ(first.status, 0);
    EXPECT_EQ(first.err, "");
    EXPECT_THAT(first.out, HasSubstr("0451 - 12187H"));
    EXPECT_THAT(rowsOf(database, "SELECT NID, TID, SID, SERVICENAME, FREQUENCY FROM service_list"),
                ElementsAre("12289|1105|4097|One|12188"));

    const Outcome again = tool.run({"--quiet", "--export-db", database, capture});
    EXPECT_EQ(again.status, 3);
    EXPECT_THAT(again.err, HasSubstr("a.sqlite exists already"));
    EXPECT_EQ(again.out, "") << "told before anything is read";
}

TEST(ShellToolExport, readsNamesAsTheTreeDoes)
{
    const ShellTool tool;
    const std::string database = tool.folder() / "a.sqlite";
    const std::string capture = tool.file("hill.ts", smallStream("\xA1"));
    const Outcome exported = tool.run({"--quiet", "--charset", "iso-8859-2", "--format", "values",
                                       "--export-db", database, capture});
    EXPECT_THAT(exported.out, HasSubstr("\u0104"));
    EXPECT_THAT(rowsOf(database, "SELECT SERVICENAME FROM tb_service"), ElementsAre("\u0104"));
}

TEST(ShellToolExport, tellsThatItFailedAndStillPrintsTheTree)
{
    const ShellTool tool;
    const std::string capture = tool.file("hill.ts", smallStream());
    const Outcome failed = tool.run({"--quiet", "--export-db", "/dev/fd/x", capture});
    EXPECT_EQ(failed.status, 3);
    EXPECT_THAT(failed.err, HasSubstr("the export failed"));
    EXPECT_THAT(failed.out, HasSubstr("0451 - 12187H"));
    EXPECT_EQ(tool.run({"--export-db", tool.folder() / "no/a.db", capture}).status, 3);
}

TEST(ShellToolExport, makesNoDatabaseOfNothing)
{
    const ShellTool tool;
    const std::string database = tool.folder() / "a.sqlite";
    const std::string nothing = tool.file("none.ts", StreamBuilder().nullPackets(9).build());
    EXPECT_EQ(tool.run({"--export-db", database, nothing}).status, 1);
    EXPECT_FALSE(std::filesystem::exists(database));
}

} // namespace
