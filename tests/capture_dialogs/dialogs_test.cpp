#include "platform/settings.h"
#include "tests/capture/loaded_driver.h"
#include "tests/support/windows.h"
#include "tools/multiplex/descriptors.h"
#include "tools/multiplex/sections.h"
#include "tools/multiplex/stream_builder.h"
#include "ui/window_handle.h"

#include <functional>
#include <thread>

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>

// The dialogs as a user sees them, in the library that the driver loads for them.

namespace {

namespace fs = std::filesystem;
using namespace test;
using namespace tessaview;

class CaptureDialogs : public testing::Test {
protected:
    CaptureDialogs()
    {
        const Bytes delivery =
            satelliteDelivery({.frequency = 1218700, .orbitalPosition = 192, .polarization = 1});
        stream_ =
            StreamBuilder()
                .put(0x0000, pat(0x8001, {}))
                .put(0x0010, nit(0x40, 1, {},
                                 {{.stream = 0x8001, .network = 1, .descriptors = {delivery}}}))
                .build();
        bare_ = StreamBuilder().put(0x0000, pat(2, {})).build();
    }

    using Show = Status (IDeviceDialogs::*)(WindowHandle) noexcept;

    /// Shows a dialog and lets a user act on it.
    void show(Show which, const std::function<void(QDialog&)>& act)
    {
        bool acted = false;
        QWidget owner;
        QTimer::singleShot(0, [&] {
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            EXPECT_EQ(dialog->parentWidget(), &owner);
            act(*dialog);
            acted = true;
            if (dialog->isVisible())
                dialog->reject();
        });
        const auto dialogs = driver_.as<IDeviceDialogs>();
        EXPECT_EQ((dialogs.get()->*which)(tessaview::windowHandle(&owner)), status::kOk);
        EXPECT_TRUE(acted);
    }

