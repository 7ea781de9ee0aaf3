#include "ui/satlist/satellite_list_dialog.h"

#include "tests/satlist_dialogs/dialog_fixture.h"
#include "tests/support/temporary_folder.h"
#include "ui/satlist/transponder_list_dialog.h"

#include <gmock/gmock.h>

#include <QLabel>
#include <QLineEdit>

using namespace tessaview;
using test::control;
using Dialog = SatelliteListDialog;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

class SatelliteListDialogTest : public test::DialogTest {
protected:
    SatelliteListDialogTest()
    {
        manager_.put("a", {{.tsid = 1}}, false);
        manager_.put("b", {{.tsid = 2}}, true);
        manager_.put("c", {}, false);
        manager_.put("d", {}, false);
    }
};

TEST_F(SatelliteListDialogTest, movesTheSelectedItemsAtOnce)
{
    const Dialog dialog(manager_.get());
    EXPECT_THAT(lines(dialog, Dialog::kAvailable), ElementsAre("a", "c", "d"));
    EXPECT_THAT(lines(dialog, Dialog::kSelected), ElementsAre("b"));
    select(dialog, Dialog::kAvailable, {0, 2});
    press(dialog, Dialog::kSelect);
    EXPECT_THAT(manager_.names(true), ElementsAre("a", "b", "d"));
    EXPECT_THAT(lines(dialog, Dialog::kAvailable), ElementsAre("c"));
    EXPECT_THAT(lines(dialog, Dialog::kSelected), ElementsAre("a", "b", "d"));
    select(dialog, Dialog::kSelected, {1});
    press(dialog, Dialog::kUnselect);
    EXPECT_THAT(manager_.names(true), ElementsAre("a", "d"));
    EXPECT_THAT(lines(dialog, Dialog::kAvailable), ElementsAre("b", "c"));
    EXPECT_EQ(manager_.transponders("b").size(), 1U);
}

TEST_F(SatelliteListDialogTest, deletesOnlyAvailableOnes)
{
    Dialog dialog(manager_.get());
    show(dialog);
    select(dialog, Dialog::kSelected, {0});
    select(dialog, Dialog::kAvailable, {0, 1});
    press(dialog, Dialog::kDelete);
    EXPECT_THAT(manager_.names(), ElementsAre("b", "d"));
    auto& available = control<QListWidget>(dialog, Dialog::kAvailable);
    available.setFocus();
    select(dialog, Dialog::kAvailable, {0});
    QTest::keyClick(&available, Qt::Key_Delete);
    EXPECT_THAT(manager_.names(), ElementsAre("b"));
    EXPECT_THAT(lines(dialog, Dialog::kAvailable), IsEmpty());
}

TEST_F(SatelliteListDialogTest, reportsWhatHasGoneMeanwhile)
{
    const Dialog dialog(manager_.get());
    manager_->RemoveSatellite(Bstr(std::string_view("a")).get());
    select(dialog, Dialog::kAvailable, {0});
    press(dialog, Dialog::kSelect);
    press(dialog, Dialog::kDelete);
    EXPECT_THAT(messages_,
                ElementsAre("'a' cannot be changed: 80070490", "'a' cannot be deleted: 80070490"));
}

TEST_F(SatelliteListDialogTest, addsWithEnterAndRefusesWhatCannotBeAName)
{
    Dialog dialog(manager_.get());
    show(dialog);
    auto& name = control<QLineEdit>(dialog, Dialog::kName);
    name.setFocus();
    name.setText(QString::fromUtf8("T\xC3\xBCrksat <42> & more"));
    QTest::keyClick(&name, Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(name.text(), "");
    EXPECT_EQ(lines(dialog, Dialog::kAvailable).back(), manager_.names().back());
    EXPECT_THAT(manager_.names(true), ElementsAre("b"));

    for (const QString& text : {QString("b"), QString("  "), QString(1001, 'x')}) {
        name.setText(text);
        press(dialog, Dialog::kAdd);
        EXPECT_EQ(name.text(), text);
    }
    EXPECT_THAT(messages_,
                ElementsAre("'b' is in the list already.",
                            "Type the name of the new satellite first.", HasSubstr("too long")));
    EXPECT_EQ(manager_.names().size(), 5U);
    EXPECT_EQ(manager_.transponders("b").size(), 1U);
}

TEST_F(SatelliteListDialogTest, opensTheTransponderListOfASatellite)
{
    Dialog dialog(manager_.get());
    show(dialog);
    std::vector<std::string> opened;
    const test::ModalSteps::Step note = [&](QWidget& list) {
        opened.push_back(
            control<QLabel>(list, TransponderListDialog::kSatellite).text().toStdString());
        list.close();
    };
    const auto shown = test::whenShown({note, note, note});
    auto& available = control<QListWidget>(dialog, Dialog::kAvailable);
    const QPoint second = available.visualItemRect(available.item(1)).center();
    QTest::mouseClick(available.viewport(), Qt::LeftButton, {}, second);
    QTest::mouseDClick(available.viewport(), Qt::LeftButton, {}, second);
    available.setFocus();
    QTest::keyClick(&available, Qt::Key_Return);
    auto& selected = control<QListWidget>(dialog, Dialog::kSelected);
    selected.setFocus();
    QTest::keyClick(&selected, Qt::Key_F2);
    EXPECT_THAT(opened, ElementsAre("c", "c", "b"));
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(SatelliteListDialogTest, importsFilesAndTellsWhatBecameOfThem)
{
    const test::TemporaryFolder folder;
    test::writeFile(folder / "New-1.0W", "S 11000000 H 27500000\nrubbish\n");
    Dialog dialog(manager_.get());
    dialog.importFiles({QString::fromStdString((folder / "New-1.0W").string())});
    EXPECT_THAT(messages_, ElementsAre("Imported 1 transponder from 1 file."));
    EXPECT_THAT(lines(dialog, Dialog::kSelected), ElementsAre("b", "New 1.0W"));
}

} // namespace
