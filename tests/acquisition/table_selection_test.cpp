#include "acquisition/table_selection.h"

#include "platform/settings.h"
#include "tests/support/temporary_folder.h"

#include <gmock/gmock.h>

namespace {

using namespace tessaview; // NOLINT(google-build-using-namespace)
using testing::HasSubstr;

struct StoredSelection : testing::Test {
    test::TemporaryFolder folder;
    std::filesystem::path file = folder / "settings.json";
};

TEST_F(StoredSelection, isEverythingWhenThereIsNone)
{
    EXPECT_TRUE(TableSelection::stored(file).IsTableEnabled(~SiTableMask{0}));
    Settings(file).setText(kSettingsKey, "sitables", "0");
    EXPECT_TRUE(TableSelection::stored(file).IsTableEnabled(kAllTables)) << "a text is no mask";
}

TEST_F(StoredSelection, isEverythingWhenTheSettingsAreBroken)
{
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

TEST(TableList, isAWordAListOrAMask)
{
    const std::vector<std::pair<const char*, SiTableMask>> cases{
        {"all", 0x7FFF},
        {"default", 0x041B},
        {"pat,cat,pmt,bat", 0x000F},
        {"nit,nit-other,sdt,sdt-other", 0x0C30},
        {"eit-pf,eit-pf-other,eit-sched,eit-sched-other", 0x03C0},
        {"tdt,tot,rst,tdt", 0x7000},
        {"0", 0},
        {"1051", 0x041B},
        {"0x041b", 0x041B},
        {"0XFFFFFFFF", 0xFFFFFFFF},
    };
    for (const auto& [text, mask] : cases) {
        std::string problem = "old";
        EXPECT_EQ(parseTableList(text, problem), mask) << text;
        EXPECT_EQ(problem, "");
    }
}

TEST(TableList, refusesAnythingElseWithAReason)
{
    const std::vector<std::pair<const char*, const char*>> cases{
        {"", "'' is not a table; there are pat, cat, "},
        {"pat,", "'' is not a table"},
        {"pat,ait,tot", "'ait' is not a table"},
        {"PAT", "'PAT' is not a table"},
        {"all,pat", "'all' is not a table"},
        {"-1", "'-1' is not a table"},
        {"0x", "'0x' is not a bit mask"},
        {"0x100000000", "'0x100000000' is not a bit mask of at most 32 bits"},
        {"12x", "'12x' is not a bit mask"},
    };
    for (const auto& [text, reason] : cases) {
        std::string problem;
        EXPECT_EQ(parseTableList(text, problem), std::nullopt) << text;
        EXPECT_THAT(problem, HasSubstr(reason));
    }
}

} // namespace
