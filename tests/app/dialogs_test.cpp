#include "platform/build_info.h"
#include "platform/settings.h"
#include "tests/app/installed_components.h"
#include "tests/support/scripted_driver.h"
#include "tests/support/windows.h"
#include "ui/application/about_dialog.h"
#include "ui/application/driver_select_dialog.h"
#include "ui/application/driver_wait.h"
#include "ui/application/si_tables_dialog.h"

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <gtest/gtest.h>

using namespace tessaview;
using test::textsOf;
using test::whenShown;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

// Driver selection

test::ModalSteps::Step pressing(Qt::Key key)
{
    return [key](QWidget& window) { QTest::keyClick(&window, key); };
}

/// Reads a box and closes it.
test::ModalSteps::Step boxSaying(const std::string& text, const std::string& detail = "")
{
    return [=](QWidget& shown) {
        EXPECT_EQ(test::messageOf(shown), text);
        EXPECT_THAT(test::detailOf(shown), HasSubstr(detail));
        QTest::keyClick(&shown, Qt::Key_Return);
    };
}

/// Counts the drivers that can be chosen, and cancels.
test::ModalSteps::Step selectionOf(int drivers)
{
    return [drivers](QWidget& dialog) {
        EXPECT_EQ(dialog.findChild<QComboBox*>()->count(), drivers);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    };
}

class DriverSelectionTest : public testing::Test {
protected:
    void TearDown() override
    {
        test::writeFile(journal_ + ".go", ""); // whoever hangs may return now
        while (PendingCall::unfinished() > 0)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }

    std::optional<std::string> run(DriverSelection selection = {})
    {
        selection.registry =
            std::make_shared<ClassRegistry>(std::vector{components_.folder(), folder_ / "closed"});
        if (selection.patience.count() == 0)
            selection.patience = std::chrono::hours(1);
        return RunDriverSelection(nullptr, selection);
    }

    test::TemporaryFolder folder_;
    std::string journal_ = (folder_ / "journal").string();
    const test::Environment environment_{"TESSAVIEW_TEST_JOURNAL", journal_.c_str()};
    test::InstalledComponents components_{folder_ / "components"};
};

TEST_F(DriverSelectionTest, listsNamesAndGivesTheClassThatIsChosen)
{
    components_.scriptedDriver(test::scripted::kWorks, "receiver");
    components_.captureDriver();
    const auto shown = whenShown({[](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Driver selction");
        EXPECT_THAT(textsOf<QLabel>(dialog), ElementsAre("Select driver. ", "&Driver:"));
        auto& names = *dialog.findChild<QComboBox*>();
        EXPECT_EQ(names.currentIndex(), -1);
        ASSERT_EQ(names.count(), 2);
        EXPECT_EQ(names.itemText(0), "Captured transport streams");
        EXPECT_EQ(names.itemText(1), "Scripted <b>driver</b>");
        QTest::keyClick(&names, Qt::Key_End);
        QTest::keyClick(&dialog, Qt::Key_Return);
    }});
    EXPECT_EQ(run(), toText(test::scripted::kWorks));
    EXPECT_EQ(shown->left(), 0U);
}

TEST_F(DriverSelectionTest, givesAnEmptyChoiceWhenNothingIsChosenAndNoneWhenCancelled)
{
    const auto shown = whenShown({pressing(Qt::Key_Return), pressing(Qt::Key_Escape)});
    EXPECT_EQ(run(), "");
    EXPECT_EQ(run(), std::nullopt);
    EXPECT_EQ(shown->left(), 0U);
}

TEST_F(DriverSelectionTest, meansTheLaterOfTwoDriversWithOneNameByEither)
{
    components_.scriptedDriver(test::scripted::kWorks, "a");
    components_.scriptedDriver(test::scripted::kShutdownHangs, "b");
    const auto chooseFirst = [](QWidget& dialog) {
        auto& names = *dialog.findChild<QComboBox*>();
        EXPECT_EQ(names.count(), 2);
        QTest::keyClick(&names, Qt::Key_Home);
        QTest::keyClick(&dialog, Qt::Key_Return);
    };
    const auto shown = whenShown({chooseFirst});
    EXPECT_EQ(run(), toText(test::scripted::kShutdownHangs));
}

