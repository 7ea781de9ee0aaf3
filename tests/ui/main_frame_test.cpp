#include "ui/main_frame.h"

#include "tests/support/temporary_folder.h"
#include "tests/ui/window_test.h"
#include "ui/output_bar.h"
#include "ui/recent_files.h"

#include <latch>

#include <QDesktopServices>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>

namespace {

using namespace tessaview; // NOLINT(google-build-using-namespace)
using test::BoxAnswer;
using test::waitFor;

class MainFrame : public test::WindowTest {
protected:
    bool isEnabled(Command command) const { return frame->action(command)->isEnabled(); }

    QMenu* menu(const QString& title) const
    {
        for (const QAction* const action : frame->menuBar()->actions()) {
            if (action->text() == title)
                return action->menu();
        }
        return nullptr;
    }
};

TEST_F(MainFrame, hasTheMenusInTheirOrder)
{
    open();
    std::vector<std::string> titles;
    for (const QAction* const action : frame->menuBar()->actions())
        titles.push_back(action->text().toStdString());
    EXPECT_EQ(titles, (std::vector<std::string>{"&File", "&Edit", "&View", "&Action", "&Options",
                                                "Device", "&Help"}));
    EXPECT_EQ(
        itemsOf(*menu("&Options")),
        (std::vector<std::string>{"[General settings...]", "[SI tables...]",
                                  "[Satellite list manager...]", "-", "Show incomplete streams"}));
    EXPECT_EQ(itemsOf(*menu("Device")),
              (std::vector<std::string>{"Settings...", "Tuning...", "Driver selection..."}));
    EXPECT_EQ(frame->windowTitle(), "Untitled - Tessaview");
}

TEST_F(MainFrame, opensMenusByF10)
{
    openAndScan();
    select("ALL NETWORKS");
    QTimer::singleShot(0, [&] {
        auto* const popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_TRUE(popup);
        EXPECT_EQ(itemsOf(*popup).front(), "Copy path");
        popup->close();
    });
    QTest::keyClick(&frame->treePane(), Qt::Key_F10, Qt::ShiftModifier);
    QTest::keyClick(&frame->treePane(), Qt::Key_F10);
    EXPECT_EQ(QApplication::activePopupWidget(), menu("&File"));
    menu("&File")->close();
}

TEST_F(MainFrame, followsTheDriver)
{
    open();
    EXPECT_EQ(frame->statusText(), QString::fromUtf8("61 dB\u00B5V"));
    EXPECT_TRUE(isEnabled(Command::ScanNit));
    EXPECT_TRUE(isEnabled(Command::DatabaseExport));

    driver->tunerType = 2;
    driver->locked = 0;
    driver->failAlways("GetStatusText", status::kFail);
    settle();
    EXPECT_EQ(frame->statusText(), "STATUS UNKNOWN");
    EXPECT_FALSE(isEnabled(Command::ScanNit));
    EXPECT_FALSE(isEnabled(Command::DatabaseExport));
    EXPECT_TRUE(isEnabled(Command::DeviceTuning));
}

TEST_F(MainFrame, showsTheStatusOfADriverThatHasNotAnsweredAsNotLocked)
{
    std::latch goesOn{1};
    driver->duringCall = [&](std::string_view, int) { goesOn.wait(); };
    make();
    EXPECT_EQ(frame->statusText(), "NOT LOCKED");
    EXPECT_FALSE(isEnabled(Command::ScanTransponder));
    goesOn.count_down();
    frame.reset();
    document.reset(); // asks no more
}

TEST_F(MainFrame, opensWhatTheCommandsNameOnlyWhileTheyAreEnabled)
{
    open();
    for (const Command command : {Command::SiTables, Command::DriverSelection, Command::About,
                                  Command::DatabaseExport, Command::SatelliteList})
        document->run(command);
    EXPECT_EQ(dialogs.opened,
              (std::vector<std::string>{"tables", "driver", "about", "export of 0"}))
        << "there is no satellite list";
    for (const Command command :
         {Command::DeviceSettings, Command::DeviceTuning, Command::Streaming})
        frame->action(command)->trigger();
    EXPECT_EQ(driver->callsOf("Show"),
              (std::vector<std::string>{"ShowSettingsDialog", "ShowTuningDialog",
                                        "ShowStreamingDialog"}));

    // The menu still shows what the tuner was a moment ago.
    driver->locked = 0;
    settle();
    dialogs.opened.clear();
    document->run(Command::ScanTransponder);
    EXPECT_TRUE(dialogs.opened.empty());
}

TEST_F(MainFrame, keepsTheDriversCommandsDisabledWithoutItsDialogs)
{
    driver->missing = {IDeviceDialogs::kId};
    open();
    for (const Command command :
         {Command::DeviceSettings, Command::DeviceTuning, Command::Streaming})
        EXPECT_FALSE(isEnabled(command));
}

TEST_F(MainFrame, showsAndHidesItsBars)
{
    open();
    QAction* const output = frame->action(Command::OutputToggle);
    EXPECT_TRUE(output->isChecked());
    frame->outputBar().close(); // as its close button does
    EXPECT_FALSE(output->isChecked());
    output->trigger();
    EXPECT_TRUE(output->isChecked());
    EXPECT_TRUE(frame->outputBar().isVisible());

    QAction* const status = frame->action(Command::StatusBarToggle);
    status->trigger();
    EXPECT_FALSE(status->isChecked());
    EXPECT_FALSE(frame->statusBar()->isVisible());
}

TEST_F(MainFrame, goesFromPaneToPaneByKey)
{
    open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(frame.get()));
    frame->treePane().setFocus();
    std::vector<QString> visited;
    for (const auto modifier :
         {Qt::NoModifier, Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier}) {
        QTest::keyClick(frame->focusWidget(), Qt::Key_F6, modifier);
        visited.push_back(frame->focusWidget()->accessibleName());
    }
    EXPECT_EQ(visited,
              (std::vector<QString>{"Values", "Output lines", "Networks", "Output lines"}));
}