    static void add(QDialog& dialog, const std::vector<fs::path>& files)
    {
        test::drop(dialog, files);
        auto* const remove = dialog.findChild<QPushButton*>("remove");
        EXPECT_TRUE(QTest::qWaitFor([&] { return remove->isEnabled(); }, 20'000));
    }

    /// The rows of the tree, those of a folder indented; the checked one has a plus sign.
    static std::string rows(const QDialog& dialog)
    {
        const QAbstractItemModel& model = *dialog.findChild<QTreeView*>("captures")->model();
        std::string text;
        const std::function<void(const QModelIndex&, int)> list = [&](const QModelIndex& parent,
                                                                      int depth) {
            for (int i = 0; i < model.rowCount(parent); ++i) {
                text.append(static_cast<std::size_t>(depth), ' ');
                const QModelIndex first = model.index(i, 0, parent);
                if (first.data(Qt::CheckStateRole).toInt() == Qt::Checked)
                    text += '+';
                for (int column = 0; column < model.columnCount(); ++column)
                    text += first.siblingAtColumn(column).data().toString().toStdString() + '|';
                text += '\n';
                list(first, depth + 1);
            }
        };
        list({}, 0);
        return text;
    }

    static void press(QDialog& dialog, const char* button)
    {
        QTest::mouseClick(dialog.findChild<QPushButton*>(button), Qt::LeftButton);
    }

    LoadedDriver driver_;
    Bytes stream_;
    Bytes bare_;
};

TEST_F(CaptureDialogs, tuningChoosesAndStoresCaptures)
{
    const fs::path set = driver_.folder() / "set";
    driver_.file("set/a.ts", bare_);
    driver_.file("set/Astra/b.ts", stream_);
    driver_.file("set/empty.ts", {});
    const fs::path single = driver_.file("c.ts", bare_);
    const std::string sizeA = std::to_string(bare_.size()) + " bytes|";
    const std::string sizeB = std::to_string(stream_.size()) + " bytes|";
    show(&IDeviceDialogs::ShowTuningDialog, [&](QDialog& dialog) {
        EXPECT_EQ(rows(dialog), "");
        add(dialog, {set, single});
        EXPECT_EQ(rows(dialog), set.string() +
                                    "|||||\n"
                                    " +Astra/b.ts|8001|12187 MHz V 27500 kS/s|" +
                                    sizeB +
                                    "|\n"
                                    " a.ts|0002||" +
                                    sizeA +
                                    "|\n"
                                    " empty.ts||||is empty|\n" +
                                    single.string() + "|0002||" + sizeA + "|\n");
    });
    EXPECT_FALSE(driver_.isLocked()) << "the dialog was not left with OK";

    show(&IDeviceDialogs::ShowTuningDialog, [&](QDialog& dialog) {
        add(dialog, {set, single});
        auto* const view = dialog.findChild<QTreeView*>("captures");
        view->setFocus();
        view->setCurrentIndex(view->model()->index(1, 0));
        QTest::keyClick(view, Qt::Key_Space);
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    EXPECT_EQ(driver_.statusText(), "capture c.ts locked");
    EXPECT_EQ(driver_.initialize(), status::kOk);
    EXPECT_EQ(driver_.statusText(), "capture c.ts locked");

    show(&IDeviceDialogs::ShowTuningDialog, [&](QDialog& dialog) {
        auto* const view = dialog.findChild<QTreeView*>("captures");
        view->setCurrentIndex(view->model()->index(1, 0));
        press(dialog, "remove");
        EXPECT_EQ(rows(dialog).find("c.ts"), std::string::npos);
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    EXPECT_EQ(Settings(defaultSettingsFile()).texts("drivers", "captures"),
              std::vector<std::string>{set.string()});
    EXPECT_TRUE(driver_.isLocked());
}

TEST_F(CaptureDialogs, settingsStoreTheTunerType)
{
    driver_.use({driver_.file("a.ts", bare_)});
    for (const int row : {1, 2, 0}) {
        show(&IDeviceDialogs::ShowSettingsDialog, [row](QDialog& dialog) {
            dialog.findChild<QComboBox*>("type")->setCurrentIndex(row);
            QTest::keyClick(&dialog, Qt::Key_Return);
        });
        EXPECT_EQ(driver_.tunerType(), static_cast<unsigned>(row + 1));
        EXPECT_EQ(Settings(defaultSettingsFile()).number("drivers", "tunertype"),
                  static_cast<std::uint32_t>(row + 1));
    }
    // What the captures say themselves goes before.
    driver_.use({driver_.file("b.ts", stream_)});
    show(&IDeviceDialogs::ShowSettingsDialog, [](QDialog& dialog) {
        dialog.findChild<QComboBox*>("type")->setCurrentIndex(2);
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    EXPECT_EQ(driver_.tunerType(), 1U);
}

TEST_F(CaptureDialogs, streamingWritesTheStreamOrSaysWhyNot)
{
    const fs::path source = driver_.file("a.ts", stream_);
    const std::string content = readFile(source);
    show(&IDeviceDialogs::ShowStreamingDialog, [](QDialog& dialog) {
        EXPECT_FALSE(dialog.findChild<QPushButton*>("start")->isEnabled()) << "no capture chosen";
    });
    driver_.use({source});
    writeFile(driver_.folder() / "old.ts", "old");
    const struct {
        const char* name;
        QMessageBox::StandardButton answer; // to the question whether the file may be replaced
        const char* message;
        const char* written; // null: the stream
    } cases[] = {
        {"", QMessageBox::NoButton, "Name the file", ""},
        {"a.ts", QMessageBox::Yes, "is the capture itself", ""},
        {"missing/a.ts", QMessageBox::NoButton, "No such file", ""},
        {"old.ts", QMessageBox::No, "", "old"},
        {"old.ts", QMessageBox::Yes, "were written to", nullptr},
        {"new.ts", QMessageBox::NoButton, "were written to", nullptr},
    };
    for (const auto& each : cases)
        show(&IDeviceDialogs::ShowStreamingDialog, [&](QDialog& dialog) {
            const fs::path target = driver_.folder() / each.name;
            if (*each.name != '\0')
                dialog.findChild<QLineEdit*>("destination")
                    ->setText(QString::fromStdString(target.string()));
            QTimer::singleShot(0, &dialog, [&] {
                if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
                    box->button(each.answer)->click();
            });
            auto* const start = dialog.findChild<QPushButton*>("start");
            start->click();
            EXPECT_TRUE(QTest::qWaitFor(
                [&] { return start->isEnabled() && start->text() == "&Start"; }, 20'000));
            const std::string message = dialog.findChild<QLabel*>("message")->text().toStdString();
            EXPECT_NE(message.find(each.message), std::string::npos) << message;
            if (!each.written || *each.written != '\0') {
                EXPECT_EQ(readFile(target), each.written ? each.written : content);
            }
        });
    EXPECT_EQ(readFile(source), content);
}

TEST_F(CaptureDialogs, streamingIsCancelledByEscape)
{
    // Large enough to be under way still, whatever the machine: a hole takes no room on the disk,
    // and the copy never gets far.
    const fs::path source = driver_.file("a.ts", stream_);
    driver_.use({source});
    fs::resize_file(source, std::uintmax_t{1} << 36);
    show(&IDeviceDialogs::ShowStreamingDialog, [&](QDialog& dialog) {
        const fs::path target = driver_.folder() / "copy.ts";
        dialog.findChild<QLineEdit*>("destination")
            ->setText(QString::fromStdString(target.string()));
        auto* const start = dialog.findChild<QPushButton*>("start");
        start->click();
        QTest::keyClick(&dialog, Qt::Key_Escape);
        EXPECT_TRUE(dialog.isVisible()) << "the copy has to end first";
        EXPECT_TRUE(QTest::qWaitFor([&] { return start->isEnabled() && start->text() == "&Start"; },
                                    20'000));
        EXPECT_FALSE(fs::exists(target));
        EXPECT_FALSE(fs::exists(target.string() + ".part"));
        QTest::keyClick(&dialog, Qt::Key_Escape);
        EXPECT_FALSE(dialog.isVisible());
    });
}

TEST_F(CaptureDialogs, areRefusedOnOtherThreads)
{
    const auto dialogs = driver_.as<IDeviceDialogs>();
    std::thread([&] { EXPECT_EQ(dialogs->ShowTuningDialog(nullptr), status::kNotReady); }).join();
}

} // namespace
