#include "tests/export/read_back.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/windows.h"
#include "ui/export/database_export_dlg.h"
#include "ui/export/export_progress_dlg.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <latch>
#include <memory>
#include <system_error>
#include <utility>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

using namespace tessaview; // NOLINT(google-build-using-namespace)

QPushButton* buttonOf(QWidget& dialog, const char* text)
{
    for (QPushButton* button : dialog.findChildren<QPushButton*>())
        if (button->text() == text)
            return button;
    return nullptr;
}

struct ExportDialogs : testing::Test {
    ExportDialogs()
    {
        Transponder stream;
        stream.transport_stream_id = 0x0451;
        model.store(1, std::move(stream));
    }

    test::TemporaryFolder folder;
    std::filesystem::path file = folder / "<b>ä.sqlite";
    NetworkMap model;
    test::MessageReader messages;
};

class ScriptedExportDlg : public CDatabaseExportDlg {
public:
    using CDatabaseExportDlg::CDatabaseExportDlg;
    QString answer;
    QString offered = "nothing";

protected:
    QString chooseFile(const QString& path) override
    {
        offered = path;
        return answer;
    }
};

TEST_F(ExportDialogs, exportToTheFileThatWasChosen)
{
    ScriptedExportDlg dialog(nullptr, model);
    dialog.show();
    auto* const edit = dialog.findChild<QLineEdit*>();
    EXPECT_EQ(dialog.windowTitle(), "Database export");
    QApplication::setActiveWindow(&dialog);
    edit->setFocus();
    EXPECT_TRUE(buttonOf(dialog, "Export...")->isDefault());

    QTest::keyClicks(edit, "typed");
    QTest::keyClick(edit, Qt::Key_Return);
    ASSERT_THAT(messages.texts, testing::ElementsAre(testing::HasSubstr("Browse...")));

    dialog.answer = QString::fromStdString(file.string());
    QTest::mouseClick(buttonOf(dialog, "Browse..."), Qt::LeftButton);
    EXPECT_EQ(edit->text(), dialog.answer);
    dialog.answer.clear();
    QTest::mouseClick(buttonOf(dialog, "Browse..."), Qt::LeftButton);
    EXPECT_EQ(dialog.offered, edit->text()) << "the current path is offered, and stays on Cancel";

    QTest::mouseClick(buttonOf(dialog, "Export..."), Qt::LeftButton);
    EXPECT_EQ(messages.texts.size(), 1) << messages.texts.back();
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(test::numberOf(file, "SELECT TID FROM tb_transponder"), 0x0451);
    const auto outcome = [&] {
        return std::ranges::any_of(dialog.findChildren<QLabel*>(), [](const QLabel* label) {
            return label->text() == "The database is written.";
        });
    };
    EXPECT_TRUE(outcome());

    QTest::mouseClick(buttonOf(dialog, "Export..."), Qt::LeftButton);
    ASSERT_EQ(messages.texts.size(), 2);
    EXPECT_EQ(messages.texts.back(),
              "Error: 0xe\nDesc: The file \"" + file.string() +
                  "\" exists already and was left as it is. Choose a new file name, or move the "
                  "old file away first.\nSource: File system");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(outcome());
    EXPECT_EQ(dialog.focusWidget(), buttonOf(dialog, "Browse..."));

    messages.answer = QMessageBox::No;
    dialog.answer = QString::fromStdString((folder / "<b>ä").string());
    QTest::mouseClick(buttonOf(dialog, "Browse..."), Qt::LeftButton);
    EXPECT_THAT(messages.texts.back(), testing::HasSubstr("never replaces a file"));
    EXPECT_EQ(edit->text().toStdString(), file.string()) << "with the ending that it lacked";
    QTest::mouseClick(buttonOf(dialog, "Cancel"), Qt::LeftButton);
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(ExportDialogs, areWorkedByEnterAlone)
{
    ScriptedExportDlg dialog(nullptr, model);
    dialog.answer = QString::fromStdString(file.string());
    dialog.show();
    QApplication::setActiveWindow(&dialog);
    for (const char* const focused : {"Browse...", "Export..."}) {
        EXPECT_EQ(dialog.focusWidget(), buttonOf(dialog, focused));
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    }
    EXPECT_TRUE(std::filesystem::exists(file));
    EXPECT_THAT(messages.texts, testing::IsEmpty());
}

class ScriptedProgressDlg : public CExportProgressDlg {
public:
    using CExportProgressDlg::CExportProgressDlg;
    std::latch gate{1};                ///< the worker waits for it
    std::function<void()> whileItRuns; ///< called by the event loop
    bool canStart = true;

protected:
    std::jthread startThread(std::function<void()> work) override
    {
        if (!canStart)
            throw std::system_error(
                std::make_error_code(std::errc::resource_unavailable_try_again));
        QMetaObject::invokeMethod(this, whileItRuns, Qt::QueuedConnection);
        return CExportProgressDlg::startThread([this, work = std::move(work)] {
            gate.wait();
            work();
        });
    }
};

TEST_F(ExportDialogs, stayOpenUntilTheWorkerHasEnded)
{
    ScriptedProgressDlg dialog(nullptr, model, file);
    EXPECT_EQ(dialog.findChild<QLabel*>()->text(), "Exporting to database. Please wait...");
    dialog.whileItRuns = [&] {
        QTest::keyClick(&dialog, Qt::Key_Escape);
        dialog.close();
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_FALSE(std::filesystem::exists(file));
        dialog.gate.count_down();
    };
    EXPECT_EQ(dialog.exec(), 0);
    EXPECT_EQ(test::numberOf(file, "PRAGMA user_version"), 1);
    EXPECT_THAT(messages.texts, testing::IsEmpty());
}

TEST_F(ExportDialogs, waitForTheWorkerWhenTheyAreTakenAway)
{
    auto dialog = std::make_unique<CExportProgressDlg>(nullptr, model, file);
    dialog->show();
    QCoreApplication::processEvents();
    dialog.reset();
    EXPECT_EQ(test::numberOf(file, "PRAGMA user_version"), 1);
}

TEST_F(ExportDialogs, stayOpenWithoutAThread)
{
    ScriptedProgressDlg dialog(nullptr, model, file);
    dialog.canStart = false;
    dialog.show();
    QCoreApplication::processEvents();
    EXPECT_THAT(messages.texts, testing::ElementsAre("Failed to create thread"));
    EXPECT_TRUE(dialog.isVisible());
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
}

} // namespace