TEST_F(MainFrame, savesAnEmptyFileAndRemembersIt)
{
    const test::TemporaryFolder folder;
    const auto file = QString::fromStdString((folder / "first.tesv").string());
    test::writeFile(file.toStdString(), "");
    open();
    ASSERT_TRUE(frame->openDocument(file));
    EXPECT_EQ(frame->windowTitle(), "first.tesv - Tessaview");
    frame->action(Command::FileSave)->trigger();
    EXPECT_EQ(QFile(file).size(), 0);

    // What somebody else wrote meanwhile is not emptied without a question.
    test::writeFile(file.toStdString(), "precious");
    const BoxAnswer no(Qt::Key_Escape);
    frame->action(Command::FileSave)->trigger();
    EXPECT_TRUE(no.text().contains("holds data"));
    EXPECT_EQ(QFile(file).size(), 8);
    const BoxAnswer yes(Qt::Key_Y);
    frame->action(Command::FileSave)->trigger();
    EXPECT_EQ(QFile(file).size(), 0) << yes.text().toStdString();
    EXPECT_EQ(recent_files::list().front(), file);
    scan();
    const BoxAnswer told(Qt::Key_Return);
    frame->action(Command::FileSave)->trigger();
    EXPECT_TRUE(told.text().contains("what was read is not in it")) << told.text().toStdString();
}

TEST_F(MainFrame, listsTheFourFilesUsedLast)
{
    const test::TemporaryFolder folder;
    open();
    for (const char* const name : {"a&b", "2", "3", "4", "5", "4"}) {
        const auto file = (folder / name).string();
        test::writeFile(file, "");
        frame->openDocument(QString::fromStdString(file));
    }
    emit menu("&File")->aboutToShow();
    std::vector<std::string> shown = itemsOf(*menu("&File"));
    EXPECT_EQ(std::vector<std::string>(shown.begin() + 4, shown.begin() + 8),
              (std::vector<std::string>{"1 4", "2 5", "3 3", "4 2"}));

    QFile::remove(QString::fromStdString((folder / "2").string()));
    const BoxAnswer answer(Qt::Key_Escape);
    menu("&File")->actions().at(7)->trigger();
    EXPECT_TRUE(answer.text().contains("cannot be opened"));
    EXPECT_EQ(frame->windowTitle(), "4 - Tessaview");
    EXPECT_EQ(recent_files::list().size(), 3);
}

/// Records the addresses that are opened.
class Browser : public QObject {
    Q_OBJECT

public:
    Browser() { QDesktopServices::setUrlHandler("test", this, "open"); }
    ~Browser() override { QDesktopServices::unsetUrlHandler("test"); }

    std::vector<std::string> opened;

public slots:
    void open(const QUrl& url) { opened.push_back(url.toString().toStdString()); }
};

TEST_F(MainFrame, opensTheAddressesOfTheHelpMenu)
{
    Browser browser;
    open();
    for (const Command command :
         {Command::Homepage, Command::EmailAuthor, Command::CheckForUpdates})
        frame->action(command)->trigger();
    EXPECT_EQ(browser.opened,
              (std::vector<std::string>{"test:home", "test:mail", "test:updates?PID=100&BUILD=5"}));
}

} // namespace

#include "main_frame_test.moc"