TEST_F(DriverSelectionTest, tellsWhatIsWrongWithADriverAndLeavesItOut)
{
    components_.scriptedDriver(test::scripted::kCreateFails, "a");
    components_.scriptedDriver(test::scripted::kGetNameFails, "b");
    components_.scriptedDriver(test::scripted::kWorks, "c");
    const auto shown =
        whenShown({boxSaying("Failed to create driver instance: 80070005"),
                   boxSaying("Failed to get driver name: 80070005"), selectionOf(1)});
    EXPECT_EQ(run(), std::nullopt);
    EXPECT_EQ(shown->left(), 0U);
}

TEST_F(DriverSelectionTest, tellsThatNoFolderOfComponentsCanBeRead)
{
    test::writeFile(folder_ / "closed", "not a folder");
    const auto shown =
        whenShown({boxSaying("Failed to open CategoriesMgr: 0x80004005"), selectionOf(0)});
    EXPECT_EQ(run(), std::nullopt);
    EXPECT_EQ(shown->left(), 0U);
}

TEST_F(DriverSelectionTest, welcomesANewcomerWithTheDriverForCaptures)
{
    components_.scriptedDriver(test::scripted::kWorks, "receiver");
    components_.captureDriver();
    const auto shown = whenShown({[](QWidget& dialog) {
        EXPECT_THAT(textsOf<QLabel>(dialog), testing::Contains(HasSubstr("A driver is")));
        EXPECT_EQ(dialog.findChild<QComboBox*>()->currentText(), "Captured transport streams");
        QTest::keyClick(&dialog, Qt::Key_Return);
    }});
    DriverSelection selection;
    selection.isFirstStart = true;
    EXPECT_EQ(run(selection), "{8F6E0A52-3B1D-4C7E-9A64-D20B71C5E3F8}");
}

TEST_F(DriverSelectionTest, leavesOutADriverThatDoesNotAnswerWhenTheUserSaysSo)
{
    components_.scriptedDriver(test::scripted::kGetNameHangs, "Stuck");
    components_.captureDriver();
    const auto shown =
        whenShown({[](QWidget& shownBox) {
                       EXPECT_EQ(test::messageOf(shownBox), "The driver Stuck does not answer.");
                       EXPECT_THAT(test::detailOf(shownBox), HasSubstr("GetName"));
                       test::click(shownBox, "&Leave it out");
                   },
                   selectionOf(1)});
    DriverSelection selection;
    selection.patience = std::chrono::milliseconds(10);
    EXPECT_EQ(run(selection), std::nullopt);
    EXPECT_EQ(PendingCall::unfinished(), 1);
    EXPECT_EQ(shown->left(), 0U);
}

// Waiting for a driver

DriverWait soon()
{
    return {.patience = std::chrono::milliseconds(10), .giveUp = "&Quit", .consequence = "So."};
}

TEST(WaitForDriver, asksAgainAfterTheUserWaitsOnAndEndsByItselfWithTheCall)
{
    const auto answer = std::make_shared<std::atomic<bool>>(false);
    const PendingCall call([answer](const CallObserver& observer) {
        observer("Initialize");
        answer->wait(false);
    });
    const auto shown = whenShown({[](QWidget& box) { test::click(box, "&Keep waiting"); },
                                  [&](QWidget& box) {
                                      EXPECT_THAT(test::detailOf(box), HasSubstr("Initialize"));
                                      *answer = true;
                                      answer->notify_all();
                                  }});
    EXPECT_TRUE(waitForDriver(nullptr, call, "x", soon()));
    EXPECT_EQ(shown->left(), 0U);
}

