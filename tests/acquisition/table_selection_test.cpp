#include "acquisition/table_selection.h"

#include "platform/settings.h"
#include "tests/support/worked_cases.h"

#include <gmock/gmock.h>

namespace {

using namespace tessaview; // NOLINT(google-build-using-namespace)

struct StoredSelection : testing::Test {
    test::TemporaryFolder folder;
    std::filesystem::path file = folder / "settings.json";
};

TEST_F(StoredSelection, isEverythingWhenThereIsNoneThatCanBeRead)
{
    EXPECT_TRUE(TableSelection::stored(file).IsTableEnabled(~SiTableMask{0}));
    Settings(file).setText(kSettingsKey, "sitables", "0");
    EXPECT_TRUE(TableSelection::stored(file).IsTableEnabled(kAllTables)) << "a text is no mask";
    test::writeFile(file, "{");
    EXPECT_TRUE(TableSelection::stored(file).IsTableEnabled(kAllTables));
}

TEST_F(StoredSelection, isLookedUpEachTime)
{
    const TableSelection selection = TableSelection::stored(file);
    storeTableSelection(0, file);
    EXPECT_FALSE(selection.IsTableEnabled(si_table::kTot));
    storeTableSelection(si_table::kTot, file);
    EXPECT_TRUE(selection.IsTableEnabled(si_table::kTot));
}

TEST_F(StoredSelection, enablesAMaskOnlyWithAllItsBits)
{
    storeTableSelection(kDefaultTables, file);
    const TableSelection selection = TableSelection::stored(file);
    EXPECT_TRUE(selection.IsTableEnabled(si_table::kPat | si_table::kSdtActual));
    EXPECT_FALSE(selection.IsTableEnabled(si_table::kPat | si_table::kBat));
}

TEST(TableList, isAWordAListOrAMaskOrRefusedWithAReason)
{
    const auto parsed = [](const std::string& input) {
        std::string problem = "old";
        const auto mask = parseTableList(input, problem);
        EXPECT_EQ(problem.empty(), mask.has_value()) << input;
        std::ostringstream text;
        text << std::hex << mask.value_or(0);
        return mask ? text.str() : problem;
    };
    test::expectWorked("acquisition/table_lists.txt", parsed);
    EXPECT_THAT(parsed(""), testing::StartsWith("'' is not a table; there are pat, cat, "));
}

} // namespace
