#include "app/window_host.h"

#include "acquisition/driver_access.h"
#include "app/tessaview3_app.h"
#include "log/log_file.h"
#include "platform/settings.h"
#include "tests/app/installed_components.h"
#include "tests/support/windows.h"
#include "ui/tree_pane.h"

#include <gmock/gmock.h>
#include <optional>

#include <QAction>
#include <QComboBox>
#include <QPushButton>
#include <QSignalSpy>
#include <gtest/gtest.h>

using namespace tessaview;
using test::whenShown;

namespace {

const std::string kSample = TESSAVIEW_BUILD_DIR "/share/tessaview3/sample.ts";

class Window : public testing::Test {
protected:
    Window()
    {
        components_.satelliteList();
        components_.captureDriver();
        components_.scriptedDriver(test::scripted::kWorks, "Receiver");
        Settings(settings_).setText(kSettingsKey, kDriverClassValue,
                                    toText(test::scripted::kWorks));
        application_.emplace(host_, ApplicationPlaces{.executable = "/opt/bin/tessaview3",
                                                      .logFile = (home_ / "log.txt").string(),
                                                      .settingsFile = settings_,
                                                      .allUsersFolder = std::nullopt,
                                                      .userFolder = home_ / "user",
                                                      .componentFolders = {components_.folder()}});
        EXPECT_TRUE(application_->InitInstance());
    }
    ~Window() override
    {
        host_.closeDocument();
        application_->ExitInstance();
        g_log.Close();
    }

    static CMainFrame& frame()
    {
        for (QWidget* const window : QApplication::topLevelWidgets())
            if (auto* const frame = qobject_cast<CMainFrame*>(window))
                return *frame;
        throw std::runtime_error("no main window");
    }
    static int treeRows() { return frame().treePane().model()->rowCount(); }

