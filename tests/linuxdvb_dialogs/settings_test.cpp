#include "platform/settings.h"

#include "tests/linuxdvb_dialogs/dialog_fixture.h"
#include "tests/support/tests.h"

#include <QSpinBox>
#include <QTreeView>

namespace {

class SettingsOfReceivers : public DvbDialogs {
protected:
    /// Changes a cell of the table as a user does, by key.
    static void choose(const QDialog& dialog, int row, int column, const QString& text)
    {
        auto& view = the<QTreeView>(dialog, "satellites");
        view.setFocus();
        view.setCurrentIndex(view.model()->index(row, column));
        QTest::keyClick(&view, Qt::Key_F2);
        QApplication::processEvents();
        if (auto* const choice = view.viewport()->findChild<QComboBox*>()) {
            QAbstractItemView& list = *choice->view(); // which has opened by itself
            list.setCurrentIndex(choice->model()->index(choice->findText(text), 0));
            QTest::keyClick(&list, Qt::Key_Return);
        } else if (auto* const number = view.viewport()->findChild<QSpinBox*>()) {
            number->selectAll();
            QTest::keyClicks(number, text);
        } else {
            ADD_FAILURE() << "no editor for " << row << ", " << column;
        }
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    static std::string cells(const QDialog& dialog, int row)
    {
        const QAbstractItemModel& model = *the<QTreeView>(dialog, "satellites").model();
        std::string text;
        for (int column = 0; column < model.columnCount(); ++column)
            text += model.index(row, column).data().toString().toStdString() + '|';
        return text;
    }

    /// Every choice a user has, other than it was.
    static void changeAll(QDialog& dialog)
    {
        the<QComboBox>(dialog, "lnb").setCurrentIndex(2);
        the<QSpinBox>(dialog, "lockLimit").setValue(9);
        the<QSpinBox>(dialog, "readCeiling").setValue(300);
        choose(dialog, 0, 3, "B");
        choose(dialog, 1, 1, "single");
        choose(dialog, 1, 4, "16");
        choose(dialog, 1, 2, "5150"); // still being edited when the dialog is left
        the<QPushButton>(dialog, "refresh").click();
    }
};

TEST_F(SettingsOfReceivers, areStoredByOkOnly)
{
    show(DriverDialog::Settings, [](QDialog& dialog) {
        changeAll(dialog);
        dialog.reject();
    });
    EXPECT_EQ(tuner().state().settings.lockLimit, ReceiverSettings().lockLimit);
    EXPECT_FALSE(tuner().dishOf("Astra"));

    show(DriverDialog::Settings, [](QDialog& dialog) {
        changeAll(dialog);
        dialog.accept();
    });
    restart();
    const ReceiverSettings settings = tuner().state().settings;
    EXPECT_EQ(settings.lockLimit.count(), 9);
    EXPECT_EQ(settings.readCeiling.count(), 300);
    EXPECT_EQ(storedText(settings.dish), "wide 10410");
    EXPECT_EQ(storedText(tuner().dishOf("Astra").value()), "default; diseqc 2");
    EXPECT_EQ(storedText(tuner().dishOf("Hot Bird").value()), "single 5150; uncommitted 16");
    tune("Astra");
    EXPECT_EQ(kernel_.frontends[{}].tunings.back()[DTV_FREQUENCY], 1777500U)
        << "by the default LNB";

    show(DriverDialog::Settings, [](QDialog& dialog) {
        EXPECT_EQ(the<QSpinBox>(dialog, "oscillator").value(), 10410);
        EXPECT_EQ(cells(dialog, 0), "Astra|default||B|none|");
        EXPECT_EQ(cells(dialog, 1), "Hot Bird|single|5150 MHz|none|16|");
        choose(dialog, 0, 3, "none");
        dialog.accept();
    });
    EXPECT_FALSE(tuner().dishOf("Astra")) << "it is as the others again";
}

TEST_F(SettingsOfReceivers, listReceiversAndWhatIsWrongWithThem)
{
    kernel_.frontends[{1, 0}].systems = {SYS_DVBC_ANNEX_A, SYS_DVBT};
    kernel_.frontends[{2, 0}].openProblem = EACCES;
    tuner().useAndStore({.device = {5, 1}, .type = TunerType::Cable, .dish = {}});
    const struct {
        const char* listed;
        const char* problem;
        int types;
        bool isForSatellites;
    } cases[] = {
        {"adapter0/frontend0: Sat (DVB-S, DVB-S2)", "", 1, true},
        {"adapter1/frontend0: Cable (DVB-C, DVB-T)", "", 2, false},
        {"adapter2/frontend0 (cannot be used)", "no permission", 0, true},
        {"adapter5/frontend1 (missing)", "adapter5/frontend1 is missing", 0, true},
    };
    show(DriverDialog::Settings, [&](QDialog& dialog) {
        auto& receiver = the<QComboBox>(dialog, "receiver");
        EXPECT_EQ(receiver.currentIndex(), 3);
        ASSERT_EQ(receiver.count(), 4);
        for (int i = 0; i < receiver.count(); ++i) {
            receiver.setCurrentIndex(i);
            EXPECT_EQ(receiver.currentText().toStdString(), cases[i].listed);
            EXPECT_THAT(labelOf(dialog, "problem"), HasSubstr(cases[i].problem));
            EXPECT_EQ(the<QLabel>(dialog, "problem").isVisible(), *cases[i].problem != '\0');
            EXPECT_EQ(the<QComboBox>(dialog, "type").count(), cases[i].types);
            EXPECT_EQ(the<QComboBox>(dialog, "type").isEnabled(), cases[i].types > 1);
            EXPECT_EQ(the<QTreeView>(dialog, "satellites").isEnabled(), cases[i].isForSatellites);
        }
        kernel_.frontends[{5, 1}] = {.name = "New", .systems = {SYS_DVBT}};
        the<QPushButton>(dialog, "refresh").click();
        EXPECT_EQ(receiver.currentText(), "adapter5/frontend1: New (DVB-T)");
        receiver.setCurrentIndex(1);
        the<QComboBox>(dialog, "type").setCurrentIndex(1);
        dialog.accept();
    });
    EXPECT_EQ(tuner().state().settings.device, (DeviceId{1, 0}));
    EXPECT_EQ(tuner().state().type, TunerType::Terrestrial);
}

TEST_F(SettingsOfReceivers, thatCannotBeStoredHoldForTheRun)
{
    writeFile(folder_ / "tessaview3", "no folder");
    show(DriverDialog::Settings, [&](QDialog& dialog) {
        the<QSpinBox>(dialog, "lockLimit").setValue(9);
        choose(dialog, 0, 3, "B");
        const MessageReader box;
        dialog.accept();
        EXPECT_THAT(box.texts,
                    ElementsAre(testing::ContainsRegex("The settings hold for this run only: .*\n"
                                                       "The satellites are received as before: ")));
    });
    EXPECT_EQ(tuner().state().settings.lockLimit.count(), 9);
}

} // namespace