TEST(WaitForDriver, showsHowFarTheDriverIsWithLookingAtCaptures)
{
    const auto driver = test::ScriptedDriver::make();
    driver->total = 300;
    driver->position = 12;
    const OperationProgress progress(static_cast<IDriverInfo*>(driver.get()));
    std::atomic<bool> isSeen = false;
    const PendingCall call([&](const CallObserver& observer) {
        observer("Initialize");
        isSeen.wait(false);
    });
    DriverWait wait = soon();
    wait.progress = &progress;
    const auto shown = whenShown({[&](QWidget& box) {
        EXPECT_EQ(box.findChild<QLabel*>()->text(), "Looking at the captures... 12 of 300");
        EXPECT_EQ(box.findChild<QProgressBar*>()->value(), 4);
        isSeen = true;
        isSeen.notify_all();
    }});
    EXPECT_TRUE(waitForDriver(nullptr, call, "x", wait));
    EXPECT_EQ(shown->left(), 0U) << "and nobody is asked whether to wait";
}

TEST(WaitForDriver, endsWithoutAQuestionWhenTheProgramIsToEnd)
{
    const auto answer = std::make_shared<std::atomic<bool>>(false);
    {
        const PendingCall call([answer](const CallObserver&) { answer->wait(false); });
        DriverWait wait = soon();
        wait.patience = std::chrono::hours(1);
        wait.isOver = [] { return true; };
        EXPECT_FALSE(waitForDriver(nullptr, call, "x", wait));
    }
    *answer = true;
    answer->notify_all();
    while (PendingCall::unfinished() > 0)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

// SI Tables

class SiTables : public testing::Test {
protected:
    static SiTableMask checked(const CSiTablesDlg& dialog)
    {
        SiTableMask mask = 0;
        for (const SelectableTable& table : kSelectableTables)
            mask |= test::control<QCheckBox>(dialog, table.box).isChecked() ? table.bit : 0;
        return mask;
    }
    std::optional<std::uint32_t> stored() const
    {
        return Settings(settings_).number(kSettingsKey, "sitables");
    }

    test::TemporaryFolder folder_;
    std::filesystem::path settings_ = folder_ / "config/settings.json";
};

TEST_F(SiTables, areAllChosenUntilAChoiceIsStored)
{
    CSiTablesDlg dialog(settings_);
    dialog.show();
    EXPECT_EQ(checked(dialog), kAllTables);
    test::click(dialog, "&Defaults");
    EXPECT_EQ(checked(dialog), kDefaultTables);
    EXPECT_EQ(stored(), std::nullopt) << "before OK";
    QTest::keyClick(&test::control<QCheckBox>(dialog, 1019), Qt::Key_Space); // RST
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_EQ(stored(), 0x041BU | si_table::kRst);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
}

TEST_F(SiTables, showTheStoredChoiceAndStoreNothingOnCancel)
{
    Settings(settings_).setNumber(kSettingsKey, "sitables", si_table::kBat | si_table::kTot);
    CSiTablesDlg dialog(settings_);
    EXPECT_EQ(checked(dialog), si_table::kBat | si_table::kTot);
    test::click(dialog, "&Defaults");
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_EQ(stored(), si_table::kBat | si_table::kTot);
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
}

TEST_F(SiTables, stayOpenWhenTheChoiceCannotBeStored)
{
    test::writeFile(folder_ / "config", "a file where the folder should be");
    CSiTablesDlg dialog(settings_);
    dialog.show();
    const auto shown = whenShown(
        {boxSaying("The choice of tables cannot be stored.", (folder_ / "config").string())});
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(shown->left(), 0U);
}

TEST(About, tellsTheVersionAndCloses)
{
    AboutDialog dialog;
    EXPECT_THAT(textsOf<QLabel>(dialog),
                testing::Contains("Tessaview Version 3.0 build " + std::to_string(kBuildNumber)));
    dialog.show();
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_FALSE(dialog.isVisible());
}

} // namespace