    test::TemporaryFolder home_;
    const test::Environment environment_{"TESSAVIEW_TEST_JOURNAL", (home_ / "journal").c_str()};
    std::filesystem::path settings_ = home_ / "settings.json";
    test::InstalledComponents components_{home_ / "components"};
    WindowHost host_{std::chrono::hours(1)};
    std::optional<CTessaview3App> application_;
};

TEST_F(Window, readsADroppedCaptureAtOnceInPlaceOfTheDriver)
{
    EXPECT_TRUE(test::drop(frame(), {kSample}));
    ASSERT_TRUE(QTest::qWaitFor([] { return treeRows() > 0; }, 20'000));
    EXPECT_EQ(Settings(settings_).text(kSettingsKey, kDriverClassValue),
              toText(test::scripted::kWorks));
    // The second time there is data to be kept or not, which is asked before the driver is told.
    const std::string other = home_ / "other.ts";
    std::filesystem::copy_file(kSample, other);
    test::MessageReader boxes;
    boxes.answer = QMessageBox::Cancel;
    EXPECT_TRUE(test::drop(frame(), {other}));
    ASSERT_TRUE(QTest::qWaitFor([&] { return boxes.texts.size() == 1; }, 20'000));
    EXPECT_EQ(boxes.texts.back(), "Data is already loaded.\nDo you want to keep existing data ?");
    QCoreApplication::processEvents();
    EXPECT_GT(treeRows(), 0);
    const auto source = [this] { return DriverAccess(application_->driver()).sourceName(0); };
    EXPECT_THAT(source(), testing::EndsWith("sample.ts"));
    boxes.answer = QMessageBox::No;
    QSignalSpy resets(frame().treePane().model(), &QAbstractItemModel::modelReset);
    EXPECT_TRUE(test::drop(frame(), {other}));
    ASSERT_TRUE(QTest::qWaitFor([&] { return resets.size() == 3; }, 20'000)) << "read anew";
    EXPECT_EQ(boxes.texts.size(), 2U) << "asked once only";
    EXPECT_THAT(source(), testing::EndsWith("other.ts"));
    EXPECT_GT(treeRows(), 0);
}

TEST_F(Window, readsNothingAtOnceByTheCommandAfterADrop)
{
    EXPECT_TRUE(test::drop(frame(), {kSample}));
    ASSERT_TRUE(QTest::qWaitFor([] { return treeRows() > 0; }, 20'000));
    const auto started =
        whenShown({[](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); },
                   [](QWidget& dialog) {
                       const auto& start = test::control<QPushButton>(dialog, 1011);
                       EXPECT_TRUE(test::waitFor([&] { return start.isEnabled(); }));
                       EXPECT_EQ(start.text(), "Start");
                       QTest::keyClick(&dialog, Qt::Key_Escape);
                   }});
    frame().action(Command::ScanTransponder)->trigger();
    EXPECT_EQ(started->left(), 0U);
}

TEST_F(Window, asksWhetherToCallADriverAgain)
{
    const auto shown = whenShown({[](QWidget& box) {
                                      EXPECT_EQ(test::messageOf(box), "It did not come back.");
                                      test::click(box, "&Try again");
                                  },
                                  [](QWidget& box) { test::click(box, "Start &without it"); },
                                  [](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); }});
    for (const bool again : {true, false, false})
        EXPECT_EQ(host_.askToTryAgain("It did not come back.", ""), again);
    host_.quit();
    EXPECT_EQ(host_.askToTryAgain("It did not come back.", ""), std::nullopt);
    EXPECT_EQ(shown->left(), 0U);
}

TEST_F(Window, tellsWhatCannotBeReadOfADropAndStaysAsItWas)
{
    const auto shown = whenShown({[](QWidget& box) {
        EXPECT_EQ(test::messageOf(box), "None of these captures can be read.");
        QTest::keyClick(&box, Qt::Key_Return);
    }});
    EXPECT_TRUE(test::drop(frame(), {home_ / "gone.ts"}));
    ASSERT_TRUE(QTest::qWaitFor([&] { return shown->left() == 0; }, 20'000));
    EXPECT_EQ(test::readFile(home_ / "journal").find("Shutdown"), std::string::npos);
}

TEST_F(Window, takesNoDropWithoutFiles)
{
    QMimeData data;
    data.setUrls({QUrl("https://tessaview.example/x.ts")});
    QDropEvent event({}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    event.ignore();
    QApplication::sendEvent(&frame(), &event);
    EXPECT_FALSE(event.isAccepted());
}

TEST_F(Window, storesAnotherDriverFromTheMenuAndTellsToRestart)
{
    const auto shown = whenShown({[](QWidget& dialog) {
                                      EXPECT_EQ(dialog.windowTitle(), "Driver selction");
                                      auto* const names = dialog.findChild<QComboBox*>();
                                      EXPECT_EQ(names->currentText(), "Scripted <b>driver</b>");
                                      names->setCurrentText("Captured transport streams");
                                      QTest::keyClick(&dialog, Qt::Key_Return);
                                  },
                                  [](QWidget& box) {
                                      EXPECT_EQ(test::messageOf(box),
                                                "You must restart application for any changed to "
                                                "be effected.");
                                      QTest::keyClick(&box, Qt::Key_Return);
                                  },
                                  [](QWidget& dialog) {
                                      EXPECT_EQ(dialog.windowTitle(), "Driver selction");
                                      QTest::keyClick(&dialog, Qt::Key_Escape);
                                  }});
    const auto stored = [&] { return Settings(settings_).text(kSettingsKey, kDriverClassValue); };
    frame().action(Command::DriverSelection)->trigger();
    EXPECT_EQ(stored(), "{8F6E0A52-3B1D-4C7E-9A64-D20B71C5E3F8}");
    frame().action(Command::DriverSelection)->trigger();
    EXPECT_EQ(stored(), "{8F6E0A52-3B1D-4C7E-9A64-D20B71C5E3F8}");
    EXPECT_EQ(shown->left(), 0U);
}

} // namespace
